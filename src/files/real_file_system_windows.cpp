// SPDX-License-Identifier: MIT
#include "files/real_file_system.h"

#include <optional>
#include <vector>

#include "files/windows_handle.h"
#include "files/windows_path.h"

namespace files::os {
namespace {

constexpr DWORD kAnyFolder = FILE_FLAG_BACKUP_SEMANTICS;

DWORD Disposition(OpenMode mode) {
  switch (mode) {
    case OpenMode::kCreateNew:
    case OpenMode::kScratch:
      return CREATE_NEW;
    case OpenMode::kCreateOrOpen:
      return OPEN_ALWAYS;
    case OpenMode::kRead:
    case OpenMode::kReadWrite:
      break;
  }
  return OPEN_EXISTING;
}

// The access list of a file as the system keeps it, inherited entries included; empty on a medium
// without permissions.
std::vector<std::byte> PermissionsOf(const std::wstring& path) {
  std::vector<std::byte> descriptor(256);
  DWORD needed = 0;
  while (!::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(),
                             static_cast<DWORD>(descriptor.size()), &needed)) {
    if (::GetLastError() != ERROR_INSUFFICIENT_BUFFER || needed <= descriptor.size()) return {};
    descriptor.resize(needed);
  }
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  ::GetSecurityDescriptorControl(descriptor.data(), &control, &revision);
  if ((control & SE_DACL_AUTO_INHERITED) != 0) {
    // Who sets a list says so again, or its entries no longer follow the folder's.
    ::SetSecurityDescriptorControl(descriptor.data(), SE_DACL_AUTO_INHERIT_REQ,
                                   SE_DACL_AUTO_INHERIT_REQ);
  }
  return descriptor;
}

// Who may write the file but not its permissions keeps those that it has.
void CopyPermissions(const std::wstring& from, const std::wstring& to) {
  std::vector<std::byte> descriptor = PermissionsOf(from);
  if (descriptor.empty()) return;
  ::SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, descriptor.data());
}

bool CopyStream(const std::wstring& from, const std::wstring& to) {
  const Handle source(
      ::CreateFileW(from.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  const Handle target(
      ::CreateFileW(to.c_str(), GENERIC_WRITE, kShareAll, nullptr, CREATE_ALWAYS, 0, nullptr));
  if (!source.valid() || !target.valid()) return false;
  std::vector<std::byte> block(std::size_t{1} << 16);
  for (;;) {
    DWORD count = 0, written = 0;
    if (!::ReadFile(source.get(), block.data(), static_cast<DWORD>(block.size()), &count,
                    nullptr)) {
      return false;
    }
    if (count == 0) return true;
    if (!::WriteFile(target.get(), block.data(), count, &written, nullptr)) return false;
  }
}

// What other programs keep beside a file's contents, such as where it was downloaded from.
void CopyStreams(const std::wstring& from, const std::wstring& to, const std::string& from_path) {
  WIN32_FIND_STREAM_DATA stream;
  const HANDLE search = ::FindFirstStreamW(from.c_str(), FindStreamInfoStandard, &stream, 0);
  if (search == INVALID_HANDLE_VALUE) return;  // none, or a medium without streams
  bool copied = true;
  do {
    const std::wstring name = stream.cStreamName;
    if (name != L"::$DATA") copied = CopyStream(from + name, to + name) && copied;
  } while (::FindNextStreamW(search, &stream));
  ::FindClose(search);
  if (!copied) RaiseLast(PlainPath(to), {message::kCannotBeGivenAttributes, "<Other>", from_path});
}

}  // namespace

std::unique_ptr<RandomAccessFile> OpenFile(const std::string& path, OpenMode mode,
                                           const std::string& like) {
  const bool read_only = mode == OpenMode::kRead;
  const bool scratch = mode == OpenMode::kScratch;
  const bool is_new = mode == OpenMode::kCreateNew || scratch;
  const bool creates = is_new || mode == OpenMode::kCreateOrOpen;
  if (creates) CheckNewName(path);
  if (!read_only && !is_new && IsLink(path)) {
    Raise(ErrorKind::kInTheWay, path, message::kCannotBeOpened, message::kIsLink);
  }
  std::vector<std::byte> permissions;
  if (creates && !like.empty()) permissions = PermissionsOf(SystemPath(like));
  SECURITY_ATTRIBUTES security = {sizeof security, permissions.data(), FALSE};
  const DWORD access = read_only ? GENERIC_READ : (GENERIC_READ | GENERIC_WRITE);
  const DWORD attributes =
      scratch ? FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE : FILE_ATTRIBUTE_NORMAL;
  const std::wstring system_path = SystemPath(path);
  Handle handle(INVALID_HANDLE_VALUE);
  const DWORD code = Retry(
      [&]() -> DWORD {
        handle = Handle(::CreateFileW(
            system_path.c_str(), scratch ? access | DELETE : access, scratch ? 0 : kShareAll,
            permissions.empty() ? nullptr : &security, Disposition(mode), attributes, nullptr));
        return handle.valid() ? ERROR_SUCCESS : ::GetLastError();
      },
      // A file that somebody removes while it is open refuses even to be looked at.
      [&](DWORD last) {
        return last == ERROR_ACCESS_DENIED && (AttributesOf(path) != INVALID_FILE_ATTRIBUTES ||
                                               ::GetLastError() != ERROR_ACCESS_DENIED);
      });
  if (!handle.valid()) {
    if (code == ERROR_ACCESS_DENIED && IsFolder(path)) {
      Raise(ErrorKind::kNotAFile, path, message::kCannotBeOpened, message::kIsFolder);
    }
    RaiseCode(code, path, message::kCannotBeOpened);
  }
  if (::GetFileType(handle.get()) != FILE_TYPE_DISK) {
    Raise(ErrorKind::kNotAFile, path, message::kCannotBeOpened, message::kNoRegularFile);
  }
  return MakeFile(std::move(handle), path, read_only);
}

std::optional<FileStamp> StampOf(const std::string& path) {
  const Handle handle = OpenExisting(path, FILE_READ_ATTRIBUTES, kAnyFolder);
  if (!handle.valid()) return std::nullopt;
  return StampOfHandle(handle.get(), path);
}

// The system writes names with the file's own flush; a folder's handle is flushed where allowed.
void SyncFolder(const std::string& folder) {
  const Handle handle = OpenExisting(folder, GENERIC_WRITE, kAnyFolder);
  if (handle.valid()) {
    ::FlushFileBuffers(handle.get());
  } else if (AttributesOf(folder) == INVALID_FILE_ATTRIBUTES) {
    RaiseLast(folder, message::kCannotBeOpened);
  }
}

// The attribute of a folder says nothing: permissions do.
bool MayWrite(const std::string& path) {
  try {
    if (!IsFolder(path) && IsWriteProtected(path)) return false;
    // Data of a file is to a folder its entries.
    const Handle handle = OpenExisting(path, FILE_WRITE_DATA, kAnyFolder);
    return handle.valid() || ::GetLastError() == ERROR_SHARING_VIOLATION;
  } catch (const Error&) {
    return false;
  }
}

// What the system's own replacing of a file would carry over. That one takes two steps, between
// which neither file has the name; so it is done before, and the renaming stays one step.
void CopyFileAttributes(const std::string& from, const std::string& to) {
  const std::wstring source = SystemPath(from);
  const std::wstring target = SystemPath(to);
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!::GetFileAttributesExW(source.c_str(), GetFileExInfoStandard, &data)) {
    RaiseLast(from, message::kCannotBeExamined);
  }
  CopyStreams(source, target, from);
  CopyPermissions(source, target);
  if (const Handle handle = OpenExisting(to, FILE_WRITE_ATTRIBUTES); handle.valid()) {
    ::SetFileTime(handle.get(), &data.ftCreationTime, nullptr, nullptr);
  }
  if (!::SetFileAttributesW(target.c_str(), data.dwFileAttributes)) {
    RaiseLast(to, {message::kCannotBeGivenAttributes, "<Other>", from});
  }
}

}  // namespace files::os
