// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "files/file_identity.h"
#include "files/file_system.h"

namespace files {

// Writes a whole file so that at any time, a power cut included, the path holds the old contents
// or the new ones: a temporary file in the same folder, sync, rename, sync of the folder. An
// existing file's permissions, owner and extended attributes stay, a new one takes those of the
// file `like`; a link stays a link, a file with several names is refused. On failure the old file
// is untouched and the temporary one removed; only when the last step, the sync of the folder,
// fails is the new file there already.
void ReplaceFile(FileSystem& system, const std::string& path, std::string_view contents,
                 const std::string& like = "");

// The same if the file holds `before`. Raises kConflict, and leaves it alone, when it does not.
void ReplaceVersion(FileSystem& system, const std::string& path, std::string_view before,
                    std::string_view contents);

// Changes a whole file in the same way by what it holds, "" when there is none. `change` is called
// again when another program writes the file meanwhile. Nothing is written when it returns what it
// was given.
void UpdateFile(FileSystem& system, const std::string& path,
                const std::function<std::string(const std::string& before)>& change);

// Makes a file that is there whole or not at all. Raises kExists, and leaves that one alone, when
// somebody has made it.
void MakeFile(FileSystem& system, const std::string& path, std::string_view contents);

// The new contents of `target` in a new file `temporary` beside it, with the attributes of `target`
// if that exists, otherwise with the permissions of `like`. Sync returns when they are on the
// medium, and closes the file. On failure the file is removed again.
class TemporaryFile {
 public:
  TemporaryFile(FileSystem& system, std::string temporary, std::string target,
                std::string_view contents, const std::string& like = "");
  void Sync();

 private:
  template <typename Action>
  void OrRemove(Action action);

  FileSystem& system_;
  std::string temporary_;
  std::string target_;
  std::unique_ptr<RandomAccessFile> file_;
};

// The first half of ReplaceFile: a TemporaryFile that is synced.
void WriteTemporary(FileSystem& system, const std::string& temporary, const std::string& target,
                    std::string_view contents, const std::string& like = "");

// For a temporary file of something that failed.
void RemoveQuietly(FileSystem& system, const std::string& path) noexcept;

// A name for a temporary file beside `target` that no other file has. Ends in ".tmp".
std::string TemporaryName(FileSystem& system, const std::string& target);
// Whether TemporaryName could have made the name.
bool IsTemporaryName(std::string_view name, std::string_view target);

}  // namespace files
