// SPDX-License-Identifier: MIT
#include "forms/control.h"

#include <algorithm>

#include "forms/form.h"

namespace forms {

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
  if (SameName(name, "Name")) return Variant(name_);
  if (SameName(name, "Tag")) return Variant(tag_);
  if (SameName(name, "Enabled")) return Variant(enabled_);
  if (SameName(name, "Visible")) return Variant(visible_);
  if (SameName(name, "Left")) return Variant(bounds_.left);
  if (SameName(name, "Top")) return Variant(bounds_.top);
  if (SameName(name, "Width")) return Variant(bounds_.width);
  if (SameName(name, "Height")) return Variant(bounds_.height);
  return std::nullopt;
}

bool Control::SetProperty(std::string_view name, const Variant& value) {
  Bounds bounds = bounds_;
  if (SameName(name, "Tag")) {
    SetTag(value.ToText());
  } else if (SameName(name, "Enabled")) {
    SetEnabled(value.ToBool());
  } else if (SameName(name, "Visible")) {
    SetVisible(value.ToBool());
  } else if (SameName(name, "Left")) {
    bounds.left = value.ToDouble();
  } else if (SameName(name, "Top")) {
    bounds.top = value.ToDouble();
  } else if (SameName(name, "Width")) {
    bounds.width = value.ToDouble();
  } else if (SameName(name, "Height")) {
    bounds.height = value.ToDouble();
  } else {
    return false;
  }
  SetBounds(bounds);
  return true;
}

PropertyObject* Control::SubObject(std::string_view name, const std::optional<Variant>& argument) {
  return SameName(name, "Font") && !argument ? &font_properties_ : nullptr;
}

std::optional<Variant> Control::FontProperties::GetProperty(std::string_view name) const {
  const Font& font = control_.GetFont();
  if (SameName(name, "Name")) return Variant(font.name);
  if (SameName(name, "Size")) return Variant(font.size);
  if (SameName(name, "Charset")) return Variant(font.charset);
  if (SameName(name, "Italic")) return Variant(font.italic);
  if (SameName(name, "Strikethrough")) return Variant(font.strikethrough);
  if (SameName(name, "Underline")) return Variant(font.underline);
  if (SameName(name, "Weight")) return Variant(font.weight);
  if (SameName(name, "Bold")) return Variant(font.bold());
  return std::nullopt;
}

bool Control::FontProperties::SetProperty(std::string_view name, const Variant& value) {
  Font font = control_.GetFont();
  if (SameName(name, "Name")) {
    font.name = value.ToText();
  } else if (SameName(name, "Size")) {
    double size = value.ToDouble();
    if (!(size >= 1 && size <= 2160)) return false;
    font.size = size;
  } else if (SameName(name, "Charset")) {
    font.charset = value.ToLong();
  } else if (SameName(name, "Italic")) {
    font.italic = value.ToBool();
  } else if (SameName(name, "Strikethrough")) {
    font.strikethrough = value.ToBool();
  } else if (SameName(name, "Underline")) {
    font.underline = value.ToBool();
  } else if (SameName(name, "Weight")) {
    font.weight = value.ToLong();
  } else if (SameName(name, "Bold")) {
    font.weight = value.ToBool() ? 700 : 400;
  } else {
    return false;
  }
  control_.SetFont(font);
  return true;
}

std::optional<Variant> CaptionedControl::GetProperty(std::string_view name) const {
  if (SameName(name, "Caption")) return Variant(caption_);
  return Control::GetProperty(name);
}

bool CaptionedControl::SetProperty(std::string_view name, const Variant& value) {
  if (!SameName(name, "Caption")) return Control::SetProperty(name, value);
  SetCaption(value.ToText());
  return true;
}

Container::~Container() {
  for (Control* control : controls_) control->container_ = nullptr;
}

Control* Container::FindControl(std::string_view name, std::optional<std::int32_t> index) {
  for (Control* control : controls_) {
    if (control->Index() == index && SameName(control->Name(), name)) return control;
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
