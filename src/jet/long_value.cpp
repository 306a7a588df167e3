// SPDX-License-Identifier: MIT
#include "jet/long_value.h"

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/error.h"

namespace jet {
namespace {

constexpr std::size_t kNextReferenceSize = 4;

// Visits the records with their bytes. Every record of a chain adds at least a byte, so a circle
// ends at the stated length at the latest.
template <class Visit>
void Walk(Pager& pager, Place place, std::span<const std::byte> stored, Visit visit) {
  const std::uint32_t head = Load32(stored.data());
  std::size_t left = head & kLongValueLengthMask;
  RowId record = RowId::FromReference(Load32(stored.data() + 4));
  const bool single = (head & kLongValueSingle) != 0;
  if (left > std::size_t{pager.page_count()} * kPageSize) {
    ThrowDamaged(pager.path(), place, message::kLongValueTooLong);
  }
  while (left != 0) {
    const PageRef page = pager.Read(record.page);
    std::span<const std::byte> bytes = RowBytes(pager, page, record.slot, kLongValueOwner);
    const Place at{record.page, record.slot};
    if (GetSlot(page.data(), record.slot).state == kSlotDeleted) {
      ThrowDamaged(pager.path(), place, {message::kLongValueDeleted, {{"<Page>", at.page}}});
    }
    RowId next;
    if (!single) {
      if (bytes.size() <= kNextReferenceSize) {
        ThrowDamaged(pager.path(), at, message::kLongValueRecordEmpty);
      }
      next = RowId::FromReference(Load32(bytes.data()));
      bytes = bytes.subspan(kNextReferenceSize);
    }
    const bool last = single || next == RowId{};
    if (bytes.size() > left || (last && bytes.size() != left)) {
      ThrowDamaged(pager.path(), at,
                   {message::kLongValueLength,
                    {{"<Length>", bytes.size() > left ? message::kLonger : message::kShorter}}});
    }
    visit(record, bytes);
    left -= bytes.size();
    if (left != 0) record = next;
  }
}

void CheckHead(const Pager& pager, Place place, std::span<const std::byte> stored) {
  if (stored.size() < kLongValueHead) {
    ThrowDamaged(pager.path(), place, message::kLongValueHead);
  }
}

bool IsInline(std::span<const std::byte> stored) {
  return (Load32(stored.data()) & kLongValueInline) != 0;
}

}  // namespace

std::span<const std::byte> ReadLongValue(Pager& pager, Place place,
                                         std::span<const std::byte> stored,
                                         std::vector<std::byte>& scratch) {
  CheckHead(pager, place, stored);
  if (IsInline(stored)) {
    const std::size_t length = Load32(stored.data()) & kLongValueLengthMask;
    if (length > stored.size() - kLongValueHead) {
      ThrowDamaged(pager.path(), place, message::kInlineTooShort);
    }
    return stored.subspan(kLongValueHead, length);
  }
  scratch.clear();
  Walk(pager, place, stored, [&](RowId, std::span<const std::byte> bytes) {
    scratch.insert(scratch.end(), bytes.begin(), bytes.end());
  });
  return scratch;
}

void ForEachLongValueRecord(Pager& pager, Place place, std::span<const std::byte> stored,
                            const std::function<void(RowId)>& visit) {
  CheckHead(pager, place, stored);
  if (IsInline(stored)) return;
  Walk(pager, place, stored, [&](RowId record, std::span<const std::byte>) { visit(record); });
}

}  // namespace jet
