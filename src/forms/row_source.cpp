// SPDX-License-Identifier: MIT
#include "forms/row_source.h"

#include <algorithm>

namespace forms {

std::optional<std::size_t> RowSource::IndexOf(std::int64_t id) {
  constexpr std::size_t kBlock = 1024;
  for (std::size_t first = 0;; first += kBlock) {
    auto rows = Rows(first, kBlock);
    auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& r) { return r.id == id; });
    if (found != rows.end()) return first + static_cast<std::size_t>(found - rows.begin());
    if (rows.size() < kBlock) return std::nullopt;
  }
}

std::vector<Row> MemoryRows::Rows(std::size_t first, std::size_t count) {
  first = std::min(first, rows_.size());
  count = std::min(count, rows_.size() - first);
  auto begin = rows_.begin() + static_cast<std::ptrdiff_t>(first);
  return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

}  // namespace forms
