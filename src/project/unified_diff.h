// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace project {

// The unified diff (three lines of context) from `before` to `after`, headed by the path; "" when
// they are equal. Line ends CR LF are shown as LF. Texts are bytes.
std::string UnifiedDiff(std::string_view path, std::string_view before, std::string_view after);

}  // namespace project
