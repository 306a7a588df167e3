// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/error.h"
#include "files/random_access_file.h"

namespace files {

inline constexpr const char* kExchanging = ".out";

// Only reading follows a link in the last step of a path. Whoever writes through one resolves it
// first (ResolveTarget), so that nothing that was planted under a name is written.
enum class OpenMode {
  kRead,          // must exist
  kReadWrite,     // must exist
  kCreateNew,     // must not exist; opened for reading and writing
  kCreateOrOpen,  // opened for reading and writing
  // A new file for what has no room in memory: nobody else opens it, and it goes when it is closed
  // or its program killed. It bears the name only where the system has no files without one.
  kScratch,
};

struct DirectoryEntry {
  std::string name;
  bool is_directory = false;  // the folder itself, or a link to one
  bool is_link = false;
};

// Everything asked of an operating system about files. Paths are UTF-8 in the system's form.
// Failures are files::Error; Exists, IsDirectory, IsWritable and Stamp answer instead. The real
// implementation is RealFileSystem(); tests use MemoryFileSystem and the failing and forgetting
// wrappers around it.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  std::unique_ptr<RandomAccessFile> Open(const std::string& path, OpenMode mode) {
    return OpenLike(path, mode, "");
  }
  // A file that this creates has, from its first moment, the permissions, owner and group of
  // `like` as far as allowed, and never lets in anybody whom that one does not. Without a file
  // `like` the user's mask decides.
  virtual std::unique_ptr<RandomAccessFile> OpenLike(const std::string& path, OpenMode mode,
                                                     const std::string& like) = 0;
  virtual bool Exists(const std::string& path) = 0;
  // Whether the last step of the path is a symbolic link, wherever it leads.
  virtual bool IsLink(const std::string& path) = 0;
  // How many names (hard links) the file has; 0 when it does not exist.
  virtual std::uint64_t NameCount(const std::string& path) = 0;
  virtual bool IsDirectory(const std::string& path) = 0;
  // Size, time and identity without opening; nothing when the file does not exist.
  virtual std::optional<FileStamp> Stamp(const std::string& path) = 0;
  // Entries of a folder in no particular order, without "." and "..".
  virtual std::vector<DirectoryEntry> List(const std::string& folder) = 0;
  virtual void Rename(const std::string& from, const std::string& to) = 0;  // replaces `to`
  // Raises kExists, and changes nothing, when `to` exists.
  virtual void RenameNew(const std::string& from, const std::string& to) = 0;
  // Both files get each other's name; nobody finds either name missing, nor a third file lost.
  // False, with nothing changed, where the medium's file system cannot do that. A system that does
  // it in steps may be cut off where `other` is named `one` + kExchanging.
  virtual bool Exchange(const std::string& one, const std::string& other) = 0;
  virtual void Remove(const std::string& path) = 0;  // a file or link, or an empty folder
  virtual void CreateDirectories(const std::string& folder) = 0;
  // Returns when the names in the folder (created, renamed, removed files) are on the medium.
  virtual void SyncDirectory(const std::string& folder) = 0;
  // The path with links resolved, absolute. The file must exist.
  virtual std::string Canonical(const std::string& path) = 0;
  virtual bool IsWritable(const std::string& path) = 0;
  // Gives `to` the permissions, owner and extended attributes of `from` as far as allowed.
  virtual void CopyAttributes(const std::string& from, const std::string& to) = 0;

  // Path arithmetic in the system's form.
  virtual std::string Join(std::string_view folder, std::string_view name) const = 0;
  virtual std::string Folder(std::string_view path) const = 0;  // "" for a bare name
  virtual std::string FileName(std::string_view path) const = 0;
};

// Reads a whole file. Raises when it is larger than `limit` bytes.
std::string ReadFile(FileSystem& system, const std::string& path,
                     std::uint64_t limit = std::uint64_t{1} << 31);

// Whether the file holds exactly these bytes; false when it does not exist.
bool HoldsBytes(FileSystem& system, const std::string& path, std::string_view bytes);

// The operating system's files. Lives as long as the program; may be used by several threads.
FileSystem& RealFileSystem();

}  // namespace files
