// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vbfiles/code_page.h"
#include "vbfiles/environment_state.h"

namespace vbfiles {

// Where new text goes.
struct LinePlace {
  std::string file;
  std::int32_t line = 1;           // number that the first line of the text will have
  bool continues_comment = false;  // the line above is a comment that ends with " _"
};

// Splits UTF-8 text at its line ends (CR LF, LF or CR; a text that ends with one yields one more,
// empty line) and puts the lines into the code page. A character that the page lacks becomes "?"
// in a comment and is added to `replaced`; anywhere else platform::Error (kRefused) names it and
// its place. Refuses lines that are longer than the development environment can load.
std::vector<std::string> EncodeLines(std::string_view text, const LinePlace& place,
                                     const CodePage& page,
                                     std::vector<ReplacedCharacters>& replaced);

}  // namespace vbfiles
