// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "addin/connect.h"
#include "platform/help.h"
#include "platform/studio.h"
#include "platform/toolkit.h"
#include "platform/window_system.h"
#include "project/project.h"
#include "studio/catalogue_notes.h"
#include "studio/studio.h"
#include "texts/text_table.h"

namespace studio {

// The add-in at work on a project: the studio's stand-in and the add-in, which is driven by the
// studio's events only.
class AddInSession {
 public:
  // All of it outlives the session.
  struct Dependencies {
    platform::Toolkit& toolkit;
    platform::WindowSystem& window_system;
    platform::Help& help;
    platform::SettingsService& settings;
    const texts::TextTable& texts;
    // Shows a report, one HTML document.
    std::function<void(const std::string& html)> show_report;
  };

  // The project outlives the session. Its database is not open: the first click opens it.
  AddInSession(project::Project& project, const Dependencies& dependencies);
  ~AddInSession();
  AddInSession(const AddInSession&) = delete;
  AddInSession& operator=(const AddInSession&) = delete;

  // Sends Initialize; the windows of Studio::Window must be set.
  void Start();
  // Sends Terminate; called by the destructor when it was not before.
  void Stop();

  Studio& studio() { return *studio_; }
  addin::Connect& add_in() { return *add_in_; }

 private:
  class Reports;

  project::Project& project_;
  Dependencies dependencies_;
  CatalogueNotes notes_;
  std::unique_ptr<Reports> reports_;
  std::shared_ptr<Studio> studio_;
  std::unique_ptr<addin::Connect> add_in_;
  bool started_ = false;
};

}  // namespace studio
