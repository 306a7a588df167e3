// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "jet/pager.h"

namespace jet {

// The pages that something refers to, by page number: the header, the map of free pages, and of
// each table in the catalog its definition, rows, long values, index pages and maps. Reads
// definitions and maps, no rows but the catalog's. Raises kDamaged for what cannot be read, for
// then nobody knows what is in use.
std::vector<bool> FindPagesInUse(Pager& pager);

}  // namespace jet
