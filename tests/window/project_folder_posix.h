// SPDX-License-Identifier: MIT
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <map>
#include <string>

#include "files/real_file_system.h"
#include "files/replace_file.h"

namespace window_tests {

using Snapshot = std::map<std::string, std::string>;

// A project of its own in a real folder that goes with the object.
class ProjectFolder {
 public:
  explicit ProjectFolder(const Snapshot& files) {
    char name[] = "/tmp/project-XXXXXX";
    path_ = mkdtemp(name);
    for (const auto& [path, bytes] : files)
      files::ReplaceFile(files::RealFileSystem(), path_ + path.substr(path.rfind('/')), bytes);
  }
  ~ProjectFolder() { std::filesystem::remove_all(path_); }
  ProjectFolder(const ProjectFolder&) = delete;
  ProjectFolder& operator=(const ProjectFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string Database() const { return path_ + "/Plant.ovs"; }
  std::string Read(const std::string& name) const {
    return files::ReadFile(files::RealFileSystem(), path_ + "/" + name);
  }

 private:
  std::string path_;
};

}  // namespace window_tests
