// SPDX-License-Identifier: MIT
#include "desktop/code_pane.h"

#include <wx/clipbrd.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/stc/stc.h>

#include <algorithm>

#include "desktop/colours.h"
#include "files/error.h"
#include "platform/error.h"
#include "workbench/text_numbers.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

using workbench::TextNumber;

constexpr int kLineNumbers = 0;
constexpr int kTabWidth = 4;

constexpr const char* kKeywords =
    "addressof alias and any as base boolean byref byte byval call case cbool cbyte ccur cdate "
    "cdbl cint clng close "
    "const csng cstr currency cvar cverr date debug declare defbool defbyte defcur defdate defdbl "
    "defint deflng defobj "
    "defsng defstr defvar dim do double each else elseif empty end enum eqv erase error event exit "
    "explicit false "
    "for friend function get global gosub goto if imp implements in input integer is let lib like "
    "line lock long loop "
    "lset me mod new next not nothing null object on open option optional or output paramarray "
    "preserve print private "
    "property public put raiseevent random read redim rem resume return rset seek select set "
    "single static step stop "
    "string sub tab then to true type unlock until variant wend while with withevents write xor";

}  // namespace

CodePane::CodePane(wxWindow* parent, const texts::TextTable& texts)
    : wxPanel(parent),
      texts_(texts),
      title_(new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)),
      editor_(new wxStyledTextCtrl(this)) {
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(title_, wxSizerFlags().Expand().Border(wxALL, FromDIP(6)));
  sizer->Add(editor_, wxSizerFlags(1).Expand());
  SetSizer(sizer);
  SetTitle(texts.Text(TextNumber::kTextNoModule));
  wx::SetAccessibleName(*editor_, wx::ToWx(texts.Text(TextNumber::kTextCodeName)));
  SetUpEditor();
  wx::KeepScrollbarsBeside(*editor_);
  editor_->Enable(false);
}

void CodePane::SetUpEditor() {
  editor_->SetLexer(wxSTC_LEX_VB);
  editor_->SetKeyWords(0, kKeywords);
  editor_->SetTabWidth(kTabWidth);
  editor_->SetIndent(kTabWidth);
  editor_->SetUseTabs(false);
  editor_->SetEOLMode(wxSTC_EOL_LF);
  editor_->SetMarginType(kLineNumbers, wxSTC_MARGIN_NUMBER);
  editor_->SetMarginWidth(1, 0);
  editor_->SetMarginLeft(FromDIP(6));
  editor_->SetWrapMode(wxSTC_WRAP_NONE);
  editor_->SetScrollWidthTracking(true);
  // Tab leaves no way out for the keyboard: it indents; the window takes Escape and F6.
  ApplyColours();
  editor_->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
    event.Skip();
    CallAfter([this] {
      if (!asking_ && Modified()) Save();
    });
  });
  editor_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    FitScrollWidth();
  });
  editor_->Bind(wxEVT_STC_SAVEPOINTLEFT, [this](wxStyledTextEvent&) {
    if (on_status && !loading_) on_status(texts_.Text(TextNumber::kTextModified));
  });
  editor_->Bind(wxEVT_STC_SAVEPOINTREACHED, [this](wxStyledTextEvent&) {
    if (on_status && !loading_) on_status("");
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    ApplyColours();
  });
}

void CodePane::ApplyColours() {
  const CodePalette& palette = wxSystemSettings::GetAppearance().IsDark() ? kDarkCode : kLightCode;
  wxFont font(wxFontInfo(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPointSize())
                  .Family(wxFONTFAMILY_TELETYPE));
  editor_->StyleSetFont(wxSTC_STYLE_DEFAULT, font);
  editor_->StyleSetForeground(wxSTC_STYLE_DEFAULT, wxColour(palette.ink));
  editor_->StyleSetBackground(wxSTC_STYLE_DEFAULT, wxColour(palette.paper));
  editor_->StyleClearAll();
  const auto style = [&](int number, const wxColour& colour) {
    editor_->StyleSetForeground(number, colour);
  };
  style(wxSTC_B_COMMENT, wxColour(palette.comment));
  style(wxSTC_B_KEYWORD, wxColour(palette.keyword));
  style(wxSTC_B_STRING, wxColour(palette.string));
  style(wxSTC_B_STRINGEOL, wxColour(palette.string));
  style(wxSTC_B_NUMBER, wxColour(palette.number));
  style(wxSTC_B_DATE, wxColour(palette.number));
  style(wxSTC_STYLE_LINENUMBER, wxColour(palette.comment));
  editor_->StyleSetItalic(wxSTC_B_COMMENT, true);
  editor_->StyleSetBackground(wxSTC_STYLE_LINENUMBER, wxColour(palette.margin));
  editor_->SetSelBackground(true, wxColour(palette.selection));
  editor_->SetCaretForeground(wxColour(palette.ink));
}

void CodePane::ShowModule(std::shared_ptr<platform::VBComponent> component,
                          platform::UnitOfWork& unit) {
  if (component_ && component_->FileName() == component->FileName()) return Refresh();
  if (Modified() && !Save()) return;
  platform::CodeModule* module = component->Module();
  if (!module) return;
  component_ = std::move(component);
  document_ = std::make_unique<workbench::CodeDocument>(unit, *module);
  editor_->Enable(true);
  LoadAgain();
}

void CodePane::CloseModule() {
  document_.reset();
  component_.reset();
  SetText("");
  editor_->SetMarginWidth(kLineNumbers, 0);
  editor_->Enable(false);
  SetTitle(texts_.Text(TextNumber::kTextNoModule));
}

void CodePane::ShowProblem(const std::string& text) {
  CloseModule();
  SetTitle(texts_.Translated(text));
}

bool CodePane::TakeKeyboard() {
  if (!editor_->IsEnabled()) return false;
  editor_->SetFocus();
  return true;
}

// What has no room can be read in the tooltip.
void CodePane::SetTitle(const std::string& text) {
  title_->SetLabel(wx::ToLabel(text));
  title_->SetToolTip(wx::ToWx(text));
}

void CodePane::SetText(const std::string& text) {
  loading_ = true;
  editor_->SetText(wx::ToWx(text));
  editor_->EmptyUndoBuffer();
  editor_->SetSavePoint();
  loading_ = false;
  const wxString widest(
      L'9', std::max<std::size_t>(4, std::to_string(editor_->GetLineCount()).size() + 1));
  editor_->SetMarginWidth(kLineNumbers, editor_->TextWidth(wxSTC_STYLE_LINENUMBER, widest));
  FitScrollWidth();
}

// At least what the window shows: less would be drawn as scrolling past the end.
void CodePane::FitScrollWidth() {
  int width =
      editor_->GetClientSize().GetWidth() - editor_->GetMarginLeft() - editor_->GetMarginRight();
  for (int margin = 0; margin < editor_->GetMarginCount(); ++margin) {
    width -= editor_->GetMarginWidth(margin);
  }
  editor_->SetScrollWidth(std::max(1, width));
}

void CodePane::LoadAgain() {
  try {
    SetText(document_->Load());
    SetTitle(component_->Name() + "  –  " + component_->FileName());
  } catch (const std::exception& error) {
    SetText("");
    editor_->Enable(false);
    SetTitle(texts_.Translated(error.what()));
  }
  Layout();
}

void CodePane::ScrollTo(std::int32_t line) {
  editor_->GotoLine(line - 1);
  editor_->SetFirstVisibleLine(editor_->VisibleFromDocLine(line - 1));
}

void CodePane::SelectLines(const platform::CodeSelection& selection) {
  const int start = editor_->PositionFromLine(selection.start_line - 1);
  const int end = editor_->PositionFromLine(selection.end_line - 1);
  const int first = editor_->PositionRelative(start, selection.start_column - 1);
  editor_->SetSelection(first, editor_->GetLineEndPosition(editor_->LineFromPosition(end)));
}

bool CodePane::Modified() const { return document_ && editor_->GetModify(); }

bool CodePane::Save() {
  if (!Modified()) return true;
  const std::string name = component_->Name();
  try {
    document_->Save(wx::FromWx(editor_->GetText()));
    editor_->SetSavePoint();
    if (on_status) on_status(texts_.Text(TextNumber::kTextSaved, {{"<Name>", name}}));
    return true;
  } catch (const platform::Error& error) {
    if (error.kind() == platform::ErrorKind::kConflict && document_->ChangedMeanwhile()) {
      ResolveConflict();
    } else if (on_failure) {
      on_failure(texts_.Text(TextNumber::kTextCannotSave, {{"<Name>", name}}), error.what());
    }
  } catch (const std::exception& error) {
    if (on_failure)
      on_failure(texts_.Text(TextNumber::kTextCannotSave, {{"<Name>", name}}), error.what());
  }
  return false;
}

void CodePane::ResolveConflict() {
  asking_ = true;
  const bool load = on_conflict && on_conflict(component_->Name());
  if (load) Discard();
  asking_ = false;
}

void CodePane::Discard() {
  if (wxTheClipboard->Open()) {
    wxTheClipboard->SetData(new wxTextDataObject(editor_->GetText()));
    wxTheClipboard->Flush();  // it outlives the program
    wxTheClipboard->Close();
  }
  LoadInPlace();
  if (on_status) on_status("");
}

void CodePane::Refresh() {
  if (document_ && !Modified() && !asking_ && document_->ChangedMeanwhile()) LoadInPlace();
}

void CodePane::LoadInPlace() {
  const int line = editor_->GetFirstVisibleLine(), caret = editor_->GetCurrentLine();
  LoadAgain();
  editor_->GotoLine(caret);
  editor_->SetFirstVisibleLine(line);
}

}  // namespace desktop
