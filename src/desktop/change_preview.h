// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

#include <string>

#include "texts/text_table.h"

namespace desktop {

struct Preview {
  std::string title;    // of the dialog
  std::string heading;  // says how many there are
  std::string action;   // of the button that carries it out
  std::string text;     // rows and lines as they were ("-") and as they become ("+")
};

// Shows what changes, and asks whether it is to.
bool ConfirmChange(wxWindow* parent, const texts::TextTable& texts, const Preview& change);

}  // namespace desktop
