// SPDX-License-Identifier: MIT
// Column orders and splitters of the two grids.
#pragma once

#include <string>
#include <string_view>

#include "forms/fields.h"
#include "forms/grid.h"

namespace editor {

// Twips between a splitter and the border of the split left of it.
inline constexpr double kSplitterOffset = 30;

// The order in which a grid shows its columns is kept as text: a comma and a column number for
// every place from the leftmost on (",0,2,1"), columns numbered from 0 as they were designed.
//
// Reading takes the numbers as sort keys: part i is the key of column i-1; a number that is not
// below the column count leaves that column its own number. Columns are ranked by key inside
// their split and never leave it; writing gives the visible order. With at most two columns in a
// split every order is its own inverse, so what was written is what is read.
void ApplyColumnOrder(forms::Grid& grid, std::string_view text);
std::string ColumnOrder(const forms::Grid& grid);

// Shares the room that the columns leave over among those that fill.
void ShareWidth(forms::Grid& grid);

// A splitter and the grid whose first split it bounds, which follow each other. Both must outlive
// this object.
class SplitterDrag {
 public:
  SplitterDrag(forms::Splitter& splitter, forms::Grid& grid);
  SplitterDrag(const SplitterDrag&) = delete;
  SplitterDrag& operator=(const SplitterDrag&) = delete;

  // Puts the splitter behind split 0, below the top edge of the grid.
  void Place();

 private:
  void FollowColumns();
  double Border() const;
  void Drop();

  forms::Splitter& splitter_;
  forms::Grid& grid_;
  bool dragging_ = false;
  forms::Subscription columns_;
};

}  // namespace editor
