// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "jet/page.h"
#include "jet/table.h"
#include "recordset/query_plan.h"

namespace recordset {

// The rows of a query: for each row one row ID per table, in the order of the query's tables.
struct RowIds {
  std::size_t width = 1;
  std::vector<jet::RowId> ids;

  std::size_t size() const { return ids.size() / width; }
  std::span<const jet::RowId> operator[](std::size_t row) const {
    return std::span(ids).subspan(row * width, width);
  }
};

// Finds the rows in their final order: that of ORDER BY or of the index, otherwise and among
// equals the stored order of the tables as FROM names them, whatever the plan is.
RowIds FindRows(const Query& query, const QueryPlan& plan);

// The first row of FindRows, if that can be told without finding the others: nothing otherwise.
// An empty result means that there are no rows.
std::optional<RowIds> FindFirstRow(const Query& query);

}  // namespace recordset
