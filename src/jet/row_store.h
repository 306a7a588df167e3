// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

#include "jet/page.h"
#include "jet/pager.h"
#include "jet/row_reader.h"

namespace jet {

// Places rows, or records of long values, on the pages of one owner. Keeps the two maps of the
// owner: its pages, and those of them with free space. The second is a hint: a page leaves it when
// a row did not fit, and comes back when enough was removed.
class RowStore {
 public:
  struct Owner {
    std::uint32_t owner = 0;  // definition page of a table, or kLongValueOwner
    RowId owned_map;
    RowId free_map;
  };
  RowStore(Pager& pager, Owner owner) : pager_(pager), owner_(owner) {}

  // REQUIRES: row.size() <= kMaxRowSize, or kMostInSingle for a long value's record.
  RowId Add(std::span<const std::byte> row, std::uint16_t state);
  // Replaces a row that a RowReader found: in place if it fits, else it moves.
  void Replace(RowId id, const StoredRow& stored, std::span<const std::byte> row);
  // Removes a row, and what it refers to when it had moved.
  void Remove(RowId id, const StoredRow& stored);
  // Removes the record of a long value and its bytes at once.
  void RemoveRecord(RowId id);

 private:
  PageNumber PageFor(std::size_t size);
  PageNumber NewPage();
  bool ReplaceOnPage(RowId place, std::size_t old_size, std::span<const std::byte> row);
  void Discard(RowId id, bool squeeze);

  Pager& pager_;
  Owner owner_;
  PageNumber last_page_ = 0;  // where the last row went; 0 none
};

}  // namespace jet
