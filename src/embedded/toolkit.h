// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "embedded/foreign_window.h"
#include "embedded/runtime.h"
#include "wx/toolkit.h"

namespace embedded {

// The toolkit in the studio's process: handles are the system's, the studio's window owns what has
// no other owner.
class Toolkit final : public wx::Toolkit {
 public:
  // The studio's window is 0 where there is none.
  Toolkit(std::shared_ptr<Runtime> runtime, const texts::TextTable& texts,
          platform::WindowHandle studio);
  ~Toolkit() override;

  platform::WindowHandle Handle(forms::Form& form) override;
  void CallLater(std::function<void()> task) override { runtime_->CallLater(std::move(task)); }

 protected:
  // What is opened from the studio's tree goes back to it.
  wxWindow* OwnerOf(forms::Form* owner) override;

 private:
  std::shared_ptr<Runtime> runtime_;
  ForeignWindow* studio_ = nullptr;
};

}  // namespace embedded
