// SPDX-License-Identifier: MIT
#include "recordset/query_run.h"

#include <algorithm>
#include <compare>
#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>

#include "recordset/value_comparison.h"

namespace recordset {
namespace {

using jet::RowId;
using jet::Value;

// Reads the tables step by step, each step once for every row of the steps before.
class Run {
 public:
  Run(const Query& query, const QueryPlan& plan)
      : query_(query),
        plan_(plan),
        rows_(std::make_unique<jet::RowBuffer[]>(query.tables().size())),
        cursors_(plan.steps.size()),
        lookups_(plan.steps.size()),
        current_(query.tables().size()) {
    found_.width = query.tables().size();
  }

  RowIds Find() {
    if (!plan_.no_rows) Step(0);
    if (query_.order().empty()) {
      SortStored();
    } else {
      SortByKeys();
    }
    return std::move(found_);
  }

 private:
  using Lookup = std::unordered_map<std::string, std::vector<RowId>>;

  std::span<const jet::RowBuffer> rows() const { return {rows_.get(), current_.size()}; }

  void Step(std::size_t depth) {
    if (depth == plan_.steps.size()) {
      Keep();
    } else if (plan_.steps[depth].index) {
      Search(depth);
    } else if (plan_.steps[depth].equality) {
      LookUp(depth);
    } else {
      Scan(depth, [&] { Pass(depth); });
    }
  }

  void Search(std::size_t depth) {
    const PlanStep& step = plan_.steps[depth];
    jet::Table& table = *query_.tables()[step.table];
    std::vector<Value> key;
    if (!MakeKey(step, key)) return;
    if (!cursors_[depth]) cursors_[depth].emplace(table.OpenCursor(*step.index));
    jet::IndexCursor& cursor = *cursors_[depth];
    const std::span<const std::size_t> needed = query_.needed().Of(step.table);
    for (bool more = cursor.Seek(key); more; more = cursor.NextEqual()) {
      current_[step.table] = cursor.row();
      if (!step.reads_row || table.Read(cursor.row(), needed, rows_[step.table])) Pass(depth);
    }
  }

  template <class Visit>
  void Scan(std::size_t depth, Visit visit) {
    const PlanStep& step = plan_.steps[depth];
    jet::RowBuffer& row = rows_[step.table];
    jet::Scan scan = query_.tables()[step.table]->OpenScan(
        step.reads_row ? query_.needed().Of(step.table) : std::span<const std::size_t>());
    while (scan.Next(row)) {
      current_[step.table] = row.id();
      visit();
    }
  }

  // Scans the table the first time and keeps its rows by the value that is looked up.
  void LookUp(std::size_t depth) {
    const PlanStep& step = plan_.steps[depth];
    const bool left_is_own = step.equality->left.column.table == step.table;
    const Operand& own = left_is_own ? step.equality->left : step.equality->right;
    const Operand& other = left_is_own ? step.equality->right : step.equality->left;
    std::optional<Lookup>& lookup = lookups_[depth];
    if (!lookup) {
      lookup.emplace();
      Scan(depth, [&] {
        const Value& value = rows_[step.table][own.slot];
        if (!value.is_null()) (*lookup)[EqualityKey(value)].push_back(current_[step.table]);
      });
    }
    const Value& value = rows_[other.column.table][other.slot];
    if (value.is_null()) return;
    const auto found = lookup->find(EqualityKey(value));
    if (found == lookup->end()) return;
    jet::Table& table = *query_.tables()[step.table];
    for (const RowId id : found->second) {
      current_[step.table] = id;
      if (table.Read(id, query_.needed().Of(step.table), rows_[step.table])) Pass(depth);
    }
  }

  static std::string EqualityKey(const Value& value) {
    std::vector<std::byte> key;
    AppendEqualityKey(value, key);
    return {reinterpret_cast<const char*>(key.data()), key.size()};
  }

  void Pass(std::size_t depth) {
    for (const Condition* test : plan_.steps[depth].tests) {
      if (Evaluate(*test, rows()) != Truth::kTrue) return;
    }
    Step(depth + 1);
  }

  // False when a value of the row before is Null or none that the column can hold.
  bool MakeKey(const PlanStep& step, std::vector<Value>& key) const {
    const jet::Table& table = *query_.tables()[step.table];
    const jet::Index& index = table.indexes()[*step.index];
    const jet::PhysicalIndex& physical = table.physical_indexes()[index.physical];
    for (std::size_t i = 0; i < step.key.size(); ++i) {
      const Operand& operand = step.key[i];
      if (operand.is_column) {
        const jet::ColumnType type = table.columns()[physical.columns[i].column].type;
        const auto value = AsColumnValue(type, rows_[operand.column.table][operand.slot]);
        if (!value) return false;
        key.push_back(*value);
      } else {
        key.push_back(operand.value);
      }
    }
    return true;
  }

  void Keep() {
    found_.ids.insert(found_.ids.end(), current_.begin(), current_.end());
    if (query_.order().empty()) return;
    std::vector<std::byte> key;
    for (const OrderColumn& column : query_.order()) {
      const jet::Table& table = *query_.tables()[column.source.table];
      AppendOrderKey(table.columns()[column.source.column].type, column.descending,
                     rows_[column.source.table][column.slot], key);
    }
    keys_.push_back(std::move(key));
  }

  void SortStored() {
    const std::size_t width = found_.width;
    auto less = [this](std::size_t a, std::size_t b) {
      return std::ranges::lexicographical_compare(found_[a], found_[b]);
    };
    if (width == 1) {
      if (!std::is_sorted(found_.ids.begin(), found_.ids.end())) {
        std::sort(found_.ids.begin(), found_.ids.end());
      }
      return;
    }
    Arrange(less);
  }

  void SortByKeys() {
    Arrange([this](std::size_t a, std::size_t b) {
      const auto order = std::lexicographical_compare_three_way(keys_[a].begin(), keys_[a].end(),
                                                                keys_[b].begin(), keys_[b].end());
      if (std::is_neq(order)) return std::is_lt(order);
      return std::ranges::lexicographical_compare(found_[a], found_[b]);
    });
  }

  template <class Less>
  void Arrange(Less less) {
    std::vector<std::size_t> places(found_.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    if (std::is_sorted(places.begin(), places.end(), less)) return;
    std::sort(places.begin(), places.end(), less);
    std::vector<RowId> arranged;
    arranged.reserve(found_.ids.size());
    for (std::size_t place : places) {
      arranged.insert(arranged.end(), found_[place].begin(), found_[place].end());
    }
    found_.ids = std::move(arranged);
  }

  const Query& query_;
  const QueryPlan& plan_;
  std::unique_ptr<jet::RowBuffer[]> rows_;  // current row of each table
  std::vector<std::optional<jet::IndexCursor>> cursors_;
  std::vector<std::optional<Lookup>> lookups_;
  std::vector<RowId> current_;
  RowIds found_;
  std::vector<std::vector<std::byte>> keys_;  // of the rows found, with ORDER BY
};

RowIds AllEntries(const Query& query) {
  RowIds found;
  found.ids = query.tables().front()->IndexedRows(*query.row_index());
  return found;
}

}  // namespace

RowIds FindRows(const Query& query, const QueryPlan& plan) {
  if (query.row_index() && query.IsWholeTable()) return AllEntries(query);
  return Run(query, plan).Find();
}

std::optional<RowIds> FindFirstRow(const Query& query) {
  if (!query.IsWholeTable()) return std::nullopt;
  RowIds first;
  jet::Table& table = *query.tables().front();
  if (query.row_index()) {
    jet::IndexCursor cursor = table.OpenCursor(*query.row_index());
    if (cursor.Next()) first.ids.push_back(cursor.row());
    return first;
  }
  if (!query.order().empty()) return std::nullopt;
  jet::RowBuffer row;
  jet::Scan scan = table.OpenScan(std::span<const std::size_t>());
  if (scan.Next(row)) first.ids.push_back(row.id());
  return first;
}

}  // namespace recordset
