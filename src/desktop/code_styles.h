// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace desktop {

// What the code pane shows in a look of its own; the numbers of its styles.
enum class CodeStyle : char { kPlain, kComment, kKeyword, kString, kNumber, kDate };

// The style of each byte of Visual Basic code whose lines end with LF. The text begins with a
// logical line.
std::string StylesOf(std::string_view code);

// Whether the line that ends at a place of the code (at its LF) goes on in the next one.
bool GoesOn(std::string_view code, std::size_t line_end);

}  // namespace desktop
