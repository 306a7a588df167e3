// SPDX-License-Identifier: MIT
#include "tests/windows/studio/driver_windows.h"

#include <exception>
#include <stdexcept>
#include <thread>
#include <vector>

#include "com/value.h"

namespace studio_host {

namespace {

constexpr ULONGLONG kLongest = 15000;  // ms that an effect may take
constexpr DWORD kPoll = 20;

bool IsExtended(WORD key) {
  return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE ||
         key == VK_APPS;
}

void Send(std::vector<INPUT>& inputs) {
  for (INPUT& input : inputs) {
    Demand(SendInput(1, &input, sizeof input) == 1, "input is not accepted");
  }
}

void AddKey(std::vector<INPUT>& inputs, WORD key, bool up) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0u) | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0u);
  inputs.push_back(input);
}

void AddButton(std::vector<INPUT>& inputs, DWORD what) {
  INPUT input = {};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = what;
  inputs.push_back(input);
}

}  // namespace

Driver::Driver(Studio& studio)
    : studio_(studio), thread_(GetWindowThreadProcessId(studio.window(), nullptr)) {}

void Driver::Run(Studio& studio, const std::function<void(Driver&)>& user) {
  std::exception_ptr raised;
  std::thread thread([&] {
    try {
      Driver driver(studio);
      driver.AwaitTrue("the studio's window", [&] { return driver.Active() == studio.window(); });
      user(driver);
    } catch (...) {
      raised = std::current_exception();
    }
    PostMessageW(studio.window(), WM_CLOSE, 0, 0);
  });
  studio.Run();
  thread.join();
  if (raised) std::rethrow_exception(raised);
}

void Driver::Press(WORD key, unsigned modifiers) {
  std::vector<INPUT> inputs;
  if (modifiers & kShift) AddKey(inputs, VK_SHIFT, false);
  if (modifiers & kControl) AddKey(inputs, VK_CONTROL, false);
  if (modifiers & kAlt) AddKey(inputs, VK_MENU, false);
  AddKey(inputs, key, false);
  AddKey(inputs, key, true);
  if (modifiers & kAlt) AddKey(inputs, VK_MENU, true);
  if (modifiers & kControl) AddKey(inputs, VK_CONTROL, true);
  if (modifiers & kShift) AddKey(inputs, VK_SHIFT, true);
  Send(inputs);
  Settle();
}

void Driver::Press(std::initializer_list<WORD> keys) {
  for (const WORD key : keys) Press(key);
}

void Driver::Type(std::string_view text) {
  for (const char each : text) {
    const auto code = static_cast<WORD>(VkKeyScanW(static_cast<wchar_t>(each)));
    Press(code & 0xFF, code & 0x100 ? kShift : kNone);
  }
}

void Driver::ClickNode(const std::wstring& key, bool right) {
  POINT place = {};
  studio_.InThread([&] { place = studio_.object().PlaceOf(key); });
  SetCursorPos(place.x, place.y);
  Sleep(GetDoubleClickTime());  // it is no second click of the one before
  std::vector<INPUT> inputs;
  AddButton(inputs, right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
  AddButton(inputs, right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
  Send(inputs);
  Settle();
}

HWND Driver::Await(const std::wstring& title) {
  HWND active = nullptr;
  AwaitTrue("the window " + com::Utf8(title), [&] {
    active = Active();
    const std::wstring text = TextOf(active);
    return !title.empty() && (text.starts_with(title) || text.ends_with(title));
  });
  Settle();
  return active;
}

void Driver::AwaitGone(HWND window) {
  AwaitTrue("the end of " + com::Utf8(TextOf(window)), [&] { return !IsWindowVisible(window); });
  Settle();
}

void Driver::AwaitTrue(const std::string& what, const std::function<bool()>& is) {
  const ULONGLONG start = GetTickCount64();
  while (!is()) {
    if (GetTickCount64() - start > kLongest) {
      throw std::runtime_error("no " + what + "; active is " + Described(Active()) +
                               ", the keyboard is in " + com::Utf8(ClassOf(Focus())) + " '" +
                               com::Utf8(TextOf(Focus())) + "'");
    }
    Sleep(kPoll);
  }
}

std::wstring Driver::TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, 0);
  const auto length =
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(window ? static_cast<std::size_t>(length) : 0);
  return text;
}

std::wstring Driver::ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return name;
}

// Its title and the texts in it.
std::string Driver::Described(HWND window) {
  std::string texts = "'" + com::Utf8(TextOf(window)) + "'";
  EnumChildWindows(
      window,
      [](HWND child, LPARAM given) -> BOOL {
        const std::wstring text = IsWindowVisible(child) ? TextOf(child) : std::wstring();
        if (!text.empty()) *reinterpret_cast<std::string*>(given) += " [" + com::Utf8(text) + "]";
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&texts));
  return texts;
}

HWND Driver::Below(HWND window, const std::wstring& text) {
  struct Search {
    const std::wstring& text;
    HWND found = nullptr;
  } search{text};
  EnumChildWindows(
      window,
      [](HWND child, LPARAM given) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(given);
        if (!IsWindowVisible(child) || TextOf(child) != wanted.text) return TRUE;
        wanted.found = child;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// The effect of input may be a deferred task, which may leave another one.
void Driver::Settle() const {
  studio_.AwaitIdle();
  studio_.AwaitIdle();
}

GUITHREADINFO Driver::Look() const {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(thread_, &info);
  return info;
}

}  // namespace studio_host
