// SPDX-License-Identifier: MIT
// What the embedding of the editor window asks of the window system.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/studio.h"

namespace platform {

// Edges in pixels of the screen.
struct Rectangle {
  std::int32_t left = 0, top = 0, right = 0, bottom = 0;
};

class WindowSystem {
 public:
  // Sees a message before the window's own procedure does; its result is not asked for: every
  // message is passed on.
  using MessageHook =
      std::function<void(std::uint32_t message, std::intptr_t first, std::intptr_t second)>;

  virtual ~WindowSystem() = default;
  virtual std::string ModuleFileName() = 0;  // path of the running module
  virtual std::uint32_t WindowStyle(WindowHandle window) = 0;
  virtual void SetWindowStyle(WindowHandle window, std::uint32_t style) = 0;
  virtual void SetParent(WindowHandle window, WindowHandle parent) = 0;
  // Puts the hook in front of the window's procedure; returns the original procedure.
  virtual std::intptr_t Hook(WindowHandle window, MessageHook hook) = 0;
  virtual void Unhook(WindowHandle window, std::intptr_t original) = 0;
  virtual std::uint32_t RegisterMessage(std::string_view name) = 0;
  virtual Rectangle WindowRectangle(WindowHandle window) = 0;
  virtual void MoveWindow(WindowHandle window, const Rectangle& place) = 0;
};

}  // namespace platform
