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
  messages::Pattern message;
};

constexpr DWORD kDiskQuotaExceeded = 1295;  // not in every header

constexpr Cause kCauses[] = {
    {ERROR_FILE_NOT_FOUND, ErrorKind::kNotFound, message::kNoSuchFile},
    {ERROR_PATH_NOT_FOUND, ErrorKind::kNotFound, message::kNoSuchFile},
    {ERROR_INVALID_DRIVE, ErrorKind::kNotFound, message::kNoSuchFile},
    {ERROR_DIRECTORY, ErrorKind::kNotFound, message::kPartIsNoFolder},
    {ERROR_INVALID_NAME, ErrorKind::kNotFound, message::kNoFileName},
    {ERROR_BAD_PATHNAME, ErrorKind::kNotFound, message::kNoFileName},
    {ERROR_CANT_RESOLVE_FILENAME, ErrorKind::kNotFound, message::kLinksInCircle},
    {ERROR_FILE_EXISTS, ErrorKind::kExists, message::kExistsAlready},
    {ERROR_ALREADY_EXISTS, ErrorKind::kExists, message::kExistsAlready},
    {ERROR_ACCESS_DENIED, ErrorKind::kReadOnly, message::kPermissionDenied},
    {ERROR_NETWORK_ACCESS_DENIED, ErrorKind::kReadOnly, message::kPermissionDenied},
    {ERROR_PRIVILEGE_NOT_HELD, ErrorKind::kReadOnly, message::kPermissionDenied},
    {ERROR_WRITE_PROTECT, ErrorKind::kReadOnly, message::kMediumReadOnly},
    {ERROR_SHARING_VIOLATION, ErrorKind::kLocked, message::kUsedByAnother},
    {ERROR_LOCK_VIOLATION, ErrorKind::kLocked, message::kUsedByAnother},
    {ERROR_USER_MAPPED_FILE, ErrorKind::kLocked, message::kUsedByAnother},
    {ERROR_UNABLE_TO_REMOVE_REPLACED, ErrorKind::kLocked, message::kUsedByAnother},
    {ERROR_UNABLE_TO_MOVE_REPLACEMENT, ErrorKind::kLocked, message::kUsedByAnother},
    {ERROR_UNABLE_TO_MOVE_REPLACEMENT_2, ErrorKind::kLocked, message::kUsedByAnother},
    {ERROR_BUSY, ErrorKind::kLocked, message::kUsedByAnother},
    {ERROR_DELETE_PENDING, ErrorKind::kLocked, message::kRemovedButUsed},
    {ERROR_DISK_FULL, ErrorKind::kFull, message::kNoSpace},
    {ERROR_HANDLE_DISK_FULL, ErrorKind::kFull, message::kNoSpace},
    {kDiskQuotaExceeded, ErrorKind::kFull, message::kNoSpace},
    {ERROR_FILE_TOO_LARGE, ErrorKind::kFull, message::kNoSpace},
    {ERROR_DIR_NOT_EMPTY, ErrorKind::kIo, message::kFolderNotEmpty},
    {ERROR_FILENAME_EXCED_RANGE, ErrorKind::kIo, message::kNameTooLong},
    {ERROR_TOO_MANY_OPEN_FILES, ErrorKind::kIo, message::kTooManyOpenInSystem},
    {ERROR_NOT_ENOUGH_MEMORY, ErrorKind::kIo, message::kNoMemory},
    {ERROR_OUTOFMEMORY, ErrorKind::kIo, message::kNoMemory},
    {ERROR_NOT_READY, ErrorKind::kIo, message::kMediumNotReady},
    {ERROR_CRC, ErrorKind::kIo, message::kMediumError},
    {ERROR_IO_DEVICE, ErrorKind::kIo, message::kMediumError},
    {ERROR_BAD_NETPATH, ErrorKind::kIo, message::kComputerUnreachable},
    {ERROR_BAD_NET_NAME, ErrorKind::kIo, message::kComputerUnreachable},
    {ERROR_NETNAME_DELETED, ErrorKind::kIo, message::kComputerUnreachable},
    {ERROR_UNEXP_NET_ERR, ErrorKind::kIo, message::kComputerUnreachable},
    {ERROR_SEM_TIMEOUT, ErrorKind::kIo, message::kComputerUnreachable},
    {ERROR_NETWORK_UNREACHABLE, ErrorKind::kIo, message::kComputerUnreachable},
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

void RaiseCode(DWORD code, const std::string& path, const Failure& failure) {
  for (const Cause& cause : kCauses) {
    if (cause.code != code) continue;
    const std::string user = cause.kind == ErrorKind::kLocked ? UserOf(path) : "";
    if (user.empty()) Raise(cause.kind, path, failure, cause.message);
    Raise(cause.kind, path, failure, {message::kUsedBy, {{"<Name>", user}}});
  }
  Raise(ErrorKind::kIo, path, failure, {message::kSystemError, {{"<Number>", code}}});
}

void RaiseLast(const std::string& path, const Failure& failure) {
  RaiseCode(::GetLastError(), path, failure);
}

Handle OpenExisting(const std::string& path, DWORD access, DWORD flags) {
  return Handle(::CreateFileW(SystemPath(path).c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                              flags, nullptr));
}

}  // namespace files::os
