// SPDX-License-Identifier: MIT
#include "desktop/code_editor.h"

#include <wx/menu.h>
#include <wx/settings.h>

#include <algorithm>

#include "desktop/code_styles.h"
#include "desktop/coding_texts.h"
#include "desktop/colours.h"
#include "desktop/search_texts.h"
#include "messages/text_number.h"
#include "project/line_diff.h"
#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kLineNumbers = 0;
constexpr int kFolds = 1;
constexpr int kTabWidth = 4;
constexpr int kUnknown = 8;  // number of an indicator; those below are the styles'
constexpr int kDwellMs = 600;
constexpr int kMostOffered = 12;  // lines

}  // namespace

CodeEditor::CodeEditor(wxWindow* parent, const texts::TextTable& texts)
    : wxStyledTextCtrl(parent), texts_(texts), folds_(*this, kFolds) {
  SetLexer(wxSTC_LEX_CONTAINER);
  Bind(wxEVT_STC_STYLENEEDED, [this](wxStyledTextEvent& event) { Colour(event.GetPosition()); });
  SetTabWidth(kTabWidth);
  SetIndent(kTabWidth);
  SetUseTabs(false);
  SetEOLMode(wxSTC_EOL_LF);
  SetMarginType(kLineNumbers, wxSTC_MARGIN_NUMBER);
  SetUpHelp();
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
  StyleSetFont(wxSTC_STYLE_DEFAULT, font_);
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
  IndicatorSetForeground(kUnknown, wxColour(palette.unknown));
  CallTipSetForeground(wxColour(palette.ink));
  CallTipSetBackground(wxColour(palette.margin));
  folds_.SetColours(palette);
  SetSelBackground(true, wxColour(palette.selection));
  SetCaretForeground(wxColour(palette.ink));
}

wxFont CodeEditor::StandardFont() {
  return wxFont(wxFontInfo(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPointSize())
                    .Family(wxFONTFAMILY_TELETYPE));
}

void CodeEditor::ShowFont(const wxFont& font) {
  font_ = font.IsOk() ? font : StandardFont();
  ApplyColours();
  ShowLineNumbers(line_numbers_);
  FitScrollWidth();
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

// --- Help with writing ---

void CodeEditor::SetUpHelp() {
  SetMouseDwellTime(kDwellMs);
  Bind(wxEVT_STC_DWELLSTART, [this](wxStyledTextEvent& event) {
    if (event.GetPosition() >= 0 && !AutoCompActive()) ShowDescription(event.GetPosition());
  });
  Bind(wxEVT_STC_DWELLEND, [this](wxStyledTextEvent&) { CallTipCancel(); });
  Bind(wxEVT_KEY_DOWN, &CodeEditor::OnKey, this);
  Bind(wxEVT_STC_CHANGE, [this](wxStyledTextEvent& event) {
    event.Skip();
    if (on_text) on_text();
  });
  AutoCompSetIgnoreCase(true);
  AutoCompSetSeparator('\n');
  AutoCompSetMaxHeight(kMostOffered);
  AutoCompSetChooseSingle(true);
  IndicatorSetStyle(kUnknown, wxSTC_INDIC_DOTS);
}

void CodeEditor::OnKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const bool control = event.GetModifiers() == wxMOD_CONTROL;
  if (control && key == WXK_SPACE && on_complete) return on_complete();
  if (control && key == 'I') {
    if (!ShowDescription(GetCurrentPos()) && on_status) on_status(texts_.Text(kTextNothingKnown));
    return;
  }
  if (control && key == 'M') return folds_.Toggle();
  if (key == 'M' && event.GetModifiers() == (wxMOD_CONTROL | wxMOD_SHIFT))
    return folds_.ToggleAll();
  event.Skip();
}

bool CodeEditor::ShowDescription(int position) {
  const std::string text = on_describe ? on_describe(position) : std::string();
  if (text.empty()) return false;
  CallTipShow(WordStartPosition(position, true), wx::ToWx(text));
  return true;
}

void CodeEditor::Offer(const std::vector<std::string>& names, int typed) {
  wxString list;
  for (const std::string& name : names) list += (list.empty() ? "" : "\n") + wx::ToWx(name);
  CallTipCancel();
  AutoCompShow(typed, list);
}

bool CodeEditor::CloseHelp() {
  if (!AutoCompActive() && !CallTipActive()) return false;
  AutoCompCancel();
  CallTipCancel();
  return true;
}

void CodeEditor::MarkUnknown(const std::vector<vbcode::Place>& places) {
  SetIndicatorCurrent(kUnknown);
  IndicatorClearRange(0, GetLength());
  for (const vbcode::Place& place : places) {
    const int begin = PositionFromLine(place.line - 1) + static_cast<int>(place.column);
    IndicatorFillRange(begin, static_cast<int>(place.length));
  }
}

void CodeEditor::ShowMenu() {
  wxMenu menu;
  const auto add = [&](messages::TextNumber text, bool enabled, auto action, const char* key = "") {
    wxMenuItem* item = menu.Append(ToInt(text), wx::ToWx(texts_.Text(text)));
    item->Enable(enabled);
    if (*key) wx::ShowShortcut(*item, key);
    menu.Bind(
        wxEVT_MENU, [action](wxCommandEvent&) { action(); }, ToInt(text));
  };
  const bool selection = GetSelectionStart() != GetSelectionEnd();
  add(studio::kTextUndo, CanUndo(), [this] { Undo(); });
  add(studio::kTextRedo, CanRedo(), [this] { Redo(); });
  menu.AppendSeparator();
  add(studio::kTextCut, selection, [this] { Cut(); });
  add(studio::kTextCopy, selection, [this] { Copy(); });
  add(studio::kTextPaste, CanPaste(), [this] { Paste(); });
  add(studio::kTextDelete, selection, [this] { Clear(); });
  menu.AppendSeparator();
  add(studio::kTextSelectAll, GetLength() > 0, [this] { SelectAll(); });
  menu.AppendSeparator();
  const bool text = GetLength() > 0;
  add(
      kTextMenuFindInModule, text && on_find, [this] { on_find(false); }, "Ctrl+F");
  add(
      kTextMenuReplaceInModule, text && on_find, [this] { on_find(true); }, "Ctrl+H");
  add(
      kTextMenuDefinition, text && on_definition, [this] { on_definition(); }, "F12");
  add(
      kTextMenuUses, text && on_uses, [this] { on_uses(); }, "Shift+F12");
  menu.AppendSeparator();
  add(
      kTextMenuComplete, IsEnabled() && on_complete, [this] { on_complete(); }, "Ctrl+Space");
  add(
      kTextMenuQuickInfo, text && on_describe, [this] { ShowDescription(GetCurrentPos()); },
      "Ctrl+I");
  add(
      kTextMenuFold, text, [this] { folds_.Toggle(); }, "Ctrl+M");
  add(
      kTextMenuFoldAll, text, [this] { folds_.ToggleAll(); }, "Ctrl+Shift+M");
  PopupMenu(&menu);
}

int CodeEditor::Search(std::string_view text, const FindOptions& options, int from, int to) {
  SetTargetRange(from, to);
  SetSearchFlags((options.whole_word ? wxSTC_FIND_WHOLEWORD : 0) |
                 (options.match_case ? wxSTC_FIND_MATCHCASE : 0));
  return SearchInTarget(wx::ToWx(text));
}

bool CodeEditor::Find(std::string_view text, const FindOptions& options, bool behind,
                      bool backward) {
  const int start = backward ? GetSelectionStart()
                    : behind ? GetSelectionEnd()
                             : GetSelectionStart();
  int found = Search(text, options, start, backward ? 0 : GetLength());
  if (found < 0) {
    found =
        backward ? Search(text, options, GetLength(), 0) : Search(text, options, 0, GetLength());
  }
  if (found < 0) return false;
  EnsureVisible(LineFromPosition(found));
  SetSelection(GetTargetStart(), GetTargetEnd());
  EnsureCaretVisible();
  return true;
}

bool CodeEditor::SelectionIs(std::string_view text, const FindOptions& options) {
  const int start = GetSelectionStart(), end = GetSelectionEnd();
  return start != end && Search(text, options, start, end) == start && GetTargetEnd() == end;
}

int CodeEditor::ReplaceAll(std::string_view text, std::string_view by, const FindOptions& options) {
  const wxString replacement = wx::ToWx(by);
  int count = 0;
  BeginUndoAction();
  for (int from = 0; Search(text, options, from, GetLength()) >= 0; ++count) {
    ReplaceTarget(replacement);
    from = GetTargetEnd();
  }
  EndUndoAction();
  return count;
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

void CodeEditor::TakeOver(std::string_view stored, std::string_view text) {
  const int above = VisibleFromDocLine(GetCurrentLine()) - GetFirstVisibleLine();
  const bool in_sight = above >= 0 && above < LinesOnScreen();
  ChangeText(text);
  const int anchor = GetAnchor(), caret = GetCurrentPos();
  if (text != stored) ChangeText(stored);
  EmptyUndoBuffer();
  if (text != stored) ChangeText(text);
  SetSelection(anchor, caret);
  if (in_sight) SetFirstVisibleLine(VisibleFromDocLine(GetCurrentLine()) - above);
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
  EnsureVisible(line - 1);
  GotoLine(line - 1);
  SetFirstVisibleLine(VisibleFromDocLine(line - 1));
}

void CodeEditor::ShowProcedure(std::int32_t line, std::int32_t declaration) {
  ScrollTo(line);
  int body = declaration;  // counted from 0: the line behind it
  while (body < GetLineCount() && GetLineText(body - 1).EndsWith(" _")) ++body;
  GotoLine(body);
}

void CodeEditor::SelectLines(const platform::CodeSelection& selection) {
  EnsureVisible(selection.start_line - 1);
  const int start = PositionFromLine(selection.start_line - 1);
  const int end = PositionFromLine(selection.end_line - 1);
  const int first = PositionRelative(start, selection.start_column - 1);
  SetSelection(first, GetLineEndPosition(LineFromPosition(end)));
}

void CodeEditor::SelectPlace(std::int32_t line, std::int32_t column, std::int32_t length) {
  EnsureVisible(line - 1);
  const int start = PositionRelative(PositionFromLine(line - 1), column - 1);
  SetSelection(start, PositionRelative(start, length));
  VerticalCentreCaret();
}

CodeEditor::Place CodeEditor::Caret() {
  const int line = GetCurrentLine();
  return {line + 1, CountCharacters(PositionFromLine(line), GetCurrentPos()) + 1};
}

}  // namespace desktop
