// SPDX-License-Identifier: MIT
#include "jet/table_creator.h"

#include <algorithm>
#include <cstring>

#include "jet/error.h"
#include "jet/index_key.h"
#include "jet/index_page_edit.h"
#include "jet/new_database.h"
#include "jet/row_codec.h"
#include "jet/table_scan.h"
#include "jet/text_codec.h"
#include "jet/usage_map.h"

namespace jet {
namespace {

constexpr std::size_t kMaxName = 64;
constexpr std::int32_t kDatabaseObject = 0x10000000;
constexpr std::int32_t kFullRights = 1048575;
constexpr PageNumber kAccessDefinition = 3;
// Known accounts differ from the engine's by what is XORed to their first two bytes.
constexpr std::byte kCreatorDifference[] = {std::byte{0x00}, std::byte{0x07}};

bool IsVariable(ColumnType type) {
  return type == ColumnType::kText || type == ColumnType::kMemo || type == ColumnType::kOle ||
         type == ColumnType::kBinary;
}

std::uint16_t LengthOf(const ColumnSpec& spec) {
  switch (spec.type) {
    case ColumnType::kBoolean:
      return 1;
    case ColumnType::kText:
      return spec.length == 0 ? kMaxTextLength : static_cast<std::uint16_t>(2 * spec.length);
    case ColumnType::kBinary:
      return spec.length == 0 ? kMaxTextLength : spec.length;
    case ColumnType::kMemo:
    case ColumnType::kOle:
      return 0;
    default: {
      Column column;
      column.type = spec.type;
      return static_cast<std::uint16_t>(FixedSize(column));
    }
  }
}

std::optional<std::size_t> PositionOf(const TableDefinition& definition, std::string_view name) {
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    if (SameName(definition.columns[i].name, name)) return i;
  }
  return std::nullopt;
}

}  // namespace

void TableCreator::Refuse(const messages::Message& cause, const messages::Message& remedy) const {
  throw Error(ErrorKind::kInvalid, session_.path(), {}, cause, remedy);
}

void TableCreator::CheckName(const messages::Message& what, const std::string& name) const {
  const bool bad = name.empty() || name.front() == ' ' || Utf16Length(name) > kMaxName ||
                   std::any_of(name.begin(), name.end(), [](char c) {
                     return static_cast<unsigned char>(c) < 0x20 ||
                            std::string_view(".!`[]").find(c) != std::string_view::npos;
                   });
  if (!bad) return;
  Refuse({message::kNoName, {{"<Name>", name}, {"<Kind>", what}}}, message::kGiveName);
}

void TableCreator::CheckIndex(const TableDefinition& definition, const IndexSpec& spec) const {
  CheckName(message::kAnIndex, spec.name);
  if (spec.columns.empty() || spec.columns.size() > kMaxIndexColumns) {
    Refuse({message::kIndexColumns, {{"<Index>", spec.name}, {"<Count>", spec.columns.size()}}},
           message::kGiveIndexColumns);
  }
  if (definition.physical.size() >= kMaxIndexes) {
    Refuse(message::kTooManyIndexes, message::kDeleteIndex);
  }
  for (const Index& other : definition.indexes) {
    if (SameName(other.name, spec.name)) {
      Refuse({message::kIndexExists, {{"<Index>", spec.name}}}, message::kChooseOtherName);
    }
    if (spec.primary && other.kind == IndexKind::kPrimaryKey) {
      Refuse(message::kPrimaryKeyExists, message::kMakeOrdinary);
    }
  }
  for (const IndexSpec::Part& part : spec.columns) {
    const auto position = PositionOf(definition, part.column);
    if (!position) {
      Refuse({message::kIndexColumnMissing, {{"<Index>", spec.name}, {"<Column>", part.column}}},
             message::kNameColumn);
    }
    const ColumnType type = definition.columns[*position].type;
    if (type == ColumnType::kOle || type == ColumnType::kOpaque || type == ColumnType::kMemo) {
      Refuse({message::kCannotBeIndexed, {{"<Column>", part.column}}},
             {message::kLeaveOutOfIndex, {{"<Index>", spec.name}}});
    }
  }
}

PhysicalIndex TableCreator::MakePhysical(const TableDefinition& definition, const IndexSpec& spec,
                                         PageNumber& map_page) {
  PhysicalIndex physical;
  for (const IndexSpec::Part& part : spec.columns) {
    physical.columns.push_back({*PositionOf(definition, part.column), part.ascending});
  }
  physical.unique = spec.unique || spec.primary;
  physical.required = spec.required || spec.primary;
  physical.ignore_nulls = spec.ignore_nulls;
  const PageEdit root = session_.pager().Allocate();
  InitIndexPage(root.data(), PageType::kIndexLeaf, definition.page, 0);
  physical.root = root.number();
  physical.usage_map = AddEmptyMap(session_.pager(), map_page);
  UsageMap(session_.pager(), physical.usage_map).Add(physical.root);
  return physical;
}

TableDefinition TableCreator::Define(const TableSpec& spec) {
  TableDefinition definition;
  std::uint16_t fixed_offset = 0;
  for (const ColumnSpec& wanted : spec.columns) {
    CheckName(message::kAColumn, wanted.name);
    if (PositionOf(definition, wanted.name)) {
      Refuse({message::kColumnTwice, {{"<Column>", wanted.name}}}, message::kChooseOtherName);
    }
    if (wanted.auto_number && wanted.type != ColumnType::kLong) {
      Refuse({message::kAutoNumberNotLong, {{"<Column>", wanted.name}}}, message::kGiveTypeLong);
    }
    Column column;
    column.name = wanted.name;
    column.type = wanted.type;
    column.id = static_cast<std::uint16_t>(definition.columns.size());
    column.display_position = column.id;
    column.length = LengthOf(wanted);
    if (column.length > kMaxTextLength) {
      Refuse({message::kColumnTooLong, {{"<Column>", wanted.name}}}, message::kGiveLength);
    }
    column.fixed = !IsVariable(wanted.type);
    column.auto_number = wanted.auto_number;
    column.compressed = wanted.compressed && wanted.type == ColumnType::kText;
    if (wanted.type == ColumnType::kDecimal) column.precision = 18;
    if (column.fixed) {
      column.fixed_offset = column.type == ColumnType::kBoolean ? std::uint16_t{0} : fixed_offset;
      fixed_offset = static_cast<std::uint16_t>(fixed_offset + FixedSize(column));
    } else {
      column.variable_index = definition.variable_columns++;
    }
    definition.columns.push_back(std::move(column));
  }
  const auto numbered = std::count_if(spec.columns.begin(), spec.columns.end(),
                                      [](const ColumnSpec& c) { return c.auto_number; });
  if (spec.columns.empty() || spec.columns.size() > kMaxColumns || numbered > 1) {
    Refuse({message::kWrongColumns, {{"<Table>", spec.name}}}, message::kGiveColumns);
  }
  definition.max_columns = static_cast<std::uint16_t>(definition.columns.size());
  return definition;
}

void TableCreator::CreateTable(const TableSpec& spec) {
  CheckName(message::kATable, spec.name);
  if (catalog_.FindTable(spec.name)) {
    throw Error(ErrorKind::kExists, session_.path(), {},
                {message::kTableExists, {{"<Table>", spec.name}}}, message::kChooseOtherName);
  }
  Pager& pager = session_.pager();
  TableDefinition definition = Define(spec);
  definition.page = pager.Allocate().number();
  definition.pages = {definition.page};
  PageNumber map_page = 0;
  definition.owned_map = AddEmptyMap(pager, map_page);
  definition.free_map = AddEmptyMap(pager, map_page);
  for (const IndexSpec& index : spec.indexes) {
    CheckIndex(definition, index);
    Index logical;
    logical.name = index.name;
    logical.physical = definition.physical.size();
    logical.number = static_cast<std::uint32_t>(logical.physical);
    logical.kind = index.primary ? IndexKind::kPrimaryKey : IndexKind::kOrdinary;
    definition.physical.push_back(MakePhysical(definition, index, map_page));
    definition.indexes.push_back(std::move(logical));
  }
  std::sort(definition.indexes.begin(), definition.indexes.end(),
            [](const Index& a, const Index& b) { return ComesBefore(a.name, b.name); });
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    if (!definition.columns[i].IsLongValue()) continue;
    const RowId owned = AddEmptyMap(pager, map_page);
    definition.long_values.push_back({i, owned, AddEmptyMap(pager, map_page)});
  }
  StoreDefinition(pager, definition.pages, EncodeDefinition(definition));
  AddToCatalog(definition, spec.name);
}

// Whoever owns the database object owns what is new.
std::vector<std::byte> TableCreator::OwnerOfNewObjects() {
  const std::size_t columns[] = {catalog_.Position("Id"), catalog_.Position("Owner")};
  TableScan scan(catalog_.table(), columns);
  RowBuffer row;
  while (scan.Next(row)) {
    if (row[0].integer() != kDatabaseObject || row[1].is_null()) continue;
    return {row[1].bytes().begin(), row[1].bytes().end()};
  }
  ThrowDamaged(session_.path(), {}, message::kCatalogLacksDatabase);
}

void TableCreator::AddToCatalog(const TableDefinition& definition, const std::string& name) {
  const std::vector<std::byte> owner = OwnerOfNewObjects();
  const double now = DateNow();
  const ColumnValue values[] = {
      {catalog_.Position("Id"), Value::Integer(static_cast<std::int32_t>(definition.page))},
      {catalog_.Position("ParentId"), Value::Integer(kTablesContainer)},
      {catalog_.Position("Name"), Value::Text(name)},
      {catalog_.Position("Type"),
       Value::Integer(static_cast<std::int32_t>(ObjectType::kLocalTable))},
      {catalog_.Position("DateCreate"), Value::Date(now)},
      {catalog_.Position("DateUpdate"), Value::Date(now)},
      {catalog_.Position("Flags"), Value::Integer(0)},
      {catalog_.Position("Owner"), Value::Binary(owner)}};
  catalog_.table().writer().Insert(values);
  AddAccessRows(definition.page, owner);
}

// A row for the owner, and one for each account whose rights on the container are inherited. The
// entry of the creator only stands for whoever creates.
void TableCreator::AddAccessRows(PageNumber table, std::span<const std::byte> owner) {
  std::vector<std::byte> creator;
  {
    const std::size_t columns[] = {catalog_.Position("Id"), catalog_.Position("Owner")};
    TableScan scan(catalog_.table(), columns);
    RowBuffer row;
    while (creator.empty() && scan.Next(row)) {
      if (row[0].integer() == kObjectsDefinition && !row[1].is_null()) {
        creator.assign(row[1].bytes().begin(), row[1].bytes().end());
      }
    }
    for (std::size_t i = 0; i < std::min<std::size_t>(2, creator.size()); ++i) {
      creator[i] ^= kCreatorDifference[i];
    }
  }
  struct Grant {
    std::vector<std::byte> account;
    std::int64_t rights;
  };
  std::vector<Grant> grants = {{{owner.begin(), owner.end()}, kFullRights}};
  TableState access(session_, "MSysACEs", kAccessDefinition);
  const auto position = [&](std::string_view name) {
    const auto found = access.FindColumn(name);
    if (!found) ThrowDamaged(session_.path(), {kAccessDefinition, -1}, message::kColumnMissing);
    return *found;
  };
  const std::size_t columns[] = {position("ObjectId"), position("SID"), position("ACM"),
                                 position("FInheritable")};
  {
    TableScan scan(access, columns);
    RowBuffer row;
    while (scan.Next(row)) {
      if (row[0].integer() != kTablesContainer || !row[3].boolean() || row[1].is_null()) continue;
      const auto bytes = row[1].bytes();
      Grant grant{{bytes.begin(), bytes.end()}, row[2].integer()};
      const bool known = grant.account == creator || grant.account == grants.front().account;
      if (!known) grants.push_back(std::move(grant));
    }
  }
  for (const Grant& grant : grants) {
    const ColumnValue values[] = {{columns[0], Value::Integer(static_cast<std::int32_t>(table))},
                                  {columns[1], Value::Binary(grant.account)},
                                  {columns[2], Value::Integer(grant.rights)},
                                  {columns[3], Value::Boolean(false)}};
    access.writer().Insert(values);
  }
}

void TableCreator::CreateIndex(TableState& table, const IndexSpec& spec) {
  table.Refresh();
  const TableDefinition& definition = table.definition();
  CheckIndex(definition, spec);
  Pager& pager = session_.pager();
  PageNumber map_page = definition.owned_map.page;
  const PhysicalIndex physical = MakePhysical(definition, spec, map_page);
  Index logical;
  logical.name = spec.name;
  logical.physical = definition.physical.size();
  logical.kind = spec.primary ? IndexKind::kPrimaryKey : IndexKind::kOrdinary;
  for (const Index& other : definition.indexes) {
    logical.number = std::max(logical.number, other.number + 1);
  }
  std::vector<PageNumber> pages;
  const std::vector<std::byte> bytes = ReadDefinitionBytes(pager, definition.page, pages);
  StoreDefinition(pager, pages, AddIndexToDefinition(definition, bytes, physical, logical));
  table.Reload();
  table.writer().FillIndex(definition.physical.size() - 1);
}

}  // namespace jet
