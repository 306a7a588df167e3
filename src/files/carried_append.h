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
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "files/change_set.h"
#include "files/file_system.h"
#include "files/journal_format.h"

namespace files {

// "<name>.history" beside the resolved path of the database "<name>.ovs". A database that is named
// otherwise keeps its whole name, so that no other's history is taken for its own, nor itself.
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
  // file has what is carried by now. Raises files::Error when room has to be made and cannot be,
  // and what `appended` raises.
  journal::Carried Next(const FileAppend* appended, bool settled);
  // Of the bytes that the next journal carries those that are to be written there yet: a few of
  // them are kept until then, many stand in the journal as they came.
  std::string_view kept() const { return kept_; }
  // Puts the bytes behind the end of the file once their commit is done. Raises files::Error.
  void Write();

 private:
  std::unique_ptr<RandomAccessFile> Open(OpenMode mode);
  std::uint64_t HashOfHead(RandomAccessFile& file) const;
  // Calls `visit` with the journal's carried bytes from `begin` to `end`, block by block. False
  // when there are fewer.
  bool ForEachBlock(std::uint64_t begin, std::uint64_t end,
                    const std::function<void(std::uint64_t, std::span<const std::byte>)>& visit);
  // Makes the whole room free: what it has is on the medium.
  void ClearRoom();
  // The next journal's when it carries nothing else.
  journal::Carried Alone(std::uint64_t size, std::uint64_t hash);
  // Takes all that is appended, a few bytes into kept_, many into the journal. What is carried
  // then; nothing as long as it is kept.
  std::optional<journal::Carried> TakeIn(const FileAppend& appended);

  FileSystem& system_;
  std::string database_;
  std::string path_;
  RandomAccessFile& journal_;
  journal::Carried carried_;
  journal::Carried next_;
  std::uint64_t offset_ = 0;  // where what is appended belongs
  std::string kept_;
};

}  // namespace files
