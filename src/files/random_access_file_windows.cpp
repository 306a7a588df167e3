// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>
#include <vector>

#include "files/windows_handle.h"

namespace files::os {
namespace {

std::uint64_t Join(DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; }
DWORD Low(std::uint64_t value) { return static_cast<DWORD>(value); }
DWORD High(std::uint64_t value) { return static_cast<DWORD>(value >> 32); }

// Since 1970-01-01 UTC.
std::int64_t Nanoseconds(const FILETIME& time) {
  // File times count 100 ns since 1601-01-01.
  constexpr std::int64_t kUnixEpoch = 116'444'736'000'000'000;
  return (static_cast<std::int64_t>(Join(time.dwHighDateTime, time.dwLowDateTime)) - kUnixEpoch) *
         100;
}

OVERLAPPED At(std::uint64_t offset) {
  OVERLAPPED place = {};
  place.Offset = Low(offset);
  place.OffsetHigh = High(offset);
  return place;
}

// A lock as the system has it: it ends only as the whole that it began as.
struct Held {
  std::uint64_t begin;
  std::uint64_t end;
  LockMode mode;
};

class WindowsFile final : public RandomAccessFile {
 public:
  WindowsFile(Handle handle, std::string path, bool read_only)
      : handle_(std::move(handle)), path_(std::move(path)), read_only_(read_only) {}

  const std::string& path() const override { return path_; }
  bool read_only() const override { return read_only_; }

  std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override {
    std::size_t done = 0;
    while (done < out.size()) {
      OVERLAPPED place = At(offset + done);
      DWORD count = 0;
      if (!::ReadFile(handle_.get(), out.data() + done, Step(out.size() - done), &count, &place)) {
        if (::GetLastError() == ERROR_HANDLE_EOF) break;
        RaiseLast(path_, message::kCannotBeRead);
      }
      if (count == 0) break;
      done += count;
    }
    return done;
  }

  void WriteAt(std::uint64_t offset, std::span<const std::byte> data) override {
    while (!data.empty()) {
      OVERLAPPED place = At(offset);
      DWORD count = 0;
      if (!::WriteFile(handle_.get(), data.data(), Step(data.size()), &count, &place)) {
        RaiseLast(path_, message::kCannotBeWritten);
      }
      offset += count;
      data = data.subspan(count);
    }
  }

  std::uint64_t Size() override {
    LARGE_INTEGER size;
    if (!::GetFileSizeEx(handle_.get(), &size)) RaiseLast(path_, message::kCannotBeExamined);
    return static_cast<std::uint64_t>(size.QuadPart);
  }

  void Truncate(std::uint64_t size) override {
    FILE_END_OF_FILE_INFO end;
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    if (!::SetFileInformationByHandle(handle_.get(), FileEndOfFileInfo, &end, sizeof end)) {
      RaiseLast(path_, message::kCannotBeResized);
    }
  }

  void Sync() override {
    if (!::FlushFileBuffers(handle_.get())) RaiseLast(path_, message::kCannotReachMedium);
  }

  // Which file it is does not change and costs most to find out; databases ask before each reading.
  FileStamp Stamp() override {
    if (!identity_) identity_ = StampOfHandle(handle_.get(), path_).identity;
    FILETIME written;
    if (!::GetFileTime(handle_.get(), nullptr, nullptr, &written)) {
      RaiseLast(path_, message::kCannotBeExamined);
    }
    return {Size(), Nanoseconds(written), *identity_};
  }

  // The system adds locks of one handle instead of replacing them. What is held in the range is
  // given up first, and taken again when the new lock cannot be had.
  bool TryLock(std::uint64_t offset, std::uint64_t length, LockMode mode) override {
    const Held wanted{offset, offset + length, mode};
    std::vector<Held> before = TakeOverlapping(wanted);
    if (before.size() == 1 && before[0].begin == wanted.begin && before[0].end == wanted.end) {
      return ChangeMode(before[0], mode);
    }
    for (const Held& held : before) Release(held);
    const bool locked = Lock(wanted);
    if (locked) held_.push_back(wanted);
    for (const Held& held : before) locked ? KeepAround(held, wanted) : LockAgain(held);
    return locked;
  }

  void Unlock(std::uint64_t offset, std::uint64_t length) override {
    const Held range{offset, offset + length, LockMode::kShared};
    for (const Held& held : TakeOverlapping(range)) {
      Release(held);
      KeepAround(held, range);
    }
  }

  // Where this object has an exclusive lock nobody else has one.
  bool IsLockedByOthers(std::uint64_t offset, std::uint64_t length) override {
    const std::uint64_t end = offset + length;
    std::sort(held_.begin(), held_.end(),
              [](const Held& one, const Held& other) { return one.begin < other.begin; });
    for (const Held& held : held_) {
      if (held.mode != LockMode::kExclusive || held.end <= offset || held.begin >= end) continue;
      if (held.begin > offset && IsTaken(offset, held.begin)) return true;
      offset = held.end;
    }
    return offset < end && IsTaken(offset, end);
  }

 private:
  static DWORD Step(std::size_t count) {
    constexpr std::size_t kMaxCount = 1 << 30;
    return static_cast<DWORD>(std::min(count, kMaxCount));
  }

  std::vector<Held> TakeOverlapping(const Held& range) {
    const auto first = std::partition(held_.begin(), held_.end(), [&](const Held& held) {
      return held.end <= range.begin || held.begin >= range.end;
    });
    std::vector<Held> overlapping(first, held_.end());
    held_.erase(first, held_.end());
    return overlapping;
  }

  bool ChangeMode(const Held& held, LockMode mode) {
    const Held wanted{held.begin, held.end, mode};
    bool changed = true;
    if (held.mode == LockMode::kExclusive && mode == LockMode::kShared) {
      // The handle may share what it has to itself; the exclusive lock is the first to go then.
      changed = Lock(wanted);
      if (changed) Release(held);
    } else if (held.mode != mode) {
      Release(held);
      changed = Lock(wanted);
      if (!changed) {
        LockAgain(held);
        return false;
      }
    }
    held_.push_back(changed ? wanted : held);
    return changed;
  }

  // Locks again what `held` has before and behind `range`.
  void KeepAround(const Held& held, const Held& range) {
    if (held.begin < range.begin) LockAgain({held.begin, range.begin, held.mode});
    if (held.end > range.end) LockAgain({range.end, held.end, held.mode});
  }

  // A moment ago this was ours; whoever came in between goes at once or keeps it.
  void LockAgain(const Held& held) {
    constexpr int kAttempts = 100;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      if (Lock(held)) {
        held_.push_back(held);
        return;
      }
      ::Sleep(1);
    }
    RaiseCode(ERROR_LOCK_VIOLATION, path_, message::kCannotBeLocked);
  }

  bool Lock(const Held& lock) {
    OVERLAPPED place = At(lock.begin);
    const DWORD exclusive = lock.mode == LockMode::kExclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0;
    const std::uint64_t length = lock.end - lock.begin;
    if (::LockFileEx(handle_.get(), LOCKFILE_FAIL_IMMEDIATELY | exclusive, 0, Low(length),
                     High(length), &place)) {
      return true;
    }
    const DWORD last = ::GetLastError();
    if (last == ERROR_LOCK_VIOLATION || last == ERROR_IO_PENDING) return false;
    RaiseCode(last, path_, message::kCannotBeLocked);
  }

  void Release(const Held& lock) {
    OVERLAPPED place = At(lock.begin);
    const std::uint64_t length = lock.end - lock.begin;
    if (!::UnlockFileEx(handle_.get(), 0, Low(length), High(length), &place)) {
      RaiseLast(path_, message::kCannotBeUnlocked);
    }
  }

  // A shared lock finds the exclusive ones of others, and two that look at once do not find each
  // other.
  bool IsTaken(std::uint64_t begin, std::uint64_t end) {
    const Held probe{begin, end, LockMode::kShared};
    if (!Lock(probe)) return true;
    Release(probe);
    return false;
  }

  Handle handle_;
  std::string path_;
  bool read_only_;
  std::vector<Held> held_;  // none overlaps another
  std::optional<std::uint64_t> identity_;
};

}  // namespace

std::unique_ptr<RandomAccessFile> MakeFile(Handle handle, std::string path, bool read_only) {
  return std::make_unique<WindowsFile>(std::move(handle), std::move(path), read_only);
}

FileStamp StampOfHandle(HANDLE handle, const std::string& path) {
  BY_HANDLE_FILE_INFORMATION info;
  if (!::GetFileInformationByHandle(handle, &info)) RaiseLast(path, message::kCannotBeExamined);
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;  // keeps equal numbers of two media apart
  return {Join(info.nFileSizeHigh, info.nFileSizeLow), Nanoseconds(info.ftLastWriteTime),
          Join(info.nFileIndexHigh, info.nFileIndexLow) + kSpread * info.dwVolumeSerialNumber};
}

}  // namespace files::os
