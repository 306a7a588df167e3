// SPDX-License-Identifier: MIT
#include "wx/cell_list.h"

#include <wx/sizer.h>

#include <algorithm>

#include "wx/native_list.h"

namespace wx {

namespace {

constexpr int kRows = 9;
constexpr int kMinWidth = 220;

}  // namespace

CellList::CellList(wxWindow* parent, std::shared_ptr<forms::ListSource> source,
                   const std::function<void(const std::string&)>& on_chosen)
    : source_(std::move(source)),
      model_(new EntriesModel(*source_)),
      popup_(new wxPopupWindow(parent, wxBORDER_SIMPLE)),
      list_(MakeEntriesList(popup_, *model_)) {
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(list_, wxSizerFlags(1).Expand());
  popup_->SetSizer(sizer);
  WatchPicks(*list_, [this, on_chosen](const wxDataViewItem& item) {
    on_chosen(source_->Item(model_->GetRow(item)).text);
  });
}

CellList::~CellList() {
  model_->Detach();
  list_->SetEvtHandlerEnabled(false);
  popup_->Hide();
  popup_->Destroy();
}

void CellList::Open(const wxRect& cell) {
  int rows = std::clamp(static_cast<int>(model_->GetCount()), 1, kRows);
  int height = rows * (list_->GetCharHeight() + popup_->FromDIP(8)) + popup_->FromDIP(4);
  popup_->SetSize(std::max(cell.width, popup_->FromDIP(kMinWidth)), height);
  popup_->Position(cell.GetPosition(), wxSize(0, cell.height));
  popup_->Layout();
  popup_->Show();
}

std::string CellList::MarkPrefix(const std::string& text) {
  auto found = text.empty() ? std::nullopt : source_->FindPrefix(text);
  marked_ = found ? static_cast<std::int32_t>(*found) : -1;
  MarkEntry(*list_, *model_, marked_);
  return found ? source_->Item(*found).text : std::string();
}

std::string CellList::Move(bool up) {
  auto count = static_cast<std::int32_t>(model_->GetCount());
  if (count == 0) return {};
  marked_ = std::clamp(marked_ + (up ? -1 : 1), 0, count - 1);
  MarkEntry(*list_, *model_, marked_);
  return source_->Item(static_cast<std::size_t>(marked_)).text;
}

}  // namespace wx
