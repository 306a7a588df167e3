// SPDX-License-Identifier: MIT
#include "jet/index_entries.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace jet {

IndexEntries::IndexEntries(IndexPage page) {
  const std::size_t used = page.Used();
  if (used == 0) return;
  const std::size_t count = page.Count();
  ends_.reserve(count + 1);
  bytes_.reserve(used + count * page.Prefix());
  const ByteView prefix = page.PrefixBytes();
  for (std::size_t position = 0; position < used; position = page.After(position)) {
    const ByteView suffix = page.Suffix(position);
    bytes_.insert(bytes_.end(), prefix.begin(), prefix.end());
    bytes_.insert(bytes_.end(), suffix.begin(), suffix.end());
    ends_.push_back(bytes_.size());
  }
}

std::size_t IndexEntries::IndexOf(IndexPage page, std::size_t position) const {
  std::size_t index = 0;
  for (std::size_t at = 0; at < position; at = page.After(at)) ++index;
  return index;
}

void IndexEntries::Insert(std::size_t i, ByteView entry) {
  const std::size_t begin = Begin(i);
  bytes_.insert(bytes_.begin() + static_cast<std::ptrdiff_t>(begin), entry.begin(), entry.end());
  for (std::size_t k = i; k < ends_.size(); ++k) ends_[k] += entry.size();
  ends_.insert(ends_.begin() + static_cast<std::ptrdiff_t>(i), begin + entry.size());
}

void IndexEntries::Erase(std::size_t i) {
  const auto begin = static_cast<std::ptrdiff_t>(Begin(i));
  const std::size_t size = ends_[i] - Begin(i);
  bytes_.erase(bytes_.begin() + begin, bytes_.begin() + begin + static_cast<std::ptrdiff_t>(size));
  ends_.erase(ends_.begin() + static_cast<std::ptrdiff_t>(i));
  for (std::size_t k = i; k < ends_.size(); ++k) ends_[k] -= size;
}

IndexEntries::Form IndexEntries::FormOf(std::size_t from, std::size_t to,
                                        std::size_t capacity) const {
  if (from == to) return {};
  const std::size_t whole = ends_[to - 1] - Begin(from);
  if (whole <= capacity) return {0, whole};
  const std::size_t prefix = SharedPrefix(from, to);
  return {prefix, whole - prefix * (to - from - 1)};
}

// In sorted entries what the first and the last share all share; a damaged page may not be sorted.
std::size_t IndexEntries::SharedPrefix(std::size_t from, std::size_t to) const {
  std::size_t shared = CommonPrefix((*this)[from], (*this)[to - 1]);
  for (std::size_t i = from + 1; i + 1 < to; ++i) {
    shared = CommonPrefix((*this)[from].first(shared), (*this)[i]);
  }
  return shared;
}

void IndexEntries::Store(std::size_t from, std::size_t to, Form form, std::byte* page) const {
  assert(form.size <= kIndexCapacity);
  std::memset(page + kIndexMaskOffset, 0, kIndexMaskSize);
  std::byte* data = page + kIndexDataOffset;
  std::size_t used = 0;
  for (std::size_t i = from; i < to; ++i) {
    const ByteView entry = (*this)[i].subspan(i == from ? 0 : form.prefix);
    std::copy(entry.begin(), entry.end(), data + used);
    used += entry.size();
    page[kIndexMaskOffset + used / 8] |= std::byte{1} << used % 8;
  }
  std::memset(data + used, 0, kIndexCapacity - used);
  Store16(page + 2, static_cast<std::uint16_t>(kIndexCapacity - used));
  Store16(page + 24, static_cast<std::uint16_t>(form.prefix));
}

}  // namespace jet
