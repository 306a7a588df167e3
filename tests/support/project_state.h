// SPDX-License-Identifier: MIT
// A whole project before and after something that may fail on the way: its files, and what they
// say to whoever opens it.
#pragma once

#include <initializer_list>
#include <map>
#include <string>

#include "tests/support/formula_project.h"

namespace support {

using Files = std::map<std::string, std::string>;  // contents by path

// For any file system of the tests that files can be put into.
template <class System>
void Restore(System& system, const Files& files) {
  for (const auto& [path, contents] : files) system.Put(path, contents);
}

// Rows and the code of these classes, as somebody sees them who opens the project now.
inline std::string StateOf(files::FileSystem& system, std::initializer_list<const char*> classes) {
  OpenProject project(system);
  std::string state;
  for (const std::string& row : RowsOf(*project.operations)) state += row + "\n";
  for (const char* name : classes) {
    platform::CodeModule& module =
        *project.environment->FindProject("PumpServer")->FindComponent(name)->Module();
    state += module.Lines(1, module.CountOfLines()) + "\n";
  }
  return state;
}

}  // namespace support
