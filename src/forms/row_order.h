// SPDX-License-Identifier: MIT
// Rows in the order of one of their columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "forms/row_source.h"

namespace forms {

// By which column rows are ordered, and which way.
struct RowSort {
  std::size_t column = 0;
  bool descending = false;
  friend bool operator==(const RowSort&, const RowSort&) = default;
};

// Less than 0, 0 or more as `a` stands before, with or behind `b`, letter by letter; digits in a
// row count as one number, so that Tank2 stands before Tank10. Both are folded
// (platform::FoldCase).
int CompareNaturally(std::string_view a, std::string_view b);

// The positions of all rows of the source, sorted; equal rows keep the source's order. Letter case
// does not count; numbers and truth values are ordered as such, cells without a value stand first.
// `ids` becomes the IDs of the rows in the source's order.
std::vector<std::size_t> SortedRows(RowSource& source, const RowSort& sort,
                                    std::vector<std::int64_t>& ids);

}  // namespace forms
