// SPDX-License-Identifier: MIT
// The .ldb file beside a shared database (docs/transactions.md).
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "files/file_system.h"
#include "messages/message.h"

namespace jet {

// Records of 64 bytes, computer name and account name, one for each user. While a user has the
// database open he holds the byte 0x10000000 + n, n from 1; his record is number n - 1.
inline constexpr std::uint64_t kUserLockBase = 0x10000000;
inline constexpr std::size_t kUserRecordSize = 64;
inline constexpr std::size_t kUserNameSize = 32;
inline constexpr int kMaxUsers = 255;

// Bytes that our own processes lock in the database file. They lie behind the largest file, where
// nobody else looks.
inline constexpr std::uint64_t kWriteByte = 0x80000000;
inline constexpr std::uint64_t kCommitByte = 0x80000001;
inline constexpr std::uint64_t kQueueByte = 0x80000002;
inline constexpr std::uint64_t kOwnUserBase = 0x80000100;  // + n: user n is one of ours

// Our place among the users of a database. Removes the file when the last user leaves.
class LockFile {
 public:
  // Takes the first free place. `database` is locked at kOwnUserBase and must outlive this; its
  // path is that of the file itself, no link. Raises files::Error when the file cannot be made or
  // is something else, kLocked when no place is free.
  LockFile(files::FileSystem& system, const std::string& database_path,
           files::RandomAccessFile& database, const std::string& computer, const std::string& user);
  ~LockFile();
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;

  int user() const { return user_; }
  // "COMPUTER (Account)" of a user who is not one of ours, or empty.
  messages::Message ForeignUser();

  static std::string PathFor(const std::string& database_path);

 private:
  void Open();
  bool BearsName();
  void TakePlace(const std::string& computer, const std::string& user);

  files::FileSystem& system_;
  files::RandomAccessFile& database_;
  std::string path_;
  std::unique_ptr<files::RandomAccessFile> file_;
  int user_ = 0;
};

// The same for somebody who only reads: looks at a .ldb file without becoming a user.
messages::Message FindForeignUser(files::FileSystem& system, const std::string& database_path,
                                  files::RandomAccessFile& database);

}  // namespace jet
