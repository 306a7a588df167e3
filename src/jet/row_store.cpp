// SPDX-License-Identifier: MIT
#include "jet/row_store.h"

#include <cassert>
#include <cstring>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/usage_map.h"

namespace jet {
namespace {

constexpr std::size_t kReferenceSize = 4;
// A page whose free space a row misses by much stays in the map for smaller rows; only so many of
// them are tried for one row.
constexpr std::size_t kLittleSpace = 400;
constexpr int kMaxTries = 4;

std::size_t LiveBytes(const std::byte* page) {
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < SlotCount(page); ++i) {
    const Slot slot = GetSlot(page, i);
    if (slot.state != kSlotDeleted) bytes += std::size_t{slot.end} - slot.begin;
  }
  return bytes;
}

bool IsEmpty(const std::byte* page) {
  for (std::size_t i = 0; i < SlotCount(page); ++i) {
    if (GetSlot(page, i).state != kSlotDeleted) return false;
  }
  return true;
}

}  // namespace

RowId RowStore::Add(std::span<const std::byte> row, std::uint16_t state) {
  const PageNumber number = PageFor(row.size());
  const PageEdit page = pager_.Modify(number);
  last_page_ = number;
  return {number, AddRow(page.data(), row, state)};
}

PageNumber RowStore::PageFor(std::size_t size) {
  if (last_page_ != 0 && last_page_ < pager_.page_count()) {
    const PageRef page = pager_.Read(last_page_);
    if (FindDataPageFault(page.data(), owner_.owner) == nullptr && HasRoom(page.data(), size) &&
        UsageMap(pager_, owner_.owned_map).Contains(last_page_)) {
      return last_page_;
    }
  }
  UsageMap free(pager_, owner_.free_map);
  int tries = 0;
  for (auto number = free.Next(0); number && tries < kMaxTries; number = free.Next(*number + 1)) {
    const PageRef page = pager_.Read(*number);
    CheckDataPage(pager_, page, owner_.owner);
    const bool owned = UsageMap(pager_, owner_.owned_map).Contains(*number);
    if (owned && HasRoom(page.data(), size)) return *number;
    if (!owned || FreeBytes(page.data()) < kLittleSpace || SlotCount(page.data()) >= kMaxSlots) {
      free.Remove(*number);
    } else {
      ++tries;
    }
  }
  return NewPage();
}

PageNumber RowStore::NewPage() {
  const PageEdit page = pager_.Allocate();
  InitDataPage(page.data(), owner_.owner);
  UsageMap(pager_, owner_.owned_map).Add(page.number());
  UsageMap(pager_, owner_.free_map).Add(page.number());
  return page.number();
}

// Overwrites a row, or makes room for it on its page.
bool RowStore::ReplaceOnPage(RowId place, std::size_t old_size, std::span<const std::byte> row) {
  const PageRef old_page = pager_.Read(place.page);
  CheckDataPage(pager_, old_page, owner_.owner);
  if (row.size() > old_size && FreeBytes(old_page.data()) < row.size() - old_size) return false;
  const PageEdit page = pager_.Modify(place.page);
  if (row.size() > old_size) ResizeRow(page.data(), place.slot, row.size());
  assert(row.size() >= old_size);
  std::memcpy(page.data() + GetSlot(page.data(), place.slot).begin, row.data(), row.size());
  return true;
}

void RowStore::Replace(RowId id, const StoredRow& stored, std::span<const std::byte> row) {
  if (ReplaceOnPage(stored.place, stored.bytes.size(), row)) return;
  if (stored.place == id && stored.bytes.size() < kReferenceSize) {
    throw Error(ErrorKind::kUnsupported, pager_.path(), {id.page, id.slot},
                message::kTooShortToMove, message::kDeleteAndInsert);
  }
  const RowId target = Add(row, kSlotTarget);
  if (stored.place != id) Discard(stored.place, false);
  const PageEdit page = pager_.Modify(id.page);
  Store32(page.data() + GetSlot(page.data(), id.slot).begin, target.Reference());
  SetSlotState(page.data(), id.slot, kSlotMoved);
}

void RowStore::Remove(RowId id, const StoredRow& stored) {
  if (stored.place != id) Discard(stored.place, false);
  Discard(id, false);
}

void RowStore::RemoveRecord(RowId id) { Discard(id, true); }

// Marks a row deleted. Its bytes are reclaimed when they have become many, and the page when
// nothing is left on it; slots are never used again as long as the page is.
void RowStore::Discard(RowId id, bool squeeze) {
  const PageEdit page = pager_.Modify(id.page);
  CheckDataPage(pager_, page, owner_.owner);
  if (!UsageMap(pager_, owner_.owned_map).Contains(id.page)) {
    ThrowDamaged(pager_.path(), {id.page, id.slot}, message::kRowOnForeignPage);
  }
  SetSlotState(page.data(), id.slot, kSlotDeleted);
  if (IsEmpty(page.data())) {
    UsageMap(pager_, owner_.owned_map).Remove(id.page);
    UsageMap(pager_, owner_.free_map).Remove(id.page);
    pager_.Free(id.page);
    return;
  }
  const std::size_t free = FreeBytes(page.data());
  const std::size_t slots = kDataSlotsOffset + 2 * SlotCount(page.data());
  const std::size_t reclaimed = kPageSize - slots - LiveBytes(page.data());
  if (!squeeze && reclaimed < free + kPageSize / 4) return;
  Compact(page.data());
  if (reclaimed >= kLittleSpace && SlotCount(page.data()) < kMaxSlots) {
    UsageMap(pager_, owner_.free_map).Add(id.page);
  }
}

}  // namespace jet
