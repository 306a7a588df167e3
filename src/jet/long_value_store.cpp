// SPDX-License-Identifier: MIT
#include "jet/long_value_store.h"

#include <cstring>

#include "jet/bytes.h"
#include "jet/data_page.h"

namespace jet {

// A chain is written from its end, since each record names the next.
void LongValueStore::Write(std::span<const std::byte> bytes, std::byte* head) {
  std::memset(head, 0, kLongValueHead);
  auto kind = static_cast<std::uint32_t>(bytes.size());
  RowId first;
  if (bytes.size() <= kMaxInSingle) {
    kind |= kLongValueSingle;
    first = store_.Add(bytes, kSlotLive);
  } else {
    std::vector<std::byte> record;
    std::size_t end = bytes.size();
    while (end > 0) {
      const std::size_t begin = (end - 1) / kMaxInChainRecord * kMaxInChainRecord;
      record.assign(4, std::byte{0});
      Store32(record.data(), first.Reference());
      record.insert(record.end(), bytes.begin() + static_cast<std::ptrdiff_t>(begin),
                    bytes.begin() + static_cast<std::ptrdiff_t>(end));
      first = store_.Add(record, kSlotLive);
      end = begin;
    }
  }
  Store32(head, kind);
  Store32(head + 4, first.Reference());
}

void LongValueStore::Remove(Place place, std::span<const std::byte> stored) {
  std::vector<RowId> records;
  ForEachLongValueRecord(pager_, place, stored, [&](RowId id) { records.push_back(id); });
  for (const RowId id : records) store_.RemoveRecord(id);
}

void AppendInline(std::span<const std::byte> bytes, std::vector<std::byte>& out) {
  const std::size_t at = out.size();
  out.resize(at + kLongValueHead);
  Store32(&out[at], kLongValueInline | static_cast<std::uint32_t>(bytes.size()));
  out.insert(out.end(), bytes.begin(), bytes.end());
}

}  // namespace jet
