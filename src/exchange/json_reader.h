// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "exchange/contents.h"

namespace exchange {

// Reads what an export writes as JSON, and what lists print with --json: an object with the members
// aliases and formulas, or one of these arrays alone. The text must be that of the contents.
// Raises FormatError.
void ReadJson(std::string& text, Contents& contents);

}  // namespace exchange
