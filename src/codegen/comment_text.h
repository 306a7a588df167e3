// SPDX-License-Identifier: MIT
// The rule for names and items that stand in a comment of the generated code.
#pragma once

#include <string>
#include <string_view>

namespace codegen {

// `code`, which ends within a comment, with the text behind it. Whatever the text holds stays in
// that comment and on that line: tabs and line ends are shown as blanks, other control characters
// as "?"; where the line would continue onto the next one, an apostrophe closes it.
std::string WithCommentText(std::string_view code, std::string_view text);

// Whether the comment, from its apostrophe on, shows the text and nothing else. The width of
// blanks does not count, for the development environment rewrites it; a character that the
// module's code page lacks stands there as "?".
bool ShowsText(std::string_view comment, std::string_view text);

}  // namespace codegen
