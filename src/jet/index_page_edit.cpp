// SPDX-License-Identifier: MIT
#include "jet/index_page_edit.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "jet/index_entries.h"

namespace jet {
namespace {

// The entry mask in 64-bit words, shifted in place. The last word ends behind the mask, in the
// entry data, whose bytes it leaves alone.
class Mask {
 public:
  explicit Mask(std::byte* page) : bytes_(page + kIndexMaskOffset) {}

  void Set(std::size_t bit) { bytes_[bit / 8] |= std::byte{1} << bit % 8; }

  // Moves the bits from `first` up to `last` by `distance` upwards; zeros come in below.
  // REQUIRES: last + distance is a bit of the mask.
  void ShiftUp(std::size_t first, std::size_t last, std::size_t distance) {
    if (first > last) return;
    const std::size_t base = first / 64;
    const std::uint64_t below = ~(~std::uint64_t{0} << first % 64);
    const std::uint64_t lowest = Get(base);
    const std::size_t skip = distance / 64;
    const std::size_t bits = distance % 64;
    const auto source = [&](std::size_t word) {
      return word == base ? lowest & ~below : Get(word);
    };
    for (std::size_t i = (last + distance) / 64; i > base; --i) {
      std::uint64_t word = 0;
      if (i >= base + skip) word = source(i - skip) << bits;
      if (bits != 0 && i > base + skip) word |= source(i - skip - 1) >> (64 - bits);
      Put(i, word);
    }
    Put(base, (lowest & below) | (skip == 0 ? (lowest & ~below) << bits : 0));
  }

  // Drops the `distance` bits from `first` on and moves those above, up to `last`, down.
  void ShiftDown(std::size_t first, std::size_t last, std::size_t distance) {
    const std::size_t base = first / 64;
    const std::size_t end = last / 64;
    const std::uint64_t below = ~(~std::uint64_t{0} << first % 64);
    const std::uint64_t kept = Get(base) & below;
    const std::size_t skip = distance / 64;
    const std::size_t bits = distance % 64;
    const auto source = [&](std::size_t word) { return word > end ? 0 : Get(word); };
    for (std::size_t i = base; i <= end; ++i) {
      std::uint64_t word = source(i + skip) >> bits;
      if (bits != 0) word |= source(i + skip + 1) << (64 - bits);
      Put(i, i == base ? (word & ~below) | kept : word);
    }
  }

 private:
  static constexpr std::size_t kLastWord = kIndexMaskSize / 8;
  static constexpr std::size_t kBytesOfLast = kIndexMaskSize % 8;

  std::uint64_t Get(std::size_t word) const {
    const std::uint64_t value = Load64(bytes_ + 8 * word);
    return word < kLastWord ? value : value & ((std::uint64_t{1} << 8 * kBytesOfLast) - 1);
  }
  void Put(std::size_t word, std::uint64_t value) {
    if (word < kLastWord) return Store64(bytes_ + 8 * word, value);
    for (std::size_t i = 0; i < kBytesOfLast; ++i) {
      bytes_[8 * word + i] = static_cast<std::byte>(value >> 8 * i);
    }
  }

  std::byte* bytes_;
};

void SetUsed(std::byte* page, std::size_t used) {
  Store16(page + 2, static_cast<std::uint16_t>(kIndexCapacity - used));
}

// Where the suffix of the entry at `position` is stored.
std::size_t SuffixBegin(IndexPage page, std::size_t position) {
  return position == 0 ? page.Prefix() : position;
}

void InsertSuffix(std::byte* page, std::size_t position, ByteView suffix) {
  const IndexPage view(page);
  const std::size_t used = view.Used();
  const std::size_t begin = SuffixBegin(view, position);
  std::byte* data = page + kIndexDataOffset;
  std::memmove(data + begin + suffix.size(), data + begin, used - begin);
  std::copy(suffix.begin(), suffix.end(), data + begin);
  Mask mask(page);
  mask.ShiftUp(position + 1, used, suffix.size());
  mask.Set(begin + suffix.size());
  SetUsed(page, used + suffix.size());
}

void EraseSuffix(std::byte* page, std::size_t position) {
  const IndexPage view(page);
  const std::size_t used = view.Used();
  const std::size_t begin = SuffixBegin(view, position);
  const std::size_t end = view.After(position);
  const std::size_t size = end - begin;
  std::byte* data = page + kIndexDataOffset;
  std::memmove(data + begin, data + end, used - end);
  std::memset(data + used - size, 0, size);
  // The erased entry's own bit is the last of the range that is dropped.
  Mask(page).ShiftDown(begin + 1, used, size);
  SetUsed(page, used - size);
}

void Clear(std::byte* page) {
  std::memset(page + kIndexMaskOffset, 0, kIndexMaskSize + kIndexCapacity);
  SetUsed(page, 0);
  Store16(page + 24, 0);
}

// The longest prefix when `entry` is added at `position`. REQUIRES: the page has entries.
std::size_t PrefixWith(IndexPage page, std::size_t position, ByteView entry) {
  const ByteView prefix = page.PrefixBytes();
  const std::size_t shared = CommonPrefix(prefix, entry);
  if (shared < prefix.size()) return shared;
  const std::size_t used = page.Used();
  const ByteView rest = entry.subspan(shared);
  const ByteView first = position == 0 ? rest : page.Suffix(0);
  const ByteView last = position == used ? rest : page.Suffix(page.Before(used));
  return shared + CommonPrefix(first, last);
}

// The longest prefix when the entry at `position` is gone. REQUIRES: the page has two entries.
std::size_t PrefixWithout(IndexPage page, std::size_t position) {
  const std::size_t first = position == 0 ? page.After(0) : 0;
  std::size_t last = page.Before(page.Used());
  if (last == position) last = page.Before(last);
  return page.Prefix() + CommonPrefix(page.Suffix(first), page.Suffix(last));
}

// Whether the entries and one more of `size` bytes fit without prefix.
bool FitsWhole(IndexPage page, std::size_t size, std::size_t capacity) {
  // Most often two entries more without prefix are too much, and none has to be counted.
  if (page.Used() + size + page.Prefix() > capacity) return false;
  return page.Used() + (page.Count() - 1) * page.Prefix() + size <= capacity;
}

bool InsertAnew(std::byte* page, std::size_t position, ByteView entry, std::size_t capacity) {
  IndexEntries entries{IndexPage(page)};
  entries.Insert(entries.IndexOf(IndexPage(page), position), entry);
  const IndexEntries::Form form = entries.FormOf(0, entries.size(), capacity);
  if (form.size > capacity) return false;
  entries.Store(0, entries.size(), form, page);
  return true;
}

void EraseAnew(std::byte* page, std::size_t position, std::size_t capacity) {
  IndexEntries entries{IndexPage(page)};
  entries.Erase(entries.IndexOf(IndexPage(page), position));
  entries.Store(0, entries.size(), entries.FormOf(0, entries.size(), capacity), page);
}

}  // namespace

void InitIndexPage(std::byte* page, PageType type, PageNumber owner, std::uint8_t level) {
  std::memset(page, 0, kPageSize);
  Store8(page, static_cast<std::uint8_t>(type));
  Store8(page + 1, 1);
  Store16(page + 2, kIndexCapacity);
  Store32(page + 4, owner);
  Store8(page + 26, level);
}

void SetPrevious(std::byte* page, PageNumber previous) { Store32(page + 12, previous); }
void SetNext(std::byte* page, PageNumber next) { Store32(page + 16, next); }
void SetTail(std::byte* page, PageNumber tail) { Store32(page + 20, tail); }

void SetChild(std::byte* page, std::size_t position, PageNumber child) {
  const std::size_t end = IndexPage(page).After(position);
  assert(end - position >= kChildSize);
  StoreBig32(page + kIndexDataOffset + end - kChildSize, child);
}

bool InsertEntry(std::byte* page, std::size_t position, ByteView entry, std::size_t capacity) {
  const IndexPage view(page);
  const std::size_t used = view.Used();
  if (used == 0) {
    if (entry.size() > capacity) return false;
    Clear(page);
    InsertSuffix(page, 0, entry);
    return true;
  }
  const std::size_t prefix = view.Prefix();
  if (prefix == 0) {
    if (used + entry.size() > capacity) return InsertAnew(page, position, entry, capacity);
    InsertSuffix(page, position, entry);
    return true;
  }
  const std::size_t wanted =
      FitsWhole(view, entry.size(), capacity) ? 0 : PrefixWith(view, position, entry);
  if (wanted != prefix) return InsertAnew(page, position, entry, capacity);
  if (used + entry.size() - prefix > capacity) return false;
  InsertSuffix(page, position, entry.subspan(prefix));
  return true;
}

void EraseEntry(std::byte* page, std::size_t position, std::size_t capacity) {
  const IndexPage view(page);
  const std::size_t count = view.Count();
  if (count == 1) return Clear(page);
  const std::size_t prefix = view.Prefix();
  const std::size_t used = view.Used() - view.Suffix(position).size();
  if (prefix != 0) {
    const std::size_t whole = used + (count - 2) * prefix;
    if (whole <= capacity || PrefixWithout(view, position) != prefix) {
      return EraseAnew(page, position, capacity);
    }
  }
  EraseSuffix(page, position);
}

}  // namespace jet
