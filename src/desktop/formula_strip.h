// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>

#include <functional>
#include <string>

#include "messages/text_number.h"
#include "store/formula_records.h"
#include "texts/text_table.h"

class wxHyperlinkCtrl;

namespace desktop {

// What the formula is whose arguments are shown below: class, call, state and comment, each a link
// to its field in the formula's dialog.
class FormulaStrip : public wxPanel {
 public:
  // The texts outlive the strip.
  FormulaStrip(wxWindow* parent, const texts::TextTable& texts);

  void ShowFormula(const store::FormulaRecord& formula);

  // The name of the dialog's control for what was clicked.
  std::function<void(const std::string& control)> on_field = [](const std::string&) {};

 private:
  wxHyperlinkCtrl* MakeLink(const char* control, bool fills);
  std::string Text(messages::TextNumber number) const { return texts_.Text(number); }

  const texts::TextTable& texts_;
  wxHyperlinkCtrl* prog_id_;
  wxHyperlinkCtrl* call_;
  wxHyperlinkCtrl* state_;
  wxHyperlinkCtrl* comment_;
};

}  // namespace desktop
