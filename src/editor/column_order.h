// SPDX-License-Identifier: MIT
// The order in which a grid shows its columns, as text: a comma and a column number for every
// place from the leftmost on (",0,2,1"). Columns are numbered from 0 as they were designed.
//
// Reading takes the numbers as sort keys: part i is the key of column i-1, a number that is not
// below the column count leaves that column its own number. Columns are ranked by key inside
// their split and never leave it. Writing gives the visible order. With at most two columns in a
// split every order is its own inverse, so what was written is what is read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace editor {

// Column numbers from left to right. `split_of_column` gives the split of each column; the
// columns of a lower split stand left of those of a higher one.
std::vector<int> ReadColumnOrder(std::string_view text, const std::vector<int>& split_of_column);

// Text of a visible order.
std::string WriteColumnOrder(const std::vector<int>& columns);

}  // namespace editor
