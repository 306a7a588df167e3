// SPDX-License-Identifier: MIT
// Data pages: table rows, long values and usage maps (docs/jet4.md, 4).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "jet/bytes.h"
#include "jet/messages.h"
#include "jet/page.h"
#include "jet/pager.h"

namespace jet {

// offset  size
//      0     1  01
//      1     1  01
//      2     2  free bytes between the slots and the lowest row
//      4     4  owner: definition page of the table; "LVAL"; 0 on usage-map pages; 1 on page 1
//      8     4  0; on the first page of a chained long value a number that its header repeats
//     12     2  number of slots
//     14     2  each slot: offset of the row, and its state
inline constexpr std::size_t kDataFreeOffset = 2;
inline constexpr std::size_t kDataOwnerOffset = 4;
inline constexpr std::size_t kDataSlotCountOffset = 12;
inline constexpr std::size_t kDataSlotsOffset = 14;
inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C;  // "LVAL"
inline constexpr std::size_t kMaxSlots = 255;
inline constexpr std::size_t kMaxRowSize = 4060;

inline constexpr std::uint16_t kSlotOffsetMask = 0x1FFF;
inline constexpr std::uint16_t kSlotStateMask = 0xC000;
inline constexpr std::uint16_t kSlotLive = 0x0000;
inline constexpr std::uint16_t kSlotMoved = 0x4000;   // the row's first four bytes say where to
inline constexpr std::uint16_t kSlotTarget = 0x8000;  // data of a moved row
inline constexpr std::uint16_t kSlotDeleted = 0xC000;

// A row as it lies on its page.
struct Slot {
  std::uint16_t state = kSlotDeleted;
  std::uint16_t begin = 0;
  std::uint16_t end = 0;
};

// Checks a page before its slots are believed: type, owner, number of slots, and rows that lie in
// slot order without gaps. Raises kDamaged.
void CheckDataPage(const Pager& pager, const PageRef& page, std::uint32_t owner);
// The same without raising: what is wrong, or null.
const messages::Pattern* FindDataPageFault(const std::byte* page, std::uint32_t owner);

inline std::uint32_t DataPageOwner(const std::byte* page) {
  return Load32(page + kDataOwnerOffset);
}
// Whether the page is one of the owner's data pages now; it need not be checked.
inline bool IsDataPageOf(const std::byte* page, std::uint32_t owner) {
  return Load8(page) == static_cast<std::uint8_t>(PageType::kData) && DataPageOwner(page) == owner;
}
inline std::size_t SlotCount(const std::byte* page) { return Load16(page + kDataSlotCountOffset); }
// Of a checked page and a slot it has.
inline Slot GetSlot(const std::byte* page, std::size_t slot) {
  const std::byte* p = page + kDataSlotsOffset + 2 * slot;
  const std::uint16_t raw = Load16(p);
  const std::size_t end = slot == 0 ? kPageSize : Load16(p - 2) & kSlotOffsetMask;
  return {static_cast<std::uint16_t>(raw & kSlotStateMask),
          static_cast<std::uint16_t>(raw & kSlotOffsetMask), static_cast<std::uint16_t>(end)};
}
// The gap between the slots and the lowest row of a checked page, and what the page says of it.
std::size_t FreeBytes(const std::byte* page);
std::size_t StatedFreeBytes(const std::byte* page);

// Raises kDamaged when a data page counts more rows than it can hold.
void CheckSlotCount(const Pager& pager, const PageRef& page);

// Raises kDamaged when the bounds of a slot, which the page has, make no sense. Enough to read its
// row from a page that nobody checked yet.
void CheckSlot(const Pager& pager, const PageRef& page, std::size_t slot);

// The bytes of one row on a page that nobody checked yet. Raises kDamaged when the page has no
// such row or its bounds make no sense.
std::span<const std::byte> RowBytes(const Pager& pager, const PageRef& page, std::size_t slot,
                                    std::uint32_t owner);

void InitDataPage(std::byte* page, std::uint32_t owner);
// Whether a row of `size` bytes can be added to a checked page.
bool HasRoom(const std::byte* page, std::size_t size);
// Adds a row below the lowest one; asks for room. Returns its slot.
std::uint8_t AddRow(std::byte* page, std::span<const std::byte> row, std::uint16_t state);
void SetSlotState(std::byte* page, std::size_t slot, std::uint16_t state);
// Changes the length of a row by moving those below it; asks for room. New bytes are appended as
// zeros, or bytes are cut off at the end.
void ResizeRow(std::byte* page, std::size_t slot, std::size_t size);
// Removes the bytes of every deleted row. Slots keep their numbers.
void Compact(std::byte* page);

}  // namespace jet
