// SPDX-License-Identifier: MIT
#include "wx/control_view.h"

#include "wx/convert.h"
#include "wx/native.h"

namespace wx {

namespace {

void DisableHandlers(wxWindow& window) {
  window.SetEvtHandlerEnabled(false);
  for (wxWindow* child : window.GetChildren()) DisableHandlers(*child);
}

}  // namespace

void ControlView::Attach(wxWindow* window, std::function<void()> relayout) {
  window_ = window;
  relayout_ = std::move(relayout);
  window->SetName(ToWx(control_.Name()));
  for (auto property : {forms::Property::kFont, forms::Property::kEnabled,
                        forms::Property::kVisible, forms::Property::kToolTip}) {
    ControlView::Show(property);
  }
  subscription_ = control_.Observe([this](forms::Property property) { Show(property); });
}

void ControlView::Detach() {
  subscription_ = forms::Subscription();
  DisableHandlers(*window_);
}

void ControlView::SetCovered(bool covered) {
  covered_ = covered;
  window_->Show(control_.Visible() && !covered_);
}

void ControlView::ShowToolTip() {
  if (control_.ToolTip().empty()) {
    window_->UnsetToolTip();
  } else {
    window_->SetToolTip(ToWx(control_.ToolTip()));
  }
}

void ControlView::Show(forms::Property property) {
  switch (property) {
    case forms::Property::kEnabled:
      window_->Enable(control_.Enabled());
      ShowToolTip();  // a disabled control says why
      break;
    case forms::Property::kVisible:
      window_->Show(control_.Visible() && !covered_);
      if (relayout_) relayout_();
      break;
    case forms::Property::kFont:
      window_->SetFont(ToWx(control_.GetFont()));
      if (relayout_) relayout_();
      break;
    case forms::Property::kInvalid:
      MarkInvalid(FocusWindow(), control_.Invalid());
      break;
    case forms::Property::kToolTip:
      ShowToolTip();
      break;
    case forms::Property::kFocus:
      // A window that is not shown would take the keyboard along out of sight.
      if (wxGetTopLevelParent(window_)->IsShown()) FocusWindow().SetFocus();
      break;
    default:
      break;
  }
}

}  // namespace wx
