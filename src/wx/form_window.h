// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

#include <memory>
#include <vector>

#include "forms/form.h"
#include "wx/control_view.h"

class wxButton;
class wxDialog;
class wxMenuBar;
class wxTopLevelWindow;

namespace wx {

class MenuBarView;

// The native window of a form: a dialog for a form laid out by rows, a frame for one with fixed
// positions, or a panel of another window (the host) when the form is embedded.
class FormWindow {
 public:
  // `host` is the window that an embedded form fills; `parent` the owner of a window of its own.
  FormWindow(forms::Form& form, const texts::TextTable& texts, wxWindow* parent, wxWindow* host);
  // The widgets go when no event of theirs is being handled.
  ~FormWindow();
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  forms::Form& Model() const { return form_; }
  wxWindow& Window() const { return *window_; }
  // The menus of the form's menu control; null when the form has none.
  MenuBarView* Menus() const { return menus_.get(); }

  // Shows the form until it is hidden.
  void RunModal();
  void ShowModeless();

 private:
  void CreateWindow(wxWindow* parent, wxWindow* host);
  void CreateControls();
  void CreateFlow();
  void CreateFixed();
  ControlView* Add(forms::Control& control, wxWindow* parent);
  void BindEvents();
  void OnProperty(forms::Property property);
  void OnKey(wxKeyEvent& event);
  void PlaceControls();
  void RaiseFront();
  void ResizeModel();
  void Relayout();
  void SetButtons();
  void SetDefaultButton(wxButton& button);
  void FocusFirstField();
  void RememberPlace();
  void ApplyPlace();
  wxWindow* FindFocusField(forms::Container& container);
  ControlView* ViewOf(const forms::Control* control) const;

  forms::Form& form_;
  ViewContext context_;
  wxWindow* window_ = nullptr;  // dialog, frame or panel
  wxDialog* dialog_ = nullptr;
  wxTopLevelWindow* top_ = nullptr;  // dialog or frame; null when embedded
  wxWindow* area_ = nullptr;         // parent of the controls
  std::vector<std::unique_ptr<ControlView>> views_;
  std::unique_ptr<MenuBarView> menus_;
  std::vector<forms::Subscription> subscriptions_;
  bool built_ = false;
  bool placing_ = false;
};

}  // namespace wx
