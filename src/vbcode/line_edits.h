// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vbcode/program.h"

namespace vbcode {

// Visual Basic takes no longer line.
inline constexpr std::int32_t kMaxLineLength = 1023;

// A line of a module as it becomes.
struct LineEdit {
  std::int32_t module = 0;
  std::int32_t line = 0;
  std::string text;
  friend bool operator==(const LineEdit&, const LineEdit&) = default;
};

// Pieces of lines that become other texts.
class LineEdits {
 public:
  explicit LineEdits(const Program& program) : program_(program) {}

  // Bytes of the line. One place is replaced once.
  void Replace(std::int32_t module, std::int32_t line, std::size_t begin, std::size_t length,
               std::string_view text);
  // The whole lines, in the order of modules and lines.
  std::vector<LineEdit> Lines() const;

 private:
  struct Piece {
    std::size_t length = 0;
    std::string text;
  };
  using LineNumber = std::pair<std::int32_t, std::int32_t>;

  const Program& program_;
  std::map<LineNumber, std::map<std::size_t, Piece>> pieces_;  // by first byte
};

}  // namespace vbcode
