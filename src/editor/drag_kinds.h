// SPDX-License-Identifier: MIT
// What rows of the editor are called when they are dragged to another window.
#pragma once

#include <string_view>

namespace editor {

inline constexpr std::string_view kDraggedAliases = "aliases";
inline constexpr std::string_view kDraggedFormulas = "formulas";

}  // namespace editor
