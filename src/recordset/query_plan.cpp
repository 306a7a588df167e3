// SPDX-License-Identifier: MIT
#include "recordset/query_plan.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "jet/key_encoder.h"
#include "recordset/value_comparison.h"

namespace recordset {
namespace {

constexpr double kRowsOfKey = 8;  // taken for the rows of one key of an index that is not unique

// What equals a column: a constant, or a column of a table that was read before.
struct Equality {
  const Condition* condition = nullptr;
  const Operand* other = nullptr;
};

struct Access {
  std::optional<std::size_t> index;
  std::vector<Equality> key;
  double rows = 0;  // estimated
};

class Planner {
 public:
  Planner(const Query& query, IndexUse index_use) : query_(query), index_use_(index_use) {}

  QueryPlan Plan();

 private:
  Access BestAccess(std::size_t table) const;
  Access IndexAccess(std::size_t table, std::size_t index, double rows) const;
  std::optional<Equality> FindEquality(TableColumn column) const;
  bool IsKnown(const Operand& operand, jet::ColumnType type) const;
  void Take(std::size_t table, const Access& access);
  void MarkRowsToRead();

  const Query& query_;
  IndexUse index_use_;
  std::uint32_t read_ = 0;                // tables of the steps so far
  std::vector<const Condition*> tested_;  // conditions that the steps so far see to
  QueryPlan plan_;
};

// Whether the condition is the equality of a column of the table and one of another table.
bool IsJoin(const Condition& condition, std::size_t table) {
  if (condition.kind != Condition::Kind::kCompare || condition.comparison != Comparison::kEqual) {
    return false;
  }
  const Operand &left = condition.left, &right = condition.right;
  return left.is_column && right.is_column &&
         (left.column.table == table) != (right.column.table == table);
}

// How many rows a constant finds is guessed better than what the rows of other tables find.
bool IsConstant(const std::vector<Equality>& key) {
  return !key.empty() &&
         std::ranges::none_of(key, [](const Equality& e) { return e.other->is_column; });
}

bool HasKey(jet::ColumnType type, const jet::Value& value) {
  std::vector<std::byte> key;
  return !jet::AppendKeyPart(type, jet::SortOrder::kAscending, value, key);
}

QueryPlan Planner::Plan() {
  const std::size_t count = query_.tables().size();
  while (plan_.steps.size() < count) {
    std::size_t best = count;
    Access best_access;
    for (std::size_t table = 0; table < count; ++table) {
      if (read_ & 1u << table) continue;
      Access access = BestAccess(table);
      const bool fewer = access.rows < best_access.rows;
      const bool surer =
          access.rows == best_access.rows && IsConstant(access.key) && !IsConstant(best_access.key);
      if (best == count || fewer || surer) {
        best = table;
        best_access = std::move(access);
      }
    }
    Take(best, best_access);
  }
  MarkRowsToRead();
  return std::move(plan_);
}

void Planner::MarkRowsToRead() {
  std::uint32_t looked_at = 0;
  for (const OrderColumn& column : query_.order()) looked_at |= 1u << column.source.table;
  for (const PlanStep& step : plan_.steps) {
    for (const Condition* test : step.tests) looked_at |= test->tables;
    for (const Operand& operand : step.key) {
      if (operand.is_column) looked_at |= 1u << operand.column.table;
    }
  }
  for (PlanStep& step : plan_.steps) step.reads_row = (looked_at & 1u << step.table) != 0;
}

Access Planner::BestAccess(std::size_t table) const {
  jet::Table& source = *query_.tables()[table];
  Access best;
  best.rows = std::max<double>(source.RowCount(), 1);
  if (index_use_ == IndexUse::kForbidden) return best;
  // The scan of a table without rows costs nothing either.
  const double rows = best.rows;
  for (std::size_t index = 0; index < source.indexes().size(); ++index) {
    Access access = IndexAccess(table, index, rows);
    if (!access.key.empty() && (access.rows < best.rows || !best.index)) best = std::move(access);
  }
  return best;
}

Access Planner::IndexAccess(std::size_t table, std::size_t index, double rows) const {
  const jet::Table& source = *query_.tables()[table];
  const jet::PhysicalIndex& physical = source.physical_indexes()[source.indexes()[index].physical];
  Access access;
  access.index = index;
  for (const jet::IndexColumn& column : physical.columns) {
    if (!CanSearch(source.columns()[column.column])) break;
    const auto equality = FindEquality({table, column.column});
    if (!equality) break;
    access.key.push_back(*equality);
  }
  const double known = static_cast<double>(access.key.size());
  const double all = static_cast<double>(physical.columns.size());
  if (known == all) {
    access.rows = physical.unique ? 1 : std::min(rows, kRowsOfKey);
  } else {
    access.rows = std::pow(rows, 1 - known / all);
  }
  return access;
}

std::optional<Equality> Planner::FindEquality(TableColumn column) const {
  const jet::ColumnType type = query_.tables()[column.table]->columns()[column.column].type;
  for (const Condition& condition : query_.conditions()) {
    if (condition.kind != Condition::Kind::kCompare || condition.comparison != Comparison::kEqual) {
      continue;
    }
    const Operand &left = condition.left, &right = condition.right;
    if (left.is_column && left.column == column && IsKnown(right, type)) {
      return Equality{&condition, &right};
    }
    if (right.is_column && right.column == column && IsKnown(left, type)) {
      return Equality{&condition, &left};
    }
  }
  return std::nullopt;
}

// A text with a character that the collation lacks has no key, so texts of rows, which are not
// known yet, are no key of an index.
bool Planner::IsKnown(const Operand& operand, jet::ColumnType type) const {
  const bool is_text = type == jet::ColumnType::kText;
  if (operand.is_column) return !is_text && (read_ & 1u << operand.column.table);
  return !is_text || operand.value.is_null() || HasKey(type, operand.value);
}

void Planner::Take(std::size_t table, const Access& access) {
  PlanStep step;
  step.table = table;
  step.index = access.index;
  const jet::Table& source = *query_.tables()[table];
  for (std::size_t i = 0; i < access.key.size(); ++i) {
    Operand operand = *access.key[i].other;
    if (!operand.is_column) {
      const jet::Index& index = source.indexes()[*access.index];
      const std::size_t column = source.physical_indexes()[index.physical].columns[i].column;
      const auto value = AsColumnValue(source.columns()[column].type, operand.value);
      if (value) {
        operand.value = *value;
      } else {
        plan_.no_rows = true;
      }
    }
    step.key.push_back(operand);
    tested_.push_back(access.key[i].condition);
  }
  read_ |= 1u << table;
  for (const Condition& condition : query_.conditions()) {
    if ((condition.tables & ~read_) != 0) continue;
    if (std::find(tested_.begin(), tested_.end(), &condition) != tested_.end()) continue;
    step.tests.push_back(&condition);
    tested_.push_back(&condition);
  }
  if (!step.index) {
    const auto found = std::ranges::find_if(
        step.tests, [&](const Condition* test) { return IsJoin(*test, table); });
    if (found != step.tests.end()) step.equality = *found;
  }
  plan_.steps.push_back(std::move(step));
}

}  // namespace

QueryPlan MakePlan(const Query& query, IndexUse index_use) {
  return Planner(query, index_use).Plan();
}

}  // namespace recordset
