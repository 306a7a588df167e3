// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "files/file_system.h"
#include "files/journal_format.h"

namespace files {

// The file of a change journal: who may write it, and when it may go. It exists while a program
// of ours has the database open for writing, idle between commits (so that a commit need not
// create a name and sync it), and is removed by the last that used it.
//
// Two bytes far behind its contents are locked: one exclusively by who commits or recovers, one
// shared by everybody who has it open, so that nobody removes it under them. Whoever has locked
// it makes sure that the file still bears the name: one that was removed by hand would protect
// nothing.
class JournalFile {
 public:
  // `database` as ResolveTarget returns it; the journal stands beside it and lets in whom it does.
  JournalFile(FileSystem& system, std::string database);
  ~JournalFile();
  JournalFile(const JournalFile&) = delete;
  JournalFile& operator=(const JournalFile&) = delete;

  // Whether the holder of another open file has the lock for a commit or a recovery.
  static bool IsInUse(RandomAccessFile& file);

  const std::string& path() const { return path_; }

  // Takes the lock for a commit or a recovery. False when there is no file and `create` is not
  // set. Raises kLocked when somebody else commits or recovers now.
  bool Lock(bool create);
  void Unlock() noexcept;
  bool locked() const { return locked_; }

  // The rest: only while locked.
  RandomAccessFile& file() { return *file_; }
  // Makes the file's name last, once.
  void SyncName();
  // Writes the mark that the change is given up, and syncs it.
  void Abandon();
  // Writes the mark that nothing is under way, the change made, syncs it, and gives much room back.
  void MarkIdle();
  // The same for a change that was put back.
  void MarkPutBack();

  // Removes the file unless another program uses it or it is not idle. Not while locked.
  void RemoveIfUnused() noexcept;

 private:
  bool BearsName();
  void SyncMark();
  // False when there is no file. Leaves file_ empty when somebody is removing it just now.
  bool Open(bool create);

  FileSystem& system_;
  std::string database_;
  std::string path_;
  std::unique_ptr<RandomAccessFile> file_;
  bool locked_ = false;
  bool name_synced_ = false;
};

// Holds the lock of a journal file for a scope.
class JournalLock {
 public:
  JournalLock(JournalFile& journal, bool create) : journal_(journal), held_(journal.Lock(create)) {}
  ~JournalLock() {
    if (held_) journal_.Unlock();
  }
  JournalLock(const JournalLock&) = delete;
  JournalLock& operator=(const JournalLock&) = delete;
  bool held() const { return held_; }

 private:
  JournalFile& journal_;
  bool held_;
};

// Opens a journal, which may be removed by others at any time; null when there is none. Raises
// kInTheWay or kManyNames for what stands there and is not a file of its own.
std::unique_ptr<RandomAccessFile> OpenIfExists(FileSystem& system, const std::string& path,
                                               OpenMode mode);

// Whether anything stands under the name of the database's journal.
bool HasJournal(FileSystem& system, const std::string& database_path);

// The journal's path: beside the file that the database's path leads to, links resolved.
std::string JournalPath(FileSystem& system, const std::string& database_path);

}  // namespace files
