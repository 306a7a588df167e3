// SPDX-License-Identifier: MIT
#include "desktop/flow_pane.h"

#include <wx/choice.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/stattext.h>

#include <utility>

#include "desktop/flow_canvas.h"
#include "desktop/flow_texts.h"
#include "project/flow_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kHeight = 320;  // pixels at 100 %
constexpr int kLeastWidth = 160;
constexpr int kPictureWidth = 560;
constexpr int kGap = 6;
constexpr int kMostDepth = 5;
constexpr int kUsualDepth = 2;

std::vector<PlaceTable::Column> Columns(const texts::TextTable& texts) {
  return {{texts.Text(project::kFlowItem), 18}, {texts.Text(kTextFlowAlias), 16},
          {texts.Text(kTextFlowAccess), 18},    {texts.Text(kTextFlowFormula), 24},
          {texts.Text(kTextFlowCallType), 24},  {texts.Text(kTextFlowWriters), 0}};
}

}  // namespace

FlowPane::FlowPane(wxWindow* parent, const texts::TextTable& texts) : LowerPane(parent, texts) {
  AddButton(kTextFlowSaveAs, [this] { on_save(); });
  SetFields(*MakeFields(), kGap);
  auto* both = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                    wxSP_LIVE_UPDATE | wxSP_3DSASH);
  canvas_ = new FlowCanvas(both, texts);
  table_ = new PlaceTable(both, texts.Text(kTextFlowList), Columns(texts));
  table_->on_activate = [this](std::size_t row) { on_activate(row); };
  both->SetMinimumPaneSize(FromDIP(kLeastWidth));
  both->SplitVertically(canvas_, table_, FromDIP(kPictureWidth));
  SetContent(*both, kHeight);
}

wxWindow* FlowPane::MakeFields() {
  auto* fields = new wxPanel(this);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  wxStaticText* label = wx::NewLabel(fields);
  label->SetLabel(wx::ToWx(texts().Text(kTextFlowDepth)));
  depth_ = new wxChoice(fields, wxID_ANY);
  for (int depth = 1; depth <= kMostDepth; ++depth) depth_->Append(std::to_string(depth));
  depth_->SetSelection(kUsualDepth - 1);
  depth_->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { on_depth(); });
  auto* hint =
      new wxStaticText(fields, wxID_ANY, wx::ToLabel(texts().Text(kTextFlowHint)),
                       wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
  hint->SetToolTip(wx::ToWx(texts().Text(kTextFlowHint)));
  row->Add(label, wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(kGap)));
  row->Add(depth_, wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * kGap)));
  row->Add(hint, wxSizerFlags(1).CentreVertical());
  fields->SetSizer(row);
  return fields;
}

void FlowPane::ShowFlow(const std::string& title, std::vector<PlaceTable::Row> rows) {
  SetTitle(title);
  table_->ShowRows(std::move(rows));
}

std::int32_t FlowPane::Depth() const { return depth_->GetSelection() + 1; }

}  // namespace desktop
