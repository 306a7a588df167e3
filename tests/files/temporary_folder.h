// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <random>
#include <string>

// A folder of the real file system for one test, removed with all that is in it at its end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("files-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string path() const { return path_.string(); }
  std::string operator/(const std::string& name) const {
    return (path_ / std::filesystem::path(std::u8string(name.begin(), name.end()))).string();
  }

 private:
  std::filesystem::path path_;
};
