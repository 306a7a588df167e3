// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace project {

// The projects that were opened last, the latest first: the lines of a text.
class RecentProjects {
 public:
  static constexpr std::size_t kMaxCount = 10;

  explicit RecentProjects(std::string_view text = {});
  void Add(const std::string& path);
  void Remove(const std::string& path);
  const std::vector<std::string>& Paths() const { return paths_; }
  std::string Text() const;

 private:
  std::vector<std::string> paths_;
};

}  // namespace project
