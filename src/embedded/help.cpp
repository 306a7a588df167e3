// SPDX-License-Identifier: MIT
#include "embedded/help.h"

#include "com/ole.h"
#include "com/value.h"
#include "helpwindow/help_viewer.h"

namespace embedded {

namespace {

constexpr UINT kContext = 15;   // HH_HELP_CONTEXT
constexpr UINT kCloseAll = 18;  // HH_CLOSE_ALL

// The system's help viewer; null where it is not installed. It stays loaded: its windows live on
// a thread of its own.
using HtmlHelp = HWND(WINAPI*)(HWND, const char*, UINT, DWORD_PTR);
HtmlHelp FindHtmlHelp() {
  static const HMODULE kViewer = ::LoadLibraryW(L"hhctrl.ocx");
  if (!kViewer) return nullptr;
  return reinterpret_cast<HtmlHelp>(
      reinterpret_cast<void*>(::GetProcAddress(kViewer, "HtmlHelpA")));
}

// In the ANSI code page, as the viewer takes paths.
std::string AnsiPath(const std::string& path) {
  const std::wstring wide = com::Wide(path);
  std::string ansi(wide.size() * 2 + 1, '\0');
  const int length = ::WideCharToMultiByte(CP_ACP, 0, wide.c_str(), -1, ansi.data(),
                                           static_cast<int>(ansi.size()), nullptr, nullptr);
  ansi.resize(length > 0 ? static_cast<std::size_t>(length) - 1 : 0);
  return ansi;
}

}  // namespace

Help::Help(const texts::TextTable& texts) : texts_(texts) {}

Help::~Help() {
  if (file_shown_) FindHtmlHelp()(nullptr, nullptr, kCloseAll, 0);
}

bool Help::ShowFile(platform::WindowHandle owner, std::int32_t topic) {
  const std::wstring path = com::Wide(file_);
  if (path.empty() || ::GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return false;
  const HtmlHelp show = FindHtmlHelp();
  if (!show) return false;
  file_shown_ = true;
  return show(reinterpret_cast<HWND>(owner), AnsiPath(file_).c_str(), kContext,
              static_cast<DWORD_PTR>(topic)) != nullptr;
}

void Help::ShowTopic(platform::WindowHandle owner, std::int32_t topic) {
  if (ShowFile(owner, topic)) return;
  if (!own_) own_ = std::make_unique<helpwindow::HelpViewer>(texts_);
  own_->ShowTopic(0, topic);
}

}  // namespace embedded
