// SPDX-License-Identifier: MIT
#include "desktop/quick_open.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "desktop/overview_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr std::size_t kMostShown = 200;
constexpr int kGap = 8;  // pixels at 100 %
constexpr int kWidth = 640, kHeight = 380;
constexpr int kPage = 10;  // rows

std::vector<PlaceTable::Column> Columns(const texts::TextTable& texts) {
  return {{texts.Text(kTextFormulaName), 30},
          {texts.Text(kTextKindOfName), 10},
          {texts.Text(kTextNameDetail), 0}};
}

}  // namespace

QuickOpen::QuickOpen(wxWindow* parent, const texts::TextTable& texts, const NameIndex& names)
    : wxDialog(parent, wxID_ANY, wx::ToWx(texts.Text(kTextGoToName)), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      texts_(texts),
      names_(names),
      wanted_(new wxTextCtrl(this, wxID_ANY)),
      table_(new PlaceTable(this, texts.Text(kTextNamesFound), Columns(texts))),
      hint_(new wxStaticText(this, wxID_ANY, wx::ToWx(texts.Text(kTextGoToHint)))) {
  wx::SetAccessibleName(*wanted_, wx::ToWx(texts.Text(kTextGoToName)));
  wanted_->SetHint(wx::ToWx(texts.Text(kTextPartOfName)));
  wanted_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Search(); });
  table_->on_activate = [this](std::size_t) { Take(); };
  Bind(wxEVT_CHAR_HOOK, &QuickOpen::OnKey, this);
  const int gap = FromDIP(kGap);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(wanted_, wxSizerFlags().Expand().Border(wxALL, gap));
  all->Add(table_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  all->Add(hint_, wxSizerFlags().Expand().Border(wxALL, gap));
  SetSizer(all);
  SetClientSize(FromDIP(wxSize(kWidth, kHeight)));
  CentreOnParent(wxHORIZONTAL);
  SetPosition({GetPosition().x, parent->ClientToScreen(wxPoint()).y});  // below the window's menus
}

std::optional<std::size_t> QuickOpen::Ask() {
  wanted_->SetFocus();
  if (ShowModal() != wxID_OK) return std::nullopt;
  return found_[Chosen()];
}

void QuickOpen::Search() {
  found_ = names_.Find(wx::FromWx(wanted_->GetValue()), kMostShown);
  std::vector<PlaceTable::Row> rows;
  for (const std::size_t place : found_) {
    const NameIndex::Name& name = names_.At(place);
    rows.push_back(
        {name.name, Text(kTextFirstKindOfName + static_cast<int>(name.kind)), name.detail});
  }
  const bool none = rows.empty() && !wanted_->IsEmpty();
  table_->ShowRows(std::move(rows));
  hint_->SetLabel(wx::ToWx(Text(none ? kTextNoSuchName : kTextGoToHint)));
}

std::size_t QuickOpen::Chosen() const {
  const std::vector<std::size_t> rows = table_->Selected();
  return rows.empty() ? 0 : rows.front();
}

void QuickOpen::Take() {
  if (!found_.empty()) EndModal(wxID_OK);
}

void QuickOpen::Move(int rows) {
  if (found_.empty()) return;
  const auto last = static_cast<int>(found_.size()) - 1;
  const int row = std::clamp(static_cast<int>(Chosen()) + rows, 0, last);
  table_->SelectRow(static_cast<std::size_t>(row));
}

// The keyboard stays in the field: its arrows move the mark.
void QuickOpen::OnKey(wxKeyEvent& event) {
  switch (event.GetKeyCode()) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
      return Take();
    case WXK_ESCAPE:
      return EndModal(wxID_CANCEL);
    case WXK_DOWN:
      return Move(1);
    case WXK_UP:
      return Move(-1);
    case WXK_PAGEDOWN:
      return Move(kPage);
    case WXK_PAGEUP:
      return Move(-kPage);
    default:
      event.Skip();
  }
}

}  // namespace desktop
