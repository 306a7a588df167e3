// SPDX-License-Identifier: MIT
#include "embedded/foreign_window.h"

#include "com/ole.h"

namespace embedded {

ForeignWindow::ForeignWindow(platform::WindowHandle window) {
  SetHWND(reinterpret_cast<WXHWND>(window));
  wxTopLevelWindows.Append(this);
  m_isEnabled = true;
}

ForeignWindow::~ForeignWindow() {
  SetHWND(nullptr);  // the base would destroy the window
}

bool ForeignWindow::IsShown() const { return ::IsWindowVisible(GetHWND()) != FALSE; }

bool ForeignWindow::Enable(bool enable) {
  if (enable == m_isEnabled) return false;
  m_isEnabled = enable;
  ::EnableWindow(GetHWND(), enable);
  return true;
}

}  // namespace embedded
