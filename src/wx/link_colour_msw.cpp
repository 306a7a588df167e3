// SPDX-License-Identifier: MIT
#include "wx/link_colour.h"

namespace wx {

// The system's own can be read.
void SetLinkColour(const wxColour&) {}

}  // namespace wx
