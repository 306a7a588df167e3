// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "tests/windows/studio/studio_windows.h"

namespace studio_host {

// A user at the studio: mouse and keys as the system's input, from a thread of its own, each after
// what came before has had its effect. Raises std::runtime_error with what was waited for.
class Driver {
 public:
  // Serves the studio's messages until the user is done; raises what the user raised.
  static void Run(Studio& studio, const std::function<void(Driver&)>& user);

  // --- Input ---
  enum Modifier : unsigned { kNone = 0, kShift = 1, kControl = 2, kAlt = 4 };
  void Press(WORD key, unsigned modifiers = kNone);
  void Press(std::initializer_list<WORD> keys);
  // Letters, digits and signs of an English keyboard.
  void Type(std::string_view text);
  void ClickNode(const std::wstring& key, bool right = false);

  // --- What is on the screen ---
  // The window that is active, as soon as its title ends or begins with the text.
  HWND Await(const std::wstring& title);
  // A window that waited is gone, and the studio's messages are done.
  void AwaitGone(HWND window);
  void AwaitTrue(const std::string& what, const std::function<bool()>& is);
  HWND Active() const { return Look().hwndActive; }
  HWND Focus() const { return Look().hwndFocus; }
  bool HasMenuOpen() const { return (Look().flags & GUI_INMENUMODE) != 0; }
  static std::wstring TextOf(HWND window);
  static std::wstring ClassOf(HWND window);
  // The first visible window below with that text; null when there is none.
  static HWND Below(HWND window, const std::wstring& text);

  Studio& studio() { return studio_; }
  void Settle() const;

 private:
  explicit Driver(Studio& studio);
  GUITHREADINFO Look() const;
  static std::string Described(HWND window);

  Studio& studio_;
  DWORD thread_;  // the studio's
};

}  // namespace studio_host
