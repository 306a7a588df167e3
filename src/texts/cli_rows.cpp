// SPDX-License-Identifier: MIT
// Texts of the command line.
#include "texts/rows.h"

namespace texts {

std::span<const Row> CliRows() { return {}; }

}  // namespace texts
