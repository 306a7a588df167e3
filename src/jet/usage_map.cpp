// SPDX-License-Identifier: MIT
#include "jet/usage_map.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstring>
#include <vector>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/usage_map_record.h"

namespace jet {
namespace {

constexpr std::uint32_t kMapOwner = 0;

void SetBit(std::byte* bits, std::size_t bit, bool value) {
  const std::byte mask{static_cast<std::uint8_t>(1u << (bit % 8))};
  bits[bit / 8] = value ? bits[bit / 8] | mask : bits[bit / 8] & ~mask;
}

}  // namespace

std::optional<std::size_t> FindBit(std::span<const std::byte> bits, std::size_t from) {
  std::size_t index = from / 8;
  if (index >= bits.size()) return std::nullopt;
  unsigned byte = Load8(&bits[index]) & (0xFFu << (from % 8));
  while ((byte & 0xFF) == 0) {
    if (++index >= bits.size()) return std::nullopt;
    while (index + 8 <= bits.size() && Load64(&bits[index]) == 0) index += 8;
    if (index >= bits.size()) return std::nullopt;
    byte = Load8(&bits[index]);
  }
  return index * 8 + static_cast<std::size_t>(std::countr_zero(byte & 0xFF));
}

PageRef ReadBitmapPage(Pager& pager, PageNumber page) {
  PageRef bitmap = pager.Read(page);
  if (Load8(bitmap.data()) != static_cast<std::uint8_t>(PageType::kUsageBitmap)) {
    ThrowDamaged(pager.path(), {page, -1}, message::kNoBitmap);
  }
  return bitmap;
}

PageEdit NewBitmapPage(Pager& pager) {
  PageEdit bitmap = pager.Allocate();
  Store8(bitmap.data(), static_cast<std::uint8_t>(PageType::kUsageBitmap));
  Store8(bitmap.data() + 1, 1);
  return bitmap;
}

MapRecord::MapRecord(Pager& pager, RowId record, std::uint32_t owner)
    : page_(pager.Read(record.page)), row_(RowBytes(pager, page_, record.slot, owner)) {
  const bool sound = row_.size() >= kMapHead &&
                     (Load8(row_.data()) == kInlineMap || Load8(row_.data()) == kReferenceMap);
  if (!sound) {
    ThrowDamaged(pager.path(), {record.page, record.slot}, message::kUsageMapKind);
  }
}

bool UsageMap::Contains(PageNumber page) const { return record_ != RowId{} && Next(page) == page; }

std::optional<PageNumber> UsageMap::Next(PageNumber from) const {
  if (record_ == RowId{}) return std::nullopt;
  const MapRecord record(pager_, record_, kMapOwner);
  if (record.is_inline()) {
    const PageNumber first = record.first_page();
    const auto bit = FindBit(record.bits(), from > first ? from - first : 0);
    if (!bit) return std::nullopt;
    return first + static_cast<PageNumber>(*bit);
  }
  for (std::size_t i = from / kPagesPerBitmap; i < record.reference_count(); ++i) {
    const PageNumber bitmap = record.reference(i);
    const auto base = static_cast<PageNumber>(i * kPagesPerBitmap);
    // Rubbish may stand where a short file needs no bitmap.
    if (bitmap == 0 || base >= pager_.page_count()) continue;
    const PageRef page = ReadBitmapPage(pager_, bitmap);
    const auto bit = FindBit(page.bytes().subspan(kBitmapHead), from > base ? from - base : 0);
    if (bit) return base + static_cast<PageNumber>(*bit);
  }
  return std::nullopt;
}

void UsageMap::Add(PageNumber page) { Set(page, true); }

void UsageMap::Remove(PageNumber page) { Set(page, false); }

void UsageMap::Set(PageNumber page, bool member) {
  if (record_ == RowId{}) return;
  if (MapRecord(pager_, record_, kMapOwner).is_inline() && !SetInline(page, member)) {
    ConvertToReferences();
  }
  if (!MapRecord(pager_, record_, kMapOwner).is_inline()) SetReferenced(page, member);
}

// False when the inline bitmap cannot be made to reach the page.
bool UsageMap::SetInline(PageNumber page, bool member) {
  const MapRecord record(pager_, record_, kMapOwner);
  const PageNumber first = record.first_page();
  const std::size_t reach = record.bits().size() * 8;
  const bool within = page >= first && page - first < reach;
  if (!within && !member) return true;
  PageEdit edit = pager_.Modify(record_.page);
  std::byte* row = edit.data() + record.offset();
  if (!within) {
    if (!FindBit(record.bits(), 0) && reach > 0) {
      Store32(row + 1, page & ~7u);
    } else if (page < first || !Lengthen(edit, page - first)) {
      return false;
    }
    return SetInline(page, member);
  }
  SetBit(row + kMapHead, page - first, member);
  return true;
}

// Makes the record long enough for a bit, in steps of four bytes, when its page has the room.
bool UsageMap::Lengthen(PageEdit& page, std::size_t bit) {
  const Slot slot = GetSlot(page.data(), record_.slot);
  const std::size_t size = std::size_t{slot.end} - slot.begin;
  const std::size_t needed = kMapHead + bit / 8 + 1;
  const std::size_t longer = size + (needed - size + 3) / 4 * 4;
  CheckDataPage(pager_, page, kMapOwner);
  if (longer > kMaxInlineMap || FreeBytes(page.data()) < longer - size) return false;
  ResizeRow(page.data(), record_.slot, longer);
  return true;
}

// The record changes when its bitmaps are complete: at no time is a member missing.
void UsageMap::ConvertToReferences() {
  std::vector<PageNumber> bitmaps(MapRecord(pager_, record_, kMapOwner).reference_count());
  for (auto page = Next(0); page; page = Next(*page + 1)) {
    const std::size_t index = *page / kPagesPerBitmap;
    if (index >= bitmaps.size()) ThrowTooShort();
    if (bitmaps[index] == 0) bitmaps[index] = NewBitmapPage(pager_).number();
    SetBit(pager_.Modify(bitmaps[index]).data() + kBitmapHead, *page % kPagesPerBitmap, true);
  }
  const MapRecord record(pager_, record_, kMapOwner);
  PageEdit edit = pager_.Modify(record_.page);
  std::byte* row = edit.data() + record.offset();
  std::memset(row, 0, record.size());
  Store8(row, kReferenceMap);
  for (std::size_t i = 0; i < bitmaps.size(); ++i) Store32(row + 1 + 4 * i, bitmaps[i]);
}

void UsageMap::ThrowTooShort() const {
  ThrowDamaged(pager_.path(), {record_.page, record_.slot}, message::kUsageMapTooShort);
}

void UsageMap::SetReferenced(PageNumber page, bool member) {
  const std::size_t index = page / kPagesPerBitmap;
  PageNumber bitmap = 0;
  {
    const MapRecord record(pager_, record_, kMapOwner);
    if (index < record.reference_count()) bitmap = record.reference(index);
    if (bitmap >= pager_.page_count()) bitmap = 0;
    if (bitmap == 0 && !member) return;
    if (index >= record.reference_count()) ThrowTooShort();
  }
  if (bitmap == 0) {
    bitmap = NewBitmapPage(pager_).number();
    PageEdit edit = pager_.Modify(record_.page);
    const MapRecord record(pager_, record_, kMapOwner);
    Store32(edit.data() + record.offset() + 1 + 4 * index, bitmap);
  }
  ReadBitmapPage(pager_, bitmap);
  SetBit(pager_.Modify(bitmap).data() + kBitmapHead, page % kPagesPerBitmap, member);
}

}  // namespace jet
