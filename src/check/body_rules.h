// SPDX-License-Identifier: MIT
#pragma once

#include "check/check.h"
#include "check/findings.h"
#include "check/modules.h"
#include "check/rows.h"

namespace check {

// Where procedures and the arguments of their formulas disagree.
void CheckBodies(const Rows& rows, const Modules& modules, Findings& findings);

}  // namespace check
