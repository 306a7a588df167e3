// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/text.h"

namespace exchange {

// Finds things by name without regard to letter case. It keeps their numbers only; `name_of` says
// the name of each, and must go on to say it.
class NameTable {
 public:
  explicit NameTable(std::function<std::string_view(std::uint32_t)> name_of)
      : name_of_(std::move(name_of)) {}

  std::optional<std::uint32_t> Find(std::string_view name) const {
    const auto [first, last] = numbers_.equal_range(HashOf(name));
    for (auto entry = first; entry != last; ++entry) {
      if (platform::EqualsIgnoringCase(name_of_(entry->second), name)) return entry->second;
    }
    return std::nullopt;
  }
  // Of one name there may be one.
  void Add(std::uint32_t number) { numbers_.emplace(HashOf(name_of_(number)), number); }

 private:
  static std::size_t HashOf(std::string_view name) {
    return std::hash<std::string>()(platform::FoldCase(name));
  }

  std::function<std::string_view(std::uint32_t)> name_of_;
  std::unordered_multimap<std::size_t, std::uint32_t> numbers_;
};

}  // namespace exchange
