// SPDX-License-Identifier: MIT
// A window system without windows: keeps styles, parents, places and hooks by handle.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/window_system.h"

namespace support {

class FakeWindowSystem : public platform::WindowSystem {
 public:
  struct Window {
    std::uint32_t style = 0;
    platform::WindowHandle parent = 0;
    platform::Rectangle place;
    MessageHook hook;
  };

  std::string module_file_name = "C:\\Studio\\OVFormulaEditor.dll";
  std::map<platform::WindowHandle, Window> windows;
  std::vector<std::string> registered_messages;
  int moves = 0;
  bool fails = false;  // what changes the style or parent of a window

  // A message on its way to the window; returns whether a hook saw it.
  bool Send(platform::WindowHandle window, std::uint32_t message, std::intptr_t first = 0,
            std::intptr_t second = 0) {
    MessageHook hook = windows[window].hook;
    if (hook) hook(message, first, second);
    return static_cast<bool>(hook);
  }

  std::string ModuleFileName() override { return module_file_name; }
  std::uint32_t WindowStyle(platform::WindowHandle window) override {
    return windows[window].style;
  }
  void SetWindowStyle(platform::WindowHandle window, std::uint32_t style) override {
    RequireWorking();
    windows[window].style = style;
  }
  void SetParent(platform::WindowHandle window, platform::WindowHandle parent) override {
    RequireWorking();
    windows[window].parent = parent;
  }
  std::intptr_t Hook(platform::WindowHandle window, MessageHook hook) override {
    windows[window].hook = std::move(hook);
    return 0x5000 + window;
  }
  void Unhook(platform::WindowHandle window, std::intptr_t original) override {
    if (original == 0x5000 + window) windows[window].hook = nullptr;
  }
  std::uint32_t RegisterMessage(std::string_view name) override {
    registered_messages.emplace_back(name);
    return 0xC000 + static_cast<std::uint32_t>(registered_messages.size());
  }
  platform::Rectangle WindowRectangle(platform::WindowHandle window) override {
    return windows[window].place;
  }
  void MoveWindow(platform::WindowHandle window, const platform::Rectangle& place) override {
    windows[window].place = place;
    ++moves;
  }

 private:
  void RequireWorking() const {
    if (fails)
      throw platform::Error(platform::ErrorKind::kInternal, 5,
                            messages::Message::Verbatim("window system"));
  }
};

}  // namespace support
