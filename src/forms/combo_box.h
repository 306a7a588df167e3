// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace forms {

struct ListItem {
  std::string text;
  std::int32_t data = 0;
};

// Delivers the entries of a list that is too long to be copied into a control.
class ListSource {
 public:
  virtual ~ListSource() = default;
  virtual std::size_t Count() = 0;
  virtual ListItem Item(std::size_t index) = 0;
  // First entry with the item data. The default looks at every entry.
  virtual std::optional<std::size_t> FindData(std::int32_t data);
  // First entry at or after `from` whose text begins with the prefix; letter case
  // does not count. The default looks at every entry.
  virtual std::optional<std::size_t> FindPrefix(std::string_view prefix, std::size_t from = 0);
};

// A drop-down list: the user chooses an entry, but cannot type one. Entries carry item data. They
// are either added one by one or delivered by a source.
class ComboBox : public Control {
 public:
  using Control::Control;

  void Clear();
  void AddItem(std::string_view text, std::int32_t data = 0);
  // Replaces the entries; the source is asked again after each SetSource only.
  void SetSource(std::shared_ptr<ListSource> source);
  // The source, or null when entries were added one by one.
  const std::shared_ptr<ListSource>& Source() const { return source_; }

  std::int32_t ListCount() const;
  // Text and item data of an entry; index 0 to ListCount() - 1.
  std::string List(std::int32_t index) const;
  std::int32_t ItemData(std::int32_t index) const;
  // Index of the entry with the item data or text, -1 when there is none.
  std::int32_t FindData(std::int32_t data) const;
  std::int32_t FindText(std::string_view text) const;

  // The chosen entry, -1 for none. Setting another one raises on_click; an index that is out of
  // range chooses none.
  std::int32_t ListIndex() const { return list_index_; }
  void SetListIndex(std::int32_t index);
  // Text of the chosen entry, empty for none.
  std::string Text() const;

  std::optional<platform::Variant> GetProperty(std::string_view name) const override;
  bool SetProperty(std::string_view name, const platform::Variant& value) override;

  std::function<void()> on_click;

 private:
  ListItem Item(std::int32_t index) const;

  std::vector<ListItem> items_;
  std::shared_ptr<ListSource> source_;
  std::int32_t list_index_ = -1;
};

}  // namespace forms
