// SPDX-License-Identifier: MIT
#include "store/row_change_log.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace store {
namespace {

// What two changes of one row, one after the other, come to; nothing when it is as it was.
std::optional<RowChange::Kind> Together(RowChange::Kind first, RowChange::Kind then) {
  using enum RowChange::Kind;
  if (first == kAdded) return then == kDeleted ? std::nullopt : std::optional(kAdded);
  if (first == kDeleted && then != kDeleted) return kChanged;
  return then;
}

std::int32_t IdOf(const RowChange& change) {
  for (const auto& [name, value] : change.members) {
    if (name == "ID") return value.ToLong();
  }
  return 0;
}

}  // namespace

std::vector<RowChange> RowChangeLog::Take() {
  std::map<std::string, std::unordered_map<std::int32_t, std::size_t>, std::less<>> known;
  std::vector<bool> is_gone(changes_.size(), false);
  std::size_t count = 0;
  for (std::size_t i = 0; i < changes_.size(); ++i) {
    RowChange& change = changes_[i];
    const auto [place, is_new] = known[change.table].try_emplace(IdOf(change), count);
    if (is_new) {
      if (count != i) changes_[count] = std::move(change);
      ++count;
      continue;
    }
    RowChange& first = changes_[place->second];
    const auto kind = is_gone[place->second] ? change.kind : Together(first.kind, change.kind);
    is_gone[place->second] = !kind;
    first.members = std::move(change.members);
    if (kind) first.kind = *kind;
  }
  std::size_t left = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (is_gone[i]) continue;
    if (left != i) changes_[left] = std::move(changes_[i]);
    ++left;
  }
  changes_.resize(left);
  return std::exchange(changes_, {});
}

}  // namespace store
