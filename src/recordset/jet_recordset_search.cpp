// SPDX-License-Identifier: MIT
// Filter, Find, Seek and GetRows.
#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "recordset/jet_field.h"
#include "recordset/jet_recordset.h"
#include "recordset/value_comparison.h"
#include "recordset/value_conversion.h"

namespace recordset {

using platform::SearchDirection;
using platform::SeekOption;
using platform::Variant;

namespace {

// Of so many rows found by an index the next one is picked; more are better read in their order.
constexpr std::size_t kMaxRowsPicked = 64;

// What the definition counts, as far as the file can hold so many rows: it may be damaged. More
// rows than a million need no room beforehand.
std::size_t LikelyRows(jet::Database& database, jet::Table& table) {
  constexpr std::size_t kMaxRowsOfPage = 255, kMaxRows = 1 << 20;
  const std::size_t held = database.Header().page_count * kMaxRowsOfPage;
  return std::min({std::size_t{table.RowCount()}, held, kMaxRows});
}

}  // namespace

void JetRecordset::SetFilter(std::string_view criterion) {
  CheckNoEdit(message::kFiltering);
  session_->Reading([&] {
    query_->SetFilter(criterion);
    reader_.emplace(*query_);
    Restart();
  });
}

std::string JetRecordset::Filter() const {
  CheckOpen();
  return query_->filter();
}

void JetRecordset::Find(std::string_view criterion, SearchDirection direction) {
  CheckOpen();
  MoveBy(
      [&] {
        const ConditionSyntax syntax = ParseFind(criterion);
        NeededColumns needed = query_->needed();
        const Condition condition = query_->BindFind(criterion, syntax, needed);
        const bool forward = direction == SearchDirection::kForward;
        if (forward && FindByIndex(criterion)) return;
        FindByReading(condition, needed, direction);
      },
      direction);
}

// Finds forward in a whole table. False when no index helps.
bool JetRecordset::FindByIndex(std::string_view criterion) {
  if (!query_->IsWholeTable() || (!query_->order().empty() && !query_->row_index())) return false;
  const auto search = Query::OfTable(query_->database(), OnlyTable(), query_->row_index());
  search->SetFilter(criterion);
  const QueryPlan plan = MakePlan(*search);
  if (!plan.no_rows && !plan.steps.front().index) return false;
  const RowIds found = FindRows(*search, plan);

  if (found.size() == 0 || cursor_->AtEnd()) {
    cursor_->MoveToEnd();
    return true;
  }
  if (cursor_->OnFirst()) {
    cursor_->MoveToFound(found.ids.front());
    return true;
  }
  if (found.size() > kMaxRowsPicked) return false;
  const std::size_t from = cursor_->AtBegin() ? 0 : cursor_->Place();
  std::optional<std::size_t> next;
  for (std::size_t i = 0; i < found.size(); ++i) {
    const auto place = cursor_->PlaceOf(found[i]);
    if (place && *place >= from && (!next || *place < *next)) next = place;
  }
  if (next) {
    cursor_->MoveTo(*next);
  } else {
    cursor_->MoveToEnd();
  }
  return true;
}

void JetRecordset::FindByReading(const Condition& condition, const NeededColumns& needed,
                                 SearchDirection direction) {
  const std::size_t tables = query_->tables().size();
  const auto rows = std::make_unique<jet::RowBuffer[]>(tables);
  // Moving on from a row that turns out to be gone must not end the search.
  auto passes = [&] {
    const auto ids = cursor_->Row();
    for (std::size_t table = 0; table < tables; ++table) {
      const auto columns = needed.Of(table);
      if (columns.empty()) continue;
      if (!query_->tables()[table]->Read(ids[table], columns, rows[table])) return false;
    }
    const std::span<const jet::RowBuffer> row(rows.get(), tables);
    return query_->Passes(row) && Evaluate(condition, row) == Truth::kTrue;
  };
  if (direction == SearchDirection::kForward) {
    if (!cursor_->OnRow()) cursor_->MoveNext();
    while (cursor_->OnRow() && !passes()) cursor_->MoveNext();
  } else {
    if (!cursor_->OnRow()) cursor_->MovePrevious();
    while (cursor_->OnRow() && !passes()) cursor_->MovePrevious();
  }
}

std::optional<std::vector<jet::Value>> JetRecordset::SeekKey(
    const std::vector<Variant>& key) const {
  const jet::Table& table = OnlyTable();
  const jet::Index& index = table.indexes()[*query_->row_index()];
  const std::vector<jet::IndexColumn>& columns = table.physical_indexes()[index.physical].columns;
  if (key.empty() || key.size() > columns.size()) {
    Refuse(platform::kErrInvalidArgument,
           {message::kIndexColumns, {{"<Index>", index.name}, {"<Count>", columns.size()}}});
  }
  std::vector<jet::Value> values;
  for (std::size_t i = 0; i < key.size(); ++i) {
    const jet::Column& column = table.columns()[columns[i].column];
    const jet::Value value = ToValue(column, key[i]);
    if (value.is_null()) {
      values.push_back(value);
      continue;
    }
    if (!IsSearchable(column.type) || FamilyOf(value) != FamilyOf(column.type)) {
      Refuse(platform::kErrTypeMismatch, {message::kCannotSeekType, {{"<Field>", column.name}}});
    }
    const auto held = AsColumnValue(column.type, value);
    if (!held) return std::nullopt;
    values.push_back(*held);
  }
  return values;
}

void JetRecordset::Seek(const std::vector<Variant>& key, SeekOption option) {
  CheckOpen();
  if (settings_.index.empty() || !query_->row_index() || !query_->IsWholeTable()) {
    Refuse(platform::kErrFeatureNotAvailable, message::kSeekNeedsIndex);
  }
  UpdatePending();
  session_->Reading([&] {
    const auto values = SeekKey(key);
    if (!values && option == SeekOption::kAfterEqual) {
      Refuse(platform::kErrDataOverflow, message::kValueNeverFits);
    }
    if (!seek_cursor_) seek_cursor_.emplace(OnlyTable().OpenCursor(*query_->row_index()));
    reader_->Forget();
    const bool found =
        values && (option == SeekOption::kFirstEqual ? seek_cursor_->Seek(*values)
                                                     : seek_cursor_->SeekAtLeast(*values));
    if (found) {
      cursor_->MoveToFound(seek_cursor_->row());
      reader_->Read(cursor_->Row());
    } else {
      cursor_->MoveToEnd();
    }
  });
}

platform::RowBlock JetRecordset::GetRows(std::int32_t count,
                                         const std::vector<std::string>& fields) {
  CheckOpen();
  UpdatePending();
  std::vector<TableColumn> sources;
  sources.reserve(fields.size());
  for (const std::string& field : fields) {
    sources.push_back(query_->output()[FieldIndex(field)].source);
  }
  if (fields.empty()) {
    for (const OutputColumn& output : query_->output()) sources.push_back(output.source);
  }
  return session_->Reading([&] { return ReadRows(count, sources); });
}

platform::RowBlock JetRecordset::ReadRows(std::int32_t count,
                                          const std::vector<TableColumn>& sources) {
  RequireRow();
  NeededColumns needed = query_->needed();
  std::vector<std::size_t> slots;
  slots.reserve(sources.size());
  for (const TableColumn& source : sources) slots.push_back(needed.Slot(source));

  platform::RowBlock result(sources.size());
  const auto rows = std::make_unique<jet::RowBuffer[]>(query_->tables().size());
  auto append = [&] {
    for (std::size_t i = 0; i < sources.size(); ++i) {
      AddValue(rows[sources[i].table][slots[i]], result);
    }
  };
  reader_->Forget();
  // The whole table from its first row on is one scan.
  if (count < 0 && query_->IsWholeTable() && query_->order().empty() && cursor_->OnFirst()) {
    result.Reserve(LikelyRows(query_->database(), OnlyTable()));
    jet::Scan scan = OnlyTable().OpenScan(needed.Of(0));
    while (scan.Next(rows[0])) append();
    cursor_->MoveToEnd();
    return result;
  }
  const RowList& all = cursor_->All();
  std::size_t place = cursor_->Place();
  const std::size_t left = all.size() - place;
  result.Reserve(count < 0 ? left : std::min(left, static_cast<std::size_t>(count)));
  std::vector<jet::RowId> held;  // the row that the buffers hold
  while (place < all.size() && count != 0) {
    bool alive = true;
    for (std::size_t table = 0; table < all.width() && alive; ++table) {
      const jet::RowId id = all[place][table];
      // One row of a table stands in many rows of a join, often one after the other.
      if (!held.empty() && held[table] == id) continue;
      alive = query_->tables()[table]->Read(id, needed.Of(table), rows[table]);
    }
    held.clear();
    if (alive) held.assign(all[place].begin(), all[place].end());
    if (!alive || !query_->Passes({rows.get(), all.width()})) {
      // The rows behind it move up: blocks read one after the other have each row once.
      cursor_->RemoveAt(place);
      continue;
    }
    append();
    ++place;
    if (count > 0) --count;
  }
  if (place < all.size()) {
    cursor_->MoveTo(place);
  } else {
    cursor_->MoveToEnd();
  }
  return result;
}

}  // namespace recordset
