// SPDX-License-Identifier: MIT
// The outside of the editor window: layout, position on the screen, settings, closing.
#include <algorithm>

#include "editor/frmtabgrid.h"
#include "messages/text_number.h"
#include "platform/text.h"

namespace editor {

namespace {

// Least heights in twips; the toolkit may have given the native ones.
constexpr double kToolbarHeight = 450;
constexpr double kStatusBarHeight = 330;
constexpr double kFindHeight = 330;
constexpr double kFindLabelWidth = 1200;
constexpr double kFindLabelTop = 60;  // beside the text of the field
constexpr double kFoundWidth = 2400;
constexpr double kFindMargin = 60;

constexpr messages::TextNumber kSettingsNotWritten{1627};

}  // namespace

void frmtabgrid::abr_Resize(double width, double height) {
  const double toolbar = std::max(tbrfunc.Height(), kToolbarHeight);
  const double status = sb.Visible() ? std::max(sb.Height(), kStatusBarHeight) : 0;
  const double find = txtFind.Visible() ? kFindHeight + kFindMargin : 0;
  tbrfunc.SetBounds({0, 0, width, toolbar});
  const double label = toolbar + kFindLabelTop;
  lblFind.SetBounds({kFindMargin, label, kFindLabelWidth, kFindHeight});
  const double field = std::max(0.0, width - kFindLabelWidth - kFoundWidth - 3 * kFindMargin);
  txtFind.SetBounds({kFindMargin + kFindLabelWidth, toolbar, field, kFindHeight});
  lblFound.SetBounds({2 * kFindMargin + kFindLabelWidth + field, label, kFoundWidth, kFindHeight});
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
  const platform::WindowHandle handle = context_.services.toolkit.Handle(self);
  if (handle == 0 || GetWindowState() != forms::WindowState::kNormal) return position_;
  try {
    const platform::Rectangle window = context_.services.window_system.WindowRectangle(handle);
    const platform::Rectangle studio =
        context_.services.window_system.WindowRectangle(context_.host.HostWindow());
    return {window.left - studio.left, window.top - studio.top};
  } catch (const platform::Error&) {
    return position_;
  }
}

void frmtabgrid::MoveTo(const Position& position) {
  position_ = position;
  const platform::WindowHandle handle = context_.services.toolkit.Handle(*this);
  if (handle == 0 || GetWindowState() != forms::WindowState::kNormal) return;
  const platform::Rectangle window = context_.services.window_system.WindowRectangle(handle);
  const platform::Rectangle studio =
      context_.services.window_system.WindowRectangle(context_.host.HostWindow());
  const std::int32_t left = studio.left + position.left;
  const std::int32_t top = studio.top + position.top;
  context_.services.window_system.MoveWindow(
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

void frmtabgrid::OnQueryUnload(bool& cancel, forms::CloseReason reason) {
  if (reason == forms::CloseReason::kUser) {
    cancel = true;
    VerifyAdds(key_);
    ShowHostWindow();
  }
  SaveSettings();
  if (cancel) Hide();
}

// A host that fails keeps nothing else from being done.
void frmtabgrid::ShowHostWindow() try {
  platform::HostWindow* window = context_.services.host_window;
  if (!window) return;
  const std::string type = window->TypeName();
  if (type == "Window") window->SetVisible(true);
  if (type == "MDIEdit") window->Show();
} catch (const std::exception&) {
}

void frmtabgrid::SaveSettings() {
  if (!SettingIsOn("SaveOnExit")) return;
  inits.GetInitFromControl(*this, "tdbP");
  inits.WriteAValueToCInits("tdbPColOrders", ColumnOrder(tdbP));
  inits.GetInitFromControl(*this, "tdbA");
  inits.WriteAValueToCInits("tdbAColOrders", ColumnOrder(tdbA));
  inits.GetInitFromControl(*this, "Me");
  if (!inits.SaveInits()) {
    context_.studio->ShowWarnings(
        {{context_.texts.Text(kSettingsNotWritten, {{"<File>", context_.SettingsFile()}})}});
  }
}

}  // namespace editor
