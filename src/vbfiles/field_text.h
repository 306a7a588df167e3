// SPDX-License-Identifier: MIT
// Small parts of the lines that project files and headers are made of.
#pragma once

#include <string_view>

#include "vbcode/source_lines.h"

namespace vbfiles {

// Mark that some tools put in front of a file; the development environment writes none.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

inline std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(vbcode::SkipBlanks(text));
  while (!text.empty() && vbcode::IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Without the quotes around it, if there are any.
inline std::string_view Unquoted(std::string_view value) {
  if (value.size() < 2 || value.front() != '"' || value.back() != '"') return value;
  return value.substr(1, value.size() - 2);
}

}  // namespace vbfiles
