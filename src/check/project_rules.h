// SPDX-License-Identifier: MIT
#pragma once

#include "check/check.h"
#include "check/findings.h"
#include "check/rows.h"

namespace check {

// The files of the Visual Basic projects, and the database file.
void CheckProject(const Parts& parts, Findings& findings);

// The quick part of that: rows that the database file counts and does not show.
void CheckCounts(const Rows& rows, const Parts& parts, Findings& findings);

}  // namespace check
