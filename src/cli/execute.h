// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace cli {

extern const char* const kDesktopProgram;  // its file name

// Runs a program in place of this one. Returns only when it cannot be started.
void Execute(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace cli
