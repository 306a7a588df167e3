// SPDX-License-Identifier: MIT
// Splits and columns of a grid. A column lies in one split for good; inside its split the columns
// are shown in the order of their order numbers.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/combo_box.h"
#include "forms/property.h"

namespace forms {

class Split;

enum class ColumnKind {
  kText,
  kNumber,    // shown at the right
  kCheckBox,  // the cell is a boolean
  kDropDown,  // text, chosen or typed ahead from the column's list
};

class Column : public PropertyObject {
 public:
  Column(std::string_view field, double width, std::function<void()> changed)
      : field_(field), caption_(field), width_(width), changed_(std::move(changed)) {}

  const std::string& DataField() const { return field_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view caption) { Change(caption_, std::string(caption)); }
  double Width() const { return width_; }  // twips
  void SetWidth(double width) { Change(width_, width); }
  // Whether the column may be shown wider than its width, where the grid has room.
  bool Fills() const { return fills_; }
  void SetFills(bool fills) { Change(fills_, fills); }
  // What it is shown wider, in twips. The settings do not see it.
  double Extra() const { return extra_; }
  void SetExtra(double extra) { Change(extra_, extra); }
  // The user chose the width: the column is shown like that from now on.
  void Resize(double width);
  // Sort key among the columns of the split; equal keys keep the order of creation.
  std::int32_t Order() const { return order_; }
  void SetOrder(std::int32_t order) { Change(order_, order); }
  bool AllowSizing() const { return allow_sizing_; }
  void SetAllowSizing(bool allow) { Change(allow_sizing_, allow); }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Change(visible_, visible); }
  bool Locked() const { return locked_; }  // shown, not edited
  void SetLocked(bool locked) { Change(locked_, locked); }
  // A button in the current row's cell, with the name of its picture; "" for none.
  const std::string& ButtonPicture() const { return button_picture_; }
  void SetButtonPicture(std::string_view name) { Change(button_picture_, std::string(name)); }
  bool Button() const { return !button_picture_.empty(); }
  ColumnKind Kind() const { return kind_; }
  void SetKind(ColumnKind kind) { Change(kind_, kind); }
  // The entries of a drop-down column.
  const std::shared_ptr<ListSource>& List() const { return list_; }
  void SetList(std::shared_ptr<ListSource> list) { Change(list_, std::move(list)); }

  // DataField (read only), Caption, Width, Order, AllowSizing, Visible, Locked, Button (read only).
  std::optional<platform::Variant> GetProperty(std::string_view name) const override;
  bool SetProperty(std::string_view name, const platform::Variant& value) override;

 private:
  template <class T>
  void Change(T& member, T value) {
    if (member == value) return;
    member = std::move(value);
    changed_();
  }

  std::string field_;
  std::string caption_;
  double width_;
  double extra_ = 0;
  bool fills_ = false;
  std::int32_t order_ = 0;
  bool allow_sizing_ = true;
  bool visible_ = true;
  bool locked_ = false;
  std::string button_picture_;
  ColumnKind kind_ = ColumnKind::kText;
  std::shared_ptr<ListSource> list_;
  std::function<void()> changed_;
};

class Split : public PropertyObject {
 public:
  Split(double width, std::function<void()> changed)
      : width_(width), changed_(std::move(changed)) {}

  double Width() const { return width_; }  // twips; 0 takes what is left
  void SetWidth(double width);

  // Widths are in twips.
  Column& AddColumn(std::string_view field, double width);
  const std::vector<std::unique_ptr<Column>>& Columns() const { return columns_; }

  // Width; Columns(field or index) is a sub-object.
  std::optional<platform::Variant> GetProperty(std::string_view name) const override;
  bool SetProperty(std::string_view name, const platform::Variant& value) override;
  PropertyObject* SubObject(std::string_view name,
                            const std::optional<platform::Variant>& argument) override;

 private:
  double width_;
  std::vector<std::unique_ptr<Column>> columns_;
  std::function<void()> changed_;
};

}  // namespace forms
