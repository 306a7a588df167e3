// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vbcode/source_lines.h"

// Lines in memory for tests of the scanner.
class TextLines final : public vbcode::SourceLines {
 public:
  TextLines() = default;
  // Lines apart by LF; one at the very end adds no line.
  explicit TextLines(std::string_view text) {
    while (!text.empty()) {
      const std::size_t end = text.find('\n');
      lines.emplace_back(text.substr(0, end));
      text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
  }
  std::int32_t LineCount() const override { return static_cast<std::int32_t>(lines.size()); }
  std::string_view Line(std::int32_t line) const override {
    return lines[static_cast<std::size_t>(line) - 1];
  }

  std::vector<std::string> lines;
};
