// SPDX-License-Identifier: MIT
#include "jet/index_page.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cstring>

namespace jet {
namespace {

// 64 bits of the entry mask. The last word reaches three bytes into the entry data; searches end
// at the bit of Used() before they get there.
std::uint64_t MaskWord(const std::byte* page, std::size_t word) {
  return Load64(page + kIndexMaskOffset + 8 * word);
}

// The first set bit above `bit`. REQUIRES: there is one.
std::size_t NextBit(const std::byte* page, std::size_t bit) {
  ++bit;
  std::size_t word = bit / 64;
  std::uint64_t bits = MaskWord(page, word) & (~std::uint64_t{0} << bit % 64);
  while (bits == 0) bits = MaskWord(page, ++word);
  return 64 * word + static_cast<std::size_t>(std::countr_zero(bits));
}

// The last set bit that is not above `bit`, 0 when there is none.
std::size_t LastBit(const std::byte* page, std::size_t bit) {
  std::size_t word = bit / 64;
  std::uint64_t bits = MaskWord(page, word) & (~std::uint64_t{0} >> (63 - bit % 64));
  while (bits == 0) {
    if (word == 0) return 0;
    bits = MaskWord(page, --word);
  }
  return 64 * word + 63 - static_cast<std::size_t>(std::countl_zero(bits));
}

// The baseline instruction set counts no bits, and the compiler's own routine is a slow call.
std::size_t CountBits(std::uint64_t bits) {
  bits -= bits >> 1 & 0x5555555555555555;
  bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
  bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
  return static_cast<std::size_t>(bits * 0x0101010101010101 >> 56);
}

bool HasBit(const std::byte* page, std::size_t bit) {
  return (Load8(page + kIndexMaskOffset + bit / 8) >> bit % 8 & 1) != 0;
}

// Compares as far as the shorter one reaches.
int Compare(ByteView a, ByteView b) {
  const std::size_t size = std::min(a.size(), b.size());
  return size == 0 ? 0 : std::memcmp(a.data(), b.data(), size);
}

// Whether an entry belongs before the place that is searched for.
bool IsBefore(ByteView entry, ByteView target, Bound bound) {
  const int order = Compare(entry, target);
  if (order != 0) return order < 0;
  return bound == Bound::kPast || entry.size() < target.size();
}

}  // namespace

const messages::Pattern* IndexPage::Fault(const std::byte* page) {
  const std::uint8_t type = Load8(page);
  if (type != static_cast<std::uint8_t>(PageType::kIndexNode) &&
      type != static_cast<std::uint8_t>(PageType::kIndexLeaf)) {
    return &message::kNoIndexPage;
  }
  if (Load16(page + 2) > kIndexCapacity) return &message::kFreeBytesExceed;
  const IndexPage view(page);
  const std::size_t used = view.Used();
  if (used == 0) return nullptr;
  if (!HasBit(page, used)) return &message::kEntryMask;
  // Entries differ, so what several share is shorter than the first of them.
  const std::size_t first = NextBit(page, 0);
  if (view.Prefix() > first || (view.Prefix() == first && first < used)) {
    return &message::kPrefixTooLong;
  }
  return nullptr;
}

std::size_t IndexPage::Count() const {
  const std::size_t used = Used();
  if (used == 0) return 0;
  std::size_t count = 0;
  for (std::size_t word = 0; word < used / 64; ++word) {
    count += CountBits(MaskWord(page_, word));
  }
  count += CountBits(MaskWord(page_, used / 64) & (~std::uint64_t{0} >> (63 - used % 64)));
  return HasBit(page_, 0) ? count - 1 : count;
}

std::size_t IndexPage::After(std::size_t position) const { return NextBit(page_, position); }

std::size_t IndexPage::Before(std::size_t position) const { return LastBit(page_, position - 1); }

ByteView IndexPage::Suffix(std::size_t position) const {
  const std::size_t begin = position == 0 ? Prefix() : position;
  return {data() + begin, After(position) - begin};
}

std::size_t IndexPage::Find(ByteView target, Bound bound) const {
  std::size_t high = Used();
  if (high == 0) return 0;
  const ByteView prefix = PrefixBytes();
  const int order = Compare(prefix, target);
  if (order != 0) return order < 0 ? high : 0;
  if (target.size() <= prefix.size()) return bound == Bound::kPast ? high : 0;
  const ByteView rest = target.subspan(prefix.size());
  // Entries that begin below `low` are before the target, those from `high` on are not.
  std::size_t low = 0;
  while (low < high) {
    const std::size_t middle = (low + high) / 2;
    const std::size_t begin = LastBit(page_, middle);
    const std::size_t end = NextBit(page_, middle);
    const std::size_t suffix = begin == 0 ? prefix.size() : begin;
    if (IsBefore({data() + suffix, end - suffix}, rest, bound)) {
      low = end;
    } else {
      high = begin;
    }
  }
  return low;
}

bool IndexPage::BelongsAt(std::size_t position, ByteView target) const {
  const std::size_t used = Used();
  if (used == 0 || position > used || (position > 0 && !HasBit(page_, position))) return false;
  const ByteView prefix = PrefixBytes();
  if (target.size() < prefix.size() || Compare(prefix, target) != 0) return false;
  const ByteView rest = target.subspan(prefix.size());
  if (position < used && IsBefore(Suffix(position), rest, Bound::kFirst)) return false;
  return position == 0 || IsBefore(Suffix(Before(position)), rest, Bound::kFirst);
}

void IndexPage::Read(std::size_t position, std::vector<std::byte>& entry) const {
  const ByteView prefix = PrefixBytes();
  const ByteView suffix = Suffix(position);
  entry.assign(prefix.begin(), prefix.end());
  entry.insert(entry.end(), suffix.begin(), suffix.end());
}

bool IndexPage::StartsWith(std::size_t position, ByteView bytes) const {
  const ByteView prefix = PrefixBytes();
  if (Compare(prefix, bytes) != 0) return false;
  if (bytes.size() <= prefix.size()) return true;
  const ByteView rest = bytes.subspan(prefix.size());
  const ByteView suffix = Suffix(position);
  return suffix.size() >= rest.size() && Compare(suffix, rest) == 0;
}

PageNumber IndexPage::Child(std::size_t position) const {
  const ByteView suffix = Suffix(position);
  if (suffix.size() < kChildSize) return 0;
  return LoadBig32(suffix.data() + suffix.size() - kChildSize);
}

RowId IndexPage::Row(std::size_t position) const {
  const ByteView suffix = Suffix(position);
  if (suffix.size() >= kRowReferenceSize) return RowOfEntry(suffix);
  assert(Size(position) >= kRowReferenceSize);
  std::array<std::byte, kRowReferenceSize> row;
  const ByteView head = PrefixBytes().last(row.size() - suffix.size());
  std::copy(suffix.begin(), suffix.end(), std::copy(head.begin(), head.end(), row.begin()));
  return RowOfEntry(row);
}

RowId RowOfEntry(ByteView entry) {
  assert(entry.size() >= kRowReferenceSize);
  const std::byte* row = entry.data() + entry.size() - kRowReferenceSize;
  return {LoadBig24(row), Load8(row + 3)};
}

void AppendRow(RowId row, std::vector<std::byte>& entry) {
  const std::size_t at = entry.size();
  entry.resize(at + kRowReferenceSize);
  StoreBig24(&entry[at], row.page);
  Store8(&entry[at + 3], row.slot);
}

void AppendChild(PageNumber child, std::vector<std::byte>& entry) {
  const std::size_t at = entry.size();
  entry.resize(at + kChildSize);
  StoreBig32(&entry[at], child);
}

int CompareBytes(ByteView a, ByteView b) {
  const int order = Compare(a, b);
  if (order != 0 || a.size() == b.size()) return order;
  return a.size() < b.size() ? -1 : 1;
}

std::size_t CommonPrefix(ByteView a, ByteView b) {
  const std::size_t size = std::min(a.size(), b.size());
  return static_cast<std::size_t>(
      std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(size), b.begin()).first -
      a.begin());
}

}  // namespace jet
