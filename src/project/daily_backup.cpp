// SPDX-License-Identifier: MIT
#include "project/daily_backup.h"

#include <utility>

namespace project {

DailyBackup::DailyBackup(files::FileSystem& system, std::string folder, Outside outside)
    : backups_(system, std::move(folder)), outside_(std::move(outside)) {}

void DailyBackup::Collect(files::ChangeSet& changes) {
  if (changes.empty()) return;
  const std::string today = outside_.today();
  if (day_ == today) return;
  day_ = today;
  try {
    if (backups_.MakeDaily(today, outside_.files())) outside_.made();
  } catch (const std::exception& error) {
    outside_.failed(error);
  }
}

}  // namespace project
