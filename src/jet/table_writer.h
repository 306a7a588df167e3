// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jet/index_key.h"
#include "jet/index_tree.h"
#include "jet/long_value_store.h"
#include "jet/row_codec.h"
#include "jet/row_reader.h"
#include "jet/row_store.h"
#include "jet/session.h"
#include "jet/table.h"
#include "jet/table_definition.h"

namespace jet {

class TableState;

// Changes rows of one table: row, long values, index entries and counters together. Everything
// that a caller can do wrong is found before the first byte changes; a failure after that dooms
// the transaction. Asks for an open transaction.
class TableWriter {
 public:
  // The state must outlive the writer and must not be reloaded meanwhile.
  explicit TableWriter(TableState& table);

  InsertResult Insert(std::span<const ColumnValue> values);
  void Update(RowId id, std::span<const ColumnValue> values);
  void Delete(RowId id);
  // Makes the entries of an empty index from the rows there are.
  void FillIndex(std::size_t index);

 private:
  struct PendingLongValue {
    std::size_t column = 0;
    std::size_t begin = 0;  // of the bytes in pending_bytes_
    std::size_t size = 0;
    std::size_t head = 0;  // of the row's part in scratch_
  };
  struct CellBytes {
    std::size_t begin = 0;
    std::size_t size = 0;
  };

  void CheckPlaces();
  void TakeValues(std::span<const ColumnValue> values);
  std::int32_t AssignAutoNumber();
  void MakeGuids();
  void MakeKey(std::size_t index, std::span<const Value> row, IndexKey& key);
  void CheckKey(std::size_t index, const IndexKey& key);
  void EncodeCells();
  void EncodeCell(std::size_t column, const Value& value);
  void EncodeLongValue(std::size_t column, const Value& value);
  void KeepCell(std::size_t column, const RowView& view);
  void PointCells();
  std::span<const std::byte> WriteRow(std::span<const std::byte> fixed_area, std::size_t min_size);
  std::span<const std::byte> StoreLongValues(std::span<const std::byte> row,
                                             std::span<const std::byte> fixed_area,
                                             std::size_t min_size);
  void RemoveLongValues(RowId id, const StoredRow& stored, bool only_changed);
  void EraseOldKey(std::size_t index, RowId id);
  void ReadOldValues(RowId id, const StoredRow& stored);
  StoredRow FindRow(RowId id);
  void CountRows(std::int32_t change);
  void CountDistinct(std::size_t index);
  LongValueStore& StoreFor(std::size_t column);
  template <class Change>
  void Apply(Change change);
  [[noreturn]] void Refuse(ErrorKind kind, const messages::Message& cause,
                           const messages::Message& remedy);

  TableState& table_;
  Session& session_;
  const TableDefinition& definition_;
  RowWriter rows_;
  RowStore store_;
  std::vector<LongValueStore> long_stores_;  // as in definition_.long_values
  std::vector<std::size_t> indexed_;         // columns that take part in an index
  std::ptrdiff_t auto_number_ = -1;          // position of the AutoNumber column

  // The change under way.
  std::vector<Value> values_;
  std::vector<bool> given_;
  std::vector<Cell> cells_;
  std::vector<CellBytes> cell_bytes_;
  std::vector<std::byte> scratch_;
  std::vector<PendingLongValue> pending_;
  std::vector<std::byte> pending_bytes_;
  std::vector<IndexKey> keys_;
  std::vector<IndexKey> old_keys_;
  std::vector<Value> key_values_;
  RowBuffer old_row_;
  std::vector<Value> old_values_;
  std::vector<std::array<std::byte, 16>> guids_;
};

}  // namespace jet
