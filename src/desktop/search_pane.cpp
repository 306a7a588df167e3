// SPDX-License-Identifier: MIT
#include "desktop/search_pane.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

#include "desktop/find_bar.h"
#include "desktop/search_texts.h"
#include "messages/text_number.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kListHeight = 150;  // pixels at 100 %
constexpr int kGap = 6;

std::vector<PlaceTable::Column> Columns(const texts::TextTable& texts) {
  return {{texts.Text(kTextProcedure), 24},
          {texts.Text(kTextFileColumn), 20},
          {texts.Text(kTextLine), 8},
          {texts.Text(kTextKind), 20},
          {texts.Text(kTextText), 0}};
}

}  // namespace

SearchPane::SearchPane(wxWindow* parent, const texts::TextTable& texts)
    : LowerPane(parent, texts),
      fields_(new wxPanel(this)),
      wanted_(new wxTextCtrl(fields_, wxID_ANY)),
      replacement_(new wxTextCtrl(fields_, wxID_ANY)),
      whole_word_(new wxCheckBox(fields_, wxID_ANY, wx::ToWx(texts.Text(kTextWholeWord)))),
      match_case_(new wxCheckBox(fields_, wxID_ANY, wx::ToWx(texts.Text(kTextMatchCase)))),
      table_(new PlaceTable(this, texts.Text(kTextPlacesInCode), Columns(texts))) {
  table_->on_select = [this] {
    const std::vector<std::size_t> rows = table_->Selected();
    if (!rows.empty()) LookAt(rows.front());
  };
  table_->on_activate = [this](std::size_t row) {
    looked_at_ = row;
    on_activate(row);
  };
  fields_->SetSizer(MakeFields());
  SetFields(*fields_, kGap);
  SetContent(*table_, kListHeight);
}

// Two rows: what to find and how, what takes its place.
wxSizer* SearchPane::MakeFields() {
  constexpr int kColumns = 4;
  auto* grid = new wxFlexGridSizer(kColumns, FromDIP(kGap), FromDIP(2 * kGap));
  grid->AddGrowableCol(1);
  const auto add_field = [&](messages::TextNumber label, wxTextCtrl* field) {
    const wxString text = wx::ToWx(texts().Text(label));
    grid->Add(new wxStaticText(fields_, wxID_ANY, text), wxSizerFlags().CentreVertical());
    grid->Add(field, wxSizerFlags().Expand());
    wx::SetAccessibleName(*field, text);
  };
  const auto add_button = [&](messages::TextNumber text, const std::function<void()>& action) {
    auto* button = new wxButton(fields_, wxID_ANY, wx::ToWx(texts().Text(text)));
    button->Bind(wxEVT_BUTTON, [&action](wxCommandEvent&) { action(); });
    grid->Add(button, wxSizerFlags().Expand());
    return button;
  };
  add_field(kTextFindLabel, wanted_);
  grid->Add(whole_word_, wxSizerFlags().CentreVertical());
  auto* find = add_button(kTextFind, on_find);
  add_field(kTextReplaceLabel, replacement_);
  grid->Add(match_case_, wxSizerFlags().CentreVertical());
  auto* replace = add_button(kTextReplace, on_replace);
  // The keyboard goes through the fields before the buttons.
  replacement_->MoveAfterInTabOrder(wanted_);
  whole_word_->MoveAfterInTabOrder(replacement_);
  match_case_->MoveAfterInTabOrder(whole_word_);
  find->MoveAfterInTabOrder(match_case_);
  replace->MoveAfterInTabOrder(find);
  return grid;
}

void SearchPane::LookAt(std::size_t row) {
  looked_at_ = row;
  on_select(row);
}

std::optional<std::size_t> SearchPane::MoveOn(bool backward) {
  const std::size_t count = table_->Count();
  if (!IsShown() || count == 0) return std::nullopt;
  const std::vector<std::size_t> selected = table_->Selected();
  const std::size_t first = selected.empty() ? 0 : selected.front();
  looked_at_ = looked_at_ ? (*looked_at_ + (backward ? count - 1 : 1)) % count : first;
  table_->MoveToRow(*looked_at_);
  return looked_at_;
}

bool SearchPane::HandleKey(const wxKeyEvent& event) {
  if (IsFindAgain(event)) {
    on_move_on(event.ShiftDown());
    return true;
  }
  const wxWindow* focus = FindFocus();
  const bool enter = event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
  const bool find = focus == wanted_ || focus == whole_word_ || focus == match_case_;
  if (!enter || !(find || focus == replacement_)) return LowerPane::HandleKey(event);
  find ? on_find() : on_replace();
  return true;
}

void SearchPane::ShowFields(bool shown) {
  fields_->Show(shown);
  Open();
}

void SearchPane::OpenFields(const std::string& text) {
  if (!fields_->IsShown() || !IsShown()) ShowPlaces({}, {});
  ShowFields(true);
  if (!text.empty()) wanted_->ChangeValue(wx::ToWx(text));
  wanted_->SetFocus();
  wanted_->SelectAll();
}

void SearchPane::SetPlaces(const std::string& title, std::vector<PlaceTable::Row> rows) {
  SetTitle(title);
  looked_at_.reset();
  table_->ShowRows(std::move(rows));
}

void SearchPane::ShowPlaces(const std::string& title, std::vector<PlaceTable::Row> rows) {
  SetPlaces(title, std::move(rows));
  if (table_->Count() > 0) table_->SetFocus();
}

void SearchPane::ShowPlacesAlone(const std::string& title, std::vector<PlaceTable::Row> rows) {
  ShowFields(false);
  ShowPlaces(title, std::move(rows));
}

void SearchPane::OfferPlaces(const std::string& title, std::vector<PlaceTable::Row> rows) {
  ShowFields(false);
  SetPlaces(title, std::move(rows));
}

void SearchPane::Close() {
  LowerPane::Close();
  table_->ShowRows({});
}

std::string SearchPane::Wanted() const { return wx::FromWx(wanted_->GetValue()); }

std::string SearchPane::Replacement() const { return wx::FromWx(replacement_->GetValue()); }

vbcode::SearchOptions SearchPane::Options() const {
  return {whole_word_->GetValue(), match_case_->GetValue()};
}

}  // namespace desktop
