// SPDX-License-Identifier: MIT
#include "vbfiles/path_resolver.h"

#include "files/error.h"
#include "platform/text.h"

namespace vbfiles {

namespace {

bool IsSeparator(char c) { return c == '\\' || c == '/'; }
bool IsDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' &&
         ((path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z'));
}

}  // namespace

bool IsAbsolutePath(std::string_view path) {
  return IsDrive(path) || (!path.empty() && IsSeparator(path.front()));
}

std::string PathResolver::Resolve(const std::string& folder, std::string_view written) {
  if (IsAbsolutePath(written)) return std::string(written);
  std::string path = folder;
  for (std::size_t begin = 0; begin <= written.size();) {
    std::size_t end = begin;
    while (end < written.size() && !IsSeparator(written[end])) ++end;
    const std::string part(written.substr(begin, end - begin));
    begin = end + 1;
    if (part.empty() || part == ".") continue;
    if (part == "..") {
      const std::string parent = system_.Folder(path);
      if (!parent.empty()) path = parent;
    } else {
      path = system_.Join(path, RealName(path, part));
    }
  }
  return path;
}

PathResolver::Folder& PathResolver::List(const std::string& folder) {
  const auto [at, is_new] = folders_.try_emplace(folder);
  if (!is_new) return at->second;
  try {
    for (files::DirectoryEntry& entry : system_.List(folder)) {
      at->second.names.insert(std::move(entry.name));
    }
  } catch (const files::Error&) {
    // A folder that cannot be listed: its files keep the names as written.
  }
  return at->second;
}

std::string PathResolver::RealName(const std::string& folder, const std::string& name) {
  Folder& listed = List(folder);
  if (listed.names.contains(name)) return name;
  if (listed.by_folded_name.empty()) {
    for (const std::string& exact : listed.names) {
      listed.by_folded_name.emplace(platform::FoldCase(exact), exact);
    }
  }
  const auto found = listed.by_folded_name.find(platform::FoldCase(name));
  return found == listed.by_folded_name.end() ? name : found->second;
}

bool IsInside(const files::FileSystem& system, const std::string& path, const std::string& folder) {
  for (std::string at = path; !at.empty();) {
    if (at == folder) return true;
    std::string parent = system.Folder(at);
    if (parent.size() >= at.size()) return false;
    at = std::move(parent);
  }
  return false;
}

}  // namespace vbfiles
