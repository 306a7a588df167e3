// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text.h"

namespace exchange {

// Finds things by name without regard to letter case. It keeps their numbers only; `name_of` says
// the name of each, and must go on to say it.
class NameTable {
 public:
  explicit NameTable(std::function<std::string_view(std::uint32_t)> name_of)
      : name_of_(std::move(name_of)) {}

  std::optional<std::uint32_t> Find(std::string_view name) const {
    if (slots_.empty()) return std::nullopt;
    const std::uint32_t hash = HashOf(name);
    for (std::size_t at = hash & mask(); slots_[at].number != kFree; at = (at + 1) & mask()) {
      const Slot& slot = slots_[at];
      if (slot.hash == hash && platform::EqualsIgnoringCase(name_of_(slot.number), name)) {
        return slot.number;
      }
    }
    return std::nullopt;
  }
  // Of one name there may be one.
  void Add(std::uint32_t number) {
    if (2 * (count_ + 1) > slots_.size()) Grow();
    Put({HashOf(name_of_(number)), number});
    ++count_;
  }

 private:
  static constexpr std::uint32_t kFree = 0xFFFFFFFF;
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t number = kFree;
  };

  static std::uint32_t HashOf(std::string_view name) {
    return static_cast<std::uint32_t>(std::hash<std::string>()(platform::FoldCase(name)));
  }
  std::size_t mask() const { return slots_.size() - 1; }

  void Put(const Slot& slot) {
    std::size_t at = slot.hash & mask();
    while (slots_[at].number != kFree) at = (at + 1) & mask();
    slots_[at] = slot;
  }
  void Grow() {
    std::vector<Slot> before(std::max<std::size_t>(64, 2 * slots_.size()));
    before.swap(slots_);
    for (const Slot& slot : before) {
      if (slot.number != kFree) Put(slot);
    }
  }

  std::function<std::string_view(std::uint32_t)> name_of_;
  std::vector<Slot> slots_;  // a power of two of them, at most half of them taken
  std::size_t count_ = 0;
};

}  // namespace exchange
