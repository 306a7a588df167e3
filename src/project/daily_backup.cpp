// SPDX-License-Identifier: MIT
#include "project/daily_backup.h"

#include <utility>

namespace project {

DailyBackup::DailyBackup(files::FileSystem& system, std::string folder, Dependencies dependencies)
    : backups_(system, std::move(folder)), dependencies_(std::move(dependencies)) {}

void DailyBackup::Collect(files::ChangeSet& changes) {
  if (changes.empty()) return;
  const std::string today = dependencies_.today();
  if (day_ == today) return;
  day_ = today;
  try {
    if (backups_.MakeDaily(today, dependencies_.files())) dependencies_.made();
  } catch (const std::exception& error) {
    dependencies_.failed(error);
  }
}

}  // namespace project
