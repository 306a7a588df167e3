// SPDX-License-Identifier: MIT
#pragma once

#include <wx/toplevel.h>

#include "platform/studio.h"

namespace embedded {

// The studio's main window as owner of our windows and dialogs. It stays the studio's: its
// procedure is left alone, and it outlives this object. A dialog disables it like our own windows,
// and enables it before it goes itself, so that the studio comes forward again.
class ForeignWindow final : public wxTopLevelWindow {
 public:
  explicit ForeignWindow(platform::WindowHandle window);
  ~ForeignWindow() override;

  bool IsShown() const override;
  bool Enable(bool enable) override;
  bool Show(bool) override { return false; }
  bool Destroy() override { return false; }
};

}  // namespace embedded
