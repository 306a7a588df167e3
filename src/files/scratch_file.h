// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "files/file_system.h"

namespace files {

// A new empty file for what has no room in memory; its contents go with it. It loses its name at
// once (on some systems when it is closed), so nobody else opens it and a program that is killed
// leaves nothing. It lies where `beside` does: what is kept private or encrypted there does not get
// into a folder that all share. Raises files::Error.
std::unique_ptr<RandomAccessFile> OpenScratchFile(FileSystem& system, const std::string& beside);

}  // namespace files
