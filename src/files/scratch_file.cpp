// SPDX-License-Identifier: MIT
#include "files/scratch_file.h"

#include "files/replace_file.h"

namespace files {

std::unique_ptr<RandomAccessFile> OpenScratchFile(FileSystem& system, const std::string& beside) {
  const std::string path = TemporaryName(system, beside);
  std::unique_ptr<RandomAccessFile> file = system.OpenLike(path, OpenMode::kCreateNew, beside);
  try {
    system.Remove(path);
  } catch (const Error&) {
    file.reset();
    RemoveQuietly(system, path);
    throw;
  }
  return file;
}

}  // namespace files
