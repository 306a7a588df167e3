// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vbfiles {

// Finds the entries of a list by the hash of their names, the first of the list first. It works
// like a stack: the entries from one on are forgotten when they change, and learned again when
// somebody looks for a name.
class NameTable {
 public:
  // Before entries from the number `kept` on change.
  template <typename Entry>
  void Forget(std::size_t kept, const std::vector<Entry>& entries) {
    while (before_.size() > kept) {
      const std::size_t last = before_.size() - 1;
      heads_[Bucket(entries[last].name.hash)] = before_.back();
      before_.pop_back();
    }
  }

  // The first entry for which `is_wanted` holds, of those with that hash; null for none.
  template <typename Entry, typename IsWanted>
  const Entry* Find(std::uint32_t hash, const std::vector<Entry>& entries,
                    const IsWanted& is_wanted) {
    Learn(entries);
    const Entry* found = nullptr;
    if (heads_.empty()) return found;
    // From the last of the list to the first.
    for (std::int32_t i = heads_[Bucket(hash)]; i != kNone;
         i = before_[static_cast<std::size_t>(i)]) {
      const Entry& entry = entries[static_cast<std::size_t>(i)];
      if (entry.name.hash == hash && is_wanted(entry)) found = &entry;
    }
    return found;
  }

 private:
  static constexpr std::int32_t kNone = -1;
  static constexpr std::size_t kFirstSize = 64;  // a power of two, as are all sizes

  std::size_t Bucket(std::uint32_t hash) const { return hash & (heads_.size() - 1); }

  template <typename Entry>
  void Learn(const std::vector<Entry>& entries) {
    if (entries.size() > heads_.size()) {
      std::size_t size = heads_.empty() ? kFirstSize : heads_.size();
      while (size < entries.size()) size *= 2;
      heads_.assign(size, kNone);
      before_.clear();
    }
    while (before_.size() < entries.size()) {
      std::int32_t& first = heads_[Bucket(entries[before_.size()].name.hash)];
      before_.push_back(first);
      first = static_cast<std::int32_t>(before_.size()) - 1;
    }
  }

  std::vector<std::int32_t> heads_;   // the last entry of each bucket
  std::vector<std::int32_t> before_;  // of each entry known, the one before it in its bucket
};

}  // namespace vbfiles
