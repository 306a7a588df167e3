// SPDX-License-Identifier: MIT
// The database interfaces: ADO's objects with ADO's meaning, as far as the system uses them.
// Failures are platform::Error with ADO's error numbers; a failed call leaves the recordset
// usable and its rows as they were.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/error.h"
#include "platform/row_block.h"
#include "platform/variant.h"

namespace platform {

enum class CursorLocation { kServer = 2, kClient = 3 };
enum class CursorType {
  kUnspecified = -1,
  kForwardOnly = 0,
  kKeyset = 1,
  kDynamic = 2,
  kStatic = 3
};
enum class LockType { kUnspecified = -1, kReadOnly = 1, kPessimistic = 2, kOptimistic = 3 };
enum class CommandType { kUnspecified = -1, kText = 1, kTable = 2, kTableDirect = 512 };
enum class ObjectState { kClosed = 0, kOpen = 1 };
enum class EditMode { kNone = 0, kInProgress = 1, kAdd = 2 };
enum class SearchDirection { kBackward = -1, kForward = 1 };
enum class SeekOption { kFirstEqual = 1, kAfterEqual = 4 };

// ADO's type codes of a field.
enum class DataType {
  kSmallInt = 2,
  kInteger = 3,
  kSingle = 4,
  kDouble = 5,
  kCurrency = 6,
  kDate = 7,
  kBoolean = 11,
  kUnsignedTinyInt = 17,
  kGuid = 72,
  kNumeric = 131,
  kVarWChar = 202,
  kLongVarWChar = 203,
  kVarBinary = 204,
  kLongVarBinary = 205,
};

// ADO's error numbers.
inline constexpr std::int32_t kErrNoCurrentRecord = 3021;
inline constexpr std::int32_t kErrItemNotFound = 3265;
inline constexpr std::int32_t kErrInvalidArgument = 3001;
inline constexpr std::int32_t kErrObjectClosed = 3704;
inline constexpr std::int32_t kErrObjectOpen = 3705;
inline constexpr std::int32_t kErrNotAllowedHere = 3219;  // a pending edit forbids the call
inline constexpr std::int32_t kErrFeatureNotAvailable = 3251;
inline constexpr std::int32_t kErrUnspecified = -2147467259;       // 0x80004005
inline constexpr std::int32_t kErrErrorsOccurred = -2147217887;    // 0x80040E21, duplicate key
inline constexpr std::int32_t kErrSyntax = -2147217900;            // 0x80040E14
inline constexpr std::int32_t kErrWriteConflict = -2147217864;     // 0x80040E38
inline constexpr std::int32_t kErrNoSuchTable = -2147217865;       // 0x80040E37
inline constexpr std::int32_t kErrNoSuchIndex = -2147217867;       // 0x80040E35
inline constexpr std::int32_t kErrRowDeleted = -2147217885;        // 0x80040E23
inline constexpr std::int32_t kErrParameter = -2147217904;         // 0x80040E10, no value or column
inline constexpr std::int32_t kErrTypeMismatch = -2147217913;      // 0x80040E07
inline constexpr std::int32_t kErrDataOverflow = -2147217833;      // 0x80040E57, does not fit
inline constexpr std::int32_t kErrNullNotAllowed = -2147217873;    // 0x80040E2F
inline constexpr std::int32_t kErrObjectExists = -2147217857;      // 0x80040E3F
inline constexpr std::int32_t kErrPermissionDenied = -2147217911;  // 0x80040E09, read only

// One entry of Connection::Errors.
struct ProviderError {
  std::int32_t number = 0;  // the OLE DB code
  std::int32_t native_error = 0;
  std::string description;
};

// Names a row of a recordset while it is open. Value semantics; meaningless for another recordset
// that is not a clone.
struct Bookmark {
  std::uint64_t value = 0;
  friend bool operator==(const Bookmark&, const Bookmark&) = default;
};

// A field of a recordset's current row. Owned by the recordset, valid while it is open.
class Field {
 public:
  virtual ~Field() = default;
  virtual std::string Name() const = 0;
  virtual DataType Type() const = 0;
  virtual std::int32_t DefinedSize() const = 0;  // characters of a text, bytes otherwise
  // Value of the current row, a pending edit included. Raises kErrNoCurrentRecord.
  virtual Variant Value() const = 0;
  // Begins an edit of the current row unless one is pending.
  virtual void SetValue(const Variant& value) = 0;
  virtual Variant OriginalValue() const = 0;
};

class Recordset : public Object {
 public:
  // Settings; they may be changed only while the recordset is closed.
  virtual void SetSource(std::string_view source) = 0;
  virtual void SetCursorLocation(CursorLocation location) = 0;
  virtual void SetCursorType(CursorType type) = 0;
  virtual void SetLockType(LockType type) = 0;
  virtual void SetCommandType(CommandType type) = 0;
  // The index that Seek uses and that orders a table-direct recordset; "" for none.
  virtual void SetIndex(std::string_view name) = 0;
  // Values for the "?" of the source, in order.
  virtual void SetParameters(std::vector<Variant> values) = 0;

  // Opens with the settings made before. Raises kErrObjectOpen when open.
  virtual void Open() = 0;
  // Raises kErrNotAllowedHere while an edit is pending.
  virtual void Close() = 0;
  virtual ObjectState State() const = 0;

  virtual bool BOF() const = 0;
  virtual bool EOF_() const = 0;  // EOF is a macro of <cstdio>
  virtual std::int32_t RecordCount() const = 0;
  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  virtual void MoveNext() = 0;
  virtual void MovePrevious() = 0;
  // Place of the current row among the rows that pass the filter, from 1 on; 0 when there is no
  // current row. Setting it makes that row current without a walk over those before it; raises
  // kErrInvalidArgument below 1 or above RecordCount.
  virtual std::int32_t AbsolutePosition() const = 0;
  virtual void SetAbsolutePosition(std::int32_t position) = 0;
  virtual Bookmark GetBookmark() const = 0;
  virtual void SetBookmark(Bookmark bookmark) = 0;
  // A second cursor over the same rows; shares data, not position.
  virtual std::shared_ptr<Recordset> Clone() = 0;

  // Comparisons joined by AND; "" removes the filter. Moves to the first row that passes.
  virtual void SetFilter(std::string_view criterion) = 0;
  virtual std::string Filter() const = 0;
  // One comparison, searched from the current row (inclusive) in the direction; at the end of the
  // rows (beginning, when backward) the recordset is at EOF (BOF).
  virtual void Find(std::string_view criterion,
                    SearchDirection direction = SearchDirection::kForward) = 0;
  // First row, in the order of the index, whose key equals the values or, with kAfterEqual, that
  // does not stand before them; EOF when there is none.
  virtual void Seek(const std::vector<Variant>& key,
                    SeekOption option = SeekOption::kFirstEqual) = 0;

  virtual std::vector<std::string> FieldNames() const = 0;
  // Field by name, without regard to case, or by "Table.Name". Raises kErrItemNotFound.
  virtual Field& Fields(std::string_view name) = 0;
  virtual Field& Fields(std::size_t index) = 0;
  virtual std::size_t FieldCount() const = 0;

  virtual EditMode GetEditMode() const = 0;
  // Adds the row at once and makes it current; the AutoNumber is known afterwards.
  virtual void AddNew(const std::vector<std::string>& fields,
                      const std::vector<Variant>& values) = 0;
  // Begins a new row that Update writes.
  virtual void AddNew() = 0;
  virtual void Update() = 0;
  virtual void CancelUpdate() = 0;
  virtual void Delete() = 0;
  virtual void Requery() = 0;
  // Reads the current row again from the database; discards nothing that is pending elsewhere.
  virtual void Resync() = 0;
  // The named fields (empty: all) of the rows from the current one on (count -1: all). The position
  // is behind the last row read.
  virtual RowBlock GetRows(std::int32_t count, const std::vector<std::string>& fields) = 0;
};

class Connection : public Object {
 public:
  // Connection string "Provider=...;Data Source=PATH;Mode=...;". Raises when the file cannot be
  // opened; the description names file, reason and remedy.
  virtual void Open(std::string_view connection_string) = 0;
  virtual void Close() = 0;
  virtual ObjectState State() const = 0;
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;
  virtual const std::vector<ProviderError>& Errors() const = 0;
  // A closed recordset whose active connection is this one.
  virtual std::shared_ptr<Recordset> CreateRecordset() = 0;
  // The recordsets of this connection that are open now.
  virtual std::vector<std::shared_ptr<Recordset>> OpenRecordsets() = 0;

  // Definition queries, answered from the table definitions without reading rows.
  virtual std::vector<std::string> TableNames() = 0;
  struct IndexInfo {
    std::string name;
    std::vector<std::string> columns;
    bool unique = false;
    bool primary = false;
  };
  virtual std::vector<IndexInfo> Indexes(std::string_view table) = 0;
  // In the order of definition.
  struct ColumnInfo {
    std::string name;
    DataType type = DataType::kInteger;
    std::int32_t defined_size = 0;  // characters of a text; ignored for the other types
    bool auto_increment = false;
  };
  virtual std::vector<ColumnInfo> Columns(std::string_view table) = 0;
  // Row count that the table's definition states.
  virtual std::int32_t TableRowCount(std::string_view table) = 0;

  // Changes of the definition. Each is all or nothing.

  // Creates the database file of the connection string and opens it. The file must not exist.
  virtual void Create(std::string_view connection_string) = 0;
  // Raises kErrObjectExists when the table exists.
  virtual void CreateTable(std::string_view name, const std::vector<ColumnInfo>& columns,
                           const std::vector<IndexInfo>& indexes) = 0;
  // Adds an index over the rows that are there. Raises kErrErrorsOccurred when the index is unique
  // and two rows have the same key, kErrObjectExists when the name is taken.
  virtual void CreateIndex(std::string_view table, const IndexInfo& index) = 0;
};

}  // namespace platform
