// SPDX-License-Identifier: MIT
#include "project/unified_diff.h"

#include <algorithm>

#include "project/line_diff.h"

namespace project {

namespace {

std::string Span(std::size_t start, std::size_t count) {
  return std::to_string(count == 0 ? start : start + 1) +
         (count == 1 ? "" : "," + std::to_string(count));
}

}  // namespace

std::string UnifiedDiff(std::string_view path, std::string_view before, std::string_view after) {
  constexpr std::size_t kContext = 3;
  const std::vector<LineEdit> script = DiffLines(SplitLines(before), SplitLines(after));
  std::string out;
  std::size_t old_line = 0, new_line = 0;  // lines before script[i]
  for (std::size_t i = 0; i < script.size();) {
    if (script[i].kind == ' ') {
      ++i, ++old_line, ++new_line;
      continue;
    }
    const std::size_t lead = std::min({kContext, i, old_line, new_line});
    std::size_t start = i - lead, end = i, kept = 0;
    for (std::size_t j = i; j < script.size() && kept <= 2 * kContext; ++j) {
      kept = script[j].kind == ' ' ? kept + 1 : 0;
      if (kept == 0) end = j + 1;
    }
    end = std::min(end + kContext, script.size());
    std::size_t old_count = 0, new_count = 0;
    std::string body;
    for (std::size_t j = start; j < end; ++j) {
      old_count += script[j].kind != '+';
      new_count += script[j].kind != '-';
      body += script[j].kind;
      body += script[j].line;
      body += '\n';
    }
    if (out.empty()) out = "--- " + std::string(path) + "\n+++ " + std::string(path) + "\n";
    out += "@@ -" + Span(old_line - lead, old_count) + " +" + Span(new_line - lead, new_count) +
           " @@\n" + body;
    old_line += old_count - lead;
    new_line += new_count - lead;
    i = end;
  }
  return out;
}

}  // namespace project
