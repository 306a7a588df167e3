// SPDX-License-Identifier: MIT
#pragma once

#include "platform/window_system.h"

namespace embedded {

// The system's windows, by their own handles. An operation on a handle that is no window does
// nothing.
class WindowSystem final : public platform::WindowSystem {
 public:
  std::string ModuleFileName() override;
  std::uint32_t WindowStyle(platform::WindowHandle window) override;
  void SetWindowStyle(platform::WindowHandle window, std::uint32_t style) override;
  // A popup's parent is its owner: it stays in front of it and keeps places of the screen.
  void SetParent(platform::WindowHandle window, platform::WindowHandle parent) override;
  std::intptr_t Hook(platform::WindowHandle window, MessageHook hook) override;
  // Where somebody else put a procedure in front of ours meanwhile, ours stays and does nothing.
  void Unhook(platform::WindowHandle window, std::intptr_t original) override;
  std::uint32_t RegisterMessage(std::string_view name) override;
  platform::Rectangle WindowRectangle(platform::WindowHandle window) override;
  void MoveWindow(platform::WindowHandle window, const platform::Rectangle& place) override;
};

}  // namespace embedded
