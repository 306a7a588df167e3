// SPDX-License-Identifier: MIT
#include "jet/session.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "files/file_identity.h"
#include "files/journal_file.h"
#include "files/recovery.h"
#include "files/replace_file.h"
#include "jet/bytes.h"
#include "jet/error.h"

namespace jet {
namespace {

constexpr std::size_t kCountersSize = 2 * kUserCount;
constexpr auto kFirstPause = std::chrono::microseconds(200);
constexpr auto kMaxPause = std::chrono::milliseconds(5);
constexpr auto kMaxGiveWay = std::chrono::milliseconds(100);

// Tells other programs that this one waits.
class PlaceInQueue {
 public:
  explicit PlaceInQueue(files::RandomAccessFile& file) : file_(file) {
    file_.TryLock(kQueueByte, 1, files::LockMode::kShared);
  }
  ~PlaceInQueue() {
    try {
      file_.Unlock(kQueueByte, 1);
    } catch (const std::exception&) {
      // It goes with the file at the latest.
    }
  }
  PlaceInQueue(const PlaceInQueue&) = delete;
  PlaceInQueue& operator=(const PlaceInQueue&) = delete;

 private:
  files::RandomAccessFile& file_;
};

}  // namespace

Session::Session(files::FileSystem& system, const std::string& path, const OpenOptions& options)
    : system_(system),
      path_(files::FollowLink(system, path)),
      options_(options),
      counters_(kCountersSize) {
  if (!options_.read_only && !system_.Exists(path_)) RecoverJournal();  // its creation, perhaps
  OpenFile();
  LockCommitByte();
  RecoverJournal();
  std::vector<std::byte> first(kPageSize);
  first.resize(file_->ReadAt(0, first));
  header_ = CheckHeader(path_, first, file_->Size());
  // Beside the database: what is kept private or encrypted there gets into no folder for all.
  const auto open_scratch = [this] {
    return system_.OpenLike(files::TemporaryName(system_, path_), files::OpenMode::kScratch, path_);
  };
  pager_ =
      std::make_unique<Pager>(*file_, options.cache_pages, options.changed_pages, open_scratch);
  LookForChanges();
  file_->Unlock(kCommitByte, 1);
}

Session::~Session() {
  while (pager_ && pager_->level() > 0) Rollback();
}

// Writing needs the file, its folder (for the journal and the .ldb) and no foreign user.
void Session::OpenFile() {
  if (options_.read_only) {
    read_only_reason_ = message::kOpenedReadOnly;
  } else {
    try {
      file_ = system_.Open(path_, files::OpenMode::kReadWrite);
    } catch (const files::Error& error) {
      if (error.kind() != files::ErrorKind::kReadOnly) throw;
      read_only_reason_ = message::kWriteProtected;
      read_only_remedy_ = files::Remedy(error.kind(), path_);
    }
  }
  if (!file_) file_ = system_.Open(path_, files::OpenMode::kRead);
  if (!MayWrite()) return;
  try {
    files::CheckOneName(system_, path_, files::message::kCannotBeWritten);
    if (const messages::Message user = ForeignUser(); !user.empty()) {
      read_only_reason_ = {message::kOpenElsewhere, {{"<Computer>", user}}};
      read_only_remedy_ = message::kCloseThere;
      return;
    }
    lock_file_ =
        std::make_unique<LockFile>(system_, path_, *file_, options_.computer, options_.user);
  } catch (const files::Error& error) {
    using enum files::ErrorKind;
    if (error.kind() != kReadOnly && error.kind() != kManyNames && error.kind() != kInTheWay) throw;
    read_only_reason_ = messages::MessageOf(error);
  }
}

messages::Message Session::ForeignUser() {
  return lock_file_ ? lock_file_->ForeignUser() : FindForeignUser(system_, path_, *file_);
}

// Whether somebody died in the middle of a commit, or is putting such a file in order just now.
// Whoever lives and commits holds the commit byte, so he is not taken for dead.
bool Session::HasActiveJournal() {
  if (!files::HasJournal(system_, path_)) return false;
  try {
    return files::ExamineJournal(system_, path_, options_.reach).condition !=
           files::JournalCondition::kNone;
  } catch (const files::Error& error) {
    if (error.kind() != files::ErrorKind::kLocked) throw;
    return true;
  }
}

// Several may come to do this at once; the others wait for the first. Who only reads writes
// nothing for that either.
void Session::RecoverJournal() {
  const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(options_.wait_ms);
  while (files::HasJournal(system_, path_)) {
    try {
      if (MayWrite() && ForeignUser().empty()) {
        files::Recover(system_, path_, options_.reach);
      } else {
        files::CheckReadable(system_, path_);
      }
      return;
    } catch (const files::Error& error) {
      if (error.kind() != files::ErrorKind::kLocked) throw;
      if (std::chrono::steady_clock::now() >= until) throw;
    }
    std::this_thread::sleep_for(kMaxPause);
  }
}

bool Session::Wait(std::uint64_t byte, files::LockMode mode) {
  if (file_->TryLock(byte, 1, mode)) return true;
  const PlaceInQueue place(*file_);
  const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(options_.wait_ms);
  auto pause = std::chrono::duration_cast<std::chrono::microseconds>(kFirstPause);
  while (std::chrono::steady_clock::now() < until) {
    std::this_thread::sleep_for(pause);
    if (file_->TryLock(byte, 1, mode)) return true;
    pause = std::min<std::chrono::microseconds>(2 * pause, kMaxPause);
  }
  return false;
}

// Lets those who wait go first: they would never find the moment between two transactions of a
// program that makes one after the other.
void Session::GiveWay() {
  const auto until = std::chrono::steady_clock::now() + kMaxGiveWay;
  while (file_->IsLockedByOthers(kQueueByte, 1) && std::chrono::steady_clock::now() < until) {
    std::this_thread::sleep_for(kFirstPause);
  }
}

void Session::BeginRead() {
  if (readers_ == 0 && pager_->level() == 0) LockForReading();
  ++readers_;
}

void Session::LockCommitByte() {
  if (Wait(kCommitByte, files::LockMode::kShared)) return;
  throw Error(ErrorKind::kLocked, path_, {}, message::kWritesTooLong, message::kCloseProgram);
}

void Session::LockForReading() {
  LockCommitByte();
  try {
    LookForChanges();
  } catch (...) {
    file_->Unlock(kCommitByte, 1);
    throw;
  }
}

void Session::EndRead() noexcept {
  if (--readers_ > 0 || commit_locked_ || pager_->level() > 0) return;
  try {
    file_->Unlock(kCommitByte, 1);
  } catch (const std::exception&) {
    // It goes with the file at the latest.
  }
}

void Session::LookForChanges() {
  std::vector<std::byte> counters(kCountersSize);
  counters.resize(file_->ReadAt(kHeaderCountersOffset, counters));
  const files::FileStamp stamp = file_->Stamp();
  if (stamp == stamp_ && counters == counters_) return;
  if (stamp_ != files::FileStamp{} && HasActiveJournal()) RecoverJournal();
  if (file_->Size() % kPageSize != 0) {
    ThrowDamaged(path_, {static_cast<PageNumber>(file_->Size() / kPageSize), -1}, message::kCutOff);
  }
  pager_->DropCache();
  counters_.resize(kCountersSize);
  counters_.resize(file_->ReadAt(kHeaderCountersOffset, counters_));
  stamp_ = file_->Stamp();
  ++generation_;
}

void Session::Begin() {
  if (!read_only_reason_.empty()) {
    throw Error(ErrorKind::kReadOnly, path_, {}, read_only_reason_, read_only_remedy_);
  }
  CheckUsable();
  if (pager_->level() == 0) {
    GiveWay();
    if (!Wait(kWriteByte, files::LockMode::kExclusive)) {
      throw Error(ErrorKind::kLocked, path_, {}, message::kChangesTooLong, message::kWaitOrClose);
    }
    write_locked_ = true;
    try {
      if (const messages::Message user = ForeignUser(); !user.empty()) {
        throw Error(ErrorKind::kLocked, path_, {},
                    {message::kOpenElsewhere, {{"<Computer>", user}}}, message::kCloseThere);
      }
      if (readers_ == 0) {
        LockForReading();
        file_->Unlock(kCommitByte, 1);
      }
    } catch (...) {
      write_locked_ = false;
      file_->Unlock(kWriteByte, 1);
      throw;
    }
  }
  pager_->Begin();
  row_log_.Begin();
}

void Session::Doom() {
  if (doomed_level_ == 0) doomed_level_ = pager_->level();
}

void Session::CheckUsable() const {
  if (doomed_level_ == 0) return;
  throw Error(ErrorKind::kConflict, path_, {}, message::kTransactionFailed, message::kRollBack);
}

void Session::RaiseCounter() {
  PageEdit page = pager_->Modify(0);
  std::byte* counter =
      page.data() + kHeaderCountersOffset + 2 * static_cast<std::size_t>(lock_file_->user());
  const auto next = static_cast<std::uint16_t>(Load16(counter) + 1);
  Store16(counter, next == 0 ? 1 : next);
}

void Session::LockForCommit() {
  if (!Wait(kCommitByte, files::LockMode::kExclusive)) {
    throw Error(ErrorKind::kLocked, path_, {}, message::kReadsTooLong, message::kWaitOrClose);
  }
  commit_locked_ = true;
}

void Session::Collect(files::ChangeSet& changes) {
  CheckUsable();
  if (!pager_->HasChanges()) return;
  RaiseCounter();
  LockForCommit();
  changes.ranges.push_back(pager_.get());
}

void Session::Committed() noexcept {
  try {
    row_log_.Commit();
    pager_->Commit();
    stamp_ = file_->Stamp();
    counters_.resize(kCountersSize);
    counters_.resize(file_->ReadAt(kHeaderCountersOffset, counters_));
  } catch (const std::exception&) {
    stamp_ = {0, 1, 0};  // the next look at the file finds a change
  }
  EndTransaction();
}

void Session::Commit() {
  CheckUsable();
  if (pager_->level() > 1) {
    row_log_.Commit();
    pager_->Commit();
    return;
  }
  files::ChangeSet changes;
  Collect(changes);
  if (!changes.empty()) {
    if (!journal_) journal_.emplace(system_, path_, options_.reach);
    journal_->Commit(changes);
  }
  Committed();
}

void Session::Rollback() noexcept {
  if (pager_->level() == 0) return;
  row_log_.Rollback();
  pager_->Rollback();
  if (doomed_level_ > pager_->level()) doomed_level_ = 0;
  if (pager_->level() == 0) EndTransaction();
}

void Session::EndTransaction() noexcept {
  doomed_level_ = 0;
  commit_locked_ = false;
  write_locked_ = false;
  try {
    if (readers_ > 0) {
      file_->TryLock(kCommitByte, 1, files::LockMode::kShared);
    } else {
      file_->Unlock(kCommitByte, 1);
    }
    file_->Unlock(kWriteByte, 1);
  } catch (const std::exception&) {
    // The locks go with the file at the latest.
  }
}

}  // namespace jet
