// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "exchange/contents.h"
#include "exchange/series.h"

namespace exchange {

// The texts of cells of one line, which go together number by number.
class SeriesColumns {
 public:
  SeriesColumns(std::initializer_list<std::string_view> cells) {
    for (const std::string_view cell : cells) Add(cell);
  }
  void Add(std::string_view cell) {
    cells_.push_back(cell);
    has_series_ = has_series_ || cell.find('{') != std::string_view::npos;
  }

  // The number of texts; 0 when the cells have series of several lengths.
  std::size_t Count() {
    if (!has_series_) return 1;
    std::size_t count = 1;
    for (const std::string_view cell : cells_) {
      const std::size_t size = series_.emplace_back(cell).size();
      if (size == 1) continue;
      if (count != 1 && size != count) return 0;
      count = size;
    }
    return count;
  }
  bool IsSeries(std::size_t column) const { return has_series_ && series_[column].size() > 1; }
  std::string_view At(std::size_t column, std::size_t index, Contents& keeper) const {
    if (!has_series_ || cells_[column].find('{') == std::string_view::npos) return cells_[column];
    return keeper.Keep(series_[column].At(series_[column].size() == 1 ? 0 : index));
  }

 private:
  std::vector<std::string_view> cells_;
  std::vector<Series> series_;  // as many as cells once they are counted
  bool has_series_ = false;
};

// Appends the aliases of a line, which may be a series of both; false when they have different
// lengths. Raises messages::Error for a series that is too long.
bool AppendAliases(std::string_view item, std::string_view alias, const Place& place,
                   Contents& contents);

}  // namespace exchange
