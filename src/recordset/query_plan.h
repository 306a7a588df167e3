// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "recordset/query.h"

namespace recordset {

// How one table of a query is read, once for each combination of rows of the tables before it.
struct PlanStep {
  std::size_t table = 0;
  // The index in which the rows are found; otherwise the table is scanned.
  std::optional<std::size_t> index;
  // Values of the leading columns of the index: constants, or columns of tables before.
  std::vector<Operand> key;
  // For a table that is scanned behind others: the equality with a table before by which its rows
  // are looked up after one scan; one of the tests. Null for none.
  const Condition* equality = nullptr;
  // What the rows found have to pass.
  std::vector<const Condition*> tests;
  // Whether anything looks at the columns of the rows, here, in a later step or for the order;
  // otherwise it is enough to know which rows there are.
  bool reads_row = false;
};

struct QueryPlan {
  std::vector<PlanStep> steps;
  bool no_rows = false;  // a condition can never hold
};

enum class IndexUse { kAllowed, kForbidden };

// Orders the tables of a query so that as few rows as possible are read: each step takes the table
// of which an index finds the fewest rows by what is known by then. Refers to the query.
QueryPlan MakePlan(const Query& query, IndexUse index_use = IndexUse::kAllowed);

}  // namespace recordset
