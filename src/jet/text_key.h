// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace jet {

// Characters of a text that take part in its key; the rest does not count.
inline constexpr std::size_t kTextKeyUnits = 255;

enum class SortOrder : unsigned char { kDescending = 0, kAscending = 1 };

// Appends the key of a text in the collation "General" (LCID 1033, version 0):
//   main 01 [accents] [01 01 01 specials] 00
// Texts that the database holds to be equal have equal keys: either case, ß and ss, trailing
// blanks, U+0000 and nothing. Returns the character that has no key, if there is one; then `key`
// is left as it was.
[[nodiscard]] std::optional<char32_t> AppendTextKey(std::u16string_view text, SortOrder order,
                                                    std::vector<std::byte>& key);
// The same for a text of ASCII characters.
[[nodiscard]] std::optional<char32_t> AppendTextKey(std::string_view ascii, SortOrder order,
                                                    std::vector<std::byte>& key);

}  // namespace jet
