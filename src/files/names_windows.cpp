// SPDX-License-Identifier: MIT
// Names of files and folders.
#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "files/real_file_system.h"
#include "files/windows_handle.h"
#include "files/windows_path.h"

namespace files::os {
namespace {

constexpr DWORD kAnyFolder = FILE_FLAG_BACKUP_SEMANTICS;
constexpr DWORD kLinkItself = FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT;

bool IsFolderAttribute(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Of what a link leads to.
std::optional<DWORD> AttributesBehindLinks(const std::string& path) {
  const std::wstring system_path = SystemPath(path);
  const DWORD attributes = ::GetFileAttributesW(system_path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    // The system keeps some of its files to itself, but they are there.
    return ::GetLastError() == ERROR_SHARING_VIOLATION ? std::optional<DWORD>(0) : std::nullopt;
  }
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return attributes;
  const Handle handle = OpenExisting(path, FILE_READ_ATTRIBUTES, kAnyFolder);
  BY_HANDLE_FILE_INFORMATION info;
  if (!handle.valid() || !::GetFileInformationByHandle(handle.get(), &info)) return std::nullopt;
  return info.dwFileAttributes;
}

// Placeholders of synchronised folders are marked like links but are files.
bool IsLinkTag(DWORD attributes, DWORD tag) {
  return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (tag == IO_REPARSE_TAG_SYMLINK || tag == IO_REPARSE_TAG_MOUNT_POINT);
}

// Both handles of a rename with the names of the newer systems: the target disappears at once,
// also when somebody has it open.
struct RenameInfo {
  DWORD flags;
  HANDLE root;
  DWORD name_size;  // bytes
  WCHAR name[1];
};

constexpr auto kRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
constexpr auto kDispositionInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);
constexpr DWORD kReplace = 1, kPosix = 2, kDelete = 1;

DWORD RenamePosix(const std::string& from, const std::wstring& to) {
  const Handle handle = OpenExisting(from, DELETE | SYNCHRONIZE, kLinkItself);
  if (!handle.valid()) return ::GetLastError();
  const std::size_t bytes = to.size() * sizeof(wchar_t);
  std::vector<std::byte> buffer(sizeof(RenameInfo) + bytes);
  auto* info = reinterpret_cast<RenameInfo*>(buffer.data());
  info->flags = kReplace | kPosix;
  info->name_size = static_cast<DWORD>(bytes);
  to.copy(info->name, to.size());
  if (::SetFileInformationByHandle(handle.get(), kRenameInfoEx, info,
                                   static_cast<DWORD>(buffer.size()))) {
    return ERROR_SUCCESS;
  }
  return ::GetLastError();
}

bool IsUnknownThere(DWORD code) {
  return code == ERROR_INVALID_PARAMETER || code == ERROR_NOT_SUPPORTED ||
         code == ERROR_INVALID_FUNCTION || code == ERROR_INVALID_LEVEL ||
         code == ERROR_CALL_NOT_IMPLEMENTED;
}

// Within one medium, in one step: never a copy.
DWORD RenameOnce(const std::string& from, const std::string& to) {
  const std::wstring target = SystemPath(to);
  const DWORD code = RenamePosix(from, target);
  if (!IsUnknownThere(code)) return code;
  return ::MoveFileExW(SystemPath(from).c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING)
             ? ERROR_SUCCESS
             : ::GetLastError();
}

// Replaces nothing.
DWORD MoveOnce(const std::string& from, const std::string& to) {
  return ::MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(), 0) ? ERROR_SUCCESS
                                                                            : ::GetLastError();
}

DWORD RemoveOnce(const std::string& path) {
  const bool folder = IsFolderAttribute(AttributesOf(path));
  {
    const Handle handle = OpenExisting(path, DELETE, kLinkItself);
    if (!handle.valid()) return ::GetLastError();
    DWORD flags = kDelete | kPosix;
    if (::SetFileInformationByHandle(handle.get(), kDispositionInfoEx, &flags, sizeof flags)) {
      return ERROR_SUCCESS;
    }
    const DWORD code = ::GetLastError();
    if (!IsUnknownThere(code)) return code;
  }
  const std::wstring system_path = SystemPath(path);
  const BOOL done =
      folder ? ::RemoveDirectoryW(system_path.c_str()) : ::DeleteFileW(system_path.c_str());
  return done ? ERROR_SUCCESS : ::GetLastError();
}

// Where files have no second names and open files cannot be replaced: the system takes the old one
// away first, and for a moment nobody has the name.
DWORD ReplaceInSteps(const std::string& from, const std::string& to, const std::string& kept) {
  if (::ReplaceFileW(SystemPath(to).c_str(), SystemPath(from).c_str(), SystemPath(kept).c_str(),
                     REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)) {
    return ERROR_SUCCESS;
  }
  const DWORD code = ::GetLastError();
  if (code == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2) MoveOnce(kept, to);
  return code;
}

// `from` takes the place of `to`, which is named `kept` then. Nobody finds the name missing: the
// old file gets the third name before it loses the first.
DWORD ReplaceAndKeep(const std::string& from, const std::string& to, const std::string& kept) {
  // To its own name nothing is renamed, but the medium says whether it knows how.
  if (IsUnknownThere(RenamePosix(from, SystemPath(from)))) return ReplaceInSteps(from, to, kept);
  if (!::CreateHardLinkW(SystemPath(kept).c_str(), SystemPath(to).c_str(), nullptr)) {
    const DWORD code = ::GetLastError();
    return IsUnknownThere(code) ? ReplaceInSteps(from, to, kept) : code;
  }
  const DWORD code = RenamePosix(from, SystemPath(to));
  if (code != ERROR_SUCCESS) RemoveOnce(kept);
  return code;
}

// Whether somebody has the file open in a way that keeps others out.
bool IsInUse(const std::string& path) {
  const Handle handle(::CreateFileW(SystemPath(path).c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, kAnyFolder, nullptr));
  return !handle.valid() && ::GetLastError() == ERROR_SHARING_VIOLATION;
}

// One folder or file of the path after the other, from the top.
void CreateBelow(const std::string& folder) {
  const std::string parent = FolderOf(folder);
  if (!parent.empty() && parent != folder && !AttributesBehindLinks(parent)) CreateBelow(parent);
  if (::CreateDirectoryW(SystemPath(folder).c_str(), nullptr)) return;
  const DWORD code = ::GetLastError();
  if (code != ERROR_ALREADY_EXISTS || !IsFolder(folder)) {
    RaiseCode(code, folder, message::kCannotBeCreated);
  }
}

}  // namespace

DWORD AttributesOf(const std::string& path) {
  return ::GetFileAttributesW(SystemPath(path).c_str());
}

bool IsWriteProtected(const std::string& path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool IsMomentary(DWORD code) {
  return code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION ||
         code == ERROR_ACCESS_DENIED || code == ERROR_DELETE_PENDING ||
         code == ERROR_USER_MAPPED_FILE;
}

// The system would take the dot or blank away, and the file had another name than asked for.
void CheckNewName(const std::string& path) {
  if (path.empty() || (path.back() != '.' && path.back() != ' ')) return;
  const std::string name = FileNameOf(path);
  if (name == "." || name == "..") return;
  Raise(ErrorKind::kNotAFile, path, message::kCannotBeCreated, message::kNameEndsInDot);
}

bool IsLink(const std::string& path) {
  const Handle handle = OpenExisting(path, FILE_READ_ATTRIBUTES, kLinkItself);
  FILE_ATTRIBUTE_TAG_INFO info;
  return handle.valid() &&
         ::GetFileInformationByHandleEx(handle.get(), FileAttributeTagInfo, &info, sizeof info) &&
         IsLinkTag(info.FileAttributes, info.ReparseTag);
}

std::uint64_t NameCount(const std::string& path) {
  const Handle handle = OpenExisting(path, FILE_READ_ATTRIBUTES, kAnyFolder);
  BY_HANDLE_FILE_INFORMATION info;
  const bool known = handle.valid() && ::GetFileInformationByHandle(handle.get(), &info);
  return known ? info.nNumberOfLinks : 0;
}

bool Exists(const std::string& path) {
  try {
    return AttributesBehindLinks(path).has_value();
  } catch (const Error&) {
    return false;  // no name that a file can have
  }
}

bool IsFolder(const std::string& path) {
  try {
    return IsFolderAttribute(AttributesBehindLinks(path).value_or(0));
  } catch (const Error&) {
    return false;
  }
}

std::vector<DirectoryEntry> ListFolder(const std::string& folder) {
  std::wstring pattern = SystemPath(folder);
  if (!pattern.ends_with(L'\\')) pattern += L'\\';
  WIN32_FIND_DATAW found;
  const HANDLE search =
      ::FindFirstFileExW((pattern + L'*').c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                         nullptr, FIND_FIRST_EX_LARGE_FETCH);
  std::vector<DirectoryEntry> entries;
  DWORD code = ::GetLastError();
  if (search != INVALID_HANDLE_VALUE) {
    do {
      const std::wstring_view name = found.cFileName;
      if (name == L"." || name == L"..") continue;
      entries.push_back({Utf8Text(name), IsFolderAttribute(found.dwFileAttributes),
                         IsLinkTag(found.dwFileAttributes, found.dwReserved0)});
    } while (::FindNextFileW(search, &found));
    code = ::GetLastError();
    ::FindClose(search);
  }
  const bool complete = code == ERROR_NO_MORE_FILES ||
                        (code == ERROR_FILE_NOT_FOUND && IsFolder(folder));  // an empty medium
  if (!complete) RaiseCode(code, folder, message::kCannotBeListed);
  return entries;
}

void RenameFile(const std::string& from, const std::string& to) {
  CheckNewName(to);
  const Failure failure{message::kCannotBeRenamed, "<Name>", to};
  if (!IsFolder(to) && IsWriteProtected(to)) {
    Raise(ErrorKind::kReadOnly, from, failure, message::kWriteProtected);
  }
  const DWORD code = Retry([&] { return RenameOnce(from, to); },
                           [&](DWORD) { return IsFolder(to) || !Exists(from); });
  if (code == ERROR_SUCCESS) return;
  for (const std::string& path : {to, from}) {
    if (IsMomentary(code) && IsInUse(path))
      RaiseCode(ERROR_SHARING_VIOLATION, path, message::kIsInUse);
  }
  RaiseCode(code, from, failure);
}

void RenameNew(const std::string& from, const std::string& to) {
  CheckNewName(to);
  const DWORD code = Retry([&] { return MoveOnce(from, to); }, [&](DWORD) { return Exists(to); });
  if (code != ERROR_SUCCESS) RaiseCode(code, from, {message::kCannotBeRenamed, "<Name>", to});
}

bool Exchange(const std::string& one, const std::string& other) {
  const std::string third = one + kExchanging;
  DWORD code = Retry([&] { return ReplaceAndKeep(one, other, third); },
                     [&](DWORD) { return !Exists(other) || Exists(third); });
  if (IsUnknownThere(code)) return false;
  if (code != ERROR_SUCCESS) RaiseCode(code, one, {message::kCannotBeExchanged, "<Other>", other});
  code = Retry([&] { return MoveOnce(third, one); }, [&](DWORD) { return Exists(one); });
  if (code != ERROR_SUCCESS) RaiseCode(code, third, {message::kCannotBeRenamed, "<Name>", one});
  return true;
}

void RemoveName(const std::string& path) {
  const DWORD code =
      Retry([&] { return RemoveOnce(path); }, [&](DWORD) { return IsWriteProtected(path); });
  if (code != ERROR_SUCCESS) RaiseCode(code, path, message::kCannotBeRemoved);
}

void CreateFolders(const std::string& folder) {
  CheckNewName(folder);
  if (!IsFolder(folder)) CreateBelow(folder);
}

std::string CanonicalPath(const std::string& path) {
  const Handle handle = OpenExisting(path, 0, kAnyFolder);
  if (!handle.valid()) RaiseLast(path, message::kCannotBeFound);
  // A medium without a letter has a name of another kind.
  for (const DWORD form : {DWORD{VOLUME_NAME_DOS}, DWORD{VOLUME_NAME_GUID}}) {
    std::wstring final_path(MAX_PATH, L'\0');
    for (;;) {
      const DWORD size = ::GetFinalPathNameByHandleW(handle.get(), final_path.data(),
                                                     static_cast<DWORD>(final_path.size()), form);
      if (size == 0) break;
      const bool fits = size < final_path.size();
      final_path.resize(size);
      if (fits) return PlainPath(final_path);
    }
  }
  // Not every kind of medium can tell.
  return PlainPath(SystemPath(path));
}

std::string_view Separators() { return "\\/"; }

// Behind "C:" a name stands in the current folder of that drive.
bool TakesNameAtOnce(std::string_view folder) {
  return Separators().find(folder.back()) != std::string_view::npos ||
         (folder.back() == ':' && RootOf(folder) == folder);
}

std::string FolderOf(std::string_view path) {
  const std::size_t root = RootOf(path).size();
  std::size_t end = path.find_last_of(Separators());
  end = end == std::string_view::npos || end < root ? root : end;
  while (end > root && Separators().find(path[end - 1]) != std::string_view::npos) --end;
  return std::string(path.substr(0, end));
}

std::string FileNameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of(Separators());
  const std::size_t begin = separator == std::string_view::npos ? 0 : separator + 1;
  return std::string(path.substr(std::max(begin, RootOf(path).size())));
}

}  // namespace files::os
