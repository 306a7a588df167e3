// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dialog.h>

#include <vector>

#include "desktop/desktop_state.h"
#include "messages/text_number.h"
#include "project/file_settings_service.h"
#include "texts/text_table.h"

class wxCheckBox;
class wxChoice;

namespace desktop {

// What the user wants of the program itself: its language and look, the history, backups, and what
// happens to unsaved code. The options of tables belong to the editor.
class WorkbenchOptions : public wxDialog {
 public:
  // All of it outlives the dialog.
  WorkbenchOptions(wxWindow* parent, const texts::TextTable& texts,
                   project::FileSettingsService& settings, DesktopState& state);

  // True when something was changed that the next start shows.
  bool Ask();

 private:
  wxChoice* AddChoice(wxSizer& grid, messages::TextNumber label, const wxArrayString& entries,
                      int chosen);
  wxCheckBox* AddCheck(messages::TextNumber label, bool checked);
  void AddLine(wxSizer& all);
  bool Store();
  wxString Text(messages::TextNumber number) const;

  const texts::TextTable& texts_;
  project::FileSettingsService& settings_;
  DesktopState& state_;
  wxChoice* language_;
  int language_before_ = 0;
  wxChoice* look_;
  wxCheckBox* history_;
  wxCheckBox* backups_;
  wxChoice* unsaved_;
};

}  // namespace desktop
