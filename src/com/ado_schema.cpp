// SPDX-License-Identifier: MIT
#include "com/ado_schema.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "com/schema_numbers.h"
#include "platform/text.h"

namespace com {

namespace {

using platform::Connection;
using platform::DataType;

// A row of a schema recordset.
class SchemaRow {
 public:
  explicit SchemaRow(const LateBound& rows) : fields_(rows.Object(L"Fields")) {}

  platform::Variant operator[](const char* column) const {
    return fields_.Object(L"Item", {Value(column)}).Get(L"Value").ToVariant();
  }
  std::string Text(const char* column) const { return (*this)[column].ToText(); }
  std::int32_t Long(const char* column) const { return (*this)[column].ToLong(); }

 private:
  LateBound fields_;
};

// The rows of a table, or of all tables when none is named. `place`: of the table's name among the
// restrictions.
void ForEachRow(const LateBound& connection, std::int32_t query, std::size_t place,
                std::string_view table, const std::function<void(const SchemaRow&)>& visit) {
  LateBound::Arguments arguments = {Value(query)};
  if (!table.empty()) {
    std::vector<Value> restrictions(place + 1);
    restrictions[place] = Value(table);
    arguments.push_back(Value::Array(std::move(restrictions)));
  }
  const LateBound rows = connection.Object(L"OpenSchema", std::move(arguments));
  for (; !rows.Get(L"EOF").ToBool(); rows.Get(L"MoveNext")) visit(SchemaRow(rows));
  rows.Get(L"Close");
}

// The schema calls texts and bytes of both kinds by one number each.
DataType TypeOf(const SchemaRow& column) {
  const std::int32_t type = column.Long("DATA_TYPE");
  const bool is_long = (column.Long("COLUMN_FLAGS") & kLongFlag) != 0;
  if (type == kWideText) return is_long ? DataType::kLongVarWChar : DataType::kVarWChar;
  if (type == kBytes) return is_long ? DataType::kLongVarBinary : DataType::kVarBinary;
  return static_cast<DataType>(type);
}

// What has a place in a definition, put in order.
template <class Thing>
std::vector<Thing> InOrder(std::multimap<std::int32_t, Thing> placed) {
  std::vector<Thing> things;
  for (auto& [place, thing] : placed) things.push_back(std::move(thing));
  return things;
}

}  // namespace

std::vector<std::string> ReadTableNames(const LateBound& connection) {
  std::vector<std::string> names;
  ForEachRow(connection, kSchemaTables, 2, "", [&](const SchemaRow& row) {
    if (row.Text("TABLE_TYPE") == "TABLE") names.push_back(row.Text("TABLE_NAME"));
  });
  return names;
}

std::vector<Connection::IndexInfo> ReadIndexes(const LateBound& connection,
                                               std::string_view table) {
  std::vector<Connection::IndexInfo> indexes;
  std::vector<std::multimap<std::int32_t, std::string>> columns;
  ForEachRow(connection, kSchemaIndexes, 4, table, [&](const SchemaRow& row) {
    const std::string name = row.Text("INDEX_NAME");
    const auto known = std::ranges::find(indexes, name, &Connection::IndexInfo::name);
    const auto place = static_cast<std::size_t>(known - indexes.begin());
    if (known == indexes.end()) {
      indexes.push_back({name, {}, row["UNIQUE"].ToBool(), row["PRIMARY_KEY"].ToBool()});
      columns.emplace_back();
    }
    columns[place].emplace(row.Long("ORDINAL_POSITION"), row.Text("COLUMN_NAME"));
  });
  for (std::size_t i = 0; i < indexes.size(); ++i) {
    indexes[i].columns = InOrder(std::move(columns[i]));
  }
  return indexes;
}

std::vector<Connection::ColumnInfo> ReadColumns(const LateBound& connection,
                                                std::string_view table) {
  std::multimap<std::int32_t, Connection::ColumnInfo> columns;
  ForEachRow(connection, kSchemaColumns, 2, table, [&](const SchemaRow& row) {
    const DataType type = TypeOf(row);
    const bool numbered =
        type == DataType::kInteger && row.Long("COLUMN_FLAGS") == kAutoIncrementFlags;
    columns.emplace(row.Long("ORDINAL_POSITION"),
                    Connection::ColumnInfo{row.Text("COLUMN_NAME"), type,
                                           row.Long("CHARACTER_MAXIMUM_LENGTH"), numbered});
  });
  return InOrder(std::move(columns));
}

std::int32_t ReadRowCount(const LateBound& connection, std::string_view table) {
  std::int32_t count = 0;
  ForEachRow(connection, kSchemaStatistics, 2, table,
             [&](const SchemaRow& row) { count = row.Long("CARDINALITY"); });
  return count;
}

}  // namespace com
