// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "desktop/crash_log.h"
#include "studio/window_texts.h"
#include "texts/text_table.h"
#include "wx/toolkit.h"

namespace desktop {

// The toolkit of the workbench's window: the editor window fills a panel of it, every other form
// is a window of its own. What is shown is remembered as a step for the crash log.
class DesktopToolkit final : public wx::Toolkit {
 public:
  explicit DesktopToolkit(const texts::TextTable& texts)
      : wx::Toolkit(texts, studio::kTextProduct) {}

  void SetEditorHost(wxWindow* host) { host_ = host; }

  void Load(forms::Form& form) override {
    if (host_ && form.Name() == "frmtabgrid") Embed(form, host_);
    wx::Toolkit::Load(form);
  }

  void ShowModal(forms::Form& form, forms::Form* owner) override {
    RememberStep("dialog " + std::string(form.Name()));
    wx::Toolkit::ShowModal(form, owner);
    RememberStep("end of dialog " + std::string(form.Name()));
  }

  platform::MessageResult Show(const platform::MessageBox& box) override {
    RememberStep("message");
    const platform::MessageResult result = wx::Toolkit::Show(box);
    RememberStep("answer " + std::to_string(static_cast<int>(result)));
    return result;
  }

  void PopupMenu(forms::Band& band) override {
    RememberStep("context menu");
    wx::Toolkit::PopupMenu(band);
  }

 private:
  wxWindow* host_ = nullptr;
};

}  // namespace desktop
