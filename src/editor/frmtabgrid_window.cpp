// SPDX-License-Identifier: MIT
// The outside of the editor window: layout, position on the screen, settings, closing.
#include <algorithm>

#include "editor/frmtabgrid.h"
#include "platform/text.h"

namespace editor {

namespace {

// Least heights in twips; the toolkit may have given the native ones.
constexpr double kToolbarHeight = 450;
constexpr double kStatusBarHeight = 330;
constexpr double kFindHeight = 330;
constexpr double kFindLabelWidth = 1200;
constexpr double kFindMargin = 60;

constexpr std::int32_t kSettingsNotWritten = 1627;

}  // namespace

void frmtabgrid::abr_Resize(double width, double height) {
  const double toolbar = std::max(tbrfunc.Height(), kToolbarHeight);
  const double status = sb.Visible() ? std::max(sb.Height(), kStatusBarHeight) : 0;
  const double find = txtFind.Visible() ? kFindHeight + kFindMargin : 0;
  tbrfunc.SetBounds({0, 0, width, toolbar});
  lblFind.SetBounds({kFindMargin, toolbar, kFindLabelWidth, kFindHeight});
  txtFind.SetBounds({kFindMargin + kFindLabelWidth, toolbar,
                     std::max(0.0, width - kFindLabelWidth - 2 * kFindMargin), kFindHeight});
  sb.SetBounds({0, height - status, width, status});
  const double top = toolbar + find;
  const forms::Bounds grids{0, top, width, std::max(0.0, height - top - status)};
  tdbP.SetBounds(grids);
  tdbA.SetBounds(grids);
}

void frmtabgrid::ApplyChangedSettings() { abr_Resize(ClientWidth(), ClientHeight()); }

// --- Position ---

frmtabgrid::Position frmtabgrid::CurrentPosition() const {
  auto& self = const_cast<frmtabgrid&>(*this);
  const platform::WindowHandle handle = services_.toolkit.Handle(self);
  if (handle == 0 || GetWindowState() != forms::WindowState::kNormal) return position_;
  try {
    const platform::Rectangle window = services_.window_system.WindowRectangle(handle);
    const platform::Rectangle studio = services_.window_system.WindowRectangle(host_.HostWindow());
    return {window.left - studio.left, window.top - studio.top};
  } catch (const platform::Error&) {
    return position_;
  }
}

void frmtabgrid::MoveTo(const Position& position) {
  position_ = position;
  const platform::WindowHandle handle = services_.toolkit.Handle(*this);
  if (handle == 0 || GetWindowState() != forms::WindowState::kNormal) return;
  const platform::Rectangle window = services_.window_system.WindowRectangle(handle);
  const platform::Rectangle studio = services_.window_system.WindowRectangle(host_.HostWindow());
  const std::int32_t left = studio.left + position.left;
  const std::int32_t top = studio.top + position.top;
  services_.window_system.MoveWindow(
      handle, {left, top, left + window.right - window.left, top + window.bottom - window.top});
}

std::int32_t frmtabgrid::PosLeft() const { return CurrentPosition().left; }
std::int32_t frmtabgrid::PosTop() const { return CurrentPosition().top; }

void frmtabgrid::SetPosLeft(std::int32_t pixels) { MoveTo({pixels, CurrentPosition().top}); }
void frmtabgrid::SetPosTop(std::int32_t pixels) { MoveTo({CurrentPosition().left, pixels}); }

void frmtabgrid::ApplyPosition() { MoveTo(position_); }

std::optional<platform::Variant> frmtabgrid::GetProperty(std::string_view name) const {
  if (platform::EqualsIgnoringCase(name, "PosLeft")) return platform::Variant(PosLeft());
  if (platform::EqualsIgnoringCase(name, "PosTop")) return platform::Variant(PosTop());
  return Form::GetProperty(name);
}

bool frmtabgrid::SetProperty(std::string_view name, const platform::Variant& value) {
  if (platform::EqualsIgnoringCase(name, "PosLeft")) {
    SetPosLeft(value.ToLong());
  } else if (platform::EqualsIgnoringCase(name, "PosTop")) {
    SetPosTop(value.ToLong());
  } else {
    return Form::SetProperty(name, value);
  }
  return true;
}

// --- Settings and closing ---

std::string frmtabgrid::SettingsFile() const {
  const std::string& path = project_.database_path;
  // A path from the root has no other separator; elsewhere both kinds are met.
  const std::size_t end = path.find_last_of(path.starts_with('/') ? "/" : "\\/");
  const std::string folder = end == std::string::npos ? std::string() : path.substr(0, end + 1);
  return folder + std::string(settings::kSettingsFile);
}

bool frmtabgrid::SettingIsOn(std::string_view key) const {
  const platform::Variant value = inits.ReadAValueFromCInits(key);
  const bool* on = value.Get<bool>();
  return value.IsEmpty() || (on && *on);
}

void frmtabgrid::OnQueryUnload(bool& cancel, forms::CloseReason reason) {
  if (reason == forms::CloseReason::kUser) {
    cancel = true;
    VerifyAdds(key_);
    if (platform::HostWindow* window = services_.host_window) {
      const std::string type = window->TypeName();
      if (type == "Window") window->SetVisible(true);
      if (type == "MDIEdit") window->Show();
    }
  }
  SaveSettings();
  if (cancel) Hide();
}

void frmtabgrid::SaveSettings() {
  if (!SettingIsOn("SaveOnExit")) return;
  inits.GetInitFromControl(*this, "tdbP");
  inits.WriteAValueToCInits("tdbPColOrders", ColumnOrder(tdbP));
  inits.GetInitFromControl(*this, "tdbA");
  inits.WriteAValueToCInits("tdbAColOrders", ColumnOrder(tdbA));
  inits.GetInitFromControl(*this, "Me");
  if (!inits.SaveInits()) {
    studio_->ShowWarnings({texts_.Text(kSettingsNotWritten, {{"<File>", SettingsFile()}})});
  }
}

}  // namespace editor
