// SPDX-License-Identifier: MIT
#include "history/row_changes.h"

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "jet/row_buffer.h"
#include "jet/table.h"

namespace history {
namespace {

constexpr const char* kIdColumn = "ID";

std::optional<std::int32_t> Number(const jet::Value& value) {
  if (value.kind() != jet::ValueKind::kInteger) return std::nullopt;
  return static_cast<std::int32_t>(value.integer());
}

// The rows' numbers, by which the history knows them.
class Numbers {
 public:
  // Nothing for a row without one, and for one that is gone.
  std::optional<std::int32_t> Of(const jet::LoggedRow& logged) {
    const auto column = ColumnOf(*logged.table);
    if (!column) return std::nullopt;
    if (logged.before) return Number((*logged.before)[*column]);
    if (!logged.table->Read(logged.id, {{*column}}, row_)) return std::nullopt;
    return Number(row_[0]);
  }

 private:
  std::optional<std::size_t> ColumnOf(const jet::Table& table) {
    const auto [known, is_new] = columns_.try_emplace(&table);
    if (is_new) known->second = table.FindColumn(kIdColumn);
    return known->second;
  }

  std::map<const jet::Table*, std::optional<std::size_t>> columns_;
  jet::RowBuffer row_;
};

template <class Values>
Row ImageOf(const jet::Table& table, const Values& values) {
  Row row;
  const std::vector<jet::Column>& columns = table.columns();
  row.reserve(columns.size());
  for (std::size_t i = 0; i < columns.size() && i < values.size(); ++i) {
    row.emplace_back(columns[i].name, ToCell(values[i]));
  }
  return row;
}

}  // namespace

RowChanges::RowChanges(const jet::RowLog& log) : log_(log) { FindRows(); }

// What is added and deleted again is known by what the deletion found, so the log is gone through
// from its end: another row may stand in its place by now.
void RowChanges::FindRows() {
  using jet::RowEdit;
  Numbers numbers;
  rows_.reserve(log_.size());
  std::map<std::pair<const jet::Table*, jet::RowId>, std::int32_t> deleted;
  for (std::size_t i = log_.size(); i-- > 0;) {
    const jet::LoggedRow logged = log_[i];
    const std::pair<const jet::Table*, jet::RowId> place(logged.table, logged.id);
    std::optional<std::int32_t> id;
    const auto gone = logged.edit == RowEdit::kAdded ? deleted.find(place) : deleted.end();
    if (gone != deleted.end()) {
      id = gone->second;
      deleted.erase(gone);
    } else {
      id = numbers.Of(logged);
    }
    if (!id) continue;
    if (logged.edit == RowEdit::kDeleted) deleted.emplace(place, *id);
    const auto entry = static_cast<std::uint32_t>(i);
    rows_.push_back({*id, entry, entry});
  }
  const auto table = [this](const Ends& row) { return log_.TableOf(row.first); };
  std::ranges::sort(rows_, {},
                    [&](const Ends& row) { return std::tuple(table(row), row.id, row.first); });
  std::size_t count = 0;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const bool is_same = count > 0 && rows_[count - 1].id == rows_[i].id &&
                         table(rows_[count - 1]) == table(rows_[i]);
    if (is_same) {
      rows_[count - 1].last = rows_[i].last;
    } else {
      rows_[count++] = rows_[i];
    }
  }
  rows_.resize(count);
  std::erase_if(rows_, [&](const Ends& row) {
    const bool was_there = log_[row.first].before != nullptr;
    const bool is_there = log_[row.last].edit != RowEdit::kDeleted;
    if (!was_there || !is_there) return was_there == is_there;
    const ChangedRow both = RowOf(row);
    return both.before == both.after;
  });
  std::ranges::sort(rows_, {}, &Ends::first);
}

ChangedRow RowChanges::RowOf(const Ends& row) const {
  const jet::LoggedRow first = log_[row.first];
  const jet::LoggedRow last = log_[row.last];
  ChangedRow changed{first.table->name(), row.id, {}, {}};
  if (first.before) changed.before = ImageOf(*first.table, *first.before);
  jet::RowBuffer now;
  if (last.edit != jet::RowEdit::kDeleted && last.table->Read(last.id, now)) {
    changed.after = ImageOf(*last.table, now);
  }
  return changed;
}

void RowChanges::ForEach(const Visitor& visit) const {
  for (const Ends& row : rows_) visit(RowOf(row));
}

}  // namespace history
