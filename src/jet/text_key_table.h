// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace jet {

// What one character adds to a text key of the collation "General" (LCID 1033, version 0).
// A character without main bytes is either special (`special` is its code) or ignored.
struct TextWeight {
  std::uint8_t main_size = 0;  // 0, 1 or 2
  std::array<std::uint8_t, 2> main = {};
  std::uint8_t extra = 0;    // accent; 0: none
  std::uint8_t special = 0;  // hyphen, apostrophe, control characters; 0: none
};

extern const std::array<TextWeight, 256> kLatin1Weights;

// The weight of a character above Latin-1; null when the collation's table does not list it.
const TextWeight* FindOtherWeight(char16_t unit);

// The weight of a UTF-16 unit; null when the collation's table does not list it.
inline const TextWeight* FindTextWeight(char16_t unit) {
  return unit < kLatin1Weights.size() ? &kLatin1Weights[unit] : FindOtherWeight(unit);
}

}  // namespace jet
