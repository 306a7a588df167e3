// SPDX-License-Identifier: MIT
#include "desktop/check_pane.h"

#include <wx/button.h>
#include <wx/splitter.h>
#include <wx/textctrl.h>

#include <utility>

#include "desktop/pane_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kHeight = 230;  // pixels at 100 %
constexpr int kLeastWidth = 160;
constexpr int kListWidth = 760;
constexpr double kListShare = 0.7;

std::vector<PlaceTable::Column> Columns(const texts::TextTable& texts) {
  return {{texts.Text(kTextSeverity), 10},
          {texts.Text(kTextCode), 9},
          {texts.Text(kTextPlace), 22},
          {texts.Text(kTextFinding), 0}};
}

}  // namespace

CheckPane::CheckPane(wxWindow* parent, const texts::TextTable& texts)
    : LowerPane(parent, texts), repair_(AddButton(kTextRepair, [this] { on_repair(); })) {
  AddButton(kTextCheckAgain, [this] { on_check(); });
  auto* both = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                    wxSP_LIVE_UPDATE | wxSP_3DSASH);
  table_ = new PlaceTable(both, texts.Text(kTextFindings), Columns(texts), wxDV_MULTIPLE);
  explanation_ = new wxTextCtrl(both, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                wxTE_MULTILINE | wxTE_READONLY);
  wx::SetAccessibleName(*explanation_, wx::ToWx(texts.Text(kTextExplanation)));
  both->SetMinimumPaneSize(FromDIP(kLeastWidth));
  both->SetSashGravity(kListShare);
  both->SplitVertically(table_, explanation_, FromDIP(kListWidth));
  table_->on_select = [this] { on_select(); };
  table_->on_activate = [this](std::size_t row) { on_activate(row); };
  SetContent(*both, kHeight);
}

void CheckPane::ShowFindings(const std::string& title, std::vector<PlaceTable::Row> rows) {
  SetTitle(title);
  table_->ShowRows(std::move(rows));
}

void CheckPane::ShowExplanation(const std::string& text) {
  explanation_->ChangeValue(wx::ToWx(text));
}

void CheckPane::OfferRepair(bool offered) { repair_->Enable(offered); }

}  // namespace desktop
