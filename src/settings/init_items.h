// SPDX-License-Identifier: MIT
// The tree of named values. Names compare without regard to case and keep their first spelling.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/variant.h"

namespace settings {

class CInitItem;

// An ordered collection of items, each under its name.
class CInitItems {
 public:
  CInitItems();
  ~CInitItems();
  CInitItems(const CInitItems&) = delete;
  CInitItems& operator=(const CInitItems&) = delete;

  // The item of that name, which is appended when there is none.
  CInitItem& Add(std::string_view name);
  // False when there is no item of that name.
  bool Delete(std::string_view name);
  // Null when there is no item of that name.
  CInitItem* Item(std::string_view name) const;
  std::size_t Count() const { return items_.size(); }
  void Clear() { items_.clear(); }
  // Enumerates the items in the order of adding.
  const std::vector<std::unique_ptr<CInitItem>>& NewEnum() const { return items_; }

 private:
  std::vector<std::unique_ptr<CInitItem>> items_;
};

// One component of a key. An item without children is a setting and holds its value.
class CInitItem {
 public:
  explicit CInitItem(std::string_view name) : name_(name) {}

  const std::string& Name() const { return name_; }
  const platform::Variant& Value() const { return value_; }
  void SetValue(const platform::Variant& value) { value_ = value; }
  CInitItems& Children() { return children_; }
  const CInitItems& Children() const { return children_; }

 private:
  std::string name_;
  platform::Variant value_;
  CInitItems children_;
};

}  // namespace settings
