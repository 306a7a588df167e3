// SPDX-License-Identifier: MIT
#include "tests/windows/studio/driver_windows.h"
#include "tests/windows/studio/modes.h"

namespace studio_host {

void Input(const Files& files) { Studio studio(files); }

}  // namespace studio_host
