// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "files/unit_of_work.h"
#include "project/backups.h"

namespace project {

// Takes part in a project's unit of work, enlisted behind the others, and makes the backup of the
// day before the first change is written. A backup that fails stops no change.
class DailyBackup final : public files::Participant {
 public:
  struct Dependencies {
    std::function<std::string()> today;               // "2026-11-21"
    std::function<std::vector<std::string>()> files;  // of the project
    std::function<void()> made;
    std::function<void(const std::exception& reason)> failed;
  };

  // `folder`: of the project's backups.
  DailyBackup(files::FileSystem& system, std::string folder, Dependencies dependencies);

  void Save() override {}
  void Collect(files::ChangeSet& changes) override;
  void Committed() noexcept override {}
  void Restore() noexcept override {}

 private:
  Backups backups_;
  Dependencies dependencies_;
  std::string day_;  // that was looked after
};

}  // namespace project
