// SPDX-License-Identifier: MIT
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "files/real_file_system.h"

namespace files::os {
namespace {

std::wstring Wide(const std::string& utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).wstring();
}

[[noreturn]] void RaiseLast(const std::string& path, std::string_view failure) {
  const DWORD last = ::GetLastError();
  if (last == ERROR_SHARING_VIOLATION || last == ERROR_LOCK_VIOLATION) {
    Raise(ErrorKind::kLocked, path, failure, "another program uses it");
  }
  RaiseSystem(std::error_code(static_cast<int>(last), std::system_category()), path, failure);
}

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() {
    if (valid()) ::CloseHandle(handle_);
  }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle& operator=(Handle&&) = delete;
  HANDLE get() const { return handle_; }
  bool valid() const { return handle_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE handle_;
};

std::uint64_t Join(DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; }
DWORD Low(std::uint64_t value) { return static_cast<DWORD>(value); }
DWORD High(std::uint64_t value) { return static_cast<DWORD>(value >> 32); }

FileStamp StampOfHandle(HANDLE handle, const std::string& path) {
  BY_HANDLE_FILE_INFORMATION info;
  if (!::GetFileInformationByHandle(handle, &info)) RaiseLast(path, "cannot be examined");
  // File times count 100 ns since 1601-01-01.
  constexpr std::int64_t kUnixEpoch = 116'444'736'000'000'000;
  const auto ticks = static_cast<std::int64_t>(
      Join(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime));
  return {Join(info.nFileSizeHigh, info.nFileSizeLow), (ticks - kUnixEpoch) * 100,
          Join(info.nFileIndexHigh, info.nFileIndexLow)};
}

OVERLAPPED At(std::uint64_t offset) {
  OVERLAPPED place = {};
  place.Offset = Low(offset);
  place.OffsetHigh = High(offset);
  return place;
}

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
        RaiseLast(path_, "cannot be read");
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
        RaiseLast(path_, "cannot be written");
      }
      offset += count;
      data = data.subspan(count);
    }
  }

  std::uint64_t Size() override {
    LARGE_INTEGER size;
    if (!::GetFileSizeEx(handle_.get(), &size)) RaiseLast(path_, "cannot be examined");
    return static_cast<std::uint64_t>(size.QuadPart);
  }

  void Truncate(std::uint64_t size) override {
    FILE_END_OF_FILE_INFO end;
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    if (!::SetFileInformationByHandle(handle_.get(), FileEndOfFileInfo, &end, sizeof end)) {
      RaiseLast(path_, "cannot be set to another size");
    }
  }

  void Sync() override {
    if (!::FlushFileBuffers(handle_.get())) RaiseLast(path_, "cannot be written to the medium");
  }

  FileStamp Stamp() override { return StampOfHandle(handle_.get(), path_); }

  bool TryLock(std::uint64_t offset, std::uint64_t length, LockMode mode) override {
    // The system adds a second lock of the same handle instead of replacing the first.
    const auto own = std::find(own_.begin(), own_.end(), std::pair(offset, length));
    if (own != own_.end()) Unlock(offset, length);
    if (!Lock(offset, length, mode)) return false;
    own_.emplace_back(offset, length);
    return true;
  }

  void Unlock(std::uint64_t offset, std::uint64_t length) override {
    const auto own = std::find(own_.begin(), own_.end(), std::pair(offset, length));
    if (own == own_.end()) return;
    own_.erase(own);
    Release(offset, length);
  }

  // Bytes that this object holds itself are passed over.
  bool IsLockedByOthers(std::uint64_t offset, std::uint64_t length) override {
    std::sort(own_.begin(), own_.end());
    const std::uint64_t end = offset + length;
    for (const auto& [own_offset, own_length] : own_) {
      if (own_offset + own_length <= offset || own_offset >= end) continue;
      if (own_offset > offset && IsTaken(offset, own_offset - offset)) return true;
      offset = own_offset + own_length;
    }
    return offset < end && IsTaken(offset, end - offset);
  }

 private:
  static DWORD Step(std::size_t count) {
    constexpr std::size_t kMost = 1 << 30;
    return static_cast<DWORD>(std::min(count, kMost));
  }

  bool Lock(std::uint64_t offset, std::uint64_t length, LockMode mode) {
    OVERLAPPED place = At(offset);
    const DWORD flags = LOCKFILE_FAIL_IMMEDIATELY |
                        (mode == LockMode::kExclusive ? DWORD{LOCKFILE_EXCLUSIVE_LOCK} : DWORD{0});
    if (::LockFileEx(handle_.get(), flags, 0, Low(length), High(length), &place)) return true;
    const DWORD last = ::GetLastError();
    if (last == ERROR_LOCK_VIOLATION || last == ERROR_IO_PENDING) return false;
    RaiseLast(path_, "cannot be locked");
  }

  void Release(std::uint64_t offset, std::uint64_t length) {
    OVERLAPPED place = At(offset);
    if (!::UnlockFileEx(handle_.get(), 0, Low(length), High(length), &place)) {
      RaiseLast(path_, "cannot be unlocked");
    }
  }

  bool IsTaken(std::uint64_t offset, std::uint64_t length) {
    if (!Lock(offset, length, LockMode::kExclusive)) return true;
    Release(offset, length);
    return false;
  }

  Handle handle_;
  std::string path_;
  bool read_only_;
  std::vector<std::pair<std::uint64_t, std::uint64_t>> own_;  // offset and length
};

DWORD Disposition(OpenMode mode) {
  switch (mode) {
    case OpenMode::kCreateNew:
      return CREATE_NEW;
    case OpenMode::kCreateOrOpen:
      return OPEN_ALWAYS;
    case OpenMode::kRead:
    case OpenMode::kReadWrite:
      break;
  }
  return OPEN_EXISTING;
}

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

}  // namespace

// New files take their permissions from their folder.
std::unique_ptr<RandomAccessFile> OpenFile(const std::string& path, OpenMode mode,
                                           const std::string& /*like*/) {
  const bool read_only = mode == OpenMode::kRead;
  if (!read_only && IsLink(path)) {
    Raise(ErrorKind::kInTheWay, path, "cannot be opened", "it is a link");
  }
  const DWORD access = read_only ? GENERIC_READ : (GENERIC_READ | GENERIC_WRITE);
  Handle handle(::CreateFileW(Wide(path).c_str(), access, kShareAll, nullptr, Disposition(mode),
                              FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle.valid()) RaiseLast(path, "cannot be opened");
  if (::GetFileType(handle.get()) != FILE_TYPE_DISK) {
    Raise(ErrorKind::kNotAFile, path, "cannot be opened", "it is not a regular file");
  }
  return std::make_unique<WindowsFile>(std::move(handle), path, read_only);
}

std::optional<FileStamp> StampOf(const std::string& path) {
  const Handle handle(::CreateFileW(Wide(path).c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!handle.valid()) return std::nullopt;
  return StampOfHandle(handle.get(), path);
}

// Placeholders of synchronised folders are marked like links but are files.
bool IsLink(const std::string& path) {
  WIN32_FIND_DATAW found;
  const HANDLE search = ::FindFirstFileW(Wide(path).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  ::FindClose(search);
  return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
          found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

std::uint64_t NameCount(const std::string& path) {
  const Handle handle(::CreateFileW(Wide(path).c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION info;
  return handle.valid() && ::GetFileInformationByHandle(handle.get(), &info) ? info.nNumberOfLinks
                                                                             : 0;
}

void RenameNew(const std::string& from, const std::string& to) {
  if (::MoveFileExW(Wide(from).c_str(), Wide(to).c_str(), 0)) return;
  RaiseLast(from, "cannot be renamed to " + to);
}

// The system replaces a file and keeps what it replaced under a third name.
bool Exchange(const std::string& one, const std::string& other) {
  const std::wstring first = Wide(one), second = Wide(other), third = Wide(one + kExchanging);
  constexpr DWORD kKeepGoing = REPLACEFILE_IGNORE_MERGE_ERRORS;
  if (!::ReplaceFileW(second.c_str(), first.c_str(), third.c_str(), kKeepGoing, nullptr, nullptr)) {
    const DWORD last = ::GetLastError();
    if (last == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2) {
      ::MoveFileExW(third.c_str(), second.c_str(), 0);
    }
    if (last == ERROR_INVALID_FUNCTION || last == ERROR_NOT_SUPPORTED) return false;
    ::SetLastError(last);
    RaiseLast(one, "cannot be exchanged with " + other);
  }
  if (!::MoveFileExW(third.c_str(), first.c_str(), 0)) {
    RaiseLast(one + kExchanging, "cannot be renamed to " + one);
  }
  return true;
}

// The system writes names with the file's own flush; a folder's handle is flushed where allowed.
void SyncFolder(const std::string& folder) {
  const Handle handle(::CreateFileW(Wide(folder).c_str(), GENERIC_WRITE, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (handle.valid()) {
    ::FlushFileBuffers(handle.get());
  } else if (::GetFileAttributesW(Wide(folder).c_str()) == INVALID_FILE_ATTRIBUTES) {
    RaiseLast(folder, "cannot be opened");
  }
}

bool MayWrite(const std::string& path) {
  const DWORD attributes = ::GetFileAttributesW(Wide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) == 0;
}

void CopyFileAttributes(const std::string& from, const std::string& to) {
  const DWORD attributes = ::GetFileAttributesW(Wide(from).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) RaiseLast(from, "cannot be examined");
  if (!::SetFileAttributesW(Wide(to).c_str(), attributes)) {
    RaiseLast(to, "cannot be given the attributes of " + from);
  }
}

std::string_view Separators() { return "\\/"; }

}  // namespace files::os
