// SPDX-License-Identifier: MIT
#include "jet/system_tables.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace jet {
namespace {

constexpr std::uint16_t kMaxTextLength = 510;

struct ColumnRow {
  const char* name;
  ColumnType type;
  std::uint16_t id;
  int variable;  // variable index, -1 for a column of fixed length
  std::uint16_t fixed_offset;
  std::uint16_t length;
  bool account = false;
};

struct IndexRow {
  const char* name;
  std::initializer_list<std::string_view> columns;
  IndexKind kind;
  bool unique;
  bool ignore_nulls;
  bool required;
};

using enum ColumnType;

constexpr ColumnRow kObjects[] = {{"Connect", kMemo, 9, 3, 0, 0},
                                  {"Database", kMemo, 8, 2, 0, 0},
                                  {"DateCreate", kDate, 4, -1, 10, 8},
                                  {"DateUpdate", kDate, 5, -1, 18, 8},
                                  {"Flags", kLong, 7, -1, 26, 4},
                                  {"ForeignName", kText, 10, 4, 0, kMaxTextLength},
                                  {"Id", kLong, 0, -1, 0, 4},
                                  {"Lv", kOle, 13, 7, 0, 0},
                                  {"LvExtra", kOle, 16, 10, 0, 0},
                                  {"LvModule", kOle, 15, 9, 0, 0},
                                  {"LvProp", kOle, 14, 8, 0, 0},
                                  {"Name", kText, 2, 0, 0, kMaxTextLength},
                                  {"Owner", kBinary, 6, 1, 0, kMaxTextLength, true},
                                  {"ParentId", kLong, 1, -1, 4, 4},
                                  {"RmtInfoLong", kOle, 12, 6, 0, 0},
                                  {"RmtInfoShort", kBinary, 11, 5, 0, kMaxTextLength},
                                  {"Type", kInteger, 3, -1, 8, 2}};

constexpr ColumnRow kAccess[] = {{"ACM", kLong, 2, -1, 4, 4},
                                 {"FInheritable", kBoolean, 3, -1, 0, 1},
                                 {"ObjectId", kLong, 0, -1, 0, 4},
                                 {"SID", kBinary, 1, 0, 0, kMaxTextLength, true}};

constexpr ColumnRow kQueries[] = {
    {"Attribute", kByte, 1, -1, 4, 1},         {"Expression", kMemo, 5, 3, 0, 0},
    {"Flag", kInteger, 6, -1, 5, 2},           {"LvExtra", kLong, 7, -1, 7, 4},
    {"Name1", kText, 3, 1, 0, kMaxTextLength}, {"Name2", kText, 4, 2, 0, kMaxTextLength},
    {"ObjectId", kLong, 0, -1, 0, 4},          {"Order", kBinary, 2, 0, 0, kMaxTextLength}};

constexpr ColumnRow kRelationships[] = {{"ccolumn", kLong, 2, -1, 4, 4},
                                        {"grbit", kLong, 1, -1, 0, 4},
                                        {"icolumn", kLong, 3, -1, 8, 4},
                                        {"szColumn", kText, 5, 2, 0, kMaxTextLength},
                                        {"szObject", kText, 4, 1, 0, kMaxTextLength},
                                        {"szReferencedColumn", kText, 7, 4, 0, kMaxTextLength},
                                        {"szReferencedObject", kText, 6, 3, 0, kMaxTextLength},
                                        {"szRelationship", kText, 0, 0, 0, kMaxTextLength}};

// Hands out the rows of the map page and the index roots in their order.
struct Numbering {
  std::uint8_t next_map = 0;
  PageNumber next_root = kFirstSystemRoot;

  RowId Map() { return {kSystemMapPage, next_map++}; }
};

TableDefinition Define(PageNumber page, std::span<const ColumnRow> columns, Numbering& numbering) {
  TableDefinition table;
  table.page = page;
  table.pages = {page};
  table.type = kSystemTable;
  for (const ColumnRow& row : columns) {
    Column column;
    column.name = row.name;
    column.type = row.type;
    column.id = row.id;
    column.fixed = row.variable < 0;
    column.variable_index = static_cast<std::uint16_t>(std::max(row.variable, 0));
    column.fixed_offset = row.fixed_offset;
    column.length = row.length;
    column.system = true;
    column.account = row.account;
    if (!column.fixed) ++table.variable_columns;
    table.columns.push_back(std::move(column));
  }
  table.max_columns = static_cast<std::uint16_t>(table.columns.size());
  table.owned_map = numbering.Map();
  table.free_map = numbering.Map();
  return table;
}

std::size_t Position(const TableDefinition& table, std::string_view name) {
  const auto found = std::find_if(table.columns.begin(), table.columns.end(),
                                  [&](const Column& column) { return column.name == name; });
  return static_cast<std::size_t>(found - table.columns.begin());
}

void AddLongValues(TableDefinition& table, std::initializer_list<std::string_view> columns,
                   Numbering& numbering) {
  for (const std::string_view name : columns) {
    const RowId owned = numbering.Map();
    table.long_values.push_back({Position(table, name), owned, numbering.Map()});
  }
  std::sort(table.long_values.begin(), table.long_values.end(),
            [](const LongValueMaps& a, const LongValueMaps& b) { return a.column < b.column; });
}

void AddIndexes(TableDefinition& table, std::initializer_list<IndexRow> indexes,
                Numbering& numbering) {
  for (const IndexRow& row : indexes) {
    PhysicalIndex physical;
    for (const std::string_view name : row.columns) {
      physical.columns.push_back({Position(table, name), true});
    }
    physical.unique = row.unique;
    physical.ignore_nulls = row.ignore_nulls;
    physical.required = row.required;
    physical.usage_map = numbering.Map();
    physical.root = numbering.next_root++;
    Index index;
    index.name = row.name;
    index.kind = row.kind;
    index.physical = table.physical.size();
    index.number = static_cast<std::uint32_t>(index.physical);
    table.physical.push_back(std::move(physical));
    table.indexes.push_back(std::move(index));
  }
  std::sort(table.indexes.begin(), table.indexes.end(),
            [](const Index& a, const Index& b) { return a.name < b.name; });
}

}  // namespace

// The numbers of the maps follow from the order of the calls: tables in page order, in each first
// the long values by column number and then the indexes.
std::array<TableDefinition, 4> SystemTables() {
  constexpr auto kOrdinary = IndexKind::kOrdinary;
  constexpr auto kPrimary = IndexKind::kPrimaryKey;
  Numbering numbering;
  std::array<TableDefinition, 4> tables;
  tables[0] = Define(2, kObjects, numbering);
  AddLongValues(tables[0],
                {"Database", "Connect", "RmtInfoLong", "Lv", "LvProp", "LvModule", "LvExtra"},
                numbering);
  AddIndexes(tables[0],
             {{"ParentIdName", {"ParentId", "Name"}, kOrdinary, true, false, false},
              {"Id", {"Id"}, kPrimary, true, false, false}},
             numbering);
  tables[1] = Define(3, kAccess, numbering);
  AddIndexes(tables[1], {{"ObjectId", {"ObjectId"}, kOrdinary, false, false, true}}, numbering);
  tables[2] = Define(4, kQueries, numbering);
  AddLongValues(tables[2], {"Expression"}, numbering);
  AddIndexes(
      tables[2],
      {{"ObjectIdAttribute", {"ObjectId", "Attribute", "Order"}, kPrimary, true, false, false}},
      numbering);
  tables[3] = Define(5, kRelationships, numbering);
  AddIndexes(tables[3],
             {{"szRelationship", {"szRelationship"}, kOrdinary, false, true, false},
              {"szObject", {"szObject"}, kOrdinary, false, true, false},
              {"szReferencedObject", {"szReferencedObject"}, kOrdinary, false, true, false}},
             numbering);
  return tables;
}

}  // namespace jet
