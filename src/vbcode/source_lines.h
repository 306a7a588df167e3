// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vbcode {

// The visible lines of a module, numbered from 1, as bytes of a code page without line ends.
class SourceLines {
 public:
  virtual ~SourceLines() = default;
  virtual std::int32_t LineCount() const = 0;
  // REQUIRES: 1 <= line <= LineCount(). Valid until the lines change.
  virtual std::string_view Line(std::int32_t line) const = 0;
};

inline bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// Index of the first character that is no blank; text.size() when there is none.
inline std::size_t SkipBlanks(std::string_view text, std::size_t position = 0) {
  while (position < text.size() && IsBlank(text[position])) ++position;
  return position;
}

// Whether the next physical line continues this one: a blank and an underscore at the very end.
inline bool IsContinued(std::string_view text) {
  return text.size() >= 2 && text.back() == '_' && IsBlank(text[text.size() - 2]);
}

// Compares with a keyword given in lower case.
inline bool IsKeyword(std::string_view word, std::string_view keyword) {
  if (word.size() != keyword.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char c = word[i];
    if ((c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c) != keyword[i]) return false;
  }
  return true;
}

}  // namespace vbcode
