// SPDX-License-Identifier: MIT
#include "desktop/tree_pane.h"

#include <wx/sizer.h>
#include <wx/srchctrl.h>
#include <wx/stattext.h>

#include "desktop/frame_texts.h"
#include "desktop/overview_texts.h"
#include "messages/text_number.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kGap = 4;  // pixels at 100 %

}  // namespace

TreePane::TreePane(wxWindow* parent, const texts::TextTable& texts)
    : wxPanel(parent),
      texts_(texts),
      filter_(new wxSearchCtrl(this, wxID_ANY)),
      tree_(new ProjectTree(this, texts)),
      count_(new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_END)) {
  const auto text = [&](messages::TextNumber number) { return wx::ToWx(texts.Text(number)); };
  filter_->ShowCancelButton(true);
  filter_->SetDescriptiveText(text(kTextFilterTreeHint));
  filter_->SetToolTip(text(kTextFilterTree));
  wx::SetAccessibleName(*filter_, text(kTextFilterTree));
  filter_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
    tree_->SetFilter(wx::FromWx(filter_->GetValue()));
    ShowCount();
  });
  filter_->Bind(wxEVT_SEARCHCTRL_CANCEL_BTN, [this](wxCommandEvent&) { ClearFilter(); });
  filter_->Bind(wxEVT_CHAR_HOOK, &TreePane::OnKey, this);
  tree_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const bool escape = event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers();
    if (!escape || filter_->IsEmpty()) return event.Skip();
    ClearFilter();
  });
  tree_->on_filter_in_the_way = [this] { ClearFilter(); };
  tree_->on_formulas = [this] { ShowCount(); };
  const int gap = FromDIP(kGap);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(filter_, wxSizerFlags().Expand().Border(wxALL, gap));
  all->Add(count_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  all->Add(tree_, wxSizerFlags(1).Expand());
  SetSizer(all);
  count_->Hide();
}

void TreePane::TakeFilter() {
  filter_->SetFocus();
  filter_->SelectAll();
}

void TreePane::ClearFilter() { filter_->Clear(); }

void TreePane::ShowCount() {
  const bool filtered = !filter_->IsEmpty();
  if (filtered) {
    const std::size_t shown = tree_->FormulasShown();
    count_->SetLabel(wx::ToWx(texts_.Text(
        shown == 0 ? kTextNoFormulaFound : kTextFormulasOf,
        {{"<Count>", std::to_string(shown)}, {"<Total>", std::to_string(tree_->Formulas())}})));
  }
  if (count_->IsShown() == filtered) return;
  count_->Show(filtered);
  Layout();
}

void TreePane::OnKey(wxKeyEvent& event) {
  const int code = event.GetKeyCode();
  if (code == WXK_ESCAPE) {
    ClearFilter();
    tree_->SetFocus();
  } else if (code == WXK_RETURN || code == WXK_NUMPAD_ENTER) {
    tree_->SetFocus();
    tree_->SelectFirstFormula();
  } else if (code == WXK_DOWN) {
    tree_->SetFocus();
  } else {
    event.Skip();
  }
}

}  // namespace desktop
