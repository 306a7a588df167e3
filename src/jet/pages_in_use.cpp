// SPDX-License-Identifier: MIT
#include "jet/pages_in_use.h"

#include <array>
#include <string_view>

#include "jet/bytes.h"
#include "jet/catalog.h"
#include "jet/error.h"
#include "jet/header_page.h"
#include "jet/row_reader.h"
#include "jet/table_definition.h"
#include "jet/text_codec.h"
#include "jet/usage_map.h"
#include "jet/usage_map_record.h"

namespace jet {
namespace {

constexpr std::uint32_t kFreeMapOwner = 1;

class Search {
 public:
  explicit Search(Pager& pager) : pager_(pager), used_(pager.page_count()) {}

  std::vector<bool> Run() {
    Use(0);
    UseRecord(HeaderFreeMap(pager_.Read(0).data()), kFreeMapOwner);
    const TableDefinition catalog = ReadTableDefinition(pager_, kObjectsDefinition);
    ForEachTable(catalog, [&](PageNumber page) { UseTable(ReadTableDefinition(pager_, page)); });
    return std::move(used_);
  }

 private:
  void Use(PageNumber page) {
    if (page < used_.size()) used_[page] = true;
  }

  // The page of the record and those that its bits stand on.
  void UseRecord(RowId record, std::uint32_t owner) {
    Use(record.page);
    const MapRecord map(pager_, record, owner);
    if (map.is_inline()) return;
    for (std::size_t i = 0; i < map.reference_count(); ++i) Use(map.reference(i));
  }

  void UseMap(RowId record) {
    if (record == RowId{}) return;
    UseRecord(record, 0);
    const UsageMap map(pager_, record);
    for (auto page = map.Next(0); page; page = map.Next(*page + 1)) Use(*page);
  }

  void UseTable(const TableDefinition& definition) {
    for (const PageNumber page : definition.pages) Use(page);
    UseMap(definition.owned_map);
    UseMap(definition.free_map);
    for (const PhysicalIndex& index : definition.physical) {
      Use(index.root);
      UseMap(index.usage_map);
    }
    for (const LongValueMaps& maps : definition.long_values) {
      UseMap(maps.owned);
      UseMap(maps.free);
    }
  }

  // Visits the definition pages of the catalog's tables.
  template <class Visit>
  void ForEachTable(const TableDefinition& catalog, Visit visit) {
    const std::array columns = {PositionOf(catalog, "Id"), PositionOf(catalog, "Type")};
    RowReader reader(pager_, catalog);
    RowBuffer row;
    const UsageMap owned(pager_, catalog.owned_map);
    for (auto number = owned.Next(0); number; number = owned.Next(*number + 1)) {
      const PageRef page = pager_.Read(*number);
      CheckDataPage(pager_, page, catalog.page);
      for (std::size_t slot = 0; slot < SlotCount(page.data()); ++slot) {
        if ((GetSlot(page.data(), slot).state & kSlotTarget) != 0) continue;
        const RowId id{*number, static_cast<std::uint8_t>(slot)};
        reader.Decode(id, reader.At(page, slot), columns, row);
        if (row[1].integer() != static_cast<std::int32_t>(ObjectType::kLocalTable)) continue;
        visit(static_cast<PageNumber>(row[0].integer()));
      }
    }
  }

  std::size_t PositionOf(const TableDefinition& catalog, std::string_view name) const {
    for (std::size_t i = 0; i < catalog.columns.size(); ++i) {
      if (SameName(catalog.columns[i].name, name)) return i;
    }
    ThrowDamaged(pager_.path(), {catalog.page, -1},
                 {message::kCatalogLacksColumn, {{"<Column>", name}}});
  }

  Pager& pager_;
  std::vector<bool> used_;
};

}  // namespace

std::vector<bool> FindPagesInUse(Pager& pager) { return Search(pager).Run(); }

}  // namespace jet
