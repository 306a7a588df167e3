// SPDX-License-Identifier: MIT
// Names in code of which nobody knows what they are.
#pragma once

#include <vector>

#include "vbcode/program.h"

namespace vbcode {

// Where the module uses a name that nothing declares that the program or the language knows. Not
// among them is what may come from a library: what is called, has members, or is only read and
// begins as a library's constants do ("adOpenStatic").
std::vector<Place> FindUnknownNames(const Program& program, std::int32_t module);

}  // namespace vbcode
