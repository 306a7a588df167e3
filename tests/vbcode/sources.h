// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vbcode/program.h"

namespace vbcode {

inline std::string KindName(const Use& use) {
  constexpr const char* kNames[] = {"read", "write", "both", "call", "unknown", "text"};
  std::string name = kNames[static_cast<int>(use.kind)];
  if (use.binding == Binding::kUndeclared) name += "?";
  if (use.binding == Binding::kUncertain) name += "??";
  if (use.other_object) name += " other";
  return name;
}

// A class C of the project Proj, and what other modules there are.
inline Program MakeProgram(std::string text, std::vector<ModuleSource> others = {}) {
  others.insert(others.begin(), ModuleSource{"C", "Proj", ModuleKind::kClass, std::move(text)});
  return Program(std::move(others));
}

// "line:column kind" of each use; the module's name in front where it is not the first one's.
inline std::string ListUses(const Program& program, std::string_view name,
                            std::int32_t module = 0) {
  std::string list;
  for (const Use& use : program.Uses(module, name)) {
    if (!list.empty()) list += ", ";
    if (use.module != 0) list += program.module(use.module).source.name + ' ';
    list += std::to_string(use.line) + ':' + std::to_string(use.column) + ' ' + KindName(use);
  }
  return list;
}

}  // namespace vbcode
