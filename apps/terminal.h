// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace apps {

enum class StandardStream { kOut = 1, kError = 2 };

bool IsTerminal(StandardStream stream);

// The folder that the running program stands in.
std::string ProgramFolder(const char* argv0);

}  // namespace apps
