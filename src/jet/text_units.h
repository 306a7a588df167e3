// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace jet {

// The first UTF-16 units of a UTF-8 text, at most `capacity`. A lone surrogate may be given as
// the three bytes of its code point; bytes that are no UTF-8 become U+FFFD.
template <std::size_t capacity>
class TextUnits {
 public:
  explicit TextUnits(std::string_view utf8) {
    std::size_t at = 0;
    while (at < utf8.size() && size_ < capacity) {
      const auto first = static_cast<unsigned char>(utf8[at]);
      if (first < 0x80) {
        units_[size_++] = first;
        ++at;
      } else {
        Add(Decode(utf8, at));
      }
    }
  }

  std::u16string_view view() const { return {units_.data(), size_}; }

 private:
  static constexpr char32_t kNoCharacter = 0xFFFD;

  void Add(char32_t c) {
    if (c >= 0x10000) {
      units_[size_++] = static_cast<char16_t>(0xD7C0 + (c >> 10));
      if (size_ == capacity) return;
      c = 0xDC00 + (c & 0x3FF);
    }
    units_[size_++] = static_cast<char16_t>(c);
  }

  // The character that begins at `at` with a byte above 0x7F; moves `at` behind it.
  static char32_t Decode(std::string_view utf8, std::size_t& at) {
    const auto first = static_cast<unsigned char>(utf8[at++]);
    const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    if (more == 0 || first > 0xF4 || utf8.size() - at < more) return kNoCharacter;
    char32_t c = first & (0x3Fu >> more);
    for (std::size_t i = 0; i < more; ++i) {
      const auto next = static_cast<unsigned char>(utf8[at + i]);
      if ((next & 0xC0) != 0x80) return kNoCharacter;
      c = c << 6 | (next & 0x3Fu);
    }
    constexpr std::array<char32_t, 4> kLeast = {0, 0x80, 0x800, 0x10000};
    if (c < kLeast[more] || c > 0x10FFFF) return kNoCharacter;
    at += more;
    return c;
  }

  std::array<char16_t, capacity> units_;  // filled up to size_
  std::size_t size_ = 0;
};

}  // namespace jet
