// SPDX-License-Identifier: MIT
#include "wx/window_system.h"

#include <wx/event.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <memory>

#include "wx/toolkit.h"

namespace wx {

namespace {

constexpr std::uint32_t kActivate = 6;
constexpr std::uint32_t kFirstRegistered = 0xC000;
constexpr std::intptr_t kOriginal = 1;

bool IsInside(const wxWindow* window, const wxWindow* area) {
  while (window && window != area) window = window->GetParent();
  return window != nullptr;
}

}  // namespace

// Follows whether a window has the user's attention. Popups of the window itself (menus,
// drop-downs) take no attention away: only another window of the program or of another one does.
class WindowSystem::Watch : public std::enable_shared_from_this<Watch> {
 public:
  Watch(wxWindow& window, MessageHook hook) : window_(&window), hook_(std::move(hook)) {
    top_ = wxGetTopLevelParent(&window);
    top_->Bind(wxEVT_ACTIVATE, &Watch::OnActivate, this);
    top_->Bind(wxEVT_CHILD_FOCUS, &Watch::OnFocus, this);
    top_->Bind(wxEVT_DESTROY, &Watch::OnDestroy, this);
  }
  ~Watch() { Unbind(); }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

 private:
  void OnActivate(wxActivateEvent& event) {
    event.Skip();
    wxWindow* focus = wxWindow::FindFocus();
    bool inside = window_ == top_ || (focus && IsInside(focus, window_));
    Tell(event.GetActive() && inside);
  }
  void OnFocus(wxChildFocusEvent& event) {
    event.Skip();
    Tell(IsInside(event.GetWindow(), window_));
  }
  void OnDestroy(wxWindowDestroyEvent& event) {
    event.Skip();
    if (event.GetEventObject() == top_) top_ = nullptr;
  }
  void Tell(bool active) {
    if (active == active_) return;
    active_ = active;
    auto keep = shared_from_this();  // the hook may unhook
    hook_(kActivate, active ? 1 : 0, 0);
  }
  void Unbind() {
    if (!top_) return;
    top_->Unbind(wxEVT_ACTIVATE, &Watch::OnActivate, this);
    top_->Unbind(wxEVT_CHILD_FOCUS, &Watch::OnFocus, this);
    top_->Unbind(wxEVT_DESTROY, &Watch::OnDestroy, this);
  }

  wxWindow* window_;
  wxWindow* top_ = nullptr;
  MessageHook hook_;
  bool active_ = false;
};

std::uint32_t WindowSystem::WindowStyle(platform::WindowHandle window) {
  auto found = styles_.find(window);
  return found == styles_.end() ? 0 : found->second;
}

void WindowSystem::SetWindowStyle(platform::WindowHandle window, std::uint32_t style) {
  if (WindowOfHandle(window)) styles_[window] = style;
}

void WindowSystem::SetParent(platform::WindowHandle window, platform::WindowHandle parent) {
  auto* top = dynamic_cast<wxTopLevelWindow*>(WindowOfHandle(window));
  wxWindow* owner = WindowOfHandle(parent);
  if (top && owner && top != owner) top->Reparent(wxGetTopLevelParent(owner));
}

std::intptr_t WindowSystem::Hook(platform::WindowHandle window, MessageHook hook) {
  wxWindow* native = WindowOfHandle(window);
  if (!native) return 0;
  watches_[window] = std::make_shared<Watch>(*native, std::move(hook));
  return kOriginal;
}

void WindowSystem::Unhook(platform::WindowHandle window, std::intptr_t original) {
  if (original == kOriginal) watches_.erase(window);
}

std::uint32_t WindowSystem::RegisterMessage(std::string_view name) {
  auto found = std::find(messages_.begin(), messages_.end(), name);
  if (found == messages_.end()) found = messages_.insert(messages_.end(), std::string(name));
  return kFirstRegistered + static_cast<std::uint32_t>(found - messages_.begin());
}

platform::Rectangle WindowSystem::WindowRectangle(platform::WindowHandle window) {
  wxWindow* native = WindowOfHandle(window);
  if (!native) return {};
  wxRect place = native->GetScreenRect();
  return {place.x, place.y, place.x + place.width, place.y + place.height};
}

void WindowSystem::MoveWindow(platform::WindowHandle window, const platform::Rectangle& place) {
  auto* top = dynamic_cast<wxTopLevelWindow*>(WindowOfHandle(window));
  if (!top) return;
  top->SetSize(place.left, place.top, place.right - place.left, place.bottom - place.top);
}

}  // namespace wx
