// SPDX-License-Identifier: MIT
#include "history/entries.h"

#include <utility>

namespace history {

// The last word on an operation counts.
void UndoneOperations::Pass(const Record& record) {
  if (record.kind == Kind::kOperation || !decided_.insert(record.target).second) return;
  if (record.kind == Kind::kUndo) undone_.insert(record.target);
}

bool UndoneOperations::Has(std::uint64_t number) const { return undone_.contains(number); }

Entries NewestEntries(HistoryFile& file, std::size_t limit) {
  Entries result;
  if (limit == 0) return result;
  UndoneOperations undone;
  const auto take = [&](const Record& record) {
    undone.Pass(record);
    result.entries.push_back({record, undone.Has(record.number)});
    return result.entries.size() < limit;
  };
  result.whole = file.ForEach(take, Detail::kHead);
  return result;
}

std::optional<Entry> FindEntry(HistoryFile& file, std::uint64_t number) {
  std::optional<Entry> found;
  UndoneOperations undone;
  file.ForEach([&](Record& record) {
    undone.Pass(record);
    if (record.number > number) return true;
    if (record.number == number) found = Entry{std::move(record), undone.Has(number)};
    return false;
  });
  return found;
}

}  // namespace history
