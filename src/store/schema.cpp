// SPDX-License-Identifier: MIT
#include "store/schema.h"

#include <algorithm>
#include <string_view>

#include "messages/text_number.h"
#include "platform/text.h"
#include "store/operation_texts.h"

namespace store {
namespace {

using platform::Connection;
using platform::DataType;

constexpr std::int32_t kTextSize = 255;             // characters
constexpr messages::TextNumber kTextMissing{1800};  // what the database lacks, and the remedy

Connection::ColumnInfo Id() { return {"ID", DataType::kInteger, 0, true}; }
Connection::ColumnInfo Number(const char* name) { return {name, DataType::kInteger, 0, false}; }
Connection::ColumnInfo YesNo(const char* name) { return {name, DataType::kBoolean, 0, false}; }
Connection::ColumnInfo Text(const char* name) {
  return {name, DataType::kVarWChar, kTextSize, false};
}

Connection::IndexInfo PrimaryKey() { return {"PrimaryKey", {"ID"}, true, true}; }

template <class Range, class Name>
bool Contains(const Range& range, std::string_view name, Name name_of) {
  return std::ranges::any_of(
      range, [&](const auto& e) { return platform::EqualsIgnoringCase(name_of(e), name); });
}

bool HasTable(const std::vector<std::string>& tables, const TableDefinition& table) {
  return Contains(tables, table.name, [](const std::string& name) { return name; });
}

std::vector<std::string> MissingColumns(Connection& connection, const TableDefinition& table) {
  const auto present = connection.Columns(table.name);
  std::vector<std::string> missing;
  for (const Connection::ColumnInfo& column : table.columns) {
    if (!Contains(present, column.name, [](const auto& e) { return e.name; })) {
      missing.push_back(column.name);
    }
  }
  return missing;
}

void RequireColumns(Connection& connection, const TableDefinition& table) {
  const std::vector<std::string> missing = MissingColumns(connection, table);
  if (missing.empty()) return;
  throw platform::Error(platform::ErrorKind::kRefused, platform::kErrItemNotFound,
                        messages::Message({kTextColumnMissing}, {{"<Table>", table.name},
                                                                 {"<Column>", missing.front()}}));
}

std::vector<Connection::IndexInfo> MissingIndexesOf(Connection& connection,
                                                    const TableDefinition& table) {
  const auto present = connection.Indexes(table.name);
  const bool has_primary = std::ranges::any_of(present, [](const auto& e) { return e.primary; });
  std::vector<Connection::IndexInfo> missing;
  for (const Connection::IndexInfo& index : table.indexes) {
    if (index.primary && has_primary) continue;
    if (Contains(present, index.name, [](const auto& e) { return e.name; })) continue;
    missing.push_back(index);
  }
  return missing;
}

void AddMissingIndexes(Connection& connection, const TableDefinition& table,
                       std::vector<std::string>& added) {
  for (const Connection::IndexInfo& index : MissingIndexesOf(connection, table)) {
    connection.CreateIndex(table.name, index);
    added.push_back(table.name + "." + index.name);
  }
}

// Rolls back unless it was committed.
class TransactionScope {
 public:
  explicit TransactionScope(Connection& connection) : connection_(connection) {
    connection_.BeginTrans();
  }
  ~TransactionScope() {
    try {
      if (!done_) connection_.RollbackTrans();
    } catch (const platform::Error&) {
      // The failure that led here is the one to report.
    }
  }
  TransactionScope(const TransactionScope&) = delete;
  TransactionScope& operator=(const TransactionScope&) = delete;
  void Commit() {
    connection_.CommitTrans();
    done_ = true;
  }

 private:
  Connection& connection_;
  bool done_ = false;
};

}  // namespace

const std::vector<TableDefinition>& ProjectSchema() {
  static const std::vector<TableDefinition> schema = {
      {"TvbfFormulas",
       {Id(), Text("Name"), Text("ProgID"), Number("Type"), Number("ScanTime"), YesNo("Enabled"),
        Text("Comment")},
       {PrimaryKey(), {"ProgID", {"ProgID", "Name"}, false, false}}},
      {"TvbfAlias",
       {Id(), Text("ItemID"), Text("VBAlias")},
       {PrimaryKey(), {"VBAlias", {"VBAlias"}, true, false}}},
      {"TvbfParams",
       {Id(), Number("ParentID"), Number("AliasID"), YesNo("In"), YesNo("Out")},
       {PrimaryKey(),
        {"AliasID", {"AliasID"}, false, false},
        {"Unique", {"ParentID", "AliasID"}, true, false}}},
  };
  return schema;
}

std::vector<std::string> MissingFromSchema(Connection& connection) {
  std::vector<std::string> missing;
  const std::vector<std::string> tables = connection.TableNames();
  for (const TableDefinition& table : ProjectSchema()) {
    if (!HasTable(tables, table)) {
      missing.push_back(table.name);
      continue;
    }
    for (const std::string& column : MissingColumns(connection, table)) {
      missing.push_back(table.name + "." + column);
    }
  }
  return missing;
}

std::vector<std::string> MissingIndexes(Connection& connection) {
  std::vector<std::string> missing;
  for (const TableDefinition& table : ProjectSchema()) {
    for (const Connection::IndexInfo& index : MissingIndexesOf(connection, table)) {
      missing.push_back(table.name + "." + index.name);
    }
  }
  return missing;
}

messages::Message DescribeMissing(const std::vector<std::string>& missing) {
  std::string names;
  for (const std::string& name : missing) names += (names.empty() ? "" : ", ") + name;
  if (missing.empty()) return {};
  return messages::Message({kTextMissing}, {{"<Names>", names}});
}

std::vector<std::string> CompleteSchema(Connection& connection) {
  TransactionScope transaction(connection);
  std::vector<std::string> added;
  const std::vector<std::string> tables = connection.TableNames();
  for (const TableDefinition& table : ProjectSchema()) {
    if (HasTable(tables, table)) {
      RequireColumns(connection, table);
      AddMissingIndexes(connection, table, added);
    } else {
      connection.CreateTable(table.name, table.columns, table.indexes);
      added.push_back(table.name);
    }
  }
  transaction.Commit();
  return added;
}

}  // namespace store
