// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace files {

// Who runs the program, and where: "account@computer".
std::string AccountAtComputer();

}  // namespace files
