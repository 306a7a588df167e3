// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace project {

// Encodings of INI files. Without a mark a file is Windows-1252.
enum class IniEncoding { kWindows1252, kUtf8, kUtf16Le, kUtf16Be };

// The encoding that the mark at the beginning states.
IniEncoding DetectEncoding(std::string_view bytes);
// The mark of an encoding, empty for Windows-1252.
std::string_view MarkOf(IniEncoding encoding);
// Bytes of one code unit: 2 for UTF-16, otherwise 1.
std::size_t UnitSize(IniEncoding encoding);

// UTF-8 of encoded text. Malformed parts become U+FFFD.
std::string Decode(std::string_view bytes, IniEncoding encoding);
// Encoded form of UTF-8 text; nothing when a character does not exist in Windows-1252.
std::optional<std::string> Encode(std::string_view text, IniEncoding encoding);

}  // namespace project
