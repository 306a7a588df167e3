// SPDX-License-Identifier: MIT
// What RealFileSystem asks of the operating system beyond the standard library; one source file
// per system implements it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "files/file_system.h"

namespace files::os {

// The kind that callers tell apart, of an operating system's error.
ErrorKind KindOf(const std::error_code& code);

// Throws Error for a failed call: "<path> <failure>: <message of the code>. <remedy>".
[[noreturn]] void RaiseSystem(const std::error_code& code, const std::string& path,
                              const Failure& failure);

// As FileSystem::OpenLike.
std::unique_ptr<RandomAccessFile> OpenFile(const std::string& path, OpenMode mode,
                                           const std::string& like);
bool IsLink(const std::string& path);
std::uint64_t NameCount(const std::string& path);
std::optional<FileStamp> StampOf(const std::string& path);
bool Exists(const std::string& path);
bool IsFolder(const std::string& path);
std::vector<DirectoryEntry> ListFolder(const std::string& folder);
void RenameFile(const std::string& from, const std::string& to);
void RemoveName(const std::string& path);
void CreateFolders(const std::string& folder);
std::string CanonicalPath(const std::string& path);
void RenameNew(const std::string& from, const std::string& to);
bool Exchange(const std::string& one, const std::string& other);
void SyncFolder(const std::string& folder);
bool MayWrite(const std::string& path);
void CopyFileAttributes(const std::string& from, const std::string& to);

// Characters that separate the names of a path; the first is used to join.
std::string_view Separators();
// Whether a name is put behind the folder without a separator.
bool TakesNameAtOnce(std::string_view folder);
std::string FolderOf(std::string_view path);
std::string FileNameOf(std::string_view path);

}  // namespace files::os
