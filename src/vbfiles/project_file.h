// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/vbide.h"

namespace vbfiles {

// A component as a project file names it. Texts are bytes of the file.
struct ComponentEntry {
  platform::ComponentType type = platform::ComponentType::kClassModule;
  std::string name;  // "" where the project file gives only a path
  std::string path;  // as written: relative, with backslashes
};

struct ProjectFile {
  std::string name;  // "" when the file has none
  platform::ProjectType type = platform::ProjectType::kStandardExe;
  std::vector<ComponentEntry> components;  // in file order
};

// Reads the lines of a .vbp; components end at the first section.
ProjectFile ParseProjectFile(std::string_view text);

// The project paths that a .vbg names, as written: the startup project first, then the others in
// file order.
std::vector<std::string> ParseGroupFile(std::string_view text);

}  // namespace vbfiles
