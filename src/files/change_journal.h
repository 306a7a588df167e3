// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "files/change_set.h"
#include "files/file_system.h"

namespace files {

// Makes a ChangeSet last: all of it or nothing, whatever happens. The journal stands beside the
// database under the name <database>.journal while a commit is under way.
class ChangeJournal {
 public:
  ChangeJournal(FileSystem& system, std::string database_path);

  // Applies the changes and returns when they are on the medium. On failure everything is put
  // back and the cause is raised: kConflict when a file is not in its expected state before.
  void Commit(const ChangeSet& changes);

 private:
  FileSystem& system_;
  std::string database_path_;
};

}  // namespace files
