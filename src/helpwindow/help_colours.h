// SPDX-License-Identifier: MIT
#pragma once

namespace helpwindow {

// Of the help's pages; text and paper are the system's.
struct HelpPalette {
  const char* link;
  const char* shade;  // behind headings of tables and code
};

inline constexpr HelpPalette kLightHelp = {"#1b66c9", "#eef1f5"};
inline constexpr HelpPalette kDarkHelp = {"#6cb2ff", "#3a3a3a"};

}  // namespace helpwindow
