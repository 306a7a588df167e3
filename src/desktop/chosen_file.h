// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "desktop/window_messages.h"
#include "desktop/window_parts.h"
#include "project/project.h"

namespace desktop {

// Writes a file that the user named in a dialog. Another one there is asked about: the dialog may
// have asked about the name before it got an extension. False when that is to stay. Raises
// files::Error, also for a file of the project.
bool WriteChosen(const WindowParts& parts, const WindowMessages& messages,
                 project::Project& project, const std::string& path, const std::string& contents);

}  // namespace desktop
