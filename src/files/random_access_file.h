// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace files {

enum class LockMode { kShared, kExclusive };

// Changes when somebody wrote the file. Equal stamps of one file mean equal contents as far as
// size and time of the last change can tell.
struct FileStamp {
  std::uint64_t size = 0;
  std::int64_t modified_ns = 0;  // since 1970-01-01 UTC
  std::uint64_t identity = 0;    // which file it is (inode or file index)
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

// An open file that is read and written at byte offsets. Every failure is a files::Error that
// names the path; after a failed write the file's contents in the range are undefined, all else
// is unchanged. Closed by the destructor, which releases its locks.
class RandomAccessFile {
 public:
  virtual ~RandomAccessFile() = default;

  virtual const std::string& path() const = 0;
  virtual bool read_only() const = 0;

  // Reads up to out.size() bytes at `offset`; returns how many, fewer only at the end of the file.
  virtual std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) = 0;
  // Writes all bytes; a write behind the end extends the file (the gap reads as zeros).
  virtual void WriteAt(std::uint64_t offset, std::span<const std::byte> data) = 0;
  virtual std::uint64_t Size() = 0;
  virtual void Truncate(std::uint64_t size) = 0;
  // Returns when all that was written is on the medium.
  virtual void Sync() = 0;
  virtual FileStamp Stamp() = 0;

  // Byte-range locks that other processes and other open files of this process see. The range
  // may lie behind the end of the file. Never waits: false when somebody else holds a
  // conflicting lock. A lock of this file object is replaced by a second call on the same range.
  virtual bool TryLock(std::uint64_t offset, std::uint64_t length, LockMode mode) = 0;
  virtual void Unlock(std::uint64_t offset, std::uint64_t length) = 0;
  // Whether another open file holds a lock in the range that would conflict with kExclusive.
  virtual bool IsLockedByOthers(std::uint64_t offset, std::uint64_t length) = 0;
};

}  // namespace files
