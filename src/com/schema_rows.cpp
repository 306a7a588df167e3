// SPDX-License-Identifier: MIT
#include "com/schema_rows.h"

#include <algorithm>

#include "com/collection.h"
#include "com/schema_numbers.h"
#include "com/values_object.h"
#include "platform/text.h"

namespace com {

const Member<SchemaRows> SchemaRows::kMembers[8] = {
    {L"Fields", &SchemaRows::Fields},     {L"EOF", &SchemaRows::IsAtEnd},
    {L"BOF", &SchemaRows::IsEmpty},       {L"RecordCount", &SchemaRows::RecordCount},
    {L"State", &SchemaRows::State},       {L"MoveFirst", &SchemaRows::MoveFirst},
    {L"MoveNext", &SchemaRows::MoveNext}, {L"Close", &SchemaRows::Close},
};

Value SchemaRows::Fields(const Arguments& arguments) {
  if (next_ >= rows_.size()) Require(ResultOf(platform::kErrNoCurrentRecord));
  const Row& row = rows_[next_];
  const auto& columns = columns_;
  return Collection::Answer(
      {[columns] { return columns.size(); },
       [columns, row](std::size_t place) {
         return Value(Make<ValuesObject>(std::vector<ValuesObject::Entry>{
             {L"Value", row[place]}, {L"Name", Value(Utf8(columns[place]))}}));
       },
       [columns](const std::string& name) {
         const std::wstring wide = Wide(name);
         return static_cast<std::size_t>(
             std::ranges::find_if(
                 columns, [&](const std::wstring& own) { return SameMemberName(own, wide); }) -
             columns.begin());
       },
       0, platform::kErrItemNotFound},
      arguments);
}

Value SchemaRows::MoveFirst(const Arguments&) {
  next_ = 0;
  return {};
}

Value SchemaRows::MoveNext(const Arguments&) {
  if (next_ >= rows_.size()) Require(ResultOf(platform::kErrNoCurrentRecord));
  ++next_;
  return {};
}

Value SchemaRows::Close(const Arguments&) {
  if (!open_) Require(ResultOf(platform::kErrObjectClosed));
  open_ = false;
  rows_.clear();
  return {};
}

namespace {

using Rows = std::vector<SchemaRows::Row>;

using platform::DataType;

std::int32_t SchemaTypeOf(DataType type) {
  switch (type) {
    case DataType::kVarWChar:
    case DataType::kLongVarWChar:
      return kWideText;
    case DataType::kVarBinary:
    case DataType::kLongVarBinary:
      return kBytes;
    default:
      return static_cast<std::int32_t>(type);
  }
}

std::int32_t FlagsOf(const platform::Connection::ColumnInfo& column) {
  if (column.auto_increment) return kAutoIncrementFlags;
  const bool is_long =
      column.type == DataType::kLongVarWChar || column.type == DataType::kLongVarBinary;
  return is_long ? kOrdinaryFlags | kLongFlag : kOrdinaryFlags;
}

void AddColumns(platform::Connection& connection, const std::string& table, Rows& rows) {
  std::int32_t place = 0;
  for (const auto& column : connection.Columns(table)) {
    const std::int32_t type = SchemaTypeOf(column.type);
    const bool has_length = type == kWideText || type == kBytes;
    rows.push_back({Value(table), Value(column.name), Value(++place), Value(type),
                    has_length ? Value(column.defined_size) : Value::Null(),
                    Value(FlagsOf(column))});
  }
}

void AddIndexes(platform::Connection& connection, const std::string& table, Rows& rows) {
  for (const auto& index : connection.Indexes(table)) {
    std::int32_t place = 0;
    for (const std::string& column : index.columns) {
      rows.push_back({Value(table), Value(index.name), Value(index.primary), Value(index.unique),
                      Value(column), Value(++place)});
    }
  }
}

// The table that the restrictions name; "" for all of them.
std::string RestrictedTo(const std::vector<Value>& restrictions, std::size_t place) {
  std::string table;
  for (std::size_t i = 0; i < restrictions.size(); ++i) {
    const platform::Variant value = restrictions[i].ToVariant();
    if (value.IsEmpty() || value.IsMissing()) continue;
    if (i != place) Require(ResultOf(platform::kErrFeatureNotAvailable));
    table = value.ToText();
  }
  return table;
}

struct Schema {
  std::int32_t query;
  std::size_t table_restriction;  // its place
  std::vector<std::wstring> columns;
  void (*add)(platform::Connection&, const std::string& table, Rows&);
};

const std::vector<Schema>& Schemas() {
  static const std::vector<Schema> kSchemas = {
      {kSchemaTables,
       2,
       {L"TABLE_NAME", L"TABLE_TYPE"},
       [](platform::Connection&, const std::string& table, Rows& rows) {
         rows.push_back({Value(table), Value("TABLE")});
       }},
      {kSchemaColumns,
       2,
       {L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL_POSITION", L"DATA_TYPE",
        L"CHARACTER_MAXIMUM_LENGTH", L"COLUMN_FLAGS"},
       AddColumns},
      {kSchemaIndexes,
       4,
       {L"TABLE_NAME", L"INDEX_NAME", L"PRIMARY_KEY", L"UNIQUE", L"COLUMN_NAME",
        L"ORDINAL_POSITION"},
       AddIndexes},
      {kSchemaStatistics,
       2,
       {L"TABLE_NAME", L"CARDINALITY"},
       [](platform::Connection& connection, const std::string& table, Rows& rows) {
         rows.push_back({Value(table), Value(connection.TableRowCount(table))});
       }},
  };
  return kSchemas;
}

}  // namespace

Reference<SchemaRows> OpenSchemaRows(platform::Connection& connection, std::int32_t query,
                                     const std::vector<Value>& restrictions) {
  const auto schema = std::ranges::find(Schemas(), query, &Schema::query);
  if (schema == Schemas().end()) Require(ResultOf(platform::kErrFeatureNotAvailable));
  const std::string wanted = RestrictedTo(restrictions, schema->table_restriction);
  Rows rows;
  for (const std::string& table : connection.TableNames()) {
    if (!wanted.empty() && !platform::EqualsIgnoringCase(wanted, table)) continue;
    schema->add(connection, table, rows);
  }
  return Make<SchemaRows>(schema->columns, std::move(rows));
}

}  // namespace com
