// SPDX-License-Identifier: MIT
// Native widgets for control models. A view binds one widget and one model both ways and holds
// no rule: what the user does goes to the model, what the model tells is shown.
#pragma once

#include <wx/window.h>

#include <functional>
#include <memory>

#include "forms/control.h"

namespace texts {
class TextTable;
}

namespace wx {

// What views need of the window they are in.
struct ViewContext {
  const texts::TextTable& texts;
  // The room that a control needs changed.
  std::function<void()> relayout;
};

class ControlView {
 public:
  explicit ControlView(forms::Control& control) : control_(control) {}
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  forms::Control& Model() const { return control_; }
  wxWindow& Window() const { return *window_; }
  // The widget that takes the keyboard.
  virtual wxWindow& FocusWindow() const { return *window_; }
  // Stops listening to the model and to the user. The widget may live on for a while.
  virtual void Detach();
  // Shows or hides the widget although the model is visible, because another control covers it.
  virtual void SetCovered(bool covered);

 protected:
  // Takes over the widget, which its parent owns, and shows the common properties.
  void Attach(wxWindow* window, std::function<void()> relayout = {});
  // Shows a property that changed; views call it first for what they do not show themselves.
  virtual void Show(forms::Property property);

  bool Covered() const { return covered_; }

 private:
  void ShowToolTip();

  forms::Control& control_;
  wxWindow* window_ = nullptr;
  bool covered_ = false;
  std::function<void()> relayout_;
  forms::Subscription subscription_;
};

// The view of a control, whose widget becomes a child of `parent`; null for a control that is not
// shown as a widget (menus).
std::unique_ptr<ControlView> MakeView(forms::Control& control, wxWindow* parent,
                                      const ViewContext& context);

}  // namespace wx
