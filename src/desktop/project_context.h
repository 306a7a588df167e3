// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/window_messages.h"
#include "desktop/window_parts.h"
#include "project/project.h"
#include "studio/add_in_session.h"

namespace desktop {

// What everything that serves the open project works with. All of it outlives its users.
struct ProjectContext {
  const WindowParts& parts;
  const WindowMessages& messages;
  project::Project& opened;
  studio::AddInSession& session;
};

}  // namespace desktop
