// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "com/value.h"
#include "platform/ado.h"

namespace com {

// The bookmarks that objects gave, whatever they are there, by numbers from 1 on.
class AdoBookmarks {
 public:
  // The same number for the same row.
  platform::Bookmark Keep(Value given) {
    const platform::Variant value = given.ToVariant();
    for (std::size_t i = 0; i < kept_.size(); ++i) {
      if (kept_[i].ToVariant() == value) return {i + 1};
    }
    kept_.push_back(std::move(given));
    return {kept_.size()};
  }
  // Null for one that none of the objects gave.
  const Value* Find(platform::Bookmark bookmark) const {
    const bool known = bookmark.value >= 1 && bookmark.value <= kept_.size();
    return known ? &kept_[bookmark.value - 1] : nullptr;
  }

 private:
  std::vector<Value> kept_;
};

}  // namespace com
