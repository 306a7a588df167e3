// SPDX-License-Identifier: MIT
#include "embedded/toolkit.h"

#include "com/ole.h"

namespace embedded {

Toolkit::Toolkit(std::shared_ptr<Runtime> runtime, const texts::TextTable& texts,
                 platform::WindowHandle studio)
    : wx::Toolkit(texts), runtime_(std::move(runtime)) {
  if (!::IsWindow(reinterpret_cast<HWND>(studio))) return;
  studio_ = new ForeignWindow(studio, [this] { SetMainWindow(nullptr); });
  SetMainWindow(studio_);
}

// The windows of forms that are loaded still are children of the studio's.
Toolkit::~Toolkit() {
  SetMainWindow(nullptr);
  if (!studio_) return;
  while (!studio_->GetChildren().empty()) studio_->RemoveChild(studio_->GetChildren().front());
  delete studio_;
}

wxWindow* Toolkit::OwnerOf(forms::Form* owner) {
  if (studio_ && studio_->IsActive()) return studio_;
  return wx::Toolkit::OwnerOf(owner);
}

platform::WindowHandle Toolkit::Handle(forms::Form& form) {
  const wxWindow* window = WindowOf(form);
  return window ? reinterpret_cast<platform::WindowHandle>(window->GetHWND()) : 0;
}

}  // namespace embedded
