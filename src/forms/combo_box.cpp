// SPDX-License-Identifier: MIT
#include "forms/combo_box.h"

#include "platform/text.h"

namespace forms {

using platform::EqualsIgnoringCase;
using platform::Variant;

std::optional<std::size_t> ListSource::FindData(std::int32_t data) {
  for (std::size_t i = 0; i < Count(); ++i) {
    if (Item(i).data == data) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> ListSource::FindPrefix(std::string_view prefix, std::size_t from) {
  for (std::size_t i = from; i < Count(); ++i) {
    if (EqualsIgnoringCase(std::string_view(Item(i).text).substr(0, prefix.size()), prefix))
      return i;
  }
  return std::nullopt;
}

void ComboBox::Clear() {
  items_.clear();
  source_.reset();
  list_index_ = -1;
  Notify(Property::kItems);
}

void ComboBox::AddItem(std::string_view text, std::int32_t data) {
  source_.reset();
  items_.push_back({std::string(text), data});
  Notify(Property::kItems);
}

void ComboBox::SetSource(std::shared_ptr<ListSource> source) {
  items_.clear();
  source_ = std::move(source);
  list_index_ = -1;
  Notify(Property::kItems);
}

std::int32_t ComboBox::ListCount() const {
  return static_cast<std::int32_t>(source_ ? source_->Count() : items_.size());
}

ListItem ComboBox::Item(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) return {};
  auto position = static_cast<std::size_t>(index);
  return source_ ? source_->Item(position) : items_[position];
}

std::string ComboBox::List(std::int32_t index) const { return Item(index).text; }

std::int32_t ComboBox::ItemData(std::int32_t index) const { return Item(index).data; }

std::int32_t ComboBox::FindData(std::int32_t data) const {
  if (source_) {
    auto found = source_->FindData(data);
    return found ? static_cast<std::int32_t>(*found) : -1;
  }
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (items_[i].data == data) return static_cast<std::int32_t>(i);
  }
  return -1;
}

std::int32_t ComboBox::FindText(std::string_view text) const {
  for (std::int32_t i = 0; i < ListCount(); ++i) {
    if (EqualsIgnoringCase(List(i), text)) return i;
  }
  return -1;
}

void ComboBox::SetListIndex(std::int32_t index) {
  if (index < 0 || index >= ListCount()) index = -1;
  if (Assign(list_index_, index, Property::kListIndex) && on_click) on_click();
}

std::string ComboBox::Text() const { return List(list_index_); }

std::optional<Variant> ComboBox::GetProperty(std::string_view name) const {
  if (EqualsIgnoringCase(name, "ListIndex")) return Variant(list_index_);
  if (EqualsIgnoringCase(name, "Text")) return Variant(Text());
  return Control::GetProperty(name);
}

bool ComboBox::SetProperty(std::string_view name, const Variant& value) {
  if (!EqualsIgnoringCase(name, "ListIndex")) return Control::SetProperty(name, value);
  SetListIndex(value.ToLong());
  return true;
}

}  // namespace forms
