// SPDX-License-Identifier: MIT
#include "wx/form_window.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/textentry.h>

#include <algorithm>
#include <cassert>

#include "forms/combo_box.h"
#include "forms/fields.h"
#include "forms/menu_control.h"
#include "wx/application.h"
#include "wx/convert.h"
#include "wx/field_views.h"
#include "wx/flow_layout.h"
#include "wx/menu_view.h"
#include "wx/native.h"

namespace wx {

namespace {

using forms::Property;

constexpr int kDialogMargin = 12;

// Whether a rectangle hides another one wholly.
bool Covers(const forms::Bounds& front, const forms::Bounds& back) {
  return front.width > 0 && front.height > 0 && front.left <= back.left && front.top <= back.top &&
         front.left + front.width >= back.left + back.width &&
         front.top + front.height >= back.top + back.height;
}

// Forgets the sizes of all widgets: they depend on fonts and on the theme.
void InvalidateSizes(wxWindow& window) {
  for (wxWindow* child : window.GetChildren()) InvalidateSizes(*child);
  window.InvalidateBestSize();
}

}  // namespace

FormWindow::FormWindow(forms::Form& form, const texts::TextTable& texts, wxWindow* parent,
                       wxWindow* host)
    : form_(form), context_{texts, [this] { Relayout(); }} {
  CreateWindow(parent, host);
  CreateControls();
  BindEvents();
  built_ = true;
  ApplyPlace();
  Relayout();
}

FormWindow::~FormWindow() {
  subscriptions_.clear();
  menus_.reset();
  for (auto& view : views_) view->Detach();
  window_->SetEvtHandlerEnabled(false);
  window_->Hide();
  // Views may still be on the stack of one of their events: they go with the widgets.
  // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): without memory the program ends.
  auto* views = new std::vector<std::unique_ptr<ControlView>>(std::move(views_));
  wxWindow* window = window_;
  if (top_) {
    top_->Destroy();
  } else {
    wxTheApp->ScheduleForDestruction(window);
  }
  wxTheApp->CallAfter([views] { delete views; });
}

void FormWindow::CreateWindow(wxWindow* parent, wxWindow* host) {
  wxString title = ToWx(form_.Caption());
  if (host) {
    window_ = area_ = new wxPanel(host);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(window_, wxSizerFlags(1).Expand());
    host->SetSizer(sizer);
  } else if (form_.GetFormLayout() == forms::FormLayout::kFlow) {
    long style = wxDEFAULT_DIALOG_STYLE | (form_.Resizable() ? wxRESIZE_BORDER : 0);
    // In the middle of the whole window, not of one of its panes; in the studio that is not ours.
    wxWindow* whole = wxGetTopLevelParent(parent);
    window_ = area_ = top_ = dialog_ = new wxDialog(whole ? whole : parent, wxID_ANY, title,
                                                    wxDefaultPosition, wxDefaultSize, style);
  } else {
    window_ = top_ = new wxFrame(parent, wxID_ANY, title);
    area_ = new wxPanel(window_);
  }
  window_->SetName(ToWx(form_.Name()));
}

ControlView* FormWindow::Add(forms::Control& control, wxWindow* parent) {
  if (auto* menu = dynamic_cast<forms::MenuControl*>(&control)) {
    menus_ = std::make_unique<MenuBarView>(*menu);
    return nullptr;
  }
  auto view = MakeView(control, parent, context_);
  if (!view) return nullptr;
  views_.push_back(std::move(view));
  return views_.back().get();
}

void FormWindow::CreateControls() {
  if (form_.GetFormLayout() == forms::FormLayout::kFlow) {
    CreateFlow();
  } else {
    CreateFixed();
  }
  auto* frame = dynamic_cast<wxFrame*>(top_);
  if (frame && menus_) {
    auto* bar = new wxMenuBar;
    frame->SetMenuBar(bar);
    menus_->AppendTo(*bar, *frame);
  }
}

void FormWindow::CreateFlow() {
  auto* outer = new wxBoxSizer(wxVERTICAL);
  outer->Add(
      BuildFlow(form_, area_,
                [this](forms::Control& control, wxWindow* parent) { return Add(control, parent); }),
      wxSizerFlags(1).Expand().Border(wxALL, area_->FromDIP(kDialogMargin)));
  area_->SetSizer(outer);
  SetButtons();
}

void FormWindow::CreateFixed() {
  for (forms::Control* control : form_.Controls()) {
    Add(*control, area_);
    subscriptions_.push_back(control->Observe([this](Property property) {
      if (property == Property::kBounds || property == Property::kVisible) PlaceControls();
      if (property == Property::kZOrder) RaiseFront();
    }));
  }
}

void FormWindow::SetButtons() {
  if (!dialog_) return;
  for (auto& view : views_) {
    auto* button = dynamic_cast<forms::Button*>(&view->Model());
    if (!button) continue;
    auto* widget = dynamic_cast<wxButton*>(&view->Window());
    if (button->Default()) SetDefaultButton(*widget);
    if (button->Cancel()) dialog_->SetEscapeId(widget->GetId());
  }
}

void FormWindow::SetDefaultButton(wxButton& button) {
  button.SetDefault();
  for (auto& view : views_) {
    if (auto* choice = dynamic_cast<wxChoice*>(&view->Window())) PressByEnter(*choice, button);
  }
}

void FormWindow::BindEvents() {
  subscriptions_.push_back(form_.Observe([this](Property property) { OnProperty(property); }));
  window_->Bind(wxEVT_CHAR_HOOK, &FormWindow::OnKey, this);
  window_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    ResizeModel();
  });
  area_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    ResizeModel();
  });
  if (!top_) return;
  top_->Bind(wxEVT_MOVE, [this](wxMoveEvent& event) {
    event.Skip();
    RememberPlace();
  });
  top_->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    if (event.CanVeto()) event.Veto();  // the form decides, and is unloaded by its owner
    form_.Close(forms::CloseReason::kUser);
  });
  top_->Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    auto& handler = event.GetActive() ? form_.on_activate : form_.on_deactivate;
    if (handler) handler();
  });
}

void FormWindow::OnProperty(Property property) {
  if (property == Property::kCaption && top_) top_->SetTitle(ToWx(form_.Caption()));
  if (property == Property::kVisible && !form_.Visible()) {
    if (dialog_ && dialog_->IsModal()) {
      dialog_->EndModal(wxID_OK);
    } else if (top_) {
      top_->Hide();
    }
  }
  if (property == Property::kFont) Relayout();
  if (property == Property::kBounds || property == Property::kWindowState) ApplyPlace();
}

void FormWindow::OnKey(wxKeyEvent& event) {
  if (event.GetKeyCode() == WXK_F1 && form_.on_help) {
    form_.on_help();
  } else {
    event.Skip();
  }
}

ControlView* FormWindow::ViewOf(const forms::Control* control) const {
  auto found = std::find_if(views_.begin(), views_.end(),
                            [&](const auto& view) { return &view->Model() == control; });
  return found == views_.end() ? nullptr : found->get();
}

void FormWindow::PlaceControls() {
  if (form_.GetFormLayout() != forms::FormLayout::kFixed) return;
  for (auto& view : views_) {
    const forms::Bounds& bounds = view->Model().GetBounds();
    view->Window().SetSize(ToPixels(*area_, bounds.left), ToPixels(*area_, bounds.top),
                           std::max(0, ToPixels(*area_, bounds.width)),
                           std::max(0, ToPixels(*area_, bounds.height)));
  }
  RaiseFront();
}

// Native widgets do not overlap well: one that others cover wholly is hidden instead. One without
// a place yet is not in sight either.
void FormWindow::RaiseFront() {
  const auto& order = form_.ZOrder();
  for (auto back = order.begin(); back != order.end(); ++back) {
    ControlView* view = ViewOf(*back);
    if (!view) continue;
    const forms::Bounds& bounds = (*back)->GetBounds();
    const bool no_place = bounds.width <= 0 || bounds.height <= 0;
    bool covered = no_place || std::any_of(back + 1, order.end(), [&](const forms::Control* front) {
                     return front->Visible() && ViewOf(front) && Covers(front->GetBounds(), bounds);
                   });
    view->SetCovered(covered);
    if (!covered) RaiseControl(view->Window());
  }
}

void FormWindow::ResizeModel() {
  if (!built_) return;
  RememberPlace();
  wxSize size = area_->GetClientSize();
  form_.Resize(ToTwips(*area_, size.GetWidth()), ToTwips(*area_, size.GetHeight()));
}

void FormWindow::Relayout() {
  if (!built_) return;
  if (dialog_) {
    InvalidateSizes(*area_);
    wxSize least = area_->GetSizer()->ComputeFittingClientSize(dialog_);
    const forms::Bounds& minimum = form_.MinimumSize();
    least.IncTo(wxSize(ToPixels(*area_, minimum.width), ToPixels(*area_, minimum.height)));
    dialog_->SetMinClientSize(least);
    wxSize size = least;
    if (form_.Resizable() && dialog_->IsShown()) size.IncTo(dialog_->GetClientSize());
    if (size != dialog_->GetClientSize()) dialog_->SetClientSize(size);
  }
  area_->Layout();
}

// Keeps the model's bounds at the normal size, so that a maximised window comes back as it was.
void FormWindow::RememberPlace() {
  if (!built_ || placing_ || !top_ || !top_->IsShown()) return;
  placing_ = true;
  if (top_->IsIconized()) {
    form_.SetWindowState(forms::WindowState::kMinimized);
  } else if (top_->IsMaximized()) {
    form_.SetWindowState(forms::WindowState::kMaximized);
  } else {
    form_.SetWindowState(forms::WindowState::kNormal);
    wxRect place = top_->GetRect();
    form_.SetBounds({ToTwips(*top_, place.x), ToTwips(*top_, place.y), ToTwips(*top_, place.width),
                     ToTwips(*top_, place.height)});
  }
  placing_ = false;
}

void FormWindow::ApplyPlace() {
  if (!built_ || placing_ || !top_) return;
  placing_ = true;
  const forms::Bounds& bounds = form_.GetBounds();
  if (bounds.width > 0 && bounds.height > 0) {
    wxRect place(ToPixels(*top_, bounds.left), ToPixels(*top_, bounds.top),
                 ToPixels(*top_, bounds.width), ToPixels(*top_, bounds.height));
    wxRect screen = wxDisplay(top_).GetClientArea();
    place.SetWidth(std::min(place.GetWidth(), screen.GetWidth()));
    place.SetHeight(std::min(place.GetHeight(), screen.GetHeight()));
    if (wxDisplay::GetFromPoint(place.GetPosition()) == wxNOT_FOUND) {
      place.SetPosition(screen.GetPosition());
    }
    top_->SetSize(place);
  }
  top_->Maximize(form_.GetWindowState() == forms::WindowState::kMaximized);
  if (form_.GetWindowState() == forms::WindowState::kMinimized) {
    top_->Iconize();
  } else if (top_->IsIconized()) {
    top_->Restore();
  }
  placing_ = false;
}

wxWindow* FormWindow::FindFocusField(forms::Container& container) {
  for (forms::Control* control : container.Controls()) {
    assert(control);
    if (auto* nested = dynamic_cast<forms::Container*>(control)) {
      if (wxWindow* found = FindFocusField(*nested)) return found;
      continue;
    }
    ControlView* view = ViewOf(control);
    if (!view || !control->Enabled() || !control->Visible()) continue;
    if (view->FocusWindow().AcceptsFocus()) return &view->FocusWindow();
  }
  return nullptr;
}

void FormWindow::FocusFirstField() {
  wxWindow* field = FindFocusField(form_);
  if (!field) return;
  field->SetFocus();
  if (auto* text = dynamic_cast<wxTextEntry*>(field)) text->SelectAll();  // typing replaces it
}

void FormWindow::RunModal() {
  form_.SetVisible(true);
  if (!dialog_) {
    ShowModeless();
    return;
  }
  Relayout();
  dialog_->CentreOnParent();
  FocusFirstField();
  dialog_->CallAfter([this] { Relayout(); });  // the theme's sizes are known once it is shown
  dialog_->ShowModal();
}

void FormWindow::ShowModeless() {
  form_.SetVisible(true);
  ApplyPlace();
  window_->Show();
  window_->Raise();
  ResizeModel();
  PlaceControls();
}

}  // namespace wx
