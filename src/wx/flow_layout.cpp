// SPDX-License-Identifier: MIT
#include "wx/flow_layout.h"

#include <wx/gbsizer.h>
#include <wx/statbox.h>
#include <wx/textctrl.h>

#include "forms/fields.h"
#include "forms/row_view.h"
#include "wx/convert.h"
#include "wx/field_views.h"
#include "wx/native.h"

namespace wx {

namespace {

constexpr int kGap = 6;         // between rows, in pixels at 100 %
constexpr int kColumnGap = 12;  // between labels and fields

// Builds one container row by row.
class FlowBuilder {
 public:
  FlowBuilder(forms::Container& container, wxWindow* parent, const ViewMaker& make_view)
      : container_(container), parent_(parent), make_view_(make_view) {
    // The gap belongs to what is shown: a hidden hint leaves none.
    grid_ = new wxGridBagSizer(0, parent->FromDIP(kColumnGap));
    grid_->SetEmptyCellSize(wxSize(0, 0));
  }

  wxSizer* Build() {
    for (forms::Control* control : container_.Controls()) Add(*control);
    FlushLabel();
    if (row_ > 0) grid_->AddGrowableCol(1);
    if (buttons_.empty()) return grid_;
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(grid_, wxSizerFlags(1).Expand());
    rows->Add(ButtonRow(), wxSizerFlags().Expand().Border(wxTOP, parent_->FromDIP(3 * kGap)));
    return rows;
  }

 private:
  void Add(forms::Control& control) {
    auto* frame = dynamic_cast<forms::Frame*>(&control);
    if (frame) {
      FlushLabel();
      AddWide(FrameSizer(*frame), false);
      return;
    }
    auto* button = dynamic_cast<forms::Button*>(&control);
    ControlView* view = make_view_(control, parent_);
    if (!view) return;  // menus are not laid out
    SetMinimum(*view);
    auto* label = dynamic_cast<forms::Label*>(&control);
    if (control.Layout().same_row && field_row_) {
      field_row_->Add(&view->Window(),
                      wxSizerFlags().Expand().Border(wxLEFT, parent_->FromDIP(kGap)));
    } else if (button) {
      buttons_.push_back(view);
    } else if (label && label->Hint()) {
      FlushLabel();
      AddCell(&view->Window(), 1, wxEXPAND);
      ++row_;
    } else if (label) {
      FlushLabel();
      pending_label_ = view;
    } else {
      AddField(*view);
    }
  }

  void AddField(ControlView& view) {
    bool stretch = view.Model().Layout().stretch;
    bool list = dynamic_cast<forms::RowView*>(&view.Model()) != nullptr;
    if (pending_label_) {
      if (list) {
        FlushLabel();
      } else {
        const bool tall = view.Model().Layout().min_lines > 1;  // it stands beside the first line
        AddCell(&pending_label_->Window(), 0, tall ? wxALIGN_TOP : wxALIGN_CENTRE_VERTICAL);
        pending_label_ = nullptr;
      }
    }
    if (list) {
      AddWide(&view.Window(), stretch);
      field_row_ = nullptr;
      return;
    }
    field_row_ = new wxBoxSizer(wxHORIZONTAL);
    field_row_->Add(&view.Window(), wxSizerFlags(1).Expand());
    if (stretch) grid_->AddGrowableRow(row_);
    AddCell(field_row_, 1, wxEXPAND);
    ++row_;
  }

  // In the row that is being built.
  template <class Item>
  void AddCell(Item* item, int column, int flags, int columns = 1) {
    grid_->Add(item, wxGBPosition(row_, column), wxGBSpan(1, columns), flags | wxTOP,
               row_ == 0 ? 0 : parent_->FromDIP(kGap));
  }

  // A row over both columns, of a window or a sizer. (A sizer grows only columns that exist.)
  template <class Item>
  void AddWide(Item* item, bool stretch) {
    AddCell(item, 0, wxEXPAND, 2);
    if (stretch) grid_->AddGrowableRow(row_);
    ++row_;
  }

  // A label that no field followed has a row of its own.
  void FlushLabel() {
    if (pending_label_) AddWide(&pending_label_->Window(), false);
    pending_label_ = nullptr;
  }

  wxSizer* FrameSizer(forms::Frame& frame) {
    if (frame.Caption().empty()) return BuildFlow(frame, parent_, make_view_);
    auto* box = new wxStaticBoxSizer(wxVERTICAL, parent_, ToWx(frame.Caption()));
    box->Add(BuildFlow(frame, box->GetStaticBox(), make_view_),
             wxSizerFlags(1).Expand().Border(wxALL, parent_->FromDIP(kGap)));
    return box;
  }

  // Help and the like to the left, Cancel and the default button to the right. Tab goes through
  // them as they stand.
  wxSizer* ButtonRow() {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    std::vector<ControlView*> left, right;
    for (ControlView* view : buttons_) {
      const auto& button = dynamic_cast<const forms::Button&>(view->Model());
      if (button.Cancel()) {
        right.insert(right.begin(), view);
      } else if (button.Default()) {
        right.push_back(view);
      } else {
        left.push_back(view);
      }
    }
    for (ControlView* view : left) {
      row->Add(&view->Window(), wxSizerFlags().Border(wxRIGHT, parent_->FromDIP(kGap)));
    }
    row->AddStretchSpacer();
    for (ControlView* view : right) {
      row->Add(&view->Window(), wxSizerFlags().Border(wxLEFT, parent_->FromDIP(kGap)));
    }
    left.insert(left.end(), right.begin(), right.end());
    for (std::size_t i = 1; i < left.size(); ++i) {
      left[i]->Window().MoveAfterInTabOrder(&left[i - 1]->Window());
    }
    return row;
  }

  void SetMinimum(ControlView& view) {
    const forms::LayoutHint& hint = view.Model().Layout();
    wxWindow& window = view.Window();
    int width = hint.min_chars > 0 ? WidthOfChars(window, hint.min_chars) : -1;
    int height = hint.min_lines > 0 ? hint.min_lines * (window.GetCharHeight() + 4) : -1;
    auto* text = dynamic_cast<wxTextCtrl*>(&window);
    if (text && text->IsSingleLine()) height = NativeHeight(window);
    if (width > 0 || height > 0) window.SetMinSize(wxSize(width, height));
  }

  forms::Container& container_;
  wxWindow* parent_;
  const ViewMaker& make_view_;
  wxGridBagSizer* grid_;
  int row_ = 0;
  ControlView* pending_label_ = nullptr;
  wxBoxSizer* field_row_ = nullptr;
  std::vector<ControlView*> buttons_;
};

}  // namespace

wxSizer* BuildFlow(forms::Container& container, wxWindow* parent, const ViewMaker& make_view) {
  return FlowBuilder(container, parent, make_view).Build();
}

}  // namespace wx
