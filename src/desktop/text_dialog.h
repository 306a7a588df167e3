// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dialog.h>

#include <string>

#include "texts/text_table.h"

class wxBoxSizer;
class wxButton;

namespace desktop {

// Shows rows and lines as they are ("-") and as they may become ("+") under a heading, and asks
// what is to be done.
class TextDialog : public wxDialog {
 public:
  // The texts outlive the dialog.
  TextDialog(wxWindow* parent, const texts::TextTable& texts, const std::string& title,
             const std::string& heading, const std::string& lines);

  // From left to right. The dialog ends with the button's number.
  wxButton* AddButton(int id, const std::string& label);
  // Shows the dialog until a button is pressed; its number, wxID_CANCEL for Escape. The keyboard
  // starts at the proposed button.
  int Ask(wxButton* proposed);

 private:
  wxBoxSizer* buttons_;
};

}  // namespace desktop
