// SPDX-License-Identifier: MIT
// The history as it is shown: what was done, and what of that is undone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

#include "history/history_file.h"
#include "history/record.h"

namespace history {

struct Entry {
  Record record;
  bool undone = false;  // an operation that was taken back and not redone since
};

struct Entries {
  std::vector<Entry> entries;  // the newest first; without rows and files
  bool whole = true;           // false: what comes before the last of them cannot be read
};

// The newest ones. Raises files::Error.
Entries NewestEntries(HistoryFile& file, std::size_t limit);

// The record of that number; nothing when there is none. Raises files::Error.
std::optional<Entry> FindEntry(HistoryFile& file, std::uint64_t number);

// Walks from the newest record to older ones and knows which operations are undone.
class UndoneOperations {
 public:
  // To be told of each record, the newest first.
  void Pass(const Record& record);
  // Of an operation in front of all that were passed.
  bool Has(std::uint64_t number) const;

 private:
  std::unordered_set<std::uint64_t> decided_;
  std::unordered_set<std::uint64_t> undone_;
};

}  // namespace history
