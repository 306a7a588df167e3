// SPDX-License-Identifier: MIT
#include "bench/folder.h"

#include <stdlib.h>

#include <filesystem>

namespace bench {

Folder::Folder() {
  std::string name = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
  path_ = ::mkdtemp(name.data());
}

Folder::~Folder() { std::filesystem::remove_all(path_); }

}  // namespace bench
