// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "platform/studio.h"
#include "platform/window_system.h"

namespace addin {

// Makes the editor window a popup owned by the studio's main window and listens to its activation.
class Embedding {
 public:
  explicit Embedding(platform::WindowSystem& window_system) : window_system_(window_system) {}

  // Whether the add-in runs as its compiled module; only then is the window's procedure hooked.
  bool IsCompiledModule() const;

  // True when the window is the studio's now. Errors are swallowed.
  bool Embed(platform::WindowHandle window, platform::AddIn& studio);
  // Gives the window the parent that Embed's result names, as the studio expects it before the
  // window goes.
  void Release(platform::WindowHandle window, bool embed_result);

  // Calls `activation` with true and false when the window is activated and deactivated.
  void Hook(platform::WindowHandle window, std::function<void(bool active)> activation);
  // Gives the original procedure back; does nothing when there is no hook.
  void Unhook(platform::WindowHandle window);

  // Number that the system gave the message "OV_EDITORS"; 0 while not hooked. The messages need
  // no action.
  std::uint32_t EditorsMessage() const { return editors_message_; }

 private:
  platform::WindowSystem& window_system_;
  std::intptr_t original_procedure_ = 0;
  std::uint32_t editors_message_ = 0;
};

}  // namespace addin
