// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace handbook {

// What a reader sees of a page's body: without tags, with entities decoded, in one line.
std::string TextOfPage(std::string_view html);

// The text as HTML shows it.
std::string EscapeHtml(std::string_view text);

}  // namespace handbook
