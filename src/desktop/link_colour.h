// SPDX-License-Identifier: MIT
#pragma once

#include <wx/settings.h>

#include "helpwindow/help_colours.h"

namespace desktop {

// Of links in the window, which the system's dark look shows too dark to be read.
inline wxColour LinkColour() {
  const bool dark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
  return wxColour((dark ? helpwindow::kDarkHelp : helpwindow::kLightHelp).link);
}

}  // namespace desktop
