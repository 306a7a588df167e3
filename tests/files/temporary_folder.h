// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

// A folder of the real file system for one test, removed with all that is in it at its end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "files-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};
