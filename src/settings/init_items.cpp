// SPDX-License-Identifier: MIT
#include "settings/init_items.h"

#include "platform/text.h"

namespace settings {

CInitItems::CInitItems() = default;
CInitItems::~CInitItems() = default;

CInitItem* CInitItems::Item(std::string_view name) const {
  for (const auto& item : items_) {
    if (platform::EqualsIgnoringCase(item->Name(), name)) return item.get();
  }
  return nullptr;
}

CInitItem& CInitItems::Add(std::string_view name) {
  if (CInitItem* item = Item(name)) return *item;
  items_.push_back(std::make_unique<CInitItem>(name));
  return *items_.back();
}

bool CInitItems::Delete(std::string_view name) {
  CInitItem* item = Item(name);
  return std::erase_if(items_, [item](const auto& entry) { return entry.get() == item; }) > 0;
}

}  // namespace settings
