// SPDX-License-Identifier: MIT
#include "jet/catalog.h"

#include <array>

#include "jet/error.h"
#include "jet/header_page.h"
#include "jet/key_encoder.h"
#include "jet/table.h"
#include "jet/table_scan.h"
#include "jet/text_codec.h"

namespace jet {
namespace {

constexpr std::array<std::string_view, 7> kColumns = {"Id",    "ParentId",   "Name",      "Type",
                                                      "Flags", "DateCreate", "DateUpdate"};

bool IsTable(const CatalogEntry& entry) {
  return entry.parent == kTablesContainer &&
         (entry.type == ObjectType::kLocalTable || entry.type == ObjectType::kLinkedTable ||
          entry.type == ObjectType::kOdbcTable);
}

}  // namespace

Catalog::Catalog(Session& session) : table_(session, "MSysObjects", kObjectsDefinition) {
  for (const std::string_view name : kColumns) columns_.push_back(Position(name));
}

std::size_t Catalog::Position(std::string_view column) const {
  if (const auto position = table_.FindColumn(column)) return *position;
  ThrowDamaged(table_.path(), {kObjectsDefinition, -1},
               {message::kCatalogLacksColumn, {{"<Column>", column}}});
}

CatalogEntry Catalog::Entry(const RowBuffer& row) const {
  CatalogEntry entry;
  entry.row = row.id();
  entry.id = static_cast<std::int32_t>(row[0].integer());
  entry.parent = static_cast<std::int32_t>(row[1].integer());
  if (!row[2].is_null()) entry.name = row[2].text();
  entry.type = static_cast<ObjectType>(row[3].integer());
  entry.flags = static_cast<std::uint32_t>(row[4].integer());
  entry.created = row[5].real();
  entry.updated = row[6].real();
  return entry;
}

void Catalog::ForEach(const std::function<void(const CatalogEntry&)>& visit) {
  TableScan scan(table_, columns_);
  RowBuffer row;
  while (scan.Next(row)) visit(Entry(row));
}

std::optional<RowId> Catalog::FindByIndex(std::string_view name) {
  const TableDefinition& definition = table_.definition();
  const std::size_t parent = columns_[1], name_column = columns_[2];
  for (std::size_t i = 0; i < definition.physical.size(); ++i) {
    const std::vector<IndexColumn>& parts = definition.physical[i].columns;
    const bool fits = parts.size() == 2 && parts[0].column == parent && parts[0].ascending &&
                      parts[1].column == name_column && parts[1].ascending;
    if (!fits) continue;
    std::vector<std::byte> key;
    if (AppendKeyPart(ColumnType::kLong, SortOrder::kAscending, Value::Integer(kTablesContainer),
                      key) ||
        AppendKeyPart(ColumnType::kText, SortOrder::kAscending, Value::Text(name), key)) {
      return std::nullopt;
    }
    return table_.tree(i).Find(key);
  }
  return std::nullopt;
}

// Tables are only ever added here; who else changes the catalog raises the generation.
std::optional<CatalogEntry> Catalog::FindTable(std::string_view name) {
  const ReadLock lock(table_.session());
  const std::uint64_t generation = table_.session().generation();
  if (generation != known_generation_) known_.clear();
  known_generation_ = generation;
  if (const auto known = known_.find(name); known != known_.end()) return known->second;
  std::optional<CatalogEntry> found = LookFor(name);
  if (found) known_.emplace(name, *found);
  return found;
}

std::optional<CatalogEntry> Catalog::LookFor(std::string_view name) {
  table_.Refresh();
  if (const auto id = FindByIndex(name)) {
    if (const auto stored = table_.reader().Find(*id)) {
      RowBuffer row;
      table_.reader().Decode(*id, *stored, columns_, row);
      CatalogEntry entry = Entry(row);
      if (IsTable(entry) && SameName(entry.name, name)) return entry;
    }
  }
  std::optional<CatalogEntry> found;
  ForEach([&](const CatalogEntry& entry) {
    if (!found && IsTable(entry) && SameName(entry.name, name)) found = entry;
  });
  return found;
}

}  // namespace jet
