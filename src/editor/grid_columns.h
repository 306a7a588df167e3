// SPDX-License-Identifier: MIT
// Places of the columns in the two grids, as cells, layouts and edits name them.
#pragma once

#include <cstddef>

namespace editor {

// Columns of the argument grid.
inline constexpr std::size_t kAliasIdColumn = 0;
inline constexpr std::size_t kInColumn = 1;
inline constexpr std::size_t kOutColumn = 2;
// Columns of the alias grid.
inline constexpr std::size_t kItemIdColumn = 0;
inline constexpr std::size_t kVBAliasColumn = 1;

}  // namespace editor
