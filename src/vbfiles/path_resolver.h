// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "files/file_system.h"

namespace vbfiles {

// Finds the files that project files name: relative paths with backslashes, often with "..", and
// often in other letter case than the file's own. Lists every folder once; use one resolver for
// one reading of projects.
class PathResolver {
 public:
  explicit PathResolver(files::FileSystem& system) : system_(system) {}

  // The path of the file as the file system has it. `folder` is an absolute path. A part that
  // does not exist is taken as written, so that the result can be shown to the engineer.
  std::string Resolve(const std::string& folder, std::string_view written);

 private:
  struct Folder {
    std::set<std::string> names;
    std::unordered_map<std::string, std::string> by_folded_name;  // made when first needed
  };

  Folder& List(const std::string& folder);
  std::string RealName(const std::string& folder, const std::string& name);

  files::FileSystem& system_;
  std::map<std::string, Folder> folders_;
};

// Whether the written path begins at a drive or at a root instead of at the project's folder.
bool IsAbsolutePath(std::string_view path);

// Whether `path` is `folder` or lies below it; both as FileSystem::Canonical returns them.
bool IsInside(const files::FileSystem& system, const std::string& path, const std::string& folder);

}  // namespace vbfiles
