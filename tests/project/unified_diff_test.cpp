// SPDX-License-Identifier: MIT
#include "project/unified_diff.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string Join(const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines) text += line + "\n";
  return text;
}

// Applies a unified diff by its line numbers; fails where context does not match.
std::vector<std::string> Patch(const std::vector<std::string>& before, const std::string& diff) {
  std::vector<std::string> result;
  std::size_t next = 0;
  std::istringstream in(diff);
  std::string line;
  while (std::getline(in, line)) {
    if (line.rfind("---", 0) == 0 || line.rfind("+++", 0) == 0) continue;
    if (line.rfind("@@", 0) == 0) {
      std::size_t start = std::stoul(line.substr(4));
      const bool empty = line.substr(4, line.find(' ', 4) - 4).ends_with(",0");
      const std::size_t index = empty ? start : start - 1;
      while (next < index) result.push_back(before.at(next++));
      continue;
    }
    if (line[0] != '+') {
      EXPECT_EQ(before.at(next), line.substr(1)) << diff;
      if (line[0] == ' ') result.push_back(before[next]);
      ++next;
    } else {
      result.push_back(line.substr(1));
    }
  }
  while (next < before.size()) result.push_back(before[next++]);
  return result;
}

}  // namespace

TEST(UnifiedDiff, ShowsAChangeWithItsContext) {
  EXPECT_EQ(
      project::UnifiedDiff("a.cls", "1\r\n2\r\n3\r\n4\r\n5\r\n", "1\r\n2\r\n3\r\nx\r\n4\r\n5\r\n"),
      "--- a.cls\n+++ a.cls\n@@ -1,5 +1,6 @@\n 1\n 2\n 3\n+x\n 4\n 5\n");
  EXPECT_EQ(project::UnifiedDiff("a.cls", "same\n", "same\n"), "");
}

TEST(UnifiedDiff, PatchingWithItGivesTheNewText) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::vector<std::string> before, after;
    const int size = static_cast<int>(random() % 60);
    for (int i = 0; i < size; ++i) before.push_back("line" + std::to_string(random() % 12));
    for (const auto& line : before) {
      const auto choice = random() % 12;
      if (choice == 0) continue;
      after.push_back(choice == 1 ? "changed" : line);
      if (choice == 2) after.push_back("new" + std::to_string(random() % 3));
    }
    const std::string diff = project::UnifiedDiff("f", Join(before), Join(after));
    EXPECT_EQ(Patch(before, diff), after) << diff;
  }
}
