// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "files/file_system.h"

namespace files {

// Keeps our own programs from changing one whole file at the same time. Held on the file itself, as
// long as the object lives; a file that takes its place is another one.
class ChangeLock {
 public:
  // Raises kConflict when somebody else holds it.
  ChangeLock(FileSystem& system, const std::string& path);

 private:
  std::unique_ptr<RandomAccessFile> file_;
};

// Whether the file under this name is the one that was expected.
using IsExpected = std::function<bool(const std::string& path)>;

// Puts the file `temporary`, which nobody else knows, in the place of the existing file `path` if
// that is as expected at that moment, whoever writes or replaces it meanwhile: the two are
// exchanged, and what came out is looked at.
//
// True: done; what `path` held is under the name `temporary`, or gone where the medium's file
// system cannot exchange (it is then looked at directly before it is replaced). False: somebody
// changed or removed it; that version is under `path`. Were it changed twice while this was found
// out, the first version is kept beside it (AsideName), and `temporary` is gone. Raises Error with
// everything as before, or NotUndoneError: the file that belongs to `path` is named in it.
bool PutInPlace(FileSystem& system, const std::string& temporary, const std::string& path,
                const IsExpected& is_expected);

// A free name beside `path` for a version of it that somebody else made.
std::string AsideName(FileSystem& system, const std::string& path);

}  // namespace files
