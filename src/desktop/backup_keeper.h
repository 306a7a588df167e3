// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/window_messages.h"
#include "desktop/window_parts.h"
#include "project/backups.h"
#include "project/daily_backup.h"
#include "project/project.h"

namespace desktop {

// The backups of the project that is open or could not be opened: made before the first change of
// a day, shown in a menu, restored when the user wants one.
class BackupKeeper {
 public:
  struct Dependencies {
    const WindowParts& parts;
    const WindowMessages& messages;
    std::function<void(const std::vector<std::string>&)> show;  // names for the menu
    std::function<void(std::function<void()>)> later;           // when no event is handled
    std::function<bool()> close_project;                        // false: the user stays
    std::function<bool(const std::string&)> open_project;       // true: it is open
  };

  explicit BackupKeeper(Dependencies dependencies) : outside_(std::move(dependencies)) {}

  // Lists the backups of a project; "" for none.
  void List(const std::string& path);
  // Before the first change of a day the project's files are copied. The project goes before this
  // object or before the next one is watched.
  void Watch(project::Project& opened);
  // For a project that cannot be shown: the last state from which a day's work began.
  void Offer(const std::string& path);
  // Asks, and restores the backup at a place of the menu.
  void Restore(std::size_t place);

 private:
  void Restore(const project::Backups::Backup& backup);
  project::Backups BackupsOf(const std::string& path) const;

  Dependencies outside_;
  std::vector<project::Backups::Backup> backups_;  // in the order of their menu
  std::string path_;                               // the project that they are of
  bool restoring_ = false;
  std::unique_ptr<project::DailyBackup> daily_;
};

}  // namespace desktop
