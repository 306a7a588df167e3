// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <vector>

#include "jet/schema.h"
#include "jet/value.h"

namespace jet {

// The key of a row in one index. Made anew for each row in the same memory.
struct IndexKey {
  std::vector<std::byte> bytes;
  bool any_null = false;
  bool all_null = false;

  // Whether the row has an entry: indexes may leave out rows whose columns are all Null.
  bool HasEntry(const PhysicalIndex& index) const { return !(index.ignore_nulls && all_null); }
  // Whether no other row may have the key. Rows whose columns are all Null are exempt.
  bool MustBeUnique(const PhysicalIndex& index) const { return index.unique && !all_null; }

  // Sets the key for the values of the index's columns, or of its leading ones, in the order of
  // the index. `columns` is the table's column list. Raises kInvalid, with the column and the
  // reason, for a value that has no key.
  // REQUIRES: values.size() <= index.columns.size().
  void Make(const PhysicalIndex& index, std::span<const Column> columns,
            std::span<const Value> values, const std::string& path);
};

}  // namespace jet
