// SPDX-License-Identifier: MIT
#pragma once

#include "check/check.h"
#include "check/findings.h"

namespace check {

// The files of the Visual Basic projects, and the database file.
void CheckProject(const Parts& parts, Findings& findings);

}  // namespace check
