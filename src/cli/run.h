// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "cli/console.h"

namespace cli {

// Runs one call of the command line; `words` are the arguments without the program's name.
// Returns the exit code. Never raises.
int Run(const std::vector<std::string>& words, Console& console);

}  // namespace cli
