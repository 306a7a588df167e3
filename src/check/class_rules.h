// SPDX-License-Identifier: MIT
#pragma once

#include "check/check.h"
#include "check/findings.h"
#include "check/modules.h"
#include "check/rows.h"

namespace check {

// Where classes are not as the rows want them, and what in them belongs to no row.
void CheckClasses(const Rows& rows, const Modules& modules, const Parts& parts, Findings& findings,
                  const Progress& progress);

}  // namespace check
