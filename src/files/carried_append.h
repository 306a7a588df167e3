// SPDX-License-Identifier: MIT
// The file beside a database that its programs only append to, with every commit. A commit carries
// what it appends in the journal, which is synced anyway, so that the file needs no sync of its
// own: after a power cut it gets from the journal what it lacks. It is synced when the journal has
// no more room, and before the journal is removed.
//
// It follows the change and never decides it: whatever becomes of this file, the commit stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "files/change_set.h"
#include "files/file_system.h"
#include "files/journal_format.h"

namespace files {

// "<name>.history" beside the resolved path of the database "<name>.<extension>".
std::string AppendedPath(const FileSystem& system, const std::string& database);

// Only while the journal is locked.
class CarriedAppend {
 public:
  // `database` as ResolveTarget returns it.
  CarriedAppend(FileSystem& system, std::string database, RandomAccessFile& journal);

  // Gives the file what an idle journal carries and it lacks. Raises files::Error.
  void Settle();
  // Settles, and returns when all of it is on the medium. Raises files::Error.
  void Sync();

  // What the next journal carries, when `appended` (null: nothing) is to follow. `settled`: the
  // file has what is carried by now. Raises files::Error when room has to be made and cannot be.
  journal::Carried Next(const FileAppend* appended, bool settled);
  // Puts the bytes behind the end of the file once their commit is done. Raises files::Error.
  void Write(const FileAppend& appended);

 private:
  std::unique_ptr<RandomAccessFile> Open(OpenMode mode);
  std::uint64_t HashOfHead(RandomAccessFile& file) const;
  // The first bytes of what the journal carries; fewer when it is damaged.
  std::vector<std::byte> ReadCarried(std::uint64_t size) const;

  FileSystem& system_;
  std::string database_;
  std::string path_;
  RandomAccessFile& journal_;
  journal::Carried carried_;
};

}  // namespace files
