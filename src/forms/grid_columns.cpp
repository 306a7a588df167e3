// SPDX-License-Identifier: MIT
#include "forms/grid_columns.h"

namespace forms {

using platform::Variant;

namespace {

// Widths beyond a hundred inches and negative ones come from damaged settings.
bool FitsWidth(double width) { return width >= 0 && width <= 144000; }

}  // namespace

std::optional<Variant> Column::GetProperty(std::string_view name) const {
  if (SameName(name, "DataField")) return Variant(field_);
  if (SameName(name, "Caption")) return Variant(caption_);
  if (SameName(name, "Width")) return Variant(width_);
  if (SameName(name, "Order")) return Variant(order_);
  if (SameName(name, "AllowSizing")) return Variant(allow_sizing_);
  if (SameName(name, "Visible")) return Variant(visible_);
  if (SameName(name, "Locked")) return Variant(locked_);
  if (SameName(name, "Button")) return Variant(Button());
  return std::nullopt;
}

bool Column::SetProperty(std::string_view name, const Variant& value) {
  if (SameName(name, "Caption")) {
    SetCaption(value.ToText());
  } else if (SameName(name, "Width")) {
    if (!FitsWidth(value.ToDouble())) return false;
    SetWidth(value.ToDouble());
  } else if (SameName(name, "Order")) {
    SetOrder(value.ToLong());
  } else if (SameName(name, "AllowSizing")) {
    SetAllowSizing(value.ToBool());
  } else if (SameName(name, "Visible")) {
    SetVisible(value.ToBool());
  } else if (SameName(name, "Locked")) {
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
  if (SameName(name, "Width")) return Variant(width_);
  return std::nullopt;
}

bool Split::SetProperty(std::string_view name, const Variant& value) {
  if (!SameName(name, "Width") || !FitsWidth(value.ToDouble())) return false;
  SetWidth(value.ToDouble());
  return true;
}

PropertyObject* Split::SubObject(std::string_view name, const std::optional<Variant>& argument) {
  if (!SameName(name, "Columns") || !argument) return nullptr;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    auto field = argument->Get<std::string>();
    if (field ? SameName(columns_[i]->DataField(), *field)
              : argument->ToDouble() == static_cast<double>(i)) {
      return columns_[i].get();
    }
  }
  return nullptr;
}

}  // namespace forms
