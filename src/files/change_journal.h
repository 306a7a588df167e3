// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "files/change_set.h"
#include "files/file_identity.h"
#include "files/file_system.h"
#include "files/journal_file.h"

namespace files {

// Makes a ChangeSet last: all of it or nothing, whatever happens. The journal stands beside the
// database under the name <database>.journal; the file is removed with the last ChangeJournal of
// the database that used it.
class ChangeJournal {
 public:
  // Touches no file. The path may lead through links; it should not change while this lives. What
  // is written, and recovered, besides the database is within the reach.
  ChangeJournal(FileSystem& system, std::string database_path, Reach reach = {});

  // Applies the changes and returns when they are on the medium. On failure everything is put
  // back and the cause is raised: kConflict when a file is not in its expected state before,
  // kLocked when another program commits, kOutside and kManyNames for files that must not be or
  // cannot be replaced, NotUndoneError when putting back failed too. An interrupted change of
  // another program is recovered first; when that had begun, this one is refused (kConflict): what
  // it was made from was not the truth.
  void Commit(const ChangeSet& changes);

 private:
  FileSystem& system_;
  std::string database_path_;
  Reach reach_;
  std::uint64_t last_salt_ = 0;           // of the last journal that was ours
  bool appended_ = false;                 // what that one carries stands in its file
  std::unique_ptr<JournalFile> journal_;  // once something was committed
};

}  // namespace files
