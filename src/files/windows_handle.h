// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "files/file_system.h"
#include "files/windows_api.h"

namespace files::os {

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() {
    if (valid()) ::CloseHandle(handle_);
  }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  HANDLE get() const { return handle_; }
  bool valid() const { return handle_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE handle_;
};

inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// A file or folder that exists, or an invalid handle and the system's last error. Lets everybody
// else do what he likes with it. `flags` as of CreateFileW.
Handle OpenExisting(const std::string& path, DWORD access, DWORD flags = 0);

// Throws Error for the system's error `code`: "<path> <failure>: <cause>. <remedy>". Names the
// program that uses the file, where the system can tell.
[[noreturn]] void RaiseCode(DWORD code, const std::string& path, const Failure& failure);
[[noreturn]] void RaiseLast(const std::string& path, const Failure& failure);

// Of the name itself, not of what a link leads to; INVALID_FILE_ATTRIBUTES and the last error when
// there is none.
DWORD AttributesOf(const std::string& path);
bool IsWriteProtected(const std::string& path);

// Raises Error for a name that the system would give to a new file in another form.
void CheckNewName(const std::string& path);

// Whether the failure may be over in a moment.
bool IsMomentary(DWORD code);

// Calls until that succeeds or fails for good; returns the system's code. Programs that look at
// every new file (virus scanners, indexers) hold it for a moment.
template <typename Call, typename IsFinal>
DWORD Retry(Call call, IsFinal is_final) {
  constexpr DWORD kFirstPause = 1, kMaxPause = 256;  // ms, twice as long each time
  for (DWORD pause = kFirstPause;; pause *= 2) {
    const DWORD code = call();
    if (!IsMomentary(code) || pause > kMaxPause || is_final(code)) return code;
    ::Sleep(pause);
  }
}

FileStamp StampOfHandle(HANDLE handle, const std::string& path);

// A file that is open already; see RandomAccessFile.
std::unique_ptr<RandomAccessFile> MakeFile(Handle handle, std::string path, bool read_only);

}  // namespace files::os
