// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include <functional>
#include <vector>

#include "desktop/window_panes.h"
#include "texts/text_table.h"

class wxMenu;
class wxMenuItem;

namespace desktop {

// The menu of what is seen of the window: the tree, the code, whether the code stands beside the
// table or below it, how the tree shows formulas, and the list of messages.
class ViewMenu {
 public:
  // The frame has its menu bar; all of it outlives this object.
  ViewMenu(wxFrame& frame, const texts::TextTable& texts, WindowPanes& panes);

  std::function<void()> on_options = [] {};

  // Runs the command of a key; false when it is none of this menu's.
  bool RunKey(const wxKeyEvent& event);
  // After the window came into sight.
  void Show();

 private:
  enum class Pane { kTree, kCode, kCodeBeside };

  void Toggle(Pane pane);
  void AddLooks(wxFrame& frame, const texts::TextTable& texts);
  void AddMessages(wxFrame& frame, const texts::TextTable& texts);

  WindowPanes& panes_;
  wxMenu* menu_;
  wxMenuItem* tree_;
  wxMenuItem* code_;
  wxMenuItem* code_beside_;
  std::vector<wxMenuItem*> groupings_, orders_;  // in the order of TreeLook's
};

}  // namespace desktop
