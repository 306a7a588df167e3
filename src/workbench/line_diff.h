// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace workbench {

using Lines = std::vector<std::string_view>;

// The lines of a text without their ends, LF or CR LF.
Lines SplitLines(std::string_view text);

struct LineEdit {
  char kind;  // ' ' kept, '-' removed, '+' added
  std::string_view line;
};

// The shortest script that turns `a` into `b`, removals before additions. Refers to the lines of
// both.
std::vector<LineEdit> DiffLines(const Lines& a, const Lines& b);

}  // namespace workbench
