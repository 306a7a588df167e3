// SPDX-License-Identifier: MIT
#pragma once

#include <wx/settings.h>

#include "desktop/colours.h"

namespace desktop {

// Of links in the window, which the system's dark look shows too dark to be read.
inline wxColour LinkColour() {
  const bool dark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
  return wxColour((dark ? kDarkHelp : kLightHelp).link);
}

}  // namespace desktop
