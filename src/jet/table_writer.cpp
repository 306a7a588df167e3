// SPDX-License-Identifier: MIT
#include "jet/table_writer.h"

#include <algorithm>
#include <limits>
#include <random>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/table_scan.h"
#include "jet/table_state.h"
#include "jet/text_codec.h"
#include "jet/value_codec.h"

namespace jet {
namespace {

constexpr messages::Pattern kTableAndCause{messages::kNoText, "<Table>: <Cause>"};
constexpr messages::Pattern kColumnAndFault{messages::kNoText, "<Column>: <Fault>."};

messages::Message CannotHold(const Column& column, const messages::Message& fault) {
  const messages::Message refusal(message::kColumnCannotHold, {{"<Column>", column.name}});
  return {kColumnAndFault, {{"<Column>", refusal}, {"<Fault>", fault}}};
}

}  // namespace

TableWriter::TableWriter(TableState& table)
    : table_(table),
      session_(table.session()),
      definition_(table.definition()),
      rows_(definition_),
      store_(table.pager(), {definition_.page, definition_.owned_map, definition_.free_map}),
      keys_(definition_.physical.size()),
      old_keys_(definition_.physical.size()) {
  for (const LongValueMaps& maps : definition_.long_values) {
    long_stores_.emplace_back(table.pager(), maps);
  }
  for (const PhysicalIndex& index : definition_.physical) {
    for (const IndexColumn& part : index.columns) indexed_.push_back(part.column);
  }
  std::sort(indexed_.begin(), indexed_.end());
  indexed_.erase(std::unique(indexed_.begin(), indexed_.end()), indexed_.end());
  for (std::size_t i = 0; i < definition_.columns.size(); ++i) {
    if (definition_.columns[i].auto_number) auto_number_ = static_cast<std::ptrdiff_t>(i);
  }
  CheckPlaces();
}

// Each map and each tree is used once. What is read from a definition that mixes them up can be
// told; what is written through it ends in the wrong place.
void TableWriter::CheckPlaces() {
  std::vector<RowId> maps = {definition_.owned_map, definition_.free_map};
  std::vector<PageNumber> roots;
  for (const LongValueMaps& value : definition_.long_values) {
    maps.insert(maps.end(), {value.owned, value.free});
  }
  for (const PhysicalIndex& index : definition_.physical) {
    maps.push_back(index.usage_map);
    roots.push_back(index.root);
  }
  std::erase(maps, RowId{});
  std::sort(maps.begin(), maps.end());
  std::sort(roots.begin(), roots.end());
  if (std::adjacent_find(maps.begin(), maps.end()) != maps.end()) {
    ThrowDamaged(session_.path(), {definition_.page, -1}, message::kUsageMapTwice);
  }
  if (std::adjacent_find(roots.begin(), roots.end()) != roots.end()) {
    ThrowDamaged(session_.path(), {definition_.page, -1}, message::kSamePages);
  }
}

void TableWriter::Refuse(ErrorKind kind, const messages::Message& cause,
                         const messages::Message& remedy) {
  const messages::Message table(message::kTable, {{"<Table>", table_.name()}});
  throw Error(kind, session_.path(), {}, {kTableAndCause, {{"<Table>", table}, {"<Cause>", cause}}},
              remedy);
}

// Runs what changes pages. What fails in there leaves a part of the change behind.
template <class Change>
void TableWriter::Apply(Change change) {
  try {
    change();
  } catch (...) {
    session_.Doom();
    throw;
  }
}

void TableWriter::TakeValues(std::span<const ColumnValue> values) {
  for (const ColumnValue& given : values) {
    if (given.column >= definition_.columns.size()) {
      Refuse(ErrorKind::kNotFound, {message::kNoColumnNumber, {{"<Number>", given.column}}},
             message::kLookAtColumns);
    }
    const Column& column = definition_.columns[given.column];
    Value value = given.value;
    if (const messages::Message fault = Conform(column, value); !fault.empty()) {
      Refuse(ErrorKind::kInvalid, CannotHold(column, fault), message::kGiveOtherValue);
    }
    values_[given.column] = value;
    given_[given.column] = true;
  }
}

InsertResult TableWriter::Insert(std::span<const ColumnValue> values) {
  values_.assign(definition_.columns.size(), Value());
  given_.assign(definition_.columns.size(), false);
  guids_.clear();
  TakeValues(values);
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (definition_.columns[i].type == ColumnType::kBoolean && values_[i].is_null()) {
      values_[i] = Value::Boolean(false);
    }
  }
  InsertResult result;
  const std::int32_t auto_number = auto_number_ >= 0 ? AssignAutoNumber() : 0;
  MakeGuids();
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    MakeKey(i, values_, keys_[i]);
    CheckKey(i, keys_[i]);
  }
  EncodeCells();
  std::span<const std::byte> row = WriteRow({}, 0);
  Apply([&] {
    row = StoreLongValues(row, {}, 0);
    result.id = store_.Add(row, kSlotLive);
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      if (!keys_[i].HasEntry(definition_.physical[i])) continue;
      if (table_.tree(i).Insert(keys_[i].bytes, result.id)) CountDistinct(i);
    }
    CountRows(1);
    if (auto_number_ >= 0) {
      const PageEdit page = table_.pager().Modify(definition_.page);
      std::byte* counter = page.data() + kDefinitionAutoNumberOffset;
      if (auto_number > static_cast<std::int32_t>(Load32(counter))) {
        Store32(counter, static_cast<std::uint32_t>(auto_number));
      }
    }
  });
  result.auto_number = auto_number;
  return result;
}

// The number of the AutoNumber column, which is given or the next one.
std::int32_t TableWriter::AssignAutoNumber() {
  const auto column = static_cast<std::size_t>(auto_number_);
  if (given_[column] && !values_[column].is_null()) {
    return static_cast<std::int32_t>(values_[column].integer());
  }
  const PageRef page = table_.pager().Read(definition_.page);
  const auto last = static_cast<std::int32_t>(Load32(page.data() + kDefinitionAutoNumberOffset));
  if (last == std::numeric_limits<std::int32_t>::max()) {
    Refuse(ErrorKind::kTooLarge, message::kAutoNumbersUsedUp, message::kCopyRows);
  }
  values_[column] = Value::Integer(last + 1);
  return last + 1;
}

void TableWriter::MakeGuids() {
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (!definition_.columns[i].auto_guid || given_[i]) continue;
    std::random_device random;
    guids_.reserve(values_.size());
    std::array<std::byte, 16>& guid = guids_.emplace_back();
    for (std::size_t k = 0; k < guid.size(); k += 4) Store32(&guid[k], random());
    guid[7] = (guid[7] & std::byte{0x0F}) | std::byte{0x40};  // version 4: random
    guid[8] = (guid[8] & std::byte{0x3F}) | std::byte{0x80};
    values_[i] = Value::Guid(guid);
  }
}

void TableWriter::MakeKey(std::size_t index, std::span<const Value> row, IndexKey& key) {
  const PhysicalIndex& physical = definition_.physical[index];
  key_values_.clear();
  for (const IndexColumn& part : physical.columns) key_values_.push_back(row[part.column]);
  key.Make(physical, definition_.columns, key_values_, session_.path());
}

// A key that is about to be added: no Null where a value is required, and no duplicate.
void TableWriter::CheckKey(std::size_t index, const IndexKey& key) {
  const PhysicalIndex& physical = definition_.physical[index];
  const auto name = [&] {
    for (const Index& logical : definition_.indexes) {
      if (logical.physical == index) return logical.name;
    }
    return std::string("?");
  };
  const bool primary = std::any_of(
      definition_.indexes.begin(), definition_.indexes.end(), [&](const Index& logical) {
        return logical.physical == index && logical.kind == IndexKind::kPrimaryKey;
      });
  if (key.any_null && (physical.required || primary)) {
    Refuse(ErrorKind::kRequired, {message::kIndexNeedsValue, {{"<Index>", name()}}},
           message::kGiveMissingValue);
  }
  if (key.bytes.size() > kMaxIndexKey) {
    Refuse(ErrorKind::kInvalid, {message::kTooLongForIndex, {{"<Index>", name()}}},
           message::kGiveShorterValue);
  }
  if (key.MustBeUnique(physical) && table_.tree(index).Contains(key.bytes)) {
    Refuse(ErrorKind::kDuplicate, {message::kDuplicate, {{"<Index>", name()}}},
           message::kGiveDistinctValue);
  }
}

void TableWriter::EncodeCells() {
  const std::size_t count = definition_.columns.size();
  cells_.assign(count, Cell());
  cell_bytes_.assign(count, CellBytes());
  scratch_.clear();
  pending_.clear();
  pending_bytes_.clear();
  for (std::size_t i = 0; i < count; ++i) EncodeCell(i, values_[i]);
}

void TableWriter::EncodeCell(std::size_t position, const Value& value) {
  const Column& column = definition_.columns[position];
  cells_[position].has_value =
      column.type == ColumnType::kBoolean ? value.boolean() : !value.is_null();
  const std::size_t begin = scratch_.size();
  if (column.type != ColumnType::kBoolean && !value.is_null()) {
    if (column.IsLongValue()) {
      EncodeLongValue(position, value);
    } else if (const messages::Message fault = EncodeValue(column, value, scratch_);
               !fault.empty()) {
      Refuse(ErrorKind::kInvalid, CannotHold(column, fault), message::kShortenOrChange);
    }
  }
  cell_bytes_[position] = {begin, scratch_.size() - begin};
}

// Short values stand in the row; others leave a place for their head there.
void TableWriter::EncodeLongValue(std::size_t position, const Value& value) {
  const Column& column = definition_.columns[position];
  const std::size_t begin = pending_bytes_.size();
  if (value.kind() == ValueKind::kText) {
    const bool is_short = Utf16Length(value.text()) * 2 <= kMaxInline;
    if (!AppendStoredText(value.text(), is_short, pending_bytes_)) {
      Refuse(ErrorKind::kInvalid, {message::kByteOrderMarkInColumn, {{"<Column>", column.name}}},
             message::kRemoveFirstCharacter);
    }
  } else {
    pending_bytes_.insert(pending_bytes_.end(), value.bytes().begin(), value.bytes().end());
  }
  const std::size_t size = pending_bytes_.size() - begin;
  if (size > kLongValueLengthMask) {
    Refuse(ErrorKind::kInvalid, {message::kValueTooLong, {{"<Column>", column.name}}},
           message::kShortenValue);
  }
  if (size <= kMaxInline) {
    AppendInline({pending_bytes_.data() + begin, size}, scratch_);
    pending_bytes_.resize(begin);
    return;
  }
  pending_.push_back({position, begin, size, scratch_.size()});
  scratch_.resize(scratch_.size() + kLongValueHead);
}

void TableWriter::PointCells() {
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    if (cell_bytes_[i].size == 0) continue;
    cells_[i].bytes = {scratch_.data() + cell_bytes_[i].begin, cell_bytes_[i].size};
  }
}

std::span<const std::byte> TableWriter::WriteRow(std::span<const std::byte> fixed_area,
                                                 std::size_t min_size) {
  PointCells();
  const std::span<const std::byte> row = rows_.Write(cells_, fixed_area, min_size);
  if (row.size() > kMaxRowSize) {
    Refuse(ErrorKind::kInvalid,
           {message::kRowTooLong, {{"<Count>", row.size()}, {"<Limit>", kMaxRowSize}}},
           message::kShortenTexts);
  }
  return row;
}

// The row once more, with the heads of the long values that had to be stored first.
std::span<const std::byte> TableWriter::StoreLongValues(std::span<const std::byte> row,
                                                        std::span<const std::byte> fixed_area,
                                                        std::size_t min_size) {
  if (pending_.empty()) return row;
  for (const PendingLongValue& value : pending_) {
    StoreFor(value.column)
        .Write({pending_bytes_.data() + value.begin, value.size}, &scratch_[value.head]);
  }
  return WriteRow(fixed_area, min_size);
}

LongValueStore& TableWriter::StoreFor(std::size_t column) {
  for (std::size_t i = 0; i < definition_.long_values.size(); ++i) {
    if (definition_.long_values[i].column == column) return long_stores_[i];
  }
  ThrowDamaged(session_.path(), {definition_.page, -1},
               {message::kNoLongValueMap, {{"<Column>", definition_.columns[column].name}}});
}

StoredRow TableWriter::FindRow(RowId id) {
  auto stored = table_.reader().Find(id);
  if (!stored) {
    Refuse(ErrorKind::kNotFound, message::kRowGone, message::kReadRowsAgain);
  }
  return std::move(*stored);
}

void TableWriter::ReadOldValues(RowId id, const StoredRow& stored) {
  table_.reader().Decode(id, stored, indexed_, old_row_);
  old_values_.assign(definition_.columns.size(), Value());
  for (std::size_t i = 0; i < indexed_.size(); ++i) old_values_[indexed_[i]] = old_row_[i];
}

void TableWriter::KeepCell(std::size_t position, const RowView& view) {
  const Column& column = definition_.columns[position];
  cells_[position].has_value = view.HasValue(column);
  if (!cells_[position].has_value || column.type == ColumnType::kBoolean) return;
  const auto bytes = view.Bytes(column);
  if (!bytes) {
    ThrowDamaged(session_.path(), {definition_.page, -1},
                 {message::kColumnOutsideRowOfTable, {{"<Column>", column.name}}});
  }
  cells_[position].bytes = *bytes;
}

void TableWriter::Update(RowId id, std::span<const ColumnValue> values) {
  const StoredRow stored = FindRow(id);
  values_.assign(definition_.columns.size(), Value());
  given_.assign(definition_.columns.size(), false);
  TakeValues(values);
  ReadOldValues(id, stored);
  for (const std::size_t column : indexed_) {
    if (!given_[column]) values_[column] = old_values_[column];
  }
  const auto number = static_cast<std::size_t>(auto_number_);
  if (auto_number_ >= 0 && given_[number] && values_[number] != old_values_[number]) {
    Refuse(ErrorKind::kInvalid, message::kAutoNumberStays, message::kInsertInstead);
  }
  std::vector<bool> changed(keys_.size());
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    const std::vector<IndexColumn>& parts = definition_.physical[i].columns;
    if (std::none_of(parts.begin(), parts.end(),
                     [&](const IndexColumn& part) { return given_[part.column]; })) {
      continue;
    }
    MakeKey(i, old_values_, old_keys_[i]);
    MakeKey(i, values_, keys_[i]);
    changed[i] = keys_[i].bytes != old_keys_[i].bytes;
    if (changed[i]) CheckKey(i, keys_[i]);
  }

  RowView view;
  view.Parse(stored.bytes);
  cells_.assign(definition_.columns.size(), Cell());
  cell_bytes_.assign(definition_.columns.size(), CellBytes());
  scratch_.clear();
  pending_.clear();
  pending_bytes_.clear();
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (given_[i]) {
      EncodeCell(i, values_[i]);
    } else {
      KeepCell(i, view);
    }
  }
  const std::span<const std::byte> fixed_area = view.FixedArea(FixedAreaSize(definition_));
  const std::size_t size = stored.bytes.size();
  std::span<const std::byte> row = WriteRow(fixed_area, size);
  Apply([&] {
    row = StoreLongValues(row, fixed_area, size);
    RemoveLongValues(id, stored, true);
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      if (!changed[i]) continue;
      const PhysicalIndex& physical = definition_.physical[i];
      if (old_keys_[i].HasEntry(physical)) EraseOldKey(i, id);
      if (keys_[i].HasEntry(physical) && table_.tree(i).Insert(keys_[i].bytes, id)) {
        CountDistinct(i);
      }
    }
    store_.Replace(id, stored, row);
  });
}

void TableWriter::EraseOldKey(std::size_t index, RowId id) {
  if (table_.tree(index).Erase(old_keys_[index].bytes, id)) return;
  ThrowDamaged(session_.path(), {id.page, id.slot},
               {message::kRowWithoutEntry, {{"<Table>", table_.name()}}});
}

void TableWriter::Delete(RowId id) {
  const StoredRow stored = FindRow(id);
  ReadOldValues(id, stored);
  for (std::size_t i = 0; i < keys_.size(); ++i) MakeKey(i, old_values_, old_keys_[i]);
  Apply([&] {
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      if (old_keys_[i].HasEntry(definition_.physical[i])) EraseOldKey(i, id);
    }
    RemoveLongValues(id, stored, false);
    store_.Remove(id, stored);
    CountRows(-1);
  });
}

void TableWriter::FillIndex(std::size_t index) {
  const PhysicalIndex& physical = definition_.physical[index];
  std::vector<std::size_t> columns;
  for (const IndexColumn& part : physical.columns) columns.push_back(part.column);
  std::uint32_t entries = 0;
  TableScan scan(table_, columns);
  IndexKey key;
  while (scan.Next(old_row_)) {
    key.Make(physical, definition_.columns, old_row_.values(), session_.path());
    CheckKey(index, key);
    if (!key.HasEntry(physical)) continue;
    if (table_.tree(index).Insert(key.bytes, old_row_.id())) CountDistinct(index);
    ++entries;
  }
  const PageEdit page = table_.pager().Modify(definition_.page);
  Store32(page.data() + kDefinitionCountersOffset + kDefinitionCounterSize * index, entries);
}

// Long values of the row, or of those columns that get a new value.
void TableWriter::RemoveLongValues(RowId id, const StoredRow& stored, bool only_changed) {
  RowView view;
  view.Parse(stored.bytes);
  for (std::size_t i = 0; i < definition_.columns.size(); ++i) {
    const Column& column = definition_.columns[i];
    if (!column.IsLongValue() || !view.HasValue(column) || (only_changed && !given_[i])) continue;
    const auto bytes = view.Bytes(column);
    if (bytes) StoreFor(i).Remove({id.page, id.slot}, *bytes);
  }
}

void TableWriter::CountRows(std::int32_t change) {
  const PageEdit page = table_.pager().Modify(definition_.page);
  std::byte* counter = page.data() + kDefinitionRowsOffset;
  const std::uint32_t rows = Load32(counter);
  if (change < 0 && rows == 0) return;
  Store32(counter, rows + static_cast<std::uint32_t>(change));
}

void TableWriter::CountDistinct(std::size_t index) {
  const PageEdit page = table_.pager().Modify(definition_.page);
  std::byte* counter = page.data() + kDefinitionCountersOffset + kDefinitionCounterSize * index + 4;
  Store32(counter, Load32(counter) + 1);
}

}  // namespace jet
