// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/vbide.h"

namespace codegen {

struct NameUse {
  std::int32_t line = 0;
  std::string name;  // as given
  friend bool operator==(const NameUse&, const NameUse&) = default;
};

// The lines of a module that use one of the names for something that is no local name: one entry
// for a line and name, in the order of names and lines. Declarations are no uses.
std::vector<NameUse> FindNameUses(platform::CodeModule& module,
                                  const std::vector<std::string>& names);

}  // namespace codegen
