// SPDX-License-Identifier: MIT
#pragma once

#include "cli/invocation.h"

namespace cli {

// Runs the window program that stands beside this one (or in the folders of PATH) in the place of
// this process. Raises CommandError when there is none.
int OpenDesktop(Invocation& invocation);

}  // namespace cli
