// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace settings {

// The built-in settings of a window by the name of its settings, without regard to case: lines
// `key=value` separated by CR LF. Empty for an unknown name.
std::string_view DefaultSettings(std::string_view name);

}  // namespace settings
