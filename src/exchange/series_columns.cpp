// SPDX-License-Identifier: MIT
#include "exchange/series_columns.h"

namespace exchange {

bool AppendAliases(std::string_view item, std::string_view alias, const Place& place,
                   Contents& contents) {
  SeriesColumns columns{item, alias};
  const std::size_t count = columns.Count();
  const bool together = alias.empty() || columns.IsSeries(0) == columns.IsSeries(1);
  if (count == 0 || !together) return false;
  for (std::size_t i = 0; i < count; ++i) {
    contents.aliases.push_back({columns.At(0, i, contents), columns.At(1, i, contents), place});
  }
  return true;
}

}  // namespace exchange
