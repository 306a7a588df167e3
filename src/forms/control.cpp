// SPDX-License-Identifier: MIT
#include "forms/control.h"

#include <algorithm>
#include <cmath>

#include "forms/form.h"
#include "platform/text.h"

namespace forms {

namespace {

// Lengths beyond a thousand inches come from damaged settings.
bool FitsLength(const platform::Variant& value) { return std::abs(value.ToDouble()) <= 1440000; }

}  // namespace

using platform::EqualsIgnoringCase;
using platform::Variant;

Control::Control(Container* container, std::string_view name, std::optional<std::int32_t> index)
    : container_(container), name_(name), index_(index) {
  if (!container_) return;
  container_->controls_.push_back(this);
  container_->z_order_.push_back(this);
  font_ = container_->GetFont();
}

Control::~Control() {
  if (!container_) return;
  std::erase(container_->controls_, this);
  std::erase(container_->z_order_, this);
}

Form* Control::GetForm() {
  Control* top = this;
  while (top->container_) top = top->container_;
  return dynamic_cast<Form*>(top);
}

const std::string& Control::ToolTip() const {
  return !enabled_ && !disabled_reason_.empty() ? disabled_reason_ : tool_tip_;
}

void Control::BringToFront() {
  if (!container_ || container_->z_order_.back() == this) return;
  std::erase(container_->z_order_, this);
  container_->z_order_.push_back(this);
  Notify(Property::kZOrder);
}

std::optional<Variant> Control::GetProperty(std::string_view name) const {
  if (EqualsIgnoringCase(name, "Name")) return Variant(name_);
  if (EqualsIgnoringCase(name, "Tag")) return Variant(tag_);
  if (EqualsIgnoringCase(name, "Enabled")) return Variant(enabled_);
  if (EqualsIgnoringCase(name, "Visible")) return Variant(visible_);
  if (EqualsIgnoringCase(name, "Left")) return Variant(bounds_.left);
  if (EqualsIgnoringCase(name, "Top")) return Variant(bounds_.top);
  if (EqualsIgnoringCase(name, "Width")) return Variant(bounds_.width);
  if (EqualsIgnoringCase(name, "Height")) return Variant(bounds_.height);
  return std::nullopt;
}

bool Control::SetProperty(std::string_view name, const Variant& value) {
  Bounds bounds = bounds_;
  if (EqualsIgnoringCase(name, "Tag")) {
    SetTag(value.ToText());
  } else if (EqualsIgnoringCase(name, "Enabled")) {
    SetEnabled(value.ToBool());
  } else if (EqualsIgnoringCase(name, "Visible")) {
    SetVisible(value.ToBool());
  } else if (EqualsIgnoringCase(name, "Left")) {
    if (!FitsLength(value)) return false;
    bounds.left = value.ToDouble();
  } else if (EqualsIgnoringCase(name, "Top")) {
    if (!FitsLength(value)) return false;
    bounds.top = value.ToDouble();
  } else if (EqualsIgnoringCase(name, "Width")) {
    if (!FitsLength(value)) return false;
    bounds.width = value.ToDouble();
  } else if (EqualsIgnoringCase(name, "Height")) {
    if (!FitsLength(value)) return false;
    bounds.height = value.ToDouble();
  } else {
    return false;
  }
  SetBounds(bounds);
  return true;
}

PropertyObject* Control::SubObject(std::string_view name, const std::optional<Variant>& argument) {
  return EqualsIgnoringCase(name, "Font") && !argument ? &font_properties_ : nullptr;
}

std::optional<Variant> Control::FontProperties::GetProperty(std::string_view name) const {
  const Font& font = control_.GetFont();
  if (EqualsIgnoringCase(name, "Name")) return Variant(font.name);
  if (EqualsIgnoringCase(name, "Size")) return Variant(font.size);
  if (EqualsIgnoringCase(name, "Charset")) return Variant(font.charset);
  if (EqualsIgnoringCase(name, "Italic")) return Variant(font.italic);
  if (EqualsIgnoringCase(name, "Strikethrough")) return Variant(font.strikethrough);
  if (EqualsIgnoringCase(name, "Underline")) return Variant(font.underline);
  if (EqualsIgnoringCase(name, "Weight")) return Variant(font.weight);
  if (EqualsIgnoringCase(name, "Bold")) return Variant(font.bold());
  return std::nullopt;
}

bool Control::FontProperties::SetProperty(std::string_view name, const Variant& value) {
  Font font = control_.GetFont();
  if (EqualsIgnoringCase(name, "Name")) {
    font.name = value.ToText();
  } else if (EqualsIgnoringCase(name, "Size")) {
    double size = value.ToDouble();
    if (!(size >= 1 && size <= 2160)) return false;
    font.size = size;
  } else if (EqualsIgnoringCase(name, "Charset")) {
    font.charset = value.ToLong();
  } else if (EqualsIgnoringCase(name, "Italic")) {
    font.italic = value.ToBool();
  } else if (EqualsIgnoringCase(name, "Strikethrough")) {
    font.strikethrough = value.ToBool();
  } else if (EqualsIgnoringCase(name, "Underline")) {
    font.underline = value.ToBool();
  } else if (EqualsIgnoringCase(name, "Weight")) {
    font.weight = value.ToLong();
  } else if (EqualsIgnoringCase(name, "Bold")) {
    font.weight = value.ToBool() ? 700 : 400;
  } else {
    return false;
  }
  control_.SetFont(font);
  return true;
}

std::optional<Variant> CaptionedControl::GetProperty(std::string_view name) const {
  if (EqualsIgnoringCase(name, "Caption")) return Variant(caption_);
  return Control::GetProperty(name);
}

bool CaptionedControl::SetProperty(std::string_view name, const Variant& value) {
  if (!EqualsIgnoringCase(name, "Caption")) return Control::SetProperty(name, value);
  SetCaption(value.ToText());
  return true;
}

Container::~Container() {
  for (Control* control : controls_) control->container_ = nullptr;
}

Control* Container::FindControl(std::string_view name, std::optional<std::int32_t> index) {
  for (Control* control : controls_) {
    if (control->Index() == index && EqualsIgnoringCase(control->Name(), name)) return control;
    if (auto* nested = dynamic_cast<Container*>(control)) {
      if (Control* found = nested->FindControl(name, index)) return found;
    }
  }
  return nullptr;
}

PropertyObject* Container::SubObject(std::string_view name,
                                     const std::optional<Variant>& argument) {
  if (PropertyObject* own = Control::SubObject(name, argument)) return own;
  return FindControl(name, argument ? std::optional(argument->ToLong()) : std::nullopt);
}

}  // namespace forms
