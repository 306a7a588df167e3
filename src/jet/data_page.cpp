// SPDX-License-Identifier: MIT
#include "jet/data_page.h"

#include <cassert>
#include <cstring>

#include "jet/bytes.h"
#include "jet/error.h"

namespace jet {
namespace {

std::byte* SlotAt(std::byte* page, std::size_t slot) { return page + kDataSlotsOffset + 2 * slot; }
const std::byte* SlotAt(const std::byte* page, std::size_t slot) {
  return page + kDataSlotsOffset + 2 * slot;
}

std::size_t SlotOffset(const std::byte* page, std::size_t slot) {
  return Load16(SlotAt(page, slot)) & kSlotOffsetMask;
}

std::size_t LowestRow(const std::byte* page) {
  const std::size_t count = SlotCount(page);
  return count == 0 ? kPageSize : SlotOffset(page, count - 1);
}

// A zero-filled page that was never written is no data page either, but says less.
const messages::Pattern* FindHeadFault(const std::byte* page, std::uint32_t owner) {
  if (Load8(page) != static_cast<std::uint8_t>(PageType::kData)) {
    return &message::kNoDataPage;
  }
  if (DataPageOwner(page) != owner) return &message::kOtherOwner;
  if (kDataSlotsOffset + 2 * SlotCount(page) > kPageSize) {
    return &message::kTooManyRows;
  }
  return nullptr;
}

}  // namespace

std::size_t FreeBytes(const std::byte* page) {
  return LowestRow(page) - (kDataSlotsOffset + 2 * SlotCount(page));
}

std::size_t StatedFreeBytes(const std::byte* page) { return Load16(page + kDataFreeOffset); }

const messages::Pattern* FindDataPageFault(const std::byte* page, std::uint32_t owner) {
  if (const messages::Pattern* fault = FindHeadFault(page, owner)) return fault;
  const std::size_t count = SlotCount(page);
  const std::size_t floor = kDataSlotsOffset + 2 * count;
  std::size_t end = kPageSize;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t begin = SlotOffset(page, i);
    if (begin > end || begin < floor) return &message::kRowsOverlap;
    end = begin;
  }
  return nullptr;
}

void CheckDataPage(const Pager& pager, const PageRef& page, std::uint32_t owner) {
  if (const messages::Pattern* fault = FindDataPageFault(page.data(), owner)) {
    ThrowDamaged(pager.path(), {page.number(), -1}, *fault);
  }
}

void CheckSlotCount(const Pager& pager, const PageRef& page) {
  if (const messages::Pattern* fault = FindHeadFault(page.data(), DataPageOwner(page.data()))) {
    ThrowDamaged(pager.path(), {page.number(), -1}, *fault);
  }
}

void CheckSlot(const Pager& pager, const PageRef& page, std::size_t slot) {
  const Slot bounds = GetSlot(page.data(), slot);
  const std::size_t floor = kDataSlotsOffset + 2 * SlotCount(page.data());
  if (bounds.begin > bounds.end || bounds.begin < floor || bounds.end > kPageSize) {
    ThrowDamaged(pager.path(), {page.number(), static_cast<int>(slot)}, message::kRowBounds);
  }
}

std::span<const std::byte> RowBytes(const Pager& pager, const PageRef& page, std::size_t slot,
                                    std::uint32_t owner) {
  const Place place{page.number(), static_cast<int>(slot)};
  if (const messages::Pattern* fault = FindHeadFault(page.data(), owner)) {
    ThrowDamaged(pager.path(), place, *fault);
  }
  if (slot >= SlotCount(page.data())) {
    ThrowDamaged(pager.path(), place, message::kRowLacking);
  }
  CheckSlot(pager, page, slot);
  const Slot bounds = GetSlot(page.data(), slot);
  return {page.data() + bounds.begin, std::size_t{bounds.end} - bounds.begin};
}

void InitDataPage(std::byte* page, std::uint32_t owner) {
  std::memset(page, 0, kPageSize);
  Store8(page, static_cast<std::uint8_t>(PageType::kData));
  Store8(page + 1, 1);
  Store16(page + kDataFreeOffset, kPageSize - kDataSlotsOffset);
  Store32(page + kDataOwnerOffset, owner);
}

bool HasRoom(const std::byte* page, std::size_t size) {
  return SlotCount(page) < kMaxSlots && FreeBytes(page) >= size + 2;
}

std::uint8_t AddRow(std::byte* page, std::span<const std::byte> row, std::uint16_t state) {
  assert(HasRoom(page, row.size()));
  const std::size_t slot = SlotCount(page);
  const std::size_t begin = LowestRow(page) - row.size();
  if (!row.empty()) std::memcpy(page + begin, row.data(), row.size());
  Store16(SlotAt(page, slot), static_cast<std::uint16_t>(begin | state));
  Store16(page + kDataSlotCountOffset, static_cast<std::uint16_t>(slot + 1));
  Store16(page + kDataFreeOffset,
          static_cast<std::uint16_t>(begin - (kDataSlotsOffset + 2 * (slot + 1))));
  return static_cast<std::uint8_t>(slot);
}

void SetSlotState(std::byte* page, std::size_t slot, std::uint16_t state) {
  Store16(SlotAt(page, slot), static_cast<std::uint16_t>(SlotOffset(page, slot) | state));
}

void ResizeRow(std::byte* page, std::size_t slot, std::size_t size) {
  const Slot bounds = GetSlot(page, slot);
  const std::size_t old_size = std::size_t{bounds.end} - bounds.begin;
  const std::size_t low = LowestRow(page);
  const auto shift = static_cast<std::ptrdiff_t>(old_size) - static_cast<std::ptrdiff_t>(size);
  // Rows below move; of this row the first bytes stay together and its end stays fixed.
  const std::size_t kept = old_size < size ? old_size : size;
  std::memmove(page + static_cast<std::ptrdiff_t>(low) + shift, page + low,
               bounds.begin + kept - low);
  if (size > old_size) std::memset(page + bounds.end - (size - old_size), 0, size - old_size);
  const std::size_t count = SlotCount(page);
  for (std::size_t i = slot; i < count; ++i) {
    const std::uint16_t raw = Load16(SlotAt(page, i));
    const auto begin = static_cast<std::ptrdiff_t>(raw & kSlotOffsetMask) + shift;
    Store16(SlotAt(page, i), static_cast<std::uint16_t>(begin | (raw & ~kSlotOffsetMask)));
  }
  Store16(page + kDataFreeOffset,
          static_cast<std::uint16_t>(LowestRow(page) - (kDataSlotsOffset + 2 * count)));
}

void Compact(std::byte* page) {
  const std::size_t count = SlotCount(page);
  for (std::size_t i = 0; i < count; ++i) {
    const Slot slot = GetSlot(page, i);
    if (slot.state == kSlotDeleted && slot.begin != slot.end) ResizeRow(page, i, 0);
  }
}

}  // namespace jet
