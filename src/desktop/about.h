// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

#include "texts/text_table.h"

namespace desktop {

// Version, purpose and the licences of all linked parts.
void ShowAboutBox(wxWindow* parent, const texts::TextTable& texts);

}  // namespace desktop
