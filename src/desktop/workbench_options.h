// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dialog.h>

#include <optional>

#include "desktop/desktop_state.h"
#include "messages/text_number.h"
#include "project/file_settings_service.h"
#include "texts/text_table.h"

class wxCheckBox;
class wxChoice;
class wxFontPickerCtrl;

namespace desktop {

// What the user wants of the program itself: its language and look, fonts, the history, backups,
// and what happens to unsaved code. The options of one project's tables belong to the editor.
class WorkbenchOptions : public wxDialog {
 public:
  // All of it outlives the dialog.
  WorkbenchOptions(wxWindow* parent, const texts::TextTable& texts,
                   project::FileSettingsService& settings, DesktopState& state);

  struct Answer {
    bool next_start = false;  // shows something that was changed
    bool table_font = false;  // is another one
    bool code_font = false;
  };
  // What was changed and stored; null when the user gave it up.
  std::optional<Answer> Ask();

 private:
  wxChoice* AddChoice(wxSizer& grid, messages::TextNumber label, const wxArrayString& entries,
                      int chosen);
  wxFontPickerCtrl* AddFont(wxSizer& grid, messages::TextNumber label, const wxFont& font);
  wxCheckBox* AddCheck(messages::TextNumber label, bool checked);
  Answer Store();
  wxString Text(messages::TextNumber number) const;

  const texts::TextTable& texts_;
  project::FileSettingsService& settings_;
  DesktopState& state_;
  wxChoice* language_;
  int language_before_ = 0;
  wxChoice* look_;
  wxFontPickerCtrl* table_font_;
  wxFontPickerCtrl* code_font_;
  wxCheckBox* history_;
  wxCheckBox* backups_;
  wxChoice* unsaved_;
};

}  // namespace desktop
