// SPDX-License-Identifier: MIT
// The system's errors in our words, and who uses a file.
#include <string>

#include "files/windows_handle.h"
#include "files/windows_path.h"
// Needs the types of the system's header.
#include <restartmanager.h>

namespace files::os {
namespace {

struct Cause {
  DWORD code;
  ErrorKind kind;
  const char* text;
};

constexpr DWORD kDiskQuotaExceeded = 1295;  // not in every header

constexpr Cause kCauses[] = {
    {ERROR_FILE_NOT_FOUND, ErrorKind::kNotFound, "no such file or folder"},
    {ERROR_PATH_NOT_FOUND, ErrorKind::kNotFound, "no such file or folder"},
    {ERROR_INVALID_DRIVE, ErrorKind::kNotFound, "no such file or folder"},
    {ERROR_DIRECTORY, ErrorKind::kNotFound, "a part of the path is no folder"},
    {ERROR_INVALID_NAME, ErrorKind::kNotFound, "it is no name that a file can have"},
    {ERROR_BAD_PATHNAME, ErrorKind::kNotFound, "it is no name that a file can have"},
    {ERROR_CANT_RESOLVE_FILENAME, ErrorKind::kNotFound, "its links lead in a circle"},
    {ERROR_FILE_EXISTS, ErrorKind::kExists, "it exists already"},
    {ERROR_ALREADY_EXISTS, ErrorKind::kExists, "it exists already"},
    {ERROR_ACCESS_DENIED, ErrorKind::kReadOnly, "permission denied"},
    {ERROR_NETWORK_ACCESS_DENIED, ErrorKind::kReadOnly, "permission denied"},
    {ERROR_PRIVILEGE_NOT_HELD, ErrorKind::kReadOnly, "permission denied"},
    {ERROR_WRITE_PROTECT, ErrorKind::kReadOnly, "the medium is read-only"},
    {ERROR_SHARING_VIOLATION, ErrorKind::kLocked, "another program uses it"},
    {ERROR_LOCK_VIOLATION, ErrorKind::kLocked, "another program uses it"},
    {ERROR_USER_MAPPED_FILE, ErrorKind::kLocked, "another program uses it"},
    {ERROR_UNABLE_TO_REMOVE_REPLACED, ErrorKind::kLocked, "another program uses it"},
    {ERROR_UNABLE_TO_MOVE_REPLACEMENT, ErrorKind::kLocked, "another program uses it"},
    {ERROR_UNABLE_TO_MOVE_REPLACEMENT_2, ErrorKind::kLocked, "another program uses it"},
    {ERROR_BUSY, ErrorKind::kLocked, "another program uses it"},
    {ERROR_DELETE_PENDING, ErrorKind::kLocked, "it was removed, but another program still uses it"},
    {ERROR_DISK_FULL, ErrorKind::kFull, "no space left on the medium"},
    {ERROR_HANDLE_DISK_FULL, ErrorKind::kFull, "no space left on the medium"},
    {kDiskQuotaExceeded, ErrorKind::kFull, "no space left on the medium"},
    {ERROR_FILE_TOO_LARGE, ErrorKind::kFull, "no space left on the medium"},
    {ERROR_DIR_NOT_EMPTY, ErrorKind::kIo, "the folder is not empty"},
    {ERROR_FILENAME_EXCED_RANGE, ErrorKind::kIo, "the name is too long"},
    {ERROR_TOO_MANY_OPEN_FILES, ErrorKind::kIo, "more files are open than the system allows"},
    {ERROR_NOT_ENOUGH_MEMORY, ErrorKind::kIo, "the memory does not suffice"},
    {ERROR_OUTOFMEMORY, ErrorKind::kIo, "the memory does not suffice"},
    {ERROR_NOT_READY, ErrorKind::kIo, "the medium is not ready"},
    {ERROR_CRC, ErrorKind::kIo, "the medium reports an error"},
    {ERROR_IO_DEVICE, ErrorKind::kIo, "the medium reports an error"},
    {ERROR_BAD_NETPATH, ErrorKind::kIo, "the other computer cannot be reached"},
    {ERROR_BAD_NET_NAME, ErrorKind::kIo, "the other computer cannot be reached"},
    {ERROR_NETNAME_DELETED, ErrorKind::kIo, "the other computer cannot be reached"},
    {ERROR_UNEXP_NET_ERR, ErrorKind::kIo, "the other computer cannot be reached"},
    {ERROR_SEM_TIMEOUT, ErrorKind::kIo, "the other computer cannot be reached"},
    {ERROR_NETWORK_UNREACHABLE, ErrorKind::kIo, "the other computer cannot be reached"},
};

// The name of a program that has the file open; "" when the system does not know.
std::string UserOf(const std::string& path) {
  DWORD session = 0;
  wchar_t key[CCH_RM_SESSION_KEY + 1] = {};
  if (::RmStartSession(&session, 0, key) != ERROR_SUCCESS) return {};
  const std::wstring file = SystemPath(path);
  LPCWSTR files[] = {file.c_str()};
  RM_PROCESS_INFO users[4];
  UINT needed = 0, count = 4;
  DWORD reasons = 0;
  std::string name;
  if (::RmRegisterResources(session, 1, files, 0, nullptr, 0, nullptr) == ERROR_SUCCESS) {
    const DWORD code = ::RmGetList(session, &needed, &count, users, &reasons);
    if ((code == ERROR_SUCCESS || code == ERROR_MORE_DATA) && count > 0) {
      name = Utf8Text(users[0].strAppName);
    }
  }
  ::RmEndSession(session);
  return name;
}

}  // namespace

void RaiseCode(DWORD code, const std::string& path, std::string_view failure) {
  for (const Cause& cause : kCauses) {
    if (cause.code != code) continue;
    const std::string user = cause.kind == ErrorKind::kLocked ? UserOf(path) : "";
    Raise(cause.kind, path, failure, user.empty() ? cause.text : "it is in use by " + user);
  }
  Raise(ErrorKind::kIo, path, failure, "the system reports error " + std::to_string(code));
}

void RaiseLast(const std::string& path, std::string_view failure) {
  RaiseCode(::GetLastError(), path, failure);
}

Handle OpenExisting(const std::string& path, DWORD access, DWORD flags) {
  return Handle(::CreateFileW(SystemPath(path).c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                              flags, nullptr));
}

}  // namespace files::os
