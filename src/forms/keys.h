// SPDX-License-Identifier: MIT
// Key codes, modifier masks and mouse buttons as the events carry them.
#pragma once

#include <cstdint>

namespace forms {

inline constexpr std::int16_t kKeyBack = 8;
inline constexpr std::int16_t kKeyTab = 9;
inline constexpr std::int16_t kKeyReturn = 13;
inline constexpr std::int16_t kKeyEscape = 27;
inline constexpr std::int16_t kKeySpace = 32;
inline constexpr std::int16_t kKeyPageUp = 33;
inline constexpr std::int16_t kKeyPageDown = 34;
inline constexpr std::int16_t kKeyEnd = 35;
inline constexpr std::int16_t kKeyHome = 36;
inline constexpr std::int16_t kKeyLeft = 37;
inline constexpr std::int16_t kKeyUp = 38;
inline constexpr std::int16_t kKeyRight = 39;
inline constexpr std::int16_t kKeyDown = 40;
inline constexpr std::int16_t kKeyInsert = 45;
inline constexpr std::int16_t kKeyDelete = 46;
inline constexpr std::int16_t kKeyF1 = 112;  // F1 to F12 are consecutive
inline constexpr std::int16_t kKeyF2 = 113;
inline constexpr std::int16_t kKeyF6 = 117;
inline constexpr std::int16_t kKeyF8 = 119;
inline constexpr std::int16_t kKeyF9 = 120;
inline constexpr std::int16_t kKeyF12 = 123;

inline constexpr std::int16_t kShift = 1;
inline constexpr std::int16_t kControl = 2;
inline constexpr std::int16_t kAlt = 4;

inline constexpr std::int16_t kLeftButton = 1;
inline constexpr std::int16_t kRightButton = 2;

// A key going down in a control. Letters and digits have the code of the upper-case character.
// A handler that acts on the key sets `handled`, which keeps it from the control.
struct KeyEvent {
  std::int16_t key_code = 0;
  std::int16_t shift = 0;
  bool handled = false;
};

// A mouse event; the position is in twips from the control's left upper corner.
struct MouseEvent {
  std::int16_t button = 0;
  std::int16_t shift = 0;
  double x = 0;
  double y = 0;
};

}  // namespace forms
