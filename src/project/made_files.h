// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/file_system.h"

namespace project {

// Files that belong together and are made one after the other. Those made are removed again unless
// all are kept; a file that somebody else made under the name, before or since, is left alone.
class MadeFiles {
 public:
  explicit MadeFiles(files::FileSystem& system) : system_(system) {}
  ~MadeFiles();
  MadeFiles(const MadeFiles&) = delete;
  MadeFiles& operator=(const MadeFiles&) = delete;

  // Raises files::Error, kExists when there is such a file.
  void Make(const std::string& path, std::string_view contents);
  // The same with a file that was made under another name.
  void Move(const std::string& from, const std::string& path);
  // Returns the paths in the order in which they were made.
  std::vector<std::string> Keep();

 private:
  files::FileSystem& system_;
  std::vector<std::pair<std::string, std::uint64_t>> made_;  // path and identity
};

}  // namespace project
