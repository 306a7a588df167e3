// SPDX-License-Identifier: MIT
#include "bench/folder.h"

#include <chrono>
#include <filesystem>

namespace bench {

Folder::Folder() {
  const auto temporary = std::filesystem::temp_directory_path();
  for (auto number = std::chrono::steady_clock::now().time_since_epoch().count();; ++number) {
    const auto path = temporary / ("bench-" + std::to_string(number));
    if (!std::filesystem::create_directory(path)) continue;
    path_ = path.string();
    return;
  }
}

Folder::~Folder() {
  std::error_code left_behind;
  std::filesystem::remove_all(path_, left_behind);
}

}  // namespace bench
