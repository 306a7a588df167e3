// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include <string>

#include "desktop/project_undo.h"
#include "desktop/window_messages.h"
#include "texts/text_table.h"

class wxMenu;
class wxMenuItem;

namespace desktop {

// The menu "Edit" with what can be undone and redone, by name, and its keys.
class UndoMenu {
 public:
  // Stands behind the first menu of the frame's bar. All of it outlives this object.
  UndoMenu(wxFrame& frame, const texts::TextTable& texts, const WindowMessages& messages);

  // What the entries act on; null while no project is open.
  void Serve(ProjectUndo* undo);
  // Brings the entries up to date.
  void Update();
  // Acts on Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z, unless a text has the keyboard. False when it is
  // none of these.
  bool RunKey(const wxKeyEvent& event);

 private:
  void Show();
  void ShowEntry(bool undo);
  std::string WhyNot(bool undo) const;
  void Run(bool undo);

  wxFrame& frame_;
  const texts::TextTable& texts_;
  const WindowMessages& messages_;
  wxMenu* menu_;
  wxMenuItem* undo_item_;
  wxMenuItem* redo_item_;
  ProjectUndo* undo_ = nullptr;
};

}  // namespace desktop
