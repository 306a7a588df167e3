// SPDX-License-Identifier: MIT
#include "desktop/find_bar.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "desktop/coding_texts.h"
#include "desktop/search_texts.h"
#include "messages/text_number.h"
#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kGap = 6;  // pixels at 100 %

}  // namespace

bool IsFindAgain(const wxKeyEvent& event) {
  return event.GetKeyCode() == WXK_F3 && (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
}

FindBar::FindBar(wxWindow* parent, CodeEditor& editor, const texts::TextTable& texts)
    : wxPanel(parent), editor_(editor), texts_(texts) {
  const auto row = [&](wxPanel* panel, std::initializer_list<wxWindow*> rest, wxWindow* field) {
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(field, wxSizerFlags(1).CentreVertical());
    controls_.push_back(field);
    for (wxWindow* window : rest) {
      sizer->Add(window, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(kGap)));
      controls_.push_back(window);
    }
    panel->SetSizer(sizer);
  };
  const auto button = [&](wxPanel* panel, messages::TextNumber text, std::function<void()> action) {
    auto* made = new wxButton(panel, wxID_ANY, wx::ToWx(texts.Text(text)));
    made->Bind(wxEVT_BUTTON, [action = std::move(action)](wxCommandEvent&) { action(); });
    return made;
  };
  const auto box = [&](wxPanel* panel, messages::TextNumber text) {
    auto* made = new wxCheckBox(panel, wxID_ANY, wx::ToWx(texts.Text(text)));
    made->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { Find(false); });
    return made;
  };
  auto* first_row = new wxPanel(this);
  second_row_ = new wxPanel(this);
  wanted_ = MakeField(*first_row, studio::kTextFindInCode);
  whole_word_ = box(first_row, kTextFindWholeWord);
  match_case_ = box(first_row, kTextFindCase);
  row(first_row, {whole_word_, match_case_, button(first_row, kTextFindClose, [this] { Close(); })},
      wanted_);
  replacement_ = MakeField(*second_row_, kTextReplaceBy);
  row(second_row_,
      {button(second_row_, kTextReplaceOne, [this] { Replace(); }),
       button(second_row_, kTextReplaceAll, [this] { ReplaceAll(); })},
      replacement_);
  wanted_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Find(false); });
  auto* all = new wxBoxSizer(wxVERTICAL);
  for (wxPanel* panel : {first_row, second_row_}) {
    all->Add(panel, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap)));
  }
  SetSizer(all);
  Hide();
}

wxTextCtrl* FindBar::MakeField(wxPanel& row, messages::TextNumber text) {
  const wxString name = wx::ToWx(texts_.Text(text));
  auto* field = new wxTextCtrl(&row, wxID_ANY);
  field->SetHint(name);
  wx::SetAccessibleName(*field, name);
  return field;
}

bool FindBar::HasKeyboard() const {
  const wxWindow* focus = FindFocus();
  return focus && IsDescendant(const_cast<wxWindow*>(focus));
}

void FindBar::MoveKeyboard(bool backward) {
  std::vector<wxWindow*> shown;
  for (wxWindow* control : controls_)
    if (control->IsShownOnScreen()) shown.push_back(control);
  if (backward) std::reverse(shown.begin(), shown.end());
  const auto next = std::find(shown.begin(), shown.end(), FindFocus());
  if (next == shown.end() || next + 1 == shown.end()) return editor_.SetFocus();
  (*(next + 1))->SetFocus();
}

bool FindBar::HandleKey(const wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const int modifiers = event.GetModifiers();
  const bool plain = modifiers == wxMOD_NONE, shift = modifiers == wxMOD_SHIFT;
  const bool inside = IsShown() && HasKeyboard();
  const bool in_field = wanted_->HasFocus() || replacement_->HasFocus();
  const bool enter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
  if (modifiers == wxMOD_CONTROL && (key == 'F' || key == 'H')) {
    Open(key == 'H');
  } else if (IsFindAgain(event)) {
    FindAgain(shift);
  } else if (in_field && enter && plain && replacement_->HasFocus()) {
    Replace();
  } else if (in_field && enter && (plain || shift)) {
    Find(true, shift);
  } else if (inside && plain && key == WXK_ESCAPE) {
    Close();
  } else if (inside && key == WXK_TAB && (plain || shift)) {
    MoveKeyboard(shift);
  } else {
    return false;
  }
  return true;
}

void FindBar::FindAgain(bool backward) {
  if (IsShown()) {
    Find(true, backward);
  } else if (!on_find_elsewhere || !on_find_elsewhere(backward)) {
    Open(false);
  }
}

void FindBar::Open(bool with_replacement) {
  if (!editor_.IsEnabled()) return;
  const std::string selected = wx::FromWx(editor_.GetSelectedText());
  const bool from_code =
      editor_.HasFocus() && !selected.empty() && selected.find('\n') == std::string::npos;
  if (from_code) wanted_->ChangeValue(wx::ToWx(selected));
  Show();
  second_row_->Show(with_replacement || (second_row_->IsShown() && HasKeyboard()));
  Layout();
  if (on_visible) on_visible();
  wanted_->SetFocus();
  wanted_->SelectAll();
}

void FindBar::Close() {
  Hide();
  if (on_visible) on_visible();
  if (on_close) on_close();
}

CodeEditor::FindOptions FindBar::Options() const {
  return {whole_word_->GetValue(), match_case_->GetValue()};
}

std::string FindBar::Wanted() const { return wx::FromWx(wanted_->GetValue()); }

void FindBar::Tell(const std::string& text) const {
  if (on_status) on_status(text);
}

bool FindBar::Find(bool behind, bool backward) {
  const std::string text = Wanted();
  if (text.empty()) return false;
  const bool found = editor_.Find(text, Options(), behind, backward);
  Tell(found ? "" : texts_.Text(studio::kTextNotInCode, {{"<Text>", text}}));
  return found;
}

// What is selected, if it is the text; then the next place is.
void FindBar::Replace() {
  const std::string text = Wanted();
  if (text.empty()) return;
  if (editor_.SelectionIs(text, Options())) editor_.ReplaceSelection(replacement_->GetValue());
  Find(true);
}

void FindBar::ReplaceAll() {
  const std::string text = Wanted();
  if (text.empty()) return;
  const int count = editor_.ReplaceAll(text, wx::FromWx(replacement_->GetValue()), Options());
  Tell(count == 0 ? texts_.Text(studio::kTextNotInCode, {{"<Text>", text}})
                  : texts_.Text(kTextReplacedCount, {{"<Count>", std::to_string(count)}}));
}

}  // namespace desktop
