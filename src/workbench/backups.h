// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "files/file_system.h"

namespace workbench {

// Copies of a project's files, made before the first change of a day, in a folder of the user's
// state. Each backup is a folder named by its date that holds numbered copies and a list of where
// they belong; the list is written last, so that a folder without it is no backup.
class Backups {
 public:
  static constexpr std::size_t kKept = 10;

  struct Backup {
    std::string date;  // "2026-11-21"
    std::string folder;
    std::vector<std::string> files;  // where they belong, in the order of the copies
  };

  // `folder` belongs to one project.
  Backups(files::FileSystem& system, std::string folder);

  // Copies the files that exist, unless a backup of that date exists; then removes what is more
  // than kKept. Raises files::Error; an unfinished backup is made anew the next time.
  void MakeDaily(const std::string& date, const std::vector<std::string>& files);
  // Newest first.
  std::vector<Backup> List();
  // Puts every file back as it was, byte for byte, each by an atomic replacement. Raises
  // files::Error when one of them cannot be written; those before it are put back already.
  void Restore(const Backup& backup);

 private:
  void RemoveFolder(const std::string& folder);

  files::FileSystem& system_;
  std::string folder_;
};

}  // namespace workbench
