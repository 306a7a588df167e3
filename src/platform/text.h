// SPDX-License-Identifier: MIT
// Code points of UTF-8 text, letter case, and Windows-1252.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// The code point at `position`, which is moved behind it. A byte that begins no well-formed
// sequence is returned as U+DC80 + (byte - 0x80), so that nothing is lost.
// REQUIRES: position < text.size().
char32_t NextCodePoint(std::string_view text, std::size_t& position);
// Appends the UTF-8 form; U+DC80..U+DCFF become the single bytes that NextCodePoint made them of.
void AppendCodePoint(std::string& text, char32_t code_point);
bool IsValidUtf8(std::string_view text);

// Lower case of one letter by simple mapping (Latin, Greek, Cyrillic); others are returned as
// they are. Never changes the length of the UTF-8 form of U+0000..U+04FF.
char32_t FoldCase(char32_t code_point);
std::string FoldCase(std::string_view text);
// Names are compared this way: letter case does not count, Ä equals ä.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Windows-1252, every byte one code point: the five undefined bytes are U+0081, U+008D, U+008F,
// U+0090 and U+009D.
char32_t FromWindows1252(std::uint8_t byte);
std::optional<std::uint8_t> ToWindows1252(char32_t code_point);
std::string Windows1252ToUtf8(std::string_view bytes);

}  // namespace platform
