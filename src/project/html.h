// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace project {

// Text as it stands between tags or in a quoted attribute. Control characters other than tab and
// line feed become U+FFFD; bytes that are no UTF-8 too.
std::string EscapeHtml(std::string_view text);

// Visual Basic source as HTML: comments, strings and keywords in <i>, <q> and <b> elements.
std::string HighlightVisualBasic(std::string_view source);

}  // namespace project
