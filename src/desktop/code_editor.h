// SPDX-License-Identifier: MIT
#pragma once

#include <wx/stc/stc.h>

#include <functional>
#include <string>
#include <string_view>

#include "platform/vbide.h"
#include "texts/text_table.h"

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
  // True while this program changes the text.
  bool Changing() const { return changing_; }

  // Line and columns from 1.
  void ScrollTo(std::int32_t line);
  void SelectLines(const platform::CodeSelection& selection);
  // Selects characters of a line, in the middle of what is in sight.
  void SelectPlace(std::int32_t line, std::int32_t column, std::int32_t length);
  struct Place {
    std::int32_t line = 1;
    std::int32_t column = 1;
  };
  Place Caret();
  void ShowLineNumbers(bool show);

  // Selects the next place of a text behind the selection, or from where it begins, without regard
  // to case; goes on at the other end. False when there is none.
  bool Find(std::string_view text, bool behind, bool backward = false);

  // What the context menu offers for the name at the caret; null is not offered.
  std::function<void()> on_definition;
  std::function<void()> on_uses;

 private:
  void ShowMenu();
  void Colour(int end);
  void ApplyColours();
  void FitScrollWidth();

  const texts::TextTable& texts_;
  bool changing_ = false;
  bool line_numbers_ = false;
};

}  // namespace desktop
