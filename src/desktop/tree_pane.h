// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>

#include "desktop/project_tree.h"
#include "texts/text_table.h"

class wxSearchCtrl;
class wxStaticText;

namespace desktop {

// The project tree below a field that narrows its formulas down.
class TreePane : public wxPanel {
 public:
  // The texts outlive the pane.
  TreePane(wxWindow* parent, const texts::TextTable& texts);

  ProjectTree& tree() const { return *tree_; }
  // The keyboard goes into the field.
  void TakeFilter();
  void ClearFilter();

 private:
  void ShowCount();
  void OnKey(wxKeyEvent& event);

  const texts::TextTable& texts_;
  wxSearchCtrl* filter_;
  ProjectTree* tree_;
  wxStaticText* count_;  // while something is filtered
};

}  // namespace desktop
