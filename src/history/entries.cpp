// SPDX-License-Identifier: MIT
#include "history/entries.h"

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
  result.whole = file.ForEach([&](const Record& record) {
    undone.Pass(record);
    Entry& entry = result.entries.emplace_back(Entry{record, undone.Has(record.number)});
    entry.record.rows.clear();
    entry.record.files.clear();
    return result.entries.size() < limit;
  });
  return result;
}

std::optional<Entry> FindEntry(HistoryFile& file, std::uint64_t number) {
  std::optional<Entry> found;
  UndoneOperations undone;
  file.ForEach([&](const Record& record) {
    undone.Pass(record);
    if (record.number == number) found = Entry{record, undone.Has(number)};
    return record.number > number;
  });
  return found;
}

}  // namespace history
