// SPDX-License-Identifier: MIT
// Text in which only the letters of ASCII have a case: names, keywords, connection strings.
#pragma once

#include <algorithm>
#include <string_view>

namespace recordset {

inline char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// Equal without regard to case.
inline bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                            [](char x, char y) { return Upper(x) == Upper(y); });
}

// The text without blanks at its end.
inline std::string_view WithoutTrailingBlanks(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

// The text without blanks at either end.
inline std::string_view TrimBlanks(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  return WithoutTrailingBlanks(text);
}

}  // namespace recordset
