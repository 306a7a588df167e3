// SPDX-License-Identifier: MIT
#include "desktop/code_editor.h"

#include <wx/menu.h>
#include <wx/settings.h>

#include <algorithm>

#include "desktop/code_styles.h"
#include "desktop/colours.h"
#include "desktop/search_texts.h"
#include "project/line_diff.h"
#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kLineNumbers = 0;
constexpr int kTabWidth = 4;

}  // namespace

CodeEditor::CodeEditor(wxWindow* parent, const texts::TextTable& texts)
    : wxStyledTextCtrl(parent), texts_(texts) {
  SetLexer(wxSTC_LEX_CONTAINER);
  Bind(wxEVT_STC_STYLENEEDED, [this](wxStyledTextEvent& event) { Colour(event.GetPosition()); });
  SetTabWidth(kTabWidth);
  SetIndent(kTabWidth);
  SetUseTabs(false);
  SetEOLMode(wxSTC_EOL_LF);
  SetMarginType(kLineNumbers, wxSTC_MARGIN_NUMBER);
  SetMarginWidth(1, 0);
  SetMarginLeft(FromDIP(6));
  SetWrapMode(wxSTC_WRAP_NONE);
  SetScrollWidthTracking(true);
  // Tab indents, so the keyboard does not get here by it: by a click or by F6.
  DisableFocusFromKeyboard();
  UsePopUp(wxSTC_POPUP_NEVER);  // its texts would follow the system's language
  Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent&) { ShowMenu(); });
  ApplyColours();
  wx::KeepScrollbarsBeside(*this);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    FitScrollWidth();
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    ApplyColours();
  });
}

void CodeEditor::ApplyColours() {
  const bool dark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
  const CodePalette& palette = dark ? kDarkCode : kLightCode;
  wxFont font(wxFontInfo(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPointSize())
                  .Family(wxFONTFAMILY_TELETYPE));
  StyleSetFont(wxSTC_STYLE_DEFAULT, font);
  StyleSetForeground(wxSTC_STYLE_DEFAULT, wxColour(palette.ink));
  StyleSetBackground(wxSTC_STYLE_DEFAULT, wxColour(palette.paper));
  StyleClearAll();
  const auto style = [&](CodeStyle number, const char* colour) {
    StyleSetForeground(static_cast<int>(number), wxColour(colour));
  };
  style(CodeStyle::kComment, palette.comment);
  style(CodeStyle::kKeyword, palette.keyword);
  style(CodeStyle::kString, palette.string);
  style(CodeStyle::kNumber, palette.number);
  style(CodeStyle::kDate, palette.number);
  StyleSetForeground(wxSTC_STYLE_LINENUMBER, wxColour(palette.comment));
  StyleSetItalic(static_cast<int>(CodeStyle::kComment), true);
  StyleSetBackground(wxSTC_STYLE_LINENUMBER, wxColour(palette.margin));
  SetSelBackground(true, wxColour(palette.selection));
  SetCaretForeground(wxColour(palette.ink));
}

// From the logical line in which the colours end to the line of that place.
void CodeEditor::Colour(int end) {
  const std::string_view code(GetCharacterPointer(), static_cast<std::size_t>(GetLength()));
  int first = LineFromPosition(GetEndStyled());
  while (first > 0 && GoesOn(code, static_cast<std::size_t>(GetLineEndPosition(first - 1))))
    --first;
  int last = LineFromPosition(end);
  const int lines = GetLineCount();
  while (last + 1 < lines && GoesOn(code, static_cast<std::size_t>(GetLineEndPosition(last))))
    ++last;
  const int begin = PositionFromLine(first);
  const int behind = last + 1 < lines ? PositionFromLine(last + 1) : GetLength();
  std::string styles = StylesOf(
      code.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(behind - begin)));
  StartStyling(begin);
  SetStyleBytes(behind - begin, styles.data());
}

void CodeEditor::ShowMenu() {
  using studio::TextNumber;
  wxMenu menu;
  const auto add = [&](int text, bool enabled, auto action) {
    menu.Append(text, wx::ToWx(texts_.Text(text)))->Enable(enabled);
    menu.Bind(
        wxEVT_MENU, [action](wxCommandEvent&) { action(); }, text);
  };
  const bool selection = GetSelectionStart() != GetSelectionEnd();
  add(TextNumber::kTextUndo, CanUndo(), [this] { Undo(); });
  add(TextNumber::kTextRedo, CanRedo(), [this] { Redo(); });
  menu.AppendSeparator();
  add(TextNumber::kTextCut, selection, [this] { Cut(); });
  add(TextNumber::kTextCopy, selection, [this] { Copy(); });
  add(TextNumber::kTextPaste, CanPaste(), [this] { Paste(); });
  add(TextNumber::kTextDelete, selection, [this] { Clear(); });
  menu.AppendSeparator();
  add(TextNumber::kTextSelectAll, GetLength() > 0, [this] { SelectAll(); });
  menu.AppendSeparator();
  add(kTextMenuDefinition, GetLength() > 0 && on_definition, [this] { on_definition(); });
  add(kTextMenuUses, GetLength() > 0 && on_uses, [this] { on_uses(); });
  PopupMenu(&menu);
}

bool CodeEditor::Find(std::string_view text, bool behind, bool backward) {
  const wxString wanted = wx::ToWx(text);
  const auto search = [&](int from, int to) {
    SetTargetRange(from, to);
    SetSearchFlags(0);
    return SearchInTarget(wanted);
  };
  const int start = backward ? GetSelectionStart()
                    : behind ? GetSelectionEnd()
                             : GetSelectionStart();
  int found = search(start, backward ? 0 : GetLength());
  if (found < 0) found = backward ? search(GetLength(), 0) : search(0, GetLength());
  if (found < 0) return false;
  SetSelection(GetTargetStart(), GetTargetEnd());
  EnsureCaretVisible();
  return true;
}

std::string CodeEditor::Text() const { return wx::FromWx(GetText()); }

void CodeEditor::ShowText(std::string_view text) {
  changing_ = true;
  SetText(wx::ToWx(text));
  EmptyUndoBuffer();
  SetSavePoint();
  changing_ = false;
  ShowLineNumbers(line_numbers_);
  FitScrollWidth();
}

// From the last change to the first, so that the lines above keep their numbers.
void CodeEditor::ChangeText(std::string_view text) {
  const std::string old = Text();
  const auto changes = project::LineChanges(project::EditorLines(old), project::EditorLines(text));
  if (changes.empty()) return;
  changing_ = true;
  BeginUndoAction();
  for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
    const int first = static_cast<int>(change->first);
    const int behind = first + static_cast<int>(change->count);
    const bool to_end = behind >= GetLineCount();
    wxString lines;
    for (const std::string_view line : change->lines) lines += wx::ToWx(line) + "\n";
    int start = first < GetLineCount() ? PositionFromLine(first) : GetLength();
    int end = to_end ? GetLength() : PositionFromLine(behind);
    if (to_end) {  // there the line end before the lines is theirs
      if (start > 0) {
        start = GetLineEndPosition(first - 1);
        lines = change->lines.empty() ? wxString() : "\n" + lines;
      }
      if (!change->lines.empty()) lines.RemoveLast();
    }
    SetTargetRange(start, end);
    ReplaceTarget(lines);
  }
  EndUndoAction();
  changing_ = false;
}

void CodeEditor::ShowLineNumbers(bool show) {
  line_numbers_ = show;
  const wxString widest(L'9', std::max<std::size_t>(4, std::to_string(GetLineCount()).size() + 1));
  SetMarginWidth(kLineNumbers, show ? TextWidth(wxSTC_STYLE_LINENUMBER, widest) : 0);
}

// At least what the window shows: less would be drawn as scrolling past the end.
void CodeEditor::FitScrollWidth() {
  int width = GetClientSize().GetWidth() - GetMarginLeft() - GetMarginRight();
  for (int margin = 0; margin < GetMarginCount(); ++margin) {
    width -= GetMarginWidth(margin);
  }
  SetScrollWidth(std::max(1, width));
}

void CodeEditor::ScrollTo(std::int32_t line) {
  GotoLine(line - 1);
  SetFirstVisibleLine(VisibleFromDocLine(line - 1));
}

void CodeEditor::SelectLines(const platform::CodeSelection& selection) {
  const int start = PositionFromLine(selection.start_line - 1);
  const int end = PositionFromLine(selection.end_line - 1);
  const int first = PositionRelative(start, selection.start_column - 1);
  SetSelection(first, GetLineEndPosition(LineFromPosition(end)));
}

void CodeEditor::SelectPlace(std::int32_t line, std::int32_t column, std::int32_t length) {
  const int start = PositionRelative(PositionFromLine(line - 1), column - 1);
  SetSelection(start, PositionRelative(start, length));
  VerticalCentreCaret();
}

CodeEditor::Place CodeEditor::Caret() {
  const int line = GetCurrentLine();
  return {line + 1, CountCharacters(PositionFromLine(line), GetCurrentPos()) + 1};
}

}  // namespace desktop
