// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

#include <string_view>

namespace wx {

// The picture of that name, drawn for the light or dark look of the system; invalid for a name
// that does not exist. Crossed out with "Disabled" behind the name. The size is in pixels at 100 %.
wxBitmapBundle Picture(std::string_view name, int size = 16);

// The program's icon in all sizes.
wxIconBundle ProgramIcons();

}  // namespace wx
