// SPDX-License-Identifier: MIT
#pragma once

#include "vbcode/module_code.h"
#include "vbcode/names.h"
#include "vbcode/source_lines.h"

namespace vbcode {

// Reads the visible lines of a module. Any text gives a result, in time that grows with its length
// alone.
ModuleCode ReadModule(const SourceLines& lines, Names& names);

}  // namespace vbcode
