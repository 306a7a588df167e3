// SPDX-License-Identifier: MIT
// Characters and bytes of a line of UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vbcode {

std::int32_t CountCharacters(std::string_view text);

// Counts what stands in front of places of a line. Asked for one place behind the other it looks
// at each byte once.
class ColumnCounter {
 public:
  // Characters in front of the byte.
  std::int32_t CharactersBefore(std::string_view line, std::size_t byte);
  // The byte at which the character begins, counted from 0; line.size() behind the last.
  std::size_t ByteOf(std::string_view line, std::int32_t character);

 private:
  void Begin(std::string_view line);

  const char* line_ = nullptr;
  std::size_t byte_ = 0;
  std::int32_t characters_ = 0;  // in front of byte_, which begins one
};

}  // namespace vbcode
