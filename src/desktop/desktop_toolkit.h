// SPDX-License-Identifier: MIT
#pragma once

#include "wx/toolkit.h"

namespace desktop {

// The toolkit of the workbench's window: the editor window fills a panel of it, every other form
// is a window of its own.
class DesktopToolkit final : public wx::Toolkit {
 public:
  using wx::Toolkit::Toolkit;

  void SetEditorHost(wxWindow* host) { host_ = host; }

  void Load(forms::Form& form) override {
    if (host_ && form.Name() == "frmtabgrid") Embed(form, host_);
    wx::Toolkit::Load(form);
  }

 private:
  wxWindow* host_ = nullptr;
};

}  // namespace desktop
