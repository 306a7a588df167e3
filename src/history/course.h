// SPDX-License-Identifier: MIT
// The course of the history from now back to one operation.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "history/history_file.h"
#include "history/record.h"

namespace history {

// Which record has to be taken back to undo or redo an operation, and what was done since.
struct Course {
  enum class Found { kYes, kNothing, kNoEntry, kAlready, kDamaged };
  Found found = Found::kNothing;
  Record operation;           // that of the title; its head
  Record last;                // what was done of it last: itself, its redoing or its undoing
  std::vector<Record> since;  // what was done behind that and still counts, the newest first
};

// For undoing (else redoing) the operation of the number, or the next one. Undoing what undid is
// redoing. Of all records as much as asked for. Raises files::Error.
Course FindCourse(HistoryFile& file, bool& undo, std::optional<std::uint64_t> number,
                  Detail detail = Detail::kAll);

}  // namespace history
