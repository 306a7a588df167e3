// SPDX-License-Identifier: MIT
#pragma once

#include <wx/textctrl.h>

#include <string>

#include "texts/text_table.h"

namespace desktop {

// Shows rows and lines as they were ("-") and as they became ("+"), these in colours.
class ChangeView : public wxTextCtrl {
 public:
  // The name is for screen readers.
  ChangeView(wxWindow* parent, const std::string& name, const texts::TextTable& texts);

  // Of a long text only the beginning is shown, with the number of the lines that follow.
  void ShowText(const std::string& text);

 private:
  void Colour();

  const texts::TextTable& texts_;
};

}  // namespace desktop
