// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/window_system.h"

class wxWindow;

namespace wx {

// Windows of wxWidgets as the embedding sees them. Handles are those of HandleOf; an operation on
// a handle that is no window does nothing.
class WindowSystem : public platform::WindowSystem {
 public:
  // `module` is the path that counts as that of the running module.
  explicit WindowSystem(std::string module) : module_(std::move(module)) {}

  std::string ModuleFileName() override { return module_; }
  // Styles are kept, but have no effect of their own here.
  std::uint32_t WindowStyle(platform::WindowHandle window) override;
  void SetWindowStyle(platform::WindowHandle window, std::uint32_t style) override;
  // Makes a window of its own stay in front of the parent; an embedded one stays where it is.
  void SetParent(platform::WindowHandle window, platform::WindowHandle parent) override;
  // The hook sees activation (message 6; first parameter 1 activated, 2 by a click, 0 not). An
  // embedded window counts as activated while it holds the keyboard.
  std::intptr_t Hook(platform::WindowHandle window, MessageHook hook) override;
  void Unhook(platform::WindowHandle window, std::intptr_t original) override;
  std::uint32_t RegisterMessage(std::string_view name) override;
  platform::Rectangle WindowRectangle(platform::WindowHandle window) override;
  void MoveWindow(platform::WindowHandle window, const platform::Rectangle& place) override;

 private:
  class Watch;

  std::string module_;
  std::map<platform::WindowHandle, std::uint32_t> styles_;
  std::map<platform::WindowHandle, std::shared_ptr<Watch>> watches_;
  std::vector<std::string> messages_;
};

}  // namespace wx
