// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include "desktop/window_panes.h"
#include "texts/text_table.h"

class wxMenu;
class wxMenuItem;

namespace desktop {

// The menu of what is seen of the window: the tree, the code, and whether the code stands beside
// the table or below it.
class ViewMenu {
 public:
  // The frame has its menu bar; all of it outlives this object.
  ViewMenu(wxFrame& frame, const texts::TextTable& texts, WindowPanes& panes);

  // Runs the command of a key; false when it is none of this menu's.
  bool RunKey(const wxKeyEvent& event);
  // After the window came into sight.
  void Show();

 private:
  enum class Pane { kTree, kCode, kCodeBeside };

  void Toggle(Pane pane);

  WindowPanes& panes_;
  wxMenu* menu_;
  wxMenuItem* tree_;
  wxMenuItem* code_;
  wxMenuItem* code_beside_;
};

}  // namespace desktop
