// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>
#include <wx/hyperlink.h>

#include "desktop/project_undo.h"
#include "desktop/window_messages.h"
#include "project/project.h"
#include "texts/text_table.h"

namespace desktop {

// After an operation the status line says what was done, with a link behind it that takes it back,
// until it says something else.
class UndoOffer {
 public:
  // All of it outlives this object; the frame has a status bar.
  UndoOffer(wxFrame& frame, const texts::TextTable& texts, const WindowMessages& messages);

  // What the link acts on; nulls while no project is open.
  void Serve(project::Project* opened, ProjectUndo* undo);
  // Called whenever the window has handled its events.
  void Look();

 private:
  void Show();
  void Hide();

  wxFrame& frame_;
  const texts::TextTable& texts_;
  const WindowMessages& messages_;
  wxGenericHyperlinkCtrl* link_ = nullptr;  // made when it is first shown
  project::Project* project_ = nullptr;
  ProjectUndo* undo_ = nullptr;
  std::uint64_t number_ = 0;  // of the operation that the link takes back
  wxString said_;             // in the status line when the last events were handled
};

}  // namespace desktop
