// SPDX-License-Identifier: MIT
#include "jet/lock_file.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "files/file_identity.h"
#include "jet/error.h"

namespace jet {
namespace {

constexpr messages::Pattern kPlaceAndAccount{messages::kNoText, "<Computer> (<Account>)"};

messages::Message UserOf(files::RandomAccessFile& file, int user) {
  std::array<std::byte, kUserRecordSize> record{};
  file.ReadAt(static_cast<std::uint64_t>(user - 1) * kUserRecordSize, record);
  const auto field = [&](std::size_t at) {
    const char* p = reinterpret_cast<const char*>(&record[at]);
    return std::string(p, std::find(p, p + kUserNameSize, '\0'));
  };
  const std::string computer = field(0);
  const std::string account = field(kUserNameSize);
  messages::Message place = computer.empty() ? messages::Message(message::kUnknownComputer)
                                             : messages::Message::Verbatim(computer);
  if (account.empty()) return place;
  return {kPlaceAndAccount, {{"<Computer>", place}, {"<Account>", account}}};
}

int CountUsers(files::RandomAccessFile& file) {
  int count = 0;
  for (std::uint64_t n = 1; n <= kMaxUsers; ++n)
    if (file.IsLockedByOthers(kUserLockBase + n, 1)) ++count;
  return count;
}

// Of those who are there, ours or not; empty when there is none.
messages::Message FirstUser(files::RandomAccessFile& file) {
  for (int n = 1; n <= kMaxUsers; ++n) {
    if (file.IsLockedByOthers(kUserLockBase + static_cast<std::uint64_t>(n), 1))
      return UserOf(file, n);
  }
  return {};
}

// One question covers all users in the usual case that there is no other.
messages::Message Find(files::RandomAccessFile& file, files::RandomAccessFile& database) {
  if (!file.IsLockedByOthers(kUserLockBase + 1, kMaxUsers)) return {};
  for (int n = 1; n <= kMaxUsers; ++n) {
    const auto offset = static_cast<std::uint64_t>(n);
    if (file.IsLockedByOthers(kUserLockBase + offset, 1) &&
        !database.IsLockedByOthers(kOwnUserBase + offset, 1)) {
      return UserOf(file, n);
    }
  }
  return {};
}

}  // namespace

std::string LockFile::PathFor(const std::string& database_path) {
  const std::size_t name = database_path.find_last_of("/\\") + 1;
  const std::size_t point = database_path.find_last_of('.');
  const bool has_extension = point != std::string::npos && point > name;
  return database_path.substr(0, has_extension ? point : database_path.size()) + ".ldb";
}

LockFile::LockFile(files::FileSystem& system, const std::string& database_path,
                   files::RandomAccessFile& database, const std::string& computer,
                   const std::string& user)
    : system_(system), database_(database), path_(PathFor(database_path)) {
  // The last user who leaves removes the file, perhaps between our opening it and our locking a
  // place; then we hold a file that nobody sees, and begin again.
  for (int attempt = 0; attempt < kMaxUsers; ++attempt) {
    Open();
    TakePlace(computer, user);
    if (BearsName()) return;
    const auto place = static_cast<std::uint64_t>(user_);
    file_->Unlock(kUserLockBase + place, 1);
    database_.Unlock(kOwnUserBase + place, 1);
  }
  throw Error(ErrorKind::kLocked, database_path, {},
              {message::kLockFileVanishes, {{"<Path>", path_}}}, message::kTryAgain);
}

// What else stands under the name is not touched: the database, somebody's own file.
void LockFile::Open() {
  file_ = system_.OpenLike(path_, files::OpenMode::kCreateOrOpen, database_.path());
  const files::FileStamp stamp = file_->Stamp();
  if (stamp.identity == database_.Stamp().identity) {
    files::Raise(files::ErrorKind::kInTheWay, path_, files::message::kCannotBeUsed,
                 files::message::kIsDatabase);
  }
  files::CheckOneName(system_, path_, files::message::kCannotBeUsed);
  if (stamp.size > kMaxUsers * kUserRecordSize) {
    files::Raise(files::ErrorKind::kInTheWay, path_, files::message::kCannotBeUsed,
                 files::message::kNoLockFile);
  }
}

bool LockFile::BearsName() {
  const auto named = system_.Stamp(path_);
  return named && named->identity == file_->Stamp().identity;
}

// Our own byte first, so that whoever sees the user byte can tell that it is one of ours.
void LockFile::TakePlace(const std::string& computer, const std::string& user) {
  for (int n = 1; n <= kMaxUsers; ++n) {
    const auto offset = static_cast<std::uint64_t>(n);
    if (!database_.TryLock(kOwnUserBase + offset, 1, files::LockMode::kExclusive)) continue;
    if (!file_->TryLock(kUserLockBase + offset, 1, files::LockMode::kExclusive)) {
      database_.Unlock(kOwnUserBase + offset, 1);
      continue;
    }
    std::array<std::byte, kUserRecordSize> record{};
    std::memcpy(record.data(), computer.data(), std::min(computer.size(), kUserNameSize - 1));
    std::memcpy(&record[kUserNameSize], user.data(), std::min(user.size(), kUserNameSize - 1));
    file_->WriteAt((offset - 1) * kUserRecordSize, record);
    user_ = n;
    return;
  }
  // Somebody holds our bytes without being a user: a program that locks the whole file.
  const bool full = CountUsers(*file_) == kMaxUsers;
  const messages::Message holder = FirstUser(*file_);
  throw Error(ErrorKind::kLocked, database_.path(), {},
              full ? messages::Message(message::kTooManyUsers)
              : holder.empty()
                  ? messages::Message(message::kFileLocked)
                  : messages::Message(message::kFileLockedOn, {{"<Computer>", holder}}),
              full ? message::kCloseSomewhere : message::kCloseProgram);
}

LockFile::~LockFile() {
  try {
    const bool is_last = !file_->IsLockedByOthers(kUserLockBase + 1, kMaxUsers);
    if (is_last && BearsName()) system_.Remove(path_);
    const auto place = static_cast<std::uint64_t>(user_);
    database_.Unlock(kOwnUserBase + place, 1);
  } catch (const std::exception&) {
    // The file stays behind; without locks it is stale, and everybody knows that.
  }
}

messages::Message LockFile::ForeignUser() { return Find(*file_, database_); }

messages::Message FindForeignUser(files::FileSystem& system, const std::string& database_path,
                                  files::RandomAccessFile& database) {
  const std::string path = LockFile::PathFor(database_path);
  if (!system.Exists(path) || system.IsLink(path)) return {};
  try {
    const auto file = system.Open(path, files::OpenMode::kRead);
    if (file->Stamp().identity == database.Stamp().identity) return {};
    return Find(*file, database);
  } catch (const files::Error& error) {
    if (error.kind() != files::ErrorKind::kNotFound) throw;
    return {};  // its last user left meanwhile
  }
}

}  // namespace jet
