// SPDX-License-Identifier: MIT
#include "vbcode/columns.h"

#include <algorithm>

namespace vbcode {

namespace {

bool BeginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

}  // namespace

std::int32_t CountCharacters(std::string_view text) {
  return static_cast<std::int32_t>(std::count_if(text.begin(), text.end(), BeginsCharacter));
}

void ColumnCounter::Begin(std::string_view line) {
  line_ = line.data();
  byte_ = 0;
  characters_ = 0;
}

std::int32_t ColumnCounter::CharactersBefore(std::string_view line, std::size_t byte) {
  if (line.data() != line_ || byte < byte_) Begin(line);
  characters_ += CountCharacters(line.substr(byte_, byte - byte_));
  byte_ = byte;
  return characters_;
}

std::size_t ColumnCounter::ByteOf(std::string_view line, std::int32_t character) {
  if (line.data() != line_ || character < characters_) Begin(line);
  while (byte_ < line.size()) {
    if (BeginsCharacter(line[byte_])) {
      if (characters_ == character) break;
      ++characters_;
    }
    ++byte_;
  }
  return byte_;
}

}  // namespace vbcode
