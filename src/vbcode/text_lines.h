// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vbcode/source_lines.h"

namespace vbcode {

// The lines of one text, apart by CR LF, CR or LF. An end of line at the very end begins no line.
class TextLines final : public SourceLines {
 public:
  explicit TextLines(std::string text);

  std::int32_t LineCount() const override { return static_cast<std::int32_t>(lines_.size()); }
  std::string_view Line(std::int32_t line) const override {
    const Range& range = lines_[static_cast<std::size_t>(line) - 1];
    return std::string_view(text_).substr(range.begin, range.length);
  }
  const std::string& text() const { return text_; }

 private:
  struct Range {
    std::uint32_t begin = 0;
    std::uint32_t length = 0;
  };

  void AddLine(std::size_t begin, std::size_t end);
  void AddLines(std::size_t begin, std::size_t end);

  std::string text_;
  std::vector<Range> lines_;
};

}  // namespace vbcode
