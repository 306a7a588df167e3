// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include <string>

#include "desktop/window_messages.h"
#include "desktop/window_parts.h"
#include "editor/frmtabgrid.h"
#include "exchange/contents.h"
#include "project/project.h"

namespace desktop {

// Lists from files into the open project, and from it to files.
class ListExchange {
 public:
  // All of it outlives this object.
  ListExchange(wxFrame& frame, const WindowParts& parts, const WindowMessages& messages)
      : frame_(frame), parts_(parts), messages_(messages) {}

  // Asks for a list and brings it into the project of the editor.
  void Import(editor::frmtabgrid& editor, project::Project& project);
  // Asks for a place and writes the project's rows there.
  void Export(editor::frmtabgrid& editor, project::Project& project);

 private:
  // Writes refused lines to a file that the user chooses; false when he chooses none.
  bool KeepRefused(project::Project& project, const std::string& list_path,
                   const std::string& bytes,
                   const std::vector<exchange::ImportPlan::Line>& refused);
  // What was chosen gets an extension if it has none. In the format of that place in the dialog's
  // list.
  void WriteRows(project::Project& project, store::Operations& operations,
                 const std::string& chosen, int format);

  wxFrame& frame_;
  const WindowParts& parts_;
  const WindowMessages& messages_;
};

}  // namespace desktop
