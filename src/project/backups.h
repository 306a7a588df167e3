// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_system.h"

namespace project {

// Copies of a project's files, made before the first change of a day, in a folder of the user's
// state. Each backup is a folder with its name that holds numbered copies and a list of where
// they belong; the list is written last, so that a folder without it is no backup. The list begins
// with the backup's number: clocks go wrong, the order in which backups were made does not. Copies
// have the database's permissions.
class Backups {
 public:
  static constexpr std::size_t kKept = 10;

  struct Backup {
    std::string name;  // its date, "2026-11-21", or date and time of a restoring
    std::string folder;
    std::vector<std::string> files;  // where they belong, in the order of the copies
    std::uint64_t number = 0;        // rises with each that is made
    // Made before a day's first change, not by a restoring.
    bool IsDaily() const { return name.size() == std::string_view("2026-11-21").size(); }
  };

  // `folder` belongs to one project.
  Backups(files::FileSystem& system, std::string folder);

  // Copies the files that exist, the database first, unless a backup of that date exists; then
  // removes what is more than kKept. False when there was one. Raises files::Error; an unfinished
  // backup is made anew the next time.
  bool MakeDaily(const std::string& date, const std::vector<std::string>& files);
  // The last made first.
  std::vector<Backup> List();
  // Puts every file back as it was, byte for byte: all of them or none. What they hold now is
  // kept before as a backup named `present`, and that stays until kKept more were made. Raises
  // files::Error, kLocked when anybody has the database open, or platform::Error; nothing is
  // changed then.
  void Restore(const Backup& backup, const std::string& present);

 private:
  // Of the backups that are too many `kept` is not removed.
  void Make(const std::string& name, const std::vector<std::string>& files,
            const std::string& kept = {});
  void RemoveFolder(const std::string& folder);

  files::FileSystem& system_;
  std::string folder_;
};

}  // namespace project
