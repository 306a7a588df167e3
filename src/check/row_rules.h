// SPDX-License-Identifier: MIT
#pragma once

#include "check/check.h"
#include "check/findings.h"
#include "check/rows.h"

namespace check {

// What is wrong with rows by themselves and with what they refer to.
void CheckRows(const Rows& rows, const Parts& parts, Findings& findings);

}  // namespace check
