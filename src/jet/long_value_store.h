// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

#include "jet/long_value.h"
#include "jet/row_store.h"
#include "jet/table_definition.h"

namespace jet {

// Writes and removes the long values of one column.
class LongValueStore {
 public:
  LongValueStore(Pager& pager, const LongValueMaps& maps)
      : pager_(pager), store_(pager, {kLongValueOwner, maps.owned, maps.free}) {}

  // Stores the bytes of a value outside its row and writes the 12 bytes of the row's part.
  void Write(std::span<const std::byte> bytes, std::byte* head);
  // Removes what the row's part refers to.
  void Remove(Place place, std::span<const std::byte> stored);

 private:
  Pager& pager_;
  RowStore store_;
};

// Appends the row's part of a value that is short enough to stand in the row.
void AppendInline(std::span<const std::byte> bytes, std::vector<std::byte>& out);

}  // namespace jet
