// SPDX-License-Identifier: MIT
#include "desktop/window_panes.h"

#include <wx/sizer.h>
#include <wx/splitter.h>

#include <algorithm>
#include <initializer_list>

#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr int kMinPane = 120;  // pixels at 100 %
constexpr double kUpperShare = 0.55;
constexpr long kSplitterStyle = wxSP_LIVE_UPDATE | wxSP_3DSASH;

wxSplitterWindow* MakeSplitter(wxWindow* parent) {
  return new wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, kSplitterStyle);
}

// A file may hold any numbers.
TreeLook LookOf(const DesktopState::Place& place) {
  using Grouping = TreeLook::Grouping;
  const bool known = place.tree_grouping > 0 && place.tree_grouping <= 2;
  return {known ? static_cast<Grouping>(place.tree_grouping) : Grouping::kNone,
          place.tree_order == 1 ? TreeLook::Order::kName : TreeLook::Order::kCreated};
}

}  // namespace

WindowPanes::WindowPanes(wxFrame& frame, const texts::TextTable& texts, DesktopState::Place& place)
    : frame_(frame),
      place_(place),
      notices_(new NoticeBar(&frame, wx::ToWx(texts.Text(studio::kTextLater)))),
      whole_(MakeSplitter(&frame)),
      columns_(MakeSplitter(whole_)),
      tree_(new TreePane(columns_, texts)),
      rows_(MakeSplitter(columns_)),
      upper_(new wxPanel(rows_)),
      strip_(new FormulaStrip(upper_, texts)),
      editor_host_(new wxPanel(upper_)),
      welcome_(new Welcome(upper_, texts)),
      overview_(new FormulaOverview(upper_, texts)),
      code_(new CodePane(rows_, texts)),
      lower_(new wxPanel(whole_)),
      search_(new SearchPane(lower_, texts)),
      history_(new HistoryPane(lower_, texts)),
      check_(new CheckPane(lower_, texts)),
      flow_(new FlowPane(lower_, texts)),
      messages_(new MessagePane(lower_, texts)) {
  tree().SetLook(LookOf(place));
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(strip_, wxSizerFlags().Expand());
  sizer->Add(editor_host_, wxSizerFlags(1).Expand());
  sizer->Add(welcome_, wxSizerFlags(1).Expand());
  sizer->Add(overview_, wxSizerFlags(1).Expand());
  upper_->SetSizer(sizer);
  strip_->Hide();
  editor_host_->Hide();
  overview_->Hide();
  columns_->SetMinimumPaneSize(frame.FromDIP(kMinPane));
  rows_->SetMinimumPaneSize(frame.FromDIP(kMinPane));
  rows_->SetSashGravity(kUpperShare);
  tree_->Hide();
  code_->Hide();
  rows_->Initialize(upper_);
  columns_->Initialize(rows_);
  lower_->SetSizer(new wxBoxSizer(wxVERTICAL));
  lower_->Hide();
  whole_->SetMinimumPaneSize(frame.FromDIP(kMinPane));
  whole_->SetSashGravity(1);
  whole_->Initialize(columns_);
  const std::initializer_list<LowerPane*> lower = {search_, history_, check_, flow_, messages_};
  for (LowerPane* pane : lower) Connect(*pane);
  for (LowerPane* pane : std::initializer_list<LowerPane*>{history_, check_, flow_, messages_})
    pane->on_close = [this] { tree().SetFocus(); };
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(whole_, wxSizerFlags(1).Expand());
  all->Add(notices_, wxSizerFlags().Expand());
  frame.SetSizer(all);
  notices_->on_height = [this] { Arrange(); };
}

void WindowPanes::Arrange() {
  if (!rows_->IsSplit() || place_.code_beside) {
    frame_.Layout();
    return;
  }
  const int table = rows_->GetSashPosition();
  rows_->SetSashGravity(0);
  frame_.Layout();
  rows_->SetSashGravity(kUpperShare);
  rows_->SetSashPosition(table);
}

bool WindowPanes::TreeShown() const { return columns_->IsSplit(); }

bool WindowPanes::CodeShown() const { return rows_->IsSplit(); }

void WindowPanes::SplitCode() {
  const int sash = rows_->GetSashSize();
  if (place_.code_beside) {
    rows_->SplitVertically(upper_, code_, -sash - frame_.FromDIP(place_.code_width));
  } else {
    rows_->SplitHorizontally(upper_, code_, -sash - frame_.FromDIP(place_.code_height));
  }
}

void WindowPanes::KeepCodeSize() {
  if (!CodeShown()) return;
  const wxSize size = code_->GetSize();
  int& kept = place_.code_beside ? place_.code_width : place_.code_height;
  kept = frame_.ToDIP(place_.code_beside ? size.GetWidth() : size.GetHeight());
}

void WindowPanes::SplitTree() {
  columns_->SplitVertically(tree_, rows_, frame_.FromDIP(place_.tree_width));
}

void WindowPanes::KeepTreeWidth() {
  if (TreeShown()) place_.tree_width = frame_.ToDIP(columns_->GetSashPosition());
}

void WindowPanes::ShowProject(bool shown) {
  if (shown == project_shown_) return;
  project_shown_ = shown;
  if (shown) {
    if (place_.tree_shown) SplitTree();
    if (place_.code_shown) SplitCode();
  } else {
    Keep();
    columns_->Unsplit(tree_);
    rows_->Unsplit(code_);
  }
}

void WindowPanes::ShowTree(bool shown) {
  if (!project_shown_ || shown == TreeShown()) return;
  if (shown) {
    SplitTree();
  } else {
    KeepTreeWidth();
    columns_->Unsplit(tree_);
  }
  place_.tree_shown = shown;
}

void WindowPanes::SetTreeLook(const TreeLook& look) {
  tree().SetLook(look);
  place_.tree_grouping = static_cast<int>(look.grouping);
  place_.tree_order = static_cast<int>(look.order);
}

void WindowPanes::ShowCode(bool shown) {
  if (!project_shown_ || shown == CodeShown()) return;
  KeepCodeSize();
  if (shown) {
    SplitCode();
  } else {
    rows_->Unsplit(code_);
  }
  place_.code_shown = shown;
}

void WindowPanes::PutCodeBeside(bool beside) {
  if (beside == place_.code_beside) return ShowCode(true);
  ShowCode(false);
  place_.code_beside = beside;
  ShowCode(true);
}

void WindowPanes::Connect(LowerPane& pane) {
  lower_->GetSizer()->Add(&pane, wxSizerFlags(1).Expand());
  pane.on_visible = [this, &pane] {
    int table = rows_->GetSashPosition();
    rows_->SetSashGravity(0);
    if (pane.IsShown()) {
      if (!whole_->IsSplit()) table_alone_ = table;
      for (wxWindow* other : lower_->GetChildren()) {
        if (other != &pane) other->Hide();
      }
      const int height = pane.GetBestSize().GetHeight();
      if (!whole_->IsSplit()) {
        whole_->SplitHorizontally(columns_, lower_, -height);
      } else if (lower_->GetSize().GetHeight() < height) {
        whole_->SetSashPosition(-height);
      }
      // The order of Tab was made without what was hidden then.
      lower_->MoveAfterInTabOrder(columns_);
    } else {
      whole_->Unsplit(lower_);
      if (table == table_beside_pane_) table = table_alone_;
    }
    lower_->Layout();
    rows_->SetSashGravity(kUpperShare);
    rows_->SetSashPosition(table);
    table_beside_pane_ = rows_->GetSashPosition();
  };
}

bool WindowPanes::CloseLower() {
  for (wxWindow* child : lower_->GetChildren()) {
    auto* pane = dynamic_cast<LowerPane*>(child);
    if (!pane || !pane->IsShown()) continue;
    pane->Close();
    return true;
  }
  return false;
}

void WindowPanes::ShowStrip(bool shown) {
  if (shown && !strip_->IsShown())
    strip_->SetSize(upper_->GetClientSize().GetWidth(), strip_->GetBestSize().GetHeight());
  strip_->Show(shown);
  upper_->Layout();
}

void WindowPanes::ShowUpper(Upper upper) {
  ShowProject(upper != Upper::kWelcome);
  if (upper != Upper::kEditor) strip_->Hide();
  // Its columns need room when they come into sight.
  if (upper == Upper::kOverview && !overview_->IsShown())
    overview_->SetSize(upper_->GetClientSize());
  editor_host_->Show(upper == Upper::kEditor);
  welcome_->Show(upper == Upper::kWelcome);
  overview_->Show(upper == Upper::kOverview);
  upper_->Layout();
}

void WindowPanes::RestoreCodeSize() {
  if (!CodeShown()) return;
  const wxSize room = rows_->GetClientSize();
  const bool beside = place_.code_beside;
  const int size =
      rows_->GetSashSize() + frame_.FromDIP(beside ? place_.code_width : place_.code_height);
  rows_->SetSashPosition(std::max(1, (beside ? room.GetWidth() : room.GetHeight()) - size));
}

void WindowPanes::Keep() {
  KeepTreeWidth();
  KeepCodeSize();
}

}  // namespace desktop
