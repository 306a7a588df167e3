// SPDX-License-Identifier: MIT
#include "forms/grid_columns.h"

#include "platform/text.h"

namespace forms {

using platform::EqualsIgnoringCase;
using platform::Variant;

namespace {

// Widths beyond a hundred inches and negative ones come from damaged settings.
bool FitsWidth(double width) { return width >= 0 && width <= 144000; }

}  // namespace

void Column::Resize(double width) {
  fills_ = false;
  extra_ = 0;
  width_ = width;
  changed_();
}

std::optional<Variant> Column::GetProperty(std::string_view name) const {
  if (EqualsIgnoringCase(name, "DataField")) return Variant(field_);
  if (EqualsIgnoringCase(name, "Caption")) return Variant(caption_);
  if (EqualsIgnoringCase(name, "Width")) return Variant(width_);
  if (EqualsIgnoringCase(name, "Order")) return Variant(order_);
  if (EqualsIgnoringCase(name, "AllowSizing")) return Variant(allow_sizing_);
  if (EqualsIgnoringCase(name, "Visible")) return Variant(visible_);
  if (EqualsIgnoringCase(name, "Locked")) return Variant(locked_);
  if (EqualsIgnoringCase(name, "Button")) return Variant(Button());
  return std::nullopt;
}

bool Column::SetProperty(std::string_view name, const Variant& value) {
  if (EqualsIgnoringCase(name, "Caption")) {
    SetCaption(value.ToText());
  } else if (EqualsIgnoringCase(name, "Width")) {
    if (!FitsWidth(value.ToDouble())) return false;
    SetWidth(value.ToDouble());
  } else if (EqualsIgnoringCase(name, "Order")) {
    SetOrder(value.ToLong());
  } else if (EqualsIgnoringCase(name, "AllowSizing")) {
    SetAllowSizing(value.ToBool());
  } else if (EqualsIgnoringCase(name, "Visible")) {
    SetVisible(value.ToBool());
  } else if (EqualsIgnoringCase(name, "Locked")) {
    SetLocked(value.ToBool());
  } else {
    return false;
  }
  return true;
}

void Split::SetWidth(double width) {
  if (width_ == width) return;
  width_ = width;
  changed_();
}

Column& Split::AddColumn(std::string_view field, double width) {
  columns_.push_back(std::make_unique<Column>(field, width, changed_));
  changed_();
  return *columns_.back();
}

std::optional<Variant> Split::GetProperty(std::string_view name) const {
  if (EqualsIgnoringCase(name, "Width")) return Variant(width_);
  return std::nullopt;
}

bool Split::SetProperty(std::string_view name, const Variant& value) {
  if (!EqualsIgnoringCase(name, "Width") || !FitsWidth(value.ToDouble())) return false;
  SetWidth(value.ToDouble());
  return true;
}

PropertyObject* Split::SubObject(std::string_view name, const std::optional<Variant>& argument) {
  if (!EqualsIgnoringCase(name, "Columns") || !argument) return nullptr;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    auto field = argument->Get<std::string>();
    if (field ? EqualsIgnoringCase(columns_[i]->DataField(), *field)
              : argument->ToDouble() == static_cast<double>(i)) {
      return columns_[i].get();
    }
  }
  return nullptr;
}

}  // namespace forms
