// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "files/change_journal.h"
#include "files/change_set.h"
#include "files/file_system.h"
#include "jet/database.h"
#include "jet/header_page.h"
#include "jet/lock_file.h"
#include "jet/messages.h"
#include "jet/pager.h"
#include "jet/row_log.h"

namespace jet {

// The open file of a Database: its pages, its transaction and what it has to arrange with others
// who use the file (docs/transactions.md).
//
// 1. Whoever reads holds the commit byte shared, whoever carries a transaction into the file
// holds it alone. 2. Whoever has a transaction open holds the write byte alone. 3. Each look at
// the file begins with the commit counters and the file's stamp; when they changed, all cached
// pages are dropped.
class Session {
 public:
  Session(files::FileSystem& system, const std::string& path, const OpenOptions& options);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  files::FileSystem& system() { return system_; }
  const std::string& path() const { return path_; }
  Pager& pager() { return *pager_; }
  const HeaderFields& header() const { return header_; }
  const messages::Message& read_only_reason() const { return read_only_reason_; }
  messages::Message ForeignUser();

  // Reads may nest. Raises kLocked when another process does not finish its commit in time.
  void BeginRead();
  void EndRead() noexcept;

  // Transactions nest. Begin raises kReadOnly or kLocked.
  void Begin();
  void Commit();
  void Rollback() noexcept;
  bool InTransaction() const { return pager_->level() > 0; }
  // After a failure in the middle of a change: leaves only the rollback of the innermost level.
  void Doom();
  // Raises when the transaction was doomed.
  void CheckUsable() const;

  // The outermost commit in three steps, for a unit of work that has the journal.
  void Collect(files::ChangeSet& changes);
  void Committed() noexcept;

  RowLog& row_log() { return row_log_; }

  // Rises when others changed the file, and when a rollback took changes back.
  std::uint64_t generation() const { return generation_ + pager_->generation(); }

 private:
  void OpenFile();
  void LockCommitByte();
  void LockForReading();
  void LockForCommit();
  bool Wait(std::uint64_t byte, files::LockMode mode);
  void GiveWay();
  void LookForChanges();
  bool MayWrite() const { return read_only_reason_.empty(); }
  bool HasActiveJournal();
  void RecoverJournal();
  void RaiseCounter();
  void EndTransaction() noexcept;

  files::FileSystem& system_;
  std::string path_;
  OpenOptions options_;
  std::unique_ptr<files::RandomAccessFile> file_;
  std::unique_ptr<Pager> pager_;
  std::unique_ptr<LockFile> lock_file_;
  std::optional<files::ChangeJournal> journal_;
  RowLog row_log_;
  HeaderFields header_;
  messages::Message read_only_reason_;
  messages::Message read_only_remedy_ = message::kNothingChanged;
  files::FileStamp stamp_;
  std::vector<std::byte> counters_;  // of the header page, as last seen
  std::uint64_t generation_ = 0;
  int readers_ = 0;
  int doomed_level_ = 0;  // 0: none
  bool commit_locked_ = false;
  bool write_locked_ = false;
};

// Holds a session's file for reading.
class ReadLock {
 public:
  explicit ReadLock(Session& session) : session_(session) { session_.BeginRead(); }
  ~ReadLock() { session_.EndRead(); }
  ReadLock(const ReadLock&) = delete;
  ReadLock& operator=(const ReadLock&) = delete;

 private:
  Session& session_;
};

}  // namespace jet
