// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "files/change_set.h"
#include "files/file_system.h"
#include "files/journal_file.h"

namespace files {

// Makes a ChangeSet last: all of it or nothing, whatever happens. The journal stands beside the
// database under the name <database>.journal; the file is removed with the last ChangeJournal of
// the database that used it.
class ChangeJournal {
 public:
  // Touches no file. The path may lead through links; it should not change while this lives.
  ChangeJournal(FileSystem& system, std::string database_path);

  // Applies the changes and returns when they are on the medium. On failure everything is put
  // back and the cause is raised: kConflict when a file is not in its expected state before,
  // kLocked when another program commits, NotUndoneError when putting back failed too. An
  // interrupted change of another program is recovered first.
  void Commit(const ChangeSet& changes);

 private:
  FileSystem& system_;
  std::string database_path_;
  std::unique_ptr<JournalFile> journal_;  // once something was committed
};

}  // namespace files
