// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include "desktop/desktop_state.h"

namespace desktop {

// The least size of the main window.
wxSize LeastSize();

// Where the main window stands from one start to the next. Window managers choose places of their
// own and differ in whether borders count, so it is moved once it is on the screen, and of what
// the user did to it only the difference is kept.
class WindowPlace {
 public:
  // A place on a screen that is there and large enough for it; else in the middle.
  static wxRect OnScreen(const DesktopState::Place& place);

  // The frame was made at `wanted`. Both outlive this object.
  WindowPlace(wxFrame& frame, DesktopState::Place& place, const wxRect& wanted);

  // Called now and then while the window is shown: the window manager needs a while.
  void Settle();
  // Whether the window has settled.
  bool Arranged() const { return arranged_; }
  // Writes down where the window stands.
  void Keep();

 private:
  wxFrame& frame_;
  DesktopState::Place& place_;
  const wxRect wanted_;
  wxRect settled_;  // where that is in the window manager's eyes; empty as long as unknown
  bool placed_ = false, arranged_ = false;
};

}  // namespace desktop
