// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "addin/connect.h"
#include "files/unit_of_work.h"
#include "platform/help.h"
#include "platform/toolkit.h"
#include "platform/window_system.h"
#include "project/component_list_file.h"
#include "project/connection_participant.h"
#include "project/file_settings_service.h"
#include "project/foreign_changes.h"
#include "project/item_file.h"
#include "project/project.h"
#include "recordset/jet_connection.h"
#include "studio/studio.h"
#include "texts/text_table.h"
#include "vbfiles/environment.h"

namespace studio {

// One project in the workbench's window: the studio's stand-in, the add-in, and the engines under
// both. The add-in is driven by the studio's events only.
class AddInSession {
 public:
  // All of it outlives the session.
  struct Outside {
    files::FileSystem& files;
    platform::Toolkit& toolkit;
    platform::WindowSystem& window_system;
    platform::Help& help;
    project::FileSettingsService& settings;
    const texts::TextTable& texts;
    // Shows a report, one HTML document.
    std::function<void(const std::string& html)> show_report;
  };

  // Raises platform::Error or files::Error when the Visual Basic projects cannot be opened, or
  // when an interrupted operation has to be decided on. The database is opened by the first click.
  AddInSession(const Outside& outside, const std::string& database_path,
               const project::ProjectOptions& options);
  ~AddInSession();
  AddInSession(const AddInSession&) = delete;
  AddInSession& operator=(const AddInSession&) = delete;

  // Sends Initialize; the windows of Studio::Window must be set.
  void Start();
  // Sends Terminate; called by the destructor when it was not before.
  void Stop();

  const std::string& database_path() const { return database_path_; }
  Studio& studio() { return *studio_; }
  addin::Connect& add_in() { return *add_in_; }
  vbfiles::Environment& vb() { return *vb_; }
  files::JournalledUnitOfWork& unit() { return unit_; }
  project::ItemFile& items() { return items_; }
  // What other programs do to the database.
  project::ForeignChanges& foreign_changes() { return foreign_changes_; }
  // The database and every Visual Basic file that it may change.
  std::vector<std::string> Files();

 private:
  class Reports;

  Outside outside_;
  std::string database_path_;
  std::shared_ptr<recordset::JetConnection> connection_;
  project::ConnectionParticipant database_;
  std::shared_ptr<vbfiles::Environment> vb_;
  project::ItemFile items_;
  std::unique_ptr<project::ComponentListFile> components_;
  project::ForeignChanges foreign_changes_;
  files::JournalledUnitOfWork unit_;
  std::unique_ptr<Reports> reports_;
  std::shared_ptr<Studio> studio_;
  std::unique_ptr<addin::Connect> add_in_;
  bool started_ = false;
};

}  // namespace studio
