// SPDX-License-Identifier: MIT
#include "cli/database_schema.h"

#include <nlohmann/json.hpp>
#include <set>

namespace cli {

namespace {

using Json = nlohmann::ordered_json;

// Bytes, of a text column characters.
std::uint16_t Length(const jet::Column& column) {
  return column.type == jet::ColumnType::kText ? column.length / 2 : column.length;
}

Json ColumnJson(const jet::Column& column) {
  Json json = {
      {"Name", column.name}, {"Type", ColumnTypeName(column.type)}, {"Length", Length(column)}};
  if (column.auto_number || column.auto_guid) json["AutoNumber"] = true;
  if (column.compressed) json["Compressed"] = true;
  if (column.type == jet::ColumnType::kDecimal) {
    json["Precision"] = column.precision;
    json["Scale"] = column.scale;
  }
  return json;
}

Json IndexJson(const jet::Index& index, const jet::Table& table) {
  const jet::PhysicalIndex& physical = table.physical_indexes()[index.physical];
  Json columns = Json::array();
  for (const jet::IndexColumn& column : physical.columns) {
    columns.push_back(table.columns()[column.column].name + (column.ascending ? "" : " DESC"));
  }
  Json json = {{"Name", index.name}, {"Columns", columns}};
  if (index.kind == jet::IndexKind::kPrimaryKey) json["Primary"] = true;
  if (index.kind == jet::IndexKind::kRelation) json["Relation"] = true;
  if (physical.unique) json["Unique"] = true;
  if (physical.required) json["Required"] = true;
  if (physical.ignore_nulls) json["IgnoreNulls"] = true;
  return json;
}

Json TableJson(jet::Database& database, const std::string& name) {
  jet::Table& table = database.OpenTable(name);
  Json json = {{"Name", table.name()}, {"Rows", table.RowCount()}};
  for (const jet::Column& column : table.columns()) json["Columns"].push_back(ColumnJson(column));
  for (const jet::Index& index : table.indexes()) {
    json["Indexes"].push_back(IndexJson(index, table));
  }
  for (const jet::Property& property : database.Properties(name)) {
    json["Properties"].push_back(
        {{"Column", property.column}, {"Name", property.name}, {"Value", property.text}});
  }
  // That it was opened for reading here is no news.
  if (const std::string reason = table.ReadOnlyReason().English();
      reason != database.read_only_reason().English()) {
    json["ReadOnly"] = reason;
  }
  return json;
}

Json RelationJson(const jet::Relation& relation) {
  return {{"Name", relation.name},
          {"Table", relation.table},
          {"Columns", relation.columns},
          {"ReferencedTable", relation.referenced_table},
          {"ReferencedColumns", relation.referenced_columns},
          {"Enforced", relation.enforced},
          {"CascadeUpdates", relation.cascade_updates},
          {"CascadeDeletes", relation.cascade_deletes}};
}

Json Schema(jet::Database& database) {
  Json json = {{"Tables", Json::array()}, {"Relations", Json::array()}};
  std::set<std::string> tables;
  for (const jet::TableInfo& table : database.Tables()) {
    json["Tables"].push_back(TableJson(database, table.name));
    tables.insert(table.name);
  }
  for (const jet::Relation& relation : database.Relations()) {
    // Access relates tables of its own, too.
    if (tables.contains(relation.table)) json["Relations"].push_back(RelationJson(relation));
  }
  return json;
}

// "a, b" of a list, "yes" flags as words, the rest as it is.
std::string Words(const Json& object, std::initializer_list<const char*> flags) {
  std::string text;
  for (const char* flag : flags) {
    if (object.value(flag, false)) text += std::string(", ") + flag;
  }
  return text;
}

std::string Joined(const Json& list) {
  std::string text;
  for (const Json& entry : list) text += (text.empty() ? "" : ", ") + entry.get<std::string>();
  return text;
}

// What the type's name leaves open.
std::string Size(const Json& column) {
  const std::string type = column["Type"];
  if (type == "text" || type == "binary") return "(" + column["Length"].dump() + ")";
  if (type != "decimal") return {};
  return "(" + column["Precision"].dump() + "," + column["Scale"].dump() + ")";
}

// The properties of a column, or of the table itself, that say what its values may be. The others
// (there are dozens) are about how Access shows the column; they are in the JSON.
std::string Rules(const Json& table, const std::string& column) {
  static const std::set<std::string> kRules = {"AllowZeroLength", "Caption",  "DefaultValue",
                                               "Description",     "Required", "ValidationRule",
                                               "ValidationText",  "Format"};
  std::string text;
  for (const Json& property : table.value("Properties", Json::array())) {
    const std::string name = property["Name"], value = property["Value"];
    if (property["Column"] != column || !kRules.contains(name) || value == "false") continue;
    text += ", " + name + (value == "true" ? "" : " " + property["Value"].dump());
  }
  return text;
}

void AppendTable(std::string& text, const Json& table) {
  text += table["Name"].get<std::string>() + " (" + table["Rows"].dump() + " rows)" +
          Rules(table, "") + "\n";
  for (const Json& column : table.value("Columns", Json::array())) {
    const std::string name = column["Name"];
    text += "  " + name + "  " + column["Type"].get<std::string>() + Size(column) +
            Words(column, {"AutoNumber", "Compressed"}) + Rules(table, name) + "\n";
  }
  for (const Json& index : table.value("Indexes", Json::array())) {
    text += "  index " + index["Name"].get<std::string>() + " on " + Joined(index["Columns"]) +
            Words(index, {"Primary", "Relation", "Unique", "Required", "IgnoreNulls"}) + "\n";
  }
  if (table.contains("ReadOnly")) {
    text += "  read-only: " + table["ReadOnly"].get<std::string>() + "\n";
  }
}

}  // namespace

std::string_view ColumnTypeName(jet::ColumnType type) {
  switch (type) {
    case jet::ColumnType::kBoolean:
      return "yes/no";
    case jet::ColumnType::kByte:
      return "byte";
    case jet::ColumnType::kInteger:
      return "integer";
    case jet::ColumnType::kLong:
      return "long";
    case jet::ColumnType::kCurrency:
      return "currency";
    case jet::ColumnType::kSingle:
      return "single";
    case jet::ColumnType::kDouble:
      return "double";
    case jet::ColumnType::kDate:
      return "date/time";
    case jet::ColumnType::kBinary:
      return "binary";
    case jet::ColumnType::kText:
      return "text";
    case jet::ColumnType::kOle:
      return "ole";
    case jet::ColumnType::kMemo:
      return "memo";
    case jet::ColumnType::kGuid:
      return "guid";
    case jet::ColumnType::kDecimal:
      return "decimal";
    case jet::ColumnType::kOpaque:
      return "opaque";
  }
  return "unknown";
}

std::string SchemaAsJson(jet::Database& database) {
  return Schema(database).dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string SchemaAsText(jet::Database& database) {
  const Json schema = Schema(database);
  std::string text;
  for (const Json& table : schema["Tables"]) AppendTable(text, table);
  for (const Json& relation : schema["Relations"]) {
    text += "relation " + relation["Name"].get<std::string>() + ": " +
            relation["Table"].get<std::string>() + "(" + Joined(relation["Columns"]) + ") -> " +
            relation["ReferencedTable"].get<std::string>() + "(" +
            Joined(relation["ReferencedColumns"]) + ")" +
            Words(relation, {"Enforced", "CascadeUpdates", "CascadeDeletes"}) + "\n";
  }
  return text;
}

}  // namespace cli
