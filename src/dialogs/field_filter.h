// SPDX-License-Identifier: MIT
// Which characters a field takes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dialogs {

// Kind of a field, the low three bits of its flags.
enum class FieldKind : std::int32_t {
  kNothing = 0,        // rejects every character
  kLetters = 1,        // A-Z a-z _ ( )
  kLettersDigits = 3,  // the same and 0-9
  kNoDigits = 5,
  kNoLetters = 6,  // all but A-Z a-z
  // 2, 4 and 7 take every character
};

inline constexpr std::int32_t kFieldKindMask = 7;
inline constexpr std::int32_t kFieldAllowsBlanks = 8;

struct FilteredText {
  std::string text;
  std::int32_t rejected = 0;  // characters left out
};

// The characters of the text that the field takes. Blanks go first unless the flags allow them;
// then the kind decides; of what is left at most `max_length` characters are kept (0: all).
FilteredText FilterField(std::string_view text, std::int32_t flags, std::int32_t max_length);

}  // namespace dialogs
