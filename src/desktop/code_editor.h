// SPDX-License-Identifier: MIT
#pragma once

#include <wx/stc/stc.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/procedure_folds.h"
#include "platform/vbide.h"
#include "texts/text_table.h"
#include "vbcode/module_code.h"

namespace desktop {

// A text field for Visual Basic code, in its colours. Lines end with LF; the last line has no end.
class CodeEditor : public wxStyledTextCtrl {
 public:
  CodeEditor(wxWindow* parent, const texts::TextTable& texts);

  std::string Text() const;
  // Shows another text: nothing can be undone, and it counts as saved.
  void ShowText(std::string_view text);
  // Edits the lines that differ, so that the caret stays and the user can take it back.
  void ChangeText(std::string_view text);
  // Shows what others stored, `text` being that with what the user has typed: their lines cannot be
  // undone here, and the user's are one step. Caret and lines in sight stay.
  void TakeOver(std::string_view stored, std::string_view text);
  // True while this program changes the text.
  bool Changing() const { return changing_; }

  // Line and columns from 1.
  void ScrollTo(std::int32_t line);
  // Shows a procedure from its first line on, with the caret behind its declaration.
  void ShowProcedure(std::int32_t line, std::int32_t declaration);
  void SelectLines(const platform::CodeSelection& selection);
  // Selects characters of a line, in the middle of what is in sight.
  void SelectPlace(std::int32_t line, std::int32_t column, std::int32_t length);
  struct Place {
    std::int32_t line = 1;
    std::int32_t column = 1;
  };
  Place Caret();
  void ShowLineNumbers(bool show);
  // A font that is not valid stands for the system's of equal widths.
  void ShowFont(const wxFont& font);
  static wxFont StandardFont();

  struct FindOptions {
    bool whole_word = false;
    bool match_case = false;
  };
  // Selects the next place of a text behind the selection, or from where it begins; goes on at the
  // other end. False when there is none.
  bool Find(std::string_view text, const FindOptions& options, bool behind, bool backward = false);
  // Whether the selection is a place of the text.
  bool SelectionIs(std::string_view text, const FindOptions& options);
  // Puts another text at all places, to be taken back as one; how many there were.
  int ReplaceAll(std::string_view text, std::string_view by, const FindOptions& options);

  // What the context menu offers; null is not offered.
  std::function<void(bool with_replacement)> on_find;
  std::function<void()> on_complete;
  // For the name at the caret.
  std::function<void()> on_definition;
  std::function<void()> on_uses;
  // What the name at a position is, in lines; "" when nothing is known.
  std::function<std::string(int position)> on_describe;
  std::function<void()> on_text;  // it is another
  // One line for the window's status line.
  std::function<void(const std::string&)> on_status;

  // Offers names for the one that is being typed, of which that many characters are there.
  void Offer(const std::vector<std::string>& names, int typed);
  // Closes what is offered or described. False when there is nothing of it.
  bool CloseHelp();
  // Places are underlined quietly, in place of those before.
  void MarkUnknown(const std::vector<vbcode::Place>& places);
  void ShowProcedures(const std::vector<ProcedureFolds::Lines>& procedures) {
    folds_.Show(procedures);
  }

 private:
  void ShowMenu();
  void SetUpHelp();
  void OnKey(wxKeyEvent& event);
  // What the name is, beside it. False when nothing is known.
  bool ShowDescription(int position);
  // Position of the first place in the range, from its other end when that is first; -1 for none.
  int Search(std::string_view text, const FindOptions& options, int from, int to);
  void Colour(int end);
  void ApplyColours();
  void FitScrollWidth();

  const texts::TextTable& texts_;
  wxFont font_ = StandardFont();
  bool changing_ = false;
  bool line_numbers_ = false;
  ProcedureFolds folds_;
};

}  // namespace desktop
