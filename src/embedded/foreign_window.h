// SPDX-License-Identifier: MIT
#pragma once

#include <wx/toplevel.h>

#include <functional>
#include <memory>

#include "platform/studio.h"

namespace embedded {

// The studio's main window as owner of our windows and dialogs. It stays the studio's: its
// procedure is left alone. A dialog disables it like our own windows, and enables it before it goes
// itself, so that the studio comes forward again. A studio that destroys its window does not
// destroy ours with it: they are hidden, and nobody's from then on.
class ForeignWindow final : public wxTopLevelWindow {
 public:
  // One at a time. `on_gone` is called when the studio destroys the window.
  ForeignWindow(platform::WindowHandle window, std::function<void()> on_gone);
  ~ForeignWindow() override;

  bool IsShown() const override;
  bool IsActive() override;
  bool Enable(bool enable) override;
  bool Show(bool) override { return false; }
  bool Destroy() override { return false; }

 private:
  class Watch;
  void Lose();

  std::function<void()> on_gone_;
  std::unique_ptr<Watch> watch_;
};

}  // namespace embedded
