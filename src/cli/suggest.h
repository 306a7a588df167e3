// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cli {

// The candidate most like a mistyped word, without regard to case; "" when none is near enough
// to be meant (more than a third of the letters would have to change).
std::string Nearest(std::string_view word, const std::vector<std::string>& candidates);

}  // namespace cli
