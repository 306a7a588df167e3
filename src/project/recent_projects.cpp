// SPDX-License-Identifier: MIT
#include "project/recent_projects.h"

#include "project/line_diff.h"

namespace project {

RecentProjects::RecentProjects(std::string_view text) {
  for (const std::string_view line : SplitLines(text)) {
    if (!line.empty() && paths_.size() < kMaxCount) paths_.emplace_back(line);
  }
}

void RecentProjects::Add(const std::string& path) {
  Remove(path);
  paths_.insert(paths_.begin(), path);
  if (paths_.size() > kMaxCount) paths_.resize(kMaxCount);
}

void RecentProjects::Remove(const std::string& path) { std::erase(paths_, path); }

std::string RecentProjects::Text() const {
  std::string text;
  for (const std::string& path : paths_) text += path + "\n";
  return text;
}

}  // namespace project
