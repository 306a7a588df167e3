// SPDX-License-Identifier: MIT
#include "embedded/window_system.h"

#include <map>
#include <utility>

#include "com/module.h"
#include "com/ole.h"
#include "com/registration.h"
#include "com/value.h"

namespace embedded {

namespace {

struct Hooked {
  WNDPROC original;
  platform::WindowSystem::MessageHook hook;  // empty once it is unhooked
  com::AliveInModule alive;                  // the procedure is part of this module
};

std::map<HWND, Hooked>& HookedWindows() {
  static std::map<HWND, Hooked> windows;
  return windows;
}

HWND WindowOf(platform::WindowHandle handle) {
  auto* window = reinterpret_cast<HWND>(handle);
  return ::IsWindow(window) ? window : nullptr;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  const auto hooked = HookedWindows().find(window);
  if (hooked == HookedWindows().end()) return ::DefWindowProcW(window, message, first, second);
  const WNDPROC original = hooked->second.original;
  const platform::WindowSystem::MessageHook hook = hooked->second.hook;  // it may unhook
  if (message == WM_NCDESTROY) HookedWindows().erase(hooked);
  if (hook) {
    try {
      hook(message, static_cast<std::intptr_t>(first & 0xFFFF), second);
    } catch (const std::exception&) {
      // The message goes its way.
    }
  }
  return ::CallWindowProcW(original, window, message, first, second);
}

}  // namespace

std::string WindowSystem::ModuleFileName() { return com::Utf8(com::ModulePath()); }

std::uint32_t WindowSystem::WindowStyle(platform::WindowHandle handle) {
  const HWND window = WindowOf(handle);
  return window ? static_cast<std::uint32_t>(::GetWindowLongPtrW(window, GWL_STYLE)) : 0;
}

void WindowSystem::SetWindowStyle(platform::WindowHandle handle, std::uint32_t style) {
  const HWND window = WindowOf(handle);
  if (!window) return;
  ::SetWindowLongPtrW(window, GWL_STYLE, static_cast<LONG_PTR>(style));
  ::SetWindowPos(window, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void WindowSystem::SetParent(platform::WindowHandle handle, platform::WindowHandle parent) {
  const HWND window = WindowOf(handle);
  const HWND owner = WindowOf(parent);
  if (!window || !owner) return;
  if (WindowStyle(handle) & WS_POPUP) {
    ::SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
  } else {
    ::SetParent(window, owner);
  }
}

std::intptr_t WindowSystem::Hook(platform::WindowHandle handle, MessageHook hook) {
  const HWND window = WindowOf(handle);
  if (!window) return 0;
  const auto known = HookedWindows().find(window);
  if (known != HookedWindows().end()) {
    known->second.hook = std::move(hook);
    return reinterpret_cast<std::intptr_t>(known->second.original);
  }
  const LONG_PTR original = ::GetWindowLongPtrW(window, GWLP_WNDPROC);
  HookedWindows().emplace(window, Hooked{reinterpret_cast<WNDPROC>(original), std::move(hook), {}});
  ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
  return original;
}

void WindowSystem::Unhook(platform::WindowHandle handle, std::intptr_t original) {
  const HWND window = WindowOf(handle);
  const auto known = HookedWindows().find(window);
  if (known == HookedWindows().end()) return;
  if (::GetWindowLongPtrW(window, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(&Procedure)) {
    known->second.hook = nullptr;
    return;
  }
  ::SetWindowLongPtrW(window, GWLP_WNDPROC, original);
  HookedWindows().erase(known);
}

std::uint32_t WindowSystem::RegisterMessage(std::string_view name) {
  return ::RegisterWindowMessageW(com::Wide(name).c_str());
}

platform::Rectangle WindowSystem::WindowRectangle(platform::WindowHandle handle) {
  RECT place = {};
  const HWND window = WindowOf(handle);
  if (window) ::GetWindowRect(window, &place);
  return {static_cast<std::int32_t>(place.left), static_cast<std::int32_t>(place.top),
          static_cast<std::int32_t>(place.right), static_cast<std::int32_t>(place.bottom)};
}

void WindowSystem::MoveWindow(platform::WindowHandle handle, const platform::Rectangle& place) {
  const HWND window = WindowOf(handle);
  if (!window) return;
  ::MoveWindow(window, place.left, place.top, place.right - place.left, place.bottom - place.top,
               TRUE);
}

}  // namespace embedded
