// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "vbcode/program.h"

namespace vbcode {

struct SearchOptions {
  bool whole_word = false;
  bool match_case = false;
};

// Where the text stands in visible lines, comments and literals included: uses of the kind kText,
// in the order of modules and lines. They do not overlap. None for the empty text.
std::vector<Use> FindText(const Program& program, std::string_view text,
                          const SearchOptions& options);

// Bytes of the line from `begin` on that hold the text; npos for none. The length can differ from
// that of the text where letter case does not count.
struct TextPlace {
  std::size_t begin = std::string_view::npos;
  std::size_t length = 0;
};
TextPlace FindInLine(std::string_view line, std::size_t begin, std::string_view text,
                     const SearchOptions& options);

}  // namespace vbcode
