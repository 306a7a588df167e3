// SPDX-License-Identifier: MIT
#include "embedded/foreign_window.h"

#include <utility>

#include "com/ole.h"
#include "embedded/runtime.h"

namespace embedded {

// Hears of the end of a window before the system destroys what it owns.
class ForeignWindow::Watch {
 public:
  explicit Watch(ForeignWindow& window)
      : hook_(::SetWindowsHookExW(WH_CBT, &Watch::OnEvent, nullptr, ::GetCurrentThreadId())) {
    watched_ = &window;
  }
  ~Watch() {
    ::UnhookWindowsHookEx(hook_);
    watched_ = nullptr;
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

 private:
  static LRESULT CALLBACK OnEvent(int code, WPARAM first, LPARAM second) {
    const bool ends =
        code == HCBT_DESTROYWND && watched_ && reinterpret_cast<HWND>(first) == watched_->GetHWND();
    if (ends) watched_->Lose();
    return ::CallNextHookEx(nullptr, code, first, second);
  }

  static inline ForeignWindow* watched_ = nullptr;
  HHOOK hook_;
};

ForeignWindow::ForeignWindow(platform::WindowHandle window, std::function<void()> on_gone)
    : on_gone_(std::move(on_gone)) {
  SetHWND(reinterpret_cast<WXHWND>(window));
  wxTopLevelWindows.Append(this);
  m_isEnabled = true;
  watch_ = std::make_unique<Watch>(*this);
}

ForeignWindow::~ForeignWindow() {
  SetHWND(nullptr);  // the base would destroy the window
}

void ForeignWindow::Lose() {
  SetHWND(nullptr);
  Runtime::CancelDialogs();
  for (wxWindow* window : GetChildren()) {
    ::SetWindowLongPtrW(window->GetHWND(), GWLP_HWNDPARENT, 0);
    window->Hide();
  }
  on_gone_();
}

bool ForeignWindow::IsShown() const { return GetHWND() && ::IsWindowVisible(GetHWND()) != FALSE; }

bool ForeignWindow::IsActive() { return GetHWND() && ::GetActiveWindow() == GetHWND(); }

bool ForeignWindow::Enable(bool enable) {
  if (enable == m_isEnabled) return false;
  m_isEnabled = enable;
  if (GetHWND()) ::EnableWindow(GetHWND(), enable);
  return true;
}

}  // namespace embedded
