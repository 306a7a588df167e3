// SPDX-License-Identifier: MIT
#include "recordset/jet_connection.h"

#include <algorithm>
#include <limits>

#include "recordset/connection_state.h"
#include "recordset/connection_string.h"
#include "recordset/jet_field.h"
#include "recordset/jet_recordset.h"
#include "recordset/value_conversion.h"

namespace recordset {
namespace {

using platform::ObjectState;

jet::IndexSpec ToSpec(const platform::Connection::IndexInfo& index) {
  jet::IndexSpec spec;
  spec.name = index.name;
  for (const std::string& column : index.columns) spec.columns.push_back({column, true});
  spec.unique = index.unique;
  spec.primary = index.primary;
  return spec;
}

jet::ColumnSpec ToSpec(const platform::Connection::ColumnInfo& column) {
  jet::ColumnSpec spec;
  spec.name = column.name;
  spec.type = ColumnTypeOf(column.type);
  spec.auto_number = column.auto_increment;
  if (column.defined_size < 0 || column.defined_size > std::numeric_limits<std::uint16_t>::max()) {
    Refuse(platform::kErrInvalidArgument, {message::kColumnTooLong, {{"<Column>", column.name}}});
  }
  spec.length = static_cast<std::uint16_t>(column.defined_size);
  return spec;
}

}  // namespace

JetConnection::JetConnection(files::FileSystem& system, const jet::OpenOptions& options)
    : system_(system), options_(options), session_(std::make_shared<ConnectionState>()) {}

JetConnection::~JetConnection() { CloseDatabase(); }

void JetConnection::Open(std::string_view connection_string) {
  if (session_->database) {
    Refuse(platform::kErrObjectOpen, message::kConnectionOpen);
  }
  const ConnectionSettings settings = ParseConnectionString(connection_string);
  jet::OpenOptions options = options_;
  options.read_only = options.read_only || settings.read_only;
  session_->Guarded(
      [&] { session_->database = jet::Database::Open(system_, settings.data_source, options); });
}

void JetConnection::Create(std::string_view connection_string) {
  if (session_->database) {
    Refuse(platform::kErrObjectOpen, message::kConnectionOpen);
  }
  const ConnectionSettings settings = ParseConnectionString(connection_string);
  session_->Guarded(
      [&] { session_->database = jet::Database::Create(system_, settings.data_source, options_); });
}

void JetConnection::CloseDatabase() noexcept {
  for (const auto& recordset : session_->OpenRecordsets()) recordset->Abandon();
  for (; transactions_ > 0; --transactions_) session_->database->Rollback();
  session_->database.reset();
}

void JetConnection::Close() {
  session_->OpenDatabase();
  CloseDatabase();
}

ObjectState JetConnection::State() const {
  return session_->database ? ObjectState::kOpen : ObjectState::kClosed;
}

jet::Database& JetConnection::database() { return session_->OpenDatabase(); }

void JetConnection::RequireTransaction() const {
  session_->OpenDatabase();
  if (transactions_ > 0) return;
  Refuse(platform::kErrNotAllowedHere, message::kNoTransaction);
}

void JetConnection::BeginTrans() {
  session_->Guarded([&] { session_->OpenDatabase().Begin(); });
  ++transactions_;
}

void JetConnection::CommitTrans() {
  RequireTransaction();
  session_->Guarded([&] { session_->database->Commit(); });
  --transactions_;
}

void JetConnection::RollbackTrans() {
  RequireTransaction();
  session_->database->Rollback();
  --transactions_;
}

const std::vector<platform::ProviderError>& JetConnection::Errors() const {
  return session_->errors;
}

std::shared_ptr<platform::Recordset> JetConnection::CreateRecordset() {
  return std::make_shared<JetRecordset>(session_);
}

std::vector<std::shared_ptr<platform::Recordset>> JetConnection::OpenRecordsets() {
  const auto open = session_->OpenRecordsets();
  return {open.begin(), open.end()};
}

jet::Table& JetConnection::Table(std::string_view name) {
  jet::Database& database = session_->OpenDatabase();
  if (!database.HasTable(name)) {
    Refuse(platform::kErrNoSuchTable,
           {message::kNoTable, {{"<Path>", database.path()}, {"<Table>", name}}});
  }
  return database.OpenTable(name);
}

std::vector<std::string> JetConnection::TableNames() {
  return session_->Reading([&] {
    std::vector<std::string> names;
    for (const jet::TableInfo& table : session_->OpenDatabase().Tables()) {
      names.push_back(table.name);
    }
    return names;
  });
}

std::vector<platform::Connection::IndexInfo> JetConnection::Indexes(std::string_view table) {
  return session_->Reading([&] {
    const jet::Table& source = Table(table);
    std::vector<IndexInfo> indexes;
    for (const jet::Index& index : source.indexes()) {
      const jet::PhysicalIndex& physical = source.physical_indexes()[index.physical];
      IndexInfo& info = indexes.emplace_back();
      info.name = index.name;
      info.unique = physical.unique;
      info.primary = index.kind == jet::IndexKind::kPrimaryKey;
      for (const jet::IndexColumn& column : physical.columns) {
        info.columns.push_back(source.columns()[column.column].name);
      }
    }
    return indexes;
  });
}

std::vector<platform::Connection::ColumnInfo> JetConnection::Columns(std::string_view table) {
  return session_->Reading([&] {
    std::vector<ColumnInfo> columns;
    for (const jet::Column& column : Table(table).columns()) {
      columns.push_back(
          {column.name, DataTypeOf(column.type), DefinedSizeOf(column), column.auto_number});
    }
    return columns;
  });
}

std::int32_t JetConnection::TableRowCount(std::string_view table) {
  return session_->Reading([&] {
    constexpr std::uint32_t kMaxCount = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(Table(table).RowCount(), kMaxCount));
  });
}

void JetConnection::CreateTable(std::string_view name, const std::vector<ColumnInfo>& columns,
                                const std::vector<IndexInfo>& indexes) {
  session_->Guarded([&] {
    jet::TableSpec spec;
    spec.name = name;
    for (const ColumnInfo& column : columns) spec.columns.push_back(ToSpec(column));
    for (const IndexInfo& index : indexes) spec.indexes.push_back(ToSpec(index));
    session_->OpenDatabase().CreateTable(spec);
  });
}

void JetConnection::CreateIndex(std::string_view table, const IndexInfo& index) {
  session_->Guarded(
      [&] { session_->OpenDatabase().CreateIndex(Table(table).name(), ToSpec(index)); });
}

}  // namespace recordset
