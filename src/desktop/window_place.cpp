// SPDX-License-Identifier: MIT
#include "desktop/window_place.h"

#include <wx/display.h>

#include <algorithm>

namespace desktop {

namespace {

constexpr int kTitleBar = 30;  // pixels that the window manager adds at the top
constexpr int kTitleMiddle = 10;

}  // namespace

wxSize LeastSize() { return wxWindow::FromDIP(wxSize(640, 420), nullptr); }

wxRect WindowPlace::OnScreen(const DesktopState::Place& place) {
  wxSize size = wxWindow::FromDIP(wxSize(place.width, place.height), nullptr);
  const wxPoint title(place.left + size.x / 2, place.top + kTitleMiddle);
  const int found = place.left < 0 ? wxNOT_FOUND : wxDisplay::GetFromPoint(title);
  const bool gone = found == wxNOT_FOUND;
  const wxRect screen = wxDisplay(gone ? 0u : static_cast<unsigned>(found)).GetClientArea();
  size.IncTo(LeastSize());
  size.DecTo(wxSize(screen.width, screen.height - kTitleBar));
  if (gone) return wxRect(size).CentreIn(screen);
  const wxPoint last(screen.GetRight() + 1 - size.x, screen.GetBottom() + 1 - kTitleBar - size.y);
  return {wxPoint(std::clamp(place.left, screen.x, std::max(screen.x, last.x)),
                  std::clamp(place.top, screen.y, std::max(screen.y, last.y))),
          size};
}

WindowPlace::WindowPlace(wxFrame& frame, DesktopState::Place& place, const wxRect& wanted)
    : frame_(frame), place_(place), wanted_(wanted) {
  frame_.Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    if (placed_ || !event.GetActive()) return;
    placed_ = true;
    frame_.CallAfter([this] {
      if (!frame_.IsMaximized()) frame_.Move(wanted_.GetPosition());
    });
  });
}

void WindowPlace::Settle() {
  arranged_ = placed_;
  if (arranged_ && settled_.IsEmpty() && !frame_.IsMaximized()) settled_ = frame_.GetRect();
}

void WindowPlace::Keep() {
  place_.maximised = frame_.IsMaximized();
  if (place_.maximised || frame_.IsIconized() || settled_.IsEmpty()) return;
  const wxRect now = frame_.GetRect();
  place_.left = wanted_.x + now.x - settled_.x;
  place_.top = wanted_.y + now.y - settled_.y;
  place_.width = frame_.ToDIP(wanted_.width + now.width - settled_.width);
  place_.height = frame_.ToDIP(wanted_.height + now.height - settled_.height);
}

}  // namespace desktop
