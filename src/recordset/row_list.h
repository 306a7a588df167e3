// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "jet/page.h"
#include "recordset/query_run.h"

namespace recordset {

// The rows that were found, by place, with rows taken out and added. Where a row is taken out a
// gap stays, to which the next one is joined: taking out row after row, forward or backward, costs
// no more than walking over them.
class RowList {
 public:
  RowList() = default;
  explicit RowList(RowIds rows) : width_(rows.width), ids_(std::move(rows.ids)) {
    gap_ = ids_.size();
    if (width_ == 1) {
      const auto end = std::is_sorted_until(ids_.begin(), ids_.end());
      stored_order_ = static_cast<std::size_t>(end - ids_.begin());
    }
  }

  std::size_t width() const { return width_; }
  std::size_t size() const { return (ids_.size() - gap_size_) / width_; }
  std::span<const jet::RowId> operator[](std::size_t place) const {
    const std::size_t at = place * width_;
    return std::span(ids_).subspan(at < gap_ ? at : at + gap_size_, width_);
  }

  // Place of a row; nothing when it is not among them.
  std::optional<std::size_t> Find(std::span<const jet::RowId> row) const {
    const std::size_t from = PlaceInOrder(row);
    if (from < stored_order_ && std::ranges::equal((*this)[from], row)) return from;
    for (std::size_t place = stored_order_; place < size(); ++place) {
      if (std::ranges::equal((*this)[place], row)) return place;
    }
    return std::nullopt;
  }
  // Where the row would stand among those in stored order.
  std::size_t PlaceInOrder(std::span<const jet::RowId> row) const {
    std::size_t low = 0, high = stored_order_;
    while (low < high) {
      const std::size_t middle = low + (high - low) / 2;
      if ((*this)[middle].front() < row.front()) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return low;
  }

  void Append(jet::RowId row) { ids_.push_back(row); }
  void Erase(std::size_t place) {
    MoveGap(place * width_);
    gap_size_ += width_;
    if (place < stored_order_) --stored_order_;
  }

 private:
  // Moves the rows between the gap and `to` to its other side.
  void MoveGap(std::size_t to) {
    const auto at = [this](std::size_t i) { return ids_.begin() + static_cast<std::ptrdiff_t>(i); };
    if (to < gap_) {
      std::move_backward(at(to), at(gap_), at(gap_ + gap_size_));
    } else {
      std::move(at(gap_ + gap_size_), at(to + gap_size_), at(gap_));
    }
    gap_ = to;
  }

  std::size_t width_ = 1;  // IDs of a row
  std::vector<jet::RowId> ids_;
  std::size_t gap_ = 0;           // where the IDs begin that do not count
  std::size_t gap_size_ = 0;      // how many
  std::size_t stored_order_ = 0;  // that many rows, of one table, are in rising order
};

}  // namespace recordset
