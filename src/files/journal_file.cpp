// SPDX-License-Identifier: MIT
#include "files/journal_file.h"

#include <thread>
#include <utility>

#include "files/carried_append.h"
#include "files/file_identity.h"

namespace files {
namespace {

constexpr std::uint64_t kWorkByte = std::uint64_t{1} << 62;
constexpr std::uint64_t kPresenceByte = kWorkByte + 1;
// Room kept for the next commit: that of two classes of 30,000 lines.
constexpr std::uint64_t kKeptWhileIdle = std::uint64_t{4} << 20;
constexpr const char* kExtension = ".journal";

}  // namespace

bool HasJournal(FileSystem& system, const std::string& database_path) {
  const std::string path = FollowLink(system, database_path) + kExtension;
  return system.Exists(path) || system.IsLink(path);
}

std::string JournalPath(FileSystem& system, const std::string& database_path) {
  return ResolveTarget(system, database_path) + kExtension;
}

JournalFile::JournalFile(FileSystem& system, std::string database)
    : system_(system), database_(std::move(database)), path_(database_ + kExtension) {}

JournalFile::~JournalFile() { RemoveIfUnused(); }

bool JournalFile::IsInUse(RandomAccessFile& file) { return file.IsLockedByOthers(kWorkByte, 1); }

bool JournalFile::Lock(bool create) {
  // The file may be removed or replaced between opening and locking; whoever did it has finished.
  constexpr int kAttempts = 1000;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (!file_ && !Open(create)) return false;
    if (file_) {
      if (!file_->TryLock(kWorkByte, 1, LockMode::kExclusive)) {
        Raise(ErrorKind::kLocked, path_, message::kCannotBeUsed, message::kProjectBusy);
      }
      locked_ = true;
      if (BearsName()) return true;
      Unlock();
      file_.reset();
    }
    std::this_thread::yield();
  }
  Raise(ErrorKind::kLocked, path_, message::kCannotBeUsed, message::kCreatedAndRemoved);
}

bool JournalFile::BearsName() {
  const std::optional<FileStamp> named = system_.Stamp(path_);
  return named && named->identity == file_->Stamp().identity;
}

bool JournalFile::Open(bool create) {
  auto file = OpenIfExists(system_, path_, OpenMode::kReadWrite);
  if (!file && create) file = system_.OpenLike(path_, OpenMode::kCreateOrOpen, database_);
  if (!file) return false;
  if (file->TryLock(kPresenceByte, 1, LockMode::kShared)) {
    file_ = std::move(file);
    name_synced_ = false;
  }
  return true;
}

void JournalFile::Unlock() noexcept {
  locked_ = false;
  try {
    file_->Unlock(kWorkByte, 1);
  } catch (const Error&) {
    file_.reset();  // closing releases it
  }
}

void JournalFile::SyncName() {
  if (name_synced_) return;
  system_.SyncDirectory(system_.Folder(path_));
  name_synced_ = true;
}

void JournalFile::Abandon() {
  journal::WriteGivenUp(*file_);
  file_->Sync();
}

void JournalFile::MarkIdle() {
  journal::WriteIdle(*file_);
  SyncMark();
}

void JournalFile::MarkPutBack() {
  journal::WritePutBack(*file_);
  SyncMark();
}

void JournalFile::SyncMark() {
  file_->Sync();
  try {
    const std::uint64_t size = file_->Size();
    if (size <= kKeptWhileIdle) return;
    journal::Header header;
    journal::ReadHeader(*file_, header);
    if (header.BodyAt() < size) file_->Truncate(header.BodyAt());
  } catch (const Error&) {
    // Only room is lost, until the next commit.
  }
}

void JournalFile::RemoveIfUnused() noexcept {
  try {
    if (!file_) return;
    // Of several that leave together, each gives up its share before it tries to be alone, so that
    // the last one succeeds.
    file_->Unlock(kPresenceByte, 1);
    if (file_->TryLock(kPresenceByte, 1, LockMode::kExclusive) && BearsName() &&
        journal::IsIdle(*file_)) {
      CarriedAppend(system_, database_, *file_).Sync();
      system_.Remove(path_);
    }
  } catch (const Error&) {
    // An idle journal that stays harms nobody; the next program removes it.
  }
  file_.reset();
}

std::unique_ptr<RandomAccessFile> OpenIfExists(FileSystem& system, const std::string& path,
                                               OpenMode mode) {
  if (system.IsLink(path))
    Raise(ErrorKind::kInTheWay, path, message::kCannotBeUsed, message::kIsLink);
  if (!system.Exists(path)) return nullptr;
  CheckOneName(system, path, message::kCannotBeUsed);
  try {
    return system.Open(path, mode);
  } catch (const Error& error) {
    if (error.kind() == ErrorKind::kNotFound) return nullptr;  // removed meanwhile
    throw;
  }
}

}  // namespace files
