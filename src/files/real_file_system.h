// SPDX-License-Identifier: MIT
// What RealFileSystem asks of the operating system beyond the standard library; one source file
// per system implements it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "files/file_system.h"

namespace files::os {

// The kind that callers tell apart, of an operating system's error.
ErrorKind KindOf(const std::error_code& code);

// Throws Error for a failed call: "<path> <failure>: <message of the code>. <remedy>".
[[noreturn]] void RaiseSystem(const std::error_code& code, const std::string& path,
                              std::string_view failure);

// As FileSystem::OpenLike.
std::unique_ptr<RandomAccessFile> OpenFile(const std::string& path, OpenMode mode,
                                           const std::string& like);
bool IsLink(const std::string& path);
std::uint64_t NameCount(const std::string& path);
std::optional<FileStamp> StampOf(const std::string& path);
void RenameNew(const std::string& from, const std::string& to);
bool Exchange(const std::string& one, const std::string& other);
void SyncFolder(const std::string& folder);
bool MayWrite(const std::string& path);
void CopyFileAttributes(const std::string& from, const std::string& to);

// Characters that separate the names of a path; the first is used to join.
std::string_view Separators();

}  // namespace files::os
