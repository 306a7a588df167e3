// SPDX-License-Identifier: MIT
// The system's own input, by xdotool's words.
#include <map>
#include <sstream>
#include <string_view>

#include "files/windows_api.h"
#include "files/windows_path.h"
#include "tests/window/input.h"

namespace window_tests {

namespace {

constexpr DWORD kBetweenCommands = 100;  // milliseconds
constexpr DWORD kBetweenKeys = 12;

const std::map<std::string_view, WORD> kKeys = {
    {"ctrl", VK_CONTROL},   {"shift", VK_SHIFT},   {"alt", VK_MENU},    {"Up", VK_UP},
    {"Down", VK_DOWN},      {"Left", VK_LEFT},     {"Right", VK_RIGHT}, {"Home", VK_HOME},
    {"End", VK_END},        {"Prior", VK_PRIOR},   {"Next", VK_NEXT},   {"Tab", VK_TAB},
    {"Return", VK_RETURN},  {"Escape", VK_ESCAPE}, {"space", VK_SPACE}, {"Delete", VK_DELETE},
    {"BackSpace", VK_BACK}, {"Menu", VK_APPS},
};

void Send(INPUT input) {
  ::SendInput(1, &input, sizeof input);
  ::Sleep(kBetweenKeys);
}

void SendKey(WORD key, bool up) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  const bool extended = (key >= VK_PRIOR && key <= VK_DELETE) || key == VK_APPS;
  input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0) | (extended ? KEYEVENTF_EXTENDEDKEY : 0);
  Send(input);
}

WORD KeyOf(const std::string& name) {
  const auto found = kKeys.find(name);
  if (found != kKeys.end()) return found->second;
  if (name.size() > 1 && name[0] == 'F')
    return static_cast<WORD>(VK_F1 + std::stoi(name.substr(1)) - 1);
  return LOBYTE(::VkKeyScanW(static_cast<wchar_t>(name[0])));
}

// Keys that are held together, as "ctrl+shift+F3".
void SendChord(const std::string& chord) {
  std::vector<WORD> keys;
  std::istringstream names(chord);
  for (std::string name; std::getline(names, name, '+');) keys.push_back(KeyOf(name));
  for (const WORD key : keys) SendKey(key, false);
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) SendKey(*key, true);
}

void SendText(const std::string& text, DWORD delay) {
  for (const wchar_t c : files::os::WideText(text).value_or(L"")) {
    const SHORT keys = ::VkKeyScanW(c);
    const bool shift = (HIBYTE(keys) & 1) != 0;
    if (shift) SendKey(VK_SHIFT, false);
    SendKey(LOBYTE(keys), false);
    SendKey(LOBYTE(keys), true);
    if (shift) SendKey(VK_SHIFT, true);
    ::Sleep(delay);
  }
}

void SendButton(int button, bool up) {
  INPUT input = {};
  input.type = INPUT_MOUSE;
  if (button == 3) {
    input.mi.dwFlags = up ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_RIGHTDOWN;
  } else {
    input.mi.dwFlags = up ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_LEFTDOWN;
  }
  Send(input);
}

void Click(int button) {
  SendButton(button, false);
  SendButton(button, true);
}

// The shell's quotes around a text go.
std::string Unquoted(std::string text) {
  std::erase(text, '"');
  return text;
}

void Play(const std::string& command) {
  std::istringstream words(command);
  std::string verb, word;
  DWORD delay = kBetweenKeys;
  while (words >> word) {
    if (word == "--delay") {
      words >> delay;
    } else if (word == "key" || word == "type" || word == "sleep" || word == "click" ||
               word == "mousedown" || word == "mouseup" || word == "keydown" || word == "keyup") {
      verb = word;
      delay = kBetweenKeys;
    } else if (word == "mousemove") {
      int x = 0, y = 0;
      words >> x >> y;
      ::SetCursorPos(x, y);
    } else if (verb == "sleep") {
      ::Sleep(static_cast<DWORD>(1000 * std::stod(word)));
    } else if (verb == "click") {
      Click(std::stoi(word));
    } else if (verb == "mousedown" || verb == "mouseup") {
      SendButton(std::stoi(word), verb == "mouseup");
    } else if (verb == "keydown" || verb == "keyup") {
      SendKey(KeyOf(word), verb == "keyup");
    } else if (verb == "type") {
      std::string rest;
      std::getline(words, rest);
      SendText(Unquoted(word + rest), delay);
    } else {
      SendChord(word);
      ::Sleep(delay);
    }
  }
}

}  // namespace

int PlayInput(const std::vector<std::string>& commands) {
  for (const std::string& command : commands) {
    Play(command);
    ::Sleep(kBetweenCommands);
  }
  return 0;
}

}  // namespace window_tests
