// SPDX-License-Identifier: MIT
#include "desktop/history_pane.h"

#include <wx/button.h>
#include <wx/splitter.h>

#include <utility>

#include "desktop/pane_texts.h"
#include "studio/undo_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr int kHeight = 230;  // pixels at 100 %
constexpr int kLeastWidth = 160;
constexpr double kListShare = 0.55;

std::vector<PlaceTable::Column> Columns(const texts::TextTable& texts) {
  return {{texts.Text(kTextTime), 17},
          {texts.Text(kTextChange), 38},
          {texts.Text(kTextWho), 12},
          {texts.Text(kTextState), 16},
          {texts.Text(kTextProgram), 0}};
}

}  // namespace

HistoryPane::HistoryPane(wxWindow* parent, const texts::TextTable& texts)
    : LowerPane(parent, texts), revert_(AddButton(kTextUndoThis, [this] { on_revert(); })) {
  auto* both = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                    wxSP_LIVE_UPDATE | wxSP_3DSASH);
  table_ = new PlaceTable(both, texts.Text(studio::kTextHistory), Columns(texts));
  change_ = new ChangeView(both, texts.Text(kTextRowsAndCode), texts);
  both->SetMinimumPaneSize(FromDIP(kLeastWidth));
  both->SetSashGravity(kListShare);
  both->SplitVertically(table_, change_);
  table_->on_select = [this] { on_select(); };
  table_->on_activate = [this](std::size_t) { change_->SetFocus(); };
  SetTitle(texts.Text(studio::kTextHistory));
  SetContent(*both, kHeight);
}

void HistoryPane::ShowOperations(std::vector<PlaceTable::Row> rows, std::size_t selected) {
  table_->ShowRows(std::move(rows));
  if (selected < table_->Count()) table_->SelectRow(selected);
}

void HistoryPane::ShowOffer(Offer offer) {
  revert_->SetLabel(wx::ToWx(texts().Text(offer == Offer::kRedo ? kTextRedoThis : kTextUndoThis)));
  revert_->Enable(offer != Offer::kNothing);
  Layout();
}

std::optional<std::size_t> HistoryPane::Selected() const {
  const std::vector<std::size_t> rows = table_->Selected();
  if (rows.empty()) return std::nullopt;
  return rows.front();
}

}  // namespace desktop
