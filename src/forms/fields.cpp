// SPDX-License-Identifier: MIT
#include "forms/fields.h"

#include "platform/text.h"

namespace forms {

using platform::EqualsIgnoringCase;
using platform::Variant;

void TextBox::SetText(std::string_view text) {
  if (Assign(text_, std::string(text), Property::kText) && on_change) on_change();
}

std::optional<Variant> TextBox::GetProperty(std::string_view name) const {
  if (EqualsIgnoringCase(name, "Text")) return Variant(text_);
  return Control::GetProperty(name);
}

bool TextBox::SetProperty(std::string_view name, const Variant& value) {
  if (!EqualsIgnoringCase(name, "Text")) return Control::SetProperty(name, value);
  SetText(value.ToText());
  return true;
}

void CheckBox::SetChecked(bool checked) {
  if (Assign(checked_, checked, Property::kValue) && on_click) on_click();
}

std::optional<Variant> CheckBox::GetProperty(std::string_view name) const {
  if (EqualsIgnoringCase(name, "Value")) return Variant(checked_ ? 1 : 0);
  return CaptionedControl::GetProperty(name);
}

bool CheckBox::SetProperty(std::string_view name, const Variant& value) {
  if (!EqualsIgnoringCase(name, "Value")) return CaptionedControl::SetProperty(name, value);
  SetChecked(value.ToBool());
  return true;
}

void Button::Click() {
  if (Enabled() && on_click) on_click();
}

}  // namespace forms
