// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "cli/invocation.h"

namespace cli {

// Reads the words behind a command's path into the invocation. Raises UsageError, in the
// invocation's language, with a suggestion for a mistyped option.
void ParseArguments(const std::vector<std::string>& words, Invocation& invocation);

}  // namespace cli
