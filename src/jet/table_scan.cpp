// SPDX-License-Identifier: MIT
#include "jet/table_scan.h"

#include "jet/data_page.h"
#include "jet/table.h"
#include "jet/usage_map.h"

namespace jet {

TableScan::TableScan(TableState& table, std::span<const std::size_t> columns)
    : hold_(table.session()), table_(table), columns_(columns.begin(), columns.end()) {
  table_.Refresh();
}

bool TableScan::Next(RowBuffer& row) {
  for (;;) {
    while (page_ && slot_ < SlotCount(page_.data())) {
      const std::size_t slot = slot_++;
      if ((GetSlot(page_.data(), slot).state & kSlotTarget) != 0) continue;
      const RowId id{page_.number(), static_cast<std::uint8_t>(slot)};
      table_.reader().Decode(id, table_.reader().At(page_, slot), columns_, row);
      return true;
    }
    if (!NextPage()) return false;
  }
}

// A page that cannot be read counts as visited.
bool TableScan::NextPage() {
  page_ = {};
  const auto number = UsageMap(table_.pager(), table_.definition().owned_map).Next(next_page_);
  if (!number) return false;
  next_page_ = *number + 1;
  PageRef page = table_.pager().Read(*number);
  CheckDataPage(table_.pager(), page, table_.definition().page);
  page_ = std::move(page);
  slot_ = 0;
  return true;
}

struct Scan::State {
  State(TableState& table, std::span<const std::size_t> columns) : scan(table, columns) {}
  TableScan scan;
};

Scan::Scan(std::unique_ptr<State> state) : state_(std::move(state)) {}
Scan::Scan(Scan&&) noexcept = default;
Scan::~Scan() = default;

bool Scan::Next(RowBuffer& row) { return state_->scan.Next(row); }

Scan Table::OpenScan(std::span<const std::size_t> columns) {
  return Scan(std::make_unique<Scan::State>(*state_, columns));
}

Scan Table::OpenScan() { return OpenScan(state_->all_columns()); }

}  // namespace jet
