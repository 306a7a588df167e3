// SPDX-License-Identifier: MIT
#pragma once

#include <wx/iconbndl.h>
#include <wx/window.h>

#include "texts/text_table.h"

namespace desktop {

// The program's icon in all sizes.
wxIconBundle ProgramIcons();

// Version, purpose and the licences of all linked parts.
void ShowAboutBox(wxWindow* parent, const texts::TextTable& texts);

}  // namespace desktop
