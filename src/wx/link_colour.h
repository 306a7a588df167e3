// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>

namespace wx {

// The colour of all links of the program, where the native one cannot be read in every look. To be
// called once.
void SetLinkColour(const wxColour& colour);

}  // namespace wx
