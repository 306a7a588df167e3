// SPDX-License-Identifier: MIT
#include "jet/free_page_map.h"

#include <algorithm>
#include <cstring>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/header_page.h"
#include "jet/pages_in_use.h"
#include "jet/usage_map_record.h"

namespace jet {
namespace {

constexpr std::uint32_t kFreeMapOwner = 1;
constexpr std::size_t kLengthenStep = 4;
// Pages that an interrupted run of Access may have left between the end of the file and the first
// page marked free. A wider gap is damage.
constexpr PageNumber kWidestGap = 4096;

void ClearBit(std::byte* bits, std::size_t bit) {
  bits[bit / 8] &= ~std::byte{static_cast<std::uint8_t>(1u << (bit % 8))};
}

void SetBit(std::byte* bits, std::size_t bit) {
  bits[bit / 8] |= std::byte{static_cast<std::uint8_t>(1u << (bit % 8))};
}

[[noreturn]] void ThrowWrongMap(const Pager& pager, PageNumber page,
                                const messages::Message& cause) {
  throw Error(ErrorKind::kDamaged, pager.path(), {page, -1}, cause, message::kNothingWritten);
}

bool TestBit(std::span<const std::byte> bits, std::size_t bit) {
  return (Load8(&bits[bit / 8]) >> (bit % 8) & 1) != 0;
}

}  // namespace

FreePageMap::FreePageMap(Pager& pager) : pager_(pager) {
  record_ = HeaderFreeMap(pager.Read(0).data());
}

bool FreePageMap::IsFree(PageNumber page) const {
  const MapRecord record(pager_, record_, kFreeMapOwner);
  if (record.is_inline()) {
    const PageNumber first = record.first_page();
    return page >= first && page - first < record.bits().size() * 8 &&
           TestBit(record.bits(), page - first);
  }
  const std::size_t index = page / kPagesPerBitmap;
  if (index >= record.reference_count()) return false;
  const PageNumber bitmap = record.reference(index);
  if (bitmap == 0 || bitmap >= pager_.page_count()) return true;
  return TestBit(ReadBitmapPage(pager_, bitmap).bytes().subspan(kBitmapHead),
                 page % kPagesPerBitmap);
}

PageNumber FreePageMap::Acquire(PageNumber from) {
  from = std::max<PageNumber>(from, 2);
  PageNumber page = kNoPage;
  if (MapRecord(pager_, record_, kFreeMapOwner).is_inline()) page = TakeInline(from);
  if (page == kNoPage) page = TakeReferenced(from);
  page = std::min(page, kMaxPageCount);
  RequireNear(page);
  return page;
}

void FreePageMap::RequireNear(PageNumber page) const {
  if (page > pager_.page_count() + kWidestGap) {
    ThrowDamaged(pager_.path(), {record_.page, record_.slot}, message::kFreeMapBeyondFile);
  }
}

// kNoPage when the map had to be turned into references.
PageNumber FreePageMap::TakeInline(PageNumber from) {
  for (;;) {
    const MapRecord record(pager_, record_, kFreeMapOwner);
    const PageNumber first = record.first_page();
    const auto bit = FindBit(record.bits(), from > first ? from - first : 0);
    if (bit) {
      PageEdit edit = pager_.Modify(record_.page);
      ClearBit(edit.data() + record.offset() + kMapHead, *bit);
      return first + static_cast<PageNumber>(*bit);
    }
    if (!Lengthen()) {
      ConvertToReferences();
      return kNoPage;
    }
  }
}

bool FreePageMap::Lengthen() {
  PageEdit edit = pager_.Modify(record_.page);
  CheckDataPage(pager_, edit, kFreeMapOwner);
  if (FreeBytes(edit.data()) < kLengthenStep) return false;
  const std::size_t size = MapRecord(pager_, record_, kFreeMapOwner).size();
  ResizeRow(edit.data(), record_.slot, size + kLengthenStep);
  const MapRecord record(pager_, record_, kFreeMapOwner);
  std::memset(edit.data() + record.offset() + size, 0xFF, kLengthenStep);
  return true;
}

// No page is free when this happens: the bitmap takes the page behind the end of the file.
void FreePageMap::ConvertToReferences() {
  PageEdit bitmap = pager_.Append();
  Store8(bitmap.data(), static_cast<std::uint8_t>(PageType::kUsageBitmap));
  Store8(bitmap.data() + 1, 1);
  const MapRecord record(pager_, record_, kFreeMapOwner);
  const std::size_t reach =
      std::min(record.first_page() + record.bits().size() * 8, kPagesPerBitmap);
  for (std::size_t page = reach; page < kPagesPerBitmap; ++page) {
    SetBit(bitmap.data() + kBitmapHead, page);
  }
  if (bitmap.number() < kPagesPerBitmap) ClearBit(bitmap.data() + kBitmapHead, bitmap.number());
  PageEdit edit = pager_.Modify(record_.page);
  std::byte* row = edit.data() + record.offset();
  std::memset(row, 0, record.size());
  Store8(row, kReferenceMap);
  Store32(row + 1, bitmap.number());
}

PageNumber FreePageMap::TakeReferenced(PageNumber from) {
  for (std::size_t i = from / kPagesPerBitmap;; ++i) {
    PageNumber bitmap = 0;
    {
      const MapRecord record(pager_, record_, kFreeMapOwner);
      if (i >= record.reference_count()) return kMaxPageCount;
      bitmap = record.reference(i);
    }
    if (bitmap == 0 || bitmap >= pager_.page_count()) bitmap = AddBitmap(i);
    const auto base = static_cast<PageNumber>(i * kPagesPerBitmap);
    const PageRef page = ReadBitmapPage(pager_, bitmap);
    const auto bit = FindBit(page.bytes().subspan(kBitmapHead), from > base ? from - base : 0);
    if (!bit) continue;
    ClearBit(pager_.Modify(bitmap).data() + kBitmapHead, *bit);
    return base + static_cast<PageNumber>(*bit);
  }
}

// All pages of the range are free as long as it has no bitmap; the bitmap takes the first.
PageNumber FreePageMap::AddBitmap(std::size_t index) {
  const auto base = static_cast<PageNumber>(index * kPagesPerBitmap);
  if (base == 0) ThrowWrongMap(pager_, base, message::kFreeButInUse);
  RequireNear(base);
  while (pager_.page_count() < base) pager_.Append();
  if (base < pager_.page_count()) pager_.RequireUnused(base);
  PageEdit bitmap = base < pager_.page_count() ? pager_.Modify(base) : pager_.Append();
  std::memset(bitmap.data(), 0xFF, kPageSize);
  Store32(bitmap.data(), 0);
  Store8(bitmap.data(), static_cast<std::uint8_t>(PageType::kUsageBitmap));
  Store8(bitmap.data() + 1, 1);
  ClearBit(bitmap.data() + kBitmapHead, 0);
  PageEdit edit = pager_.Modify(record_.page);
  const MapRecord record(pager_, record_, kFreeMapOwner);
  Store32(edit.data() + record.offset() + 1 + 4 * index, base);
  return base;
}

void FreePageMap::Release(PageNumber page) {
  if (IsFree(page)) {
    ThrowWrongMap(pager_, page, message::kFreeWasInUse);
  }
  const MapRecord record(pager_, record_, kFreeMapOwner);
  if (record.is_inline()) {
    const PageNumber first = record.first_page();
    if (page < first || page - first >= record.bits().size() * 8) return;
    SetBit(pager_.Modify(record_.page).data() + record.offset() + kMapHead, page - first);
    return;
  }
  const std::size_t index = page / kPagesPerBitmap;
  if (index >= record.reference_count()) return;
  const PageNumber bitmap = record.reference(index);
  if (bitmap == 0 || bitmap >= pager_.page_count()) return;
  ReadBitmapPage(pager_, bitmap);
  SetBit(pager_.Modify(bitmap).data() + kBitmapHead, page % kPagesPerBitmap);
}

// Most free pages were released or never written, and show it. What looks like a page in use may
// be an old copy: whether something refers to it is then looked up, once for all of them.
void Pager::RequireUnused(PageNumber page) {
  const std::uint8_t type = Load8(Read(page).data());
  if (type == static_cast<std::uint8_t>(PageType::kHeader) || (type & kReleasedPage) != 0) return;
  if (in_use_generation_ != generation_) {
    in_use_ = FindPagesInUse(*this);
    in_use_generation_ = generation_;
  }
  if (page < in_use_.size() && in_use_[page]) {
    ThrowWrongMap(*this, page, message::kFreeButInUse);
  }
}

PageEdit Pager::Allocate() {
  const PageNumber page = FreePageMap(*this).Acquire(lowest_free_);
  lowest_free_ = page + 1;
  if (page < page_count_) {
    RequireUnused(page);
    PageEdit edit = Modify(page);
    std::memset(edit.data(), 0, kPageSize);
    return edit;
  }
  while (page_count_ < page) Append();
  return Append();
}

void Pager::Free(PageNumber page) {
  FreePageMap(*this).Release(page);
  const PageEdit released = Modify(page);
  Store8(released.data(), Load8(released.data()) | kReleasedPage);
  lowest_free_ = std::min(lowest_free_, page);
}

}  // namespace jet
