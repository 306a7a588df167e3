// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

#include <string>

#include "texts/text_table.h"

namespace desktop {

// Shows how lines change, and asks whether they are to. The heading says how many there are.
bool ConfirmReplacing(wxWindow* parent, const texts::TextTable& texts, const std::string& heading,
                      const std::string& lines);

}  // namespace desktop
