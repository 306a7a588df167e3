// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/row_buffer.h"
#include "jet/schema.h"
#include "jet/value.h"
#include "messages/message.h"

namespace jet {

enum class RowEdit : std::uint8_t;
class RowImage;
class TableState;

// A value for the column at a position of Table::columns().
struct ColumnValue {
  std::size_t column = 0;
  Value value;
};

struct InsertResult {
  RowId id;
  std::int32_t auto_number = 0;  // the number given to the AutoNumber column, if there is one
};

// Reads the rows of a table one after the other, in stored order, with bounded memory. Rows that
// are inserted meanwhile may or may not appear; a deleted row no longer does. The file cannot be
// committed to by others while a scan lives, so do not keep one across a user's pause.
class Scan {
 public:
  Scan(Scan&&) noexcept;
  ~Scan();
  // Reads the next row into `row`; false at the end. Raises kDamaged for a row that cannot be
  // read; a further call goes on behind it.
  bool Next(RowBuffer& row);
  // At the end, when nothing was changed meanwhile: a sentence when fewer rows were read than the
  // definition counts, so that rows are missing; else empty.
  messages::Message Shortfall();

 private:
  friend class Table;
  struct State;
  explicit Scan(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

// A position in an index. Starts before the first entry. Stays usable when rows are inserted,
// changed or deleted, also by others: it then goes on from the entry it stood on.
class IndexCursor {
 public:
  IndexCursor(IndexCursor&&) noexcept;
  ~IndexCursor();

  // Moves to the first entry whose leading columns equal `key` (all columns of the index or fewer,
  // compared as the index compares). False when there is none; the position is then undefined.
  bool Seek(std::span<const Value> key);
  // Moves to the first entry whose leading columns are not below `key` in the index's order.
  bool SeekAtLeast(std::span<const Value> key);
  // Moves one entry; false at the end.
  bool Next();
  bool Previous();
  // Moves one entry on while the leading columns still equal the key of the last Seek.
  bool NextEqual();
  // The row of the entry the cursor stands on.
  RowId row() const;

 private:
  friend class Table;
  struct State;
  explicit IndexCursor(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

// A table of an open database. Owned by the Database and valid until it is closed. Every call that
// changes rows joins the open transaction, or is a transaction of its own. A call that fails for
// a reason of the caller (kDuplicate, kRequired, kInvalid, kNotFound, kReadOnly) changed nothing
// and leaves the transaction usable; any other failure leaves only the rollback.
class Table {
 public:
  explicit Table(std::unique_ptr<TableState> state);
  ~Table();
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  const std::string& name() const;
  PageNumber definition_page() const;
  // In the order of the definition (display position, then name).
  const std::vector<Column>& columns() const;
  const std::vector<Index>& indexes() const;
  const std::vector<PhysicalIndex>& physical_indexes() const;
  // Names match without regard to case.
  std::optional<std::size_t> FindColumn(std::string_view name) const;
  std::optional<std::size_t> FindIndex(std::string_view name) const;
  std::optional<std::size_t> PrimaryKey() const;  // position in indexes()

  // Why rows of this table cannot be changed; empty when they can. A reason that lies in the table
  // comes before the database's own.
  messages::Message ReadOnlyReason() const;

  // As the definition counts them, without reading rows.
  std::uint32_t RowCount();

  // `columns` are positions in columns(); all columns when left out.
  Scan OpenScan(std::span<const std::size_t> columns);
  Scan OpenScan();
  // False when there is no such row (any more). Raises kDamaged when an index names it and its page
  // is none of the table's.
  bool Read(RowId id, std::span<const std::size_t> columns, RowBuffer& row);
  bool Read(RowId id, RowBuffer& row);
  IndexCursor OpenCursor(std::size_t index);
  // The rows of all entries of an index, in its order. Raises kDamaged.
  std::vector<RowId> IndexedRows(std::size_t index);

  // Columns that are not named become Null (Yes/No: false); an AutoNumber column that is not
  // named gets the next number.
  InsertResult Insert(std::span<const ColumnValue> values);
  // Changes the named columns. Raises kNotFound when the row is gone.
  void Update(RowId id, std::span<const ColumnValue> values);
  void Delete(RowId id);

 private:
  friend class Database;
  std::unique_ptr<RowImage> ReadForLog(RowId id);
  void Log(RowEdit edit, RowId id, std::unique_ptr<RowImage> before);

  std::unique_ptr<TableState> state_;
};

}  // namespace jet
