// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace editor {

// Names that a message shows before it only counts them.
inline constexpr std::size_t kNamesShown = 5;

// "A, B, C", and "A, B, C, D, E … (12)" when there are more. `total` is the number of all names
// when the list holds only the first of them.
inline std::string NameList(const std::vector<std::string>& names, std::size_t total = 0) {
  total = std::max(total, names.size());
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), kNamesShown); ++i) {
    if (i > 0) list += ", ";
    list += names[i];
  }
  if (total > kNamesShown) list += " … (" + std::to_string(total) + ")";
  return list;
}

}  // namespace editor
