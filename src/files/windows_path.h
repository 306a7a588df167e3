// SPDX-License-Identifier: MIT
// Paths between our UTF-8 and the system's UTF-16.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace files::os {

// Nothing for text that is not valid UTF-8.
std::optional<std::wstring> WideText(std::string_view utf8);
std::string Utf8Text(std::wstring_view wide);

// The absolute path as the system's functions take it, of any length. Raises Error for a path
// that names no file: not UTF-8, a colon in a name (a stream inside a file).
std::wstring SystemPath(const std::string& path);

// The same path without the mark of the system's own form.
std::string PlainPath(std::wstring_view system_path);

// The part that stays when names are taken away: "C:\", "C:", "\\server\share\", "\" or "".
std::string_view RootOf(std::string_view path);

}  // namespace files::os
