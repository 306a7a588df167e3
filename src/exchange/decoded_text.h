// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace exchange {

enum class Encoding { kUtf8, kUtf16, kWindows1252 };

struct DecodedText {
  std::string text;  // UTF-8 without a mark
  Encoding encoding = Encoding::kUtf8;
};

// The text of a file as spreadsheets and editors write it: UTF-8 or UTF-16 by its mark, UTF-8 when
// it is that throughout, Windows-1252 otherwise. Raises FormatError with the place for what is no
// text: a workbook, zero bytes, a broken encoding behind a mark.
DecodedText Decode(std::string bytes);

}  // namespace exchange
