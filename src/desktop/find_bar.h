// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>

#include <functional>
#include <string>
#include <vector>

#include "desktop/code_editor.h"
#include "messages/text_number.h"
#include "texts/text_table.h"

class wxCheckBox;
class wxTextCtrl;

namespace desktop {

// F3 or Shift+F3.
bool IsFindAgain(const wxKeyEvent& event);

// Finds and replaces a text in the code that is shown. Hidden until it is opened: Ctrl+F finds,
// Ctrl+H also replaces; F3 and Enter find the next place, with Shift the one before; Escape closes.
class FindBar : public wxPanel {
 public:
  // Both outlive it.
  FindBar(wxWindow* parent, CodeEditor& editor, const texts::TextTable& texts);

  // True when the key was one of the bar's; the keyboard is in the bar or in the code.
  bool HandleKey(const wxKeyEvent& event);
  // With the code's selection as the text, if it is one line.
  void Open(bool with_replacement);
  void Close();

  std::function<void(const std::string&)> on_status;
  std::function<void()> on_visible;  // its height is another
  std::function<void()> on_close;
  // F3 or Shift+F3 while the bar is hidden; false opens it.
  std::function<bool(bool backward)> on_find_elsewhere;

 private:
  wxTextCtrl* MakeField(wxPanel& row, messages::TextNumber text);
  CodeEditor::FindOptions Options() const;
  std::string Wanted() const;
  bool HasKeyboard() const;
  // To the next control of the bar that is shown, or to the code behind the last.
  void MoveKeyboard(bool backward);
  // False when it stands nowhere, which is told.
  bool Find(bool behind, bool backward = false);
  void FindAgain(bool backward);
  void Replace();
  void ReplaceAll();
  void Tell(const std::string& text) const;

  CodeEditor& editor_;
  const texts::TextTable& texts_;
  wxTextCtrl* wanted_;
  wxTextCtrl* replacement_;
  wxCheckBox* whole_word_;
  wxCheckBox* match_case_;
  wxPanel* second_row_;
  std::vector<wxWindow*> controls_;  // in the order of the Tab key
};

}  // namespace desktop
