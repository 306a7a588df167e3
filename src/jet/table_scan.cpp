// SPDX-License-Identifier: MIT
#include "jet/table_scan.h"

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/messages.h"
#include "jet/table.h"
#include "jet/usage_map.h"

namespace jet {

TableScan::TableScan(TableState& table, std::span<const std::size_t> columns)
    : lock_(table.session()), table_(table), columns_(columns.begin(), columns.end()) {
  table_.Refresh();
}

bool TableScan::Next(RowBuffer& row) {
  for (;;) {
    while (HasSlot()) {
      const std::size_t slot = slot_++;
      if ((GetSlot(page_.data(), slot).state & kSlotTarget) != 0) continue;
      const RowId id{page_.number(), static_cast<std::uint8_t>(slot)};
      table_.reader().Decode(id, table_.reader().At(page_, slot), columns_, row);
      ++found_;
      return true;
    }
    if (!NextPage()) return false;
  }
}

// The page may have been released and used for something else since.
bool TableScan::HasSlot() const {
  return page_ && DataPageOwner(page_.data()) == table_.definition().page &&
         slot_ < SlotCount(page_.data());
}

// A page that cannot be read counts as visited; a map that cannot be read ends the scan.
bool TableScan::NextPage() {
  page_ = {};
  if (ended_) return false;
  ended_ = true;
  const auto number = UsageMap(table_.pager(), table_.definition().owned_map).Next(next_page_);
  if (!number) return false;
  ended_ = false;
  next_page_ = *number + 1;
  PageRef page = table_.pager().Read(*number);
  CheckDataPage(table_.pager(), page, table_.definition().page);
  page_ = std::move(page);
  slot_ = 0;
  return true;
}

messages::Message TableScan::Shortfall() {
  const TableDefinition& definition = table_.definition();
  if (definition.type != kUserTable) return {};
  const std::uint32_t counted =
      Load32(table_.pager().Read(definition.page).data() + kDefinitionRowsOffset);
  if (counted <= found_) return {};
  return {message::kRowsMissing,
          {{"<Path>", table_.path()},
           {"<Table>", table_.name()},
           {"<Count>", counted},
           {"<Found>", found_}}};
}

struct Scan::State {
  State(TableState& table, std::span<const std::size_t> columns) : scan(table, columns) {}
  TableScan scan;
};

Scan::Scan(std::unique_ptr<State> state) : state_(std::move(state)) {}
Scan::Scan(Scan&&) noexcept = default;
Scan::~Scan() = default;

bool Scan::Next(RowBuffer& row) { return state_->scan.Next(row); }
messages::Message Scan::Shortfall() { return state_->scan.Shortfall(); }

Scan Table::OpenScan(std::span<const std::size_t> columns) {
  return Scan(std::make_unique<Scan::State>(*state_, columns));
}

Scan Table::OpenScan() { return OpenScan(state_->all_columns()); }

}  // namespace jet
