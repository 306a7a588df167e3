// SPDX-License-Identifier: MIT
#include "addin/embedding.h"

#include <string>
#include <string_view>
#include <utility>

#include "platform/error.h"
#include "platform/text.h"

namespace addin {

namespace {

constexpr std::string_view kModuleName = "OVFormulaEditor.dll";
constexpr std::uint32_t kPopupBorderSystemMenu = 0x80880000;
constexpr std::uint32_t kActivateMessage = 6;
constexpr std::intptr_t kActive = 1;
constexpr std::intptr_t kClickActive = 2;

}  // namespace

bool Embedding::IsCompiledModule() const {
  const std::string path = window_system_.ModuleFileName();
  if (path.size() < kModuleName.size()) return false;
  return platform::EqualsIgnoringCase(
      std::string_view(path).substr(path.size() - kModuleName.size()), kModuleName);
}

bool Embedding::Embed(platform::WindowHandle window, platform::AddIn& studio) try {
  window_system_.SetWindowStyle(window,
                                window_system_.WindowStyle(window) | kPopupBorderSystemMenu);
  window_system_.SetParent(window, studio.MainWindow());
  return true;
} catch (const platform::Error&) {
  return false;
}

void Embedding::Release(platform::WindowHandle window, bool embed_result) try {
  window_system_.SetParent(window, embed_result ? -1 : 0);
} catch (const platform::Error&) {
  // The window goes in any case.
}

void Embedding::Hook(platform::WindowHandle window, std::function<void(bool active)> activation) {
  original_procedure_ =
      window_system_.Hook(window, [activation = std::move(activation)](
                                      std::uint32_t message, std::intptr_t first, std::intptr_t) {
        if (message == kActivateMessage) activation(first == kActive || first == kClickActive);
      });
  editors_message_ = window_system_.RegisterMessage("OV_EDITORS");
}

void Embedding::Unhook(platform::WindowHandle window) {
  if (original_procedure_ == 0) return;
  window_system_.Unhook(window, std::exchange(original_procedure_, 0));
}

}  // namespace addin
