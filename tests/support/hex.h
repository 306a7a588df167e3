// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace testing_support {

// Upper-case hex pairs without separators.
inline std::string Hex(std::span<const std::byte> bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const std::byte b : bytes) {
    text += kDigits[std::to_integer<unsigned>(b) >> 4];
    text += kDigits[std::to_integer<unsigned>(b) & 15];
  }
  return text;
}

// The bytes of hex pairs; blanks between pairs do not count.
inline std::vector<std::byte> FromHex(std::string_view text) {
  std::vector<std::byte> bytes;
  unsigned digits = 0;
  unsigned value = 0;
  for (const char c : text) {
    if (c == ' ') continue;
    value = value * 16 + static_cast<unsigned>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
    if (++digits % 2 == 0) {
      bytes.push_back(static_cast<std::byte>(value));
      value = 0;
    }
  }
  return bytes;
}

}  // namespace testing_support
