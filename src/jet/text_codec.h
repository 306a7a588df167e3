// SPDX-License-Identifier: MIT
// Text as the file stores it (docs/jet4.md, 7), and as UTF-8. A lone surrogate becomes the three
// bytes of its code point, so that every stored text survives the way there and back.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/row_buffer.h"

namespace jet {

// Decodes a stored text into the arena.
std::string_view DecodeText(std::span<const std::byte> stored, Arena& arena);
std::string DecodeText(std::span<const std::byte> stored);
// Decodes plain UTF-16LE, as names are stored.
std::string DecodeUtf16(std::span<const std::byte> stored);

// The first UTF-16 units of a text, as many as `out` takes; returns how many.
std::size_t FirstUtf16Units(std::string_view text, std::span<char16_t> out);
// Number of UTF-16 units of a text.
std::size_t Utf16Length(std::string_view text);
// Appends the text as UTF-16LE; bytes that are no UTF-8 become U+FFFD.
void AppendUtf16(std::string_view text, std::vector<std::byte>& out);
// Appends the text in the form that Access chooses: one byte per character when the column allows
// it, there are three or more units and all are in U+0001..U+00FF; else UTF-16LE. A text that
// begins with U+FEFF is stored in the mixed form, lest it be read as compressed; false when that
// form cannot hold it (a unit whose low byte is zero).
bool AppendStoredText(std::string_view text, bool compress, std::vector<std::byte>& out);

// Equal without regard to the case of letters that have a Latin-1 or ASCII counterpart; how names
// of tables, columns and indexes are compared.
bool SameName(std::string_view a, std::string_view b);
// The order of names under the same rule.
bool ComesBefore(std::string_view a, std::string_view b);

}  // namespace jet
