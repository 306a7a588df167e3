// SPDX-License-Identifier: MIT
// Which lines of a file a change exchanged, and where they stand now.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/change_set.h"
#include "history/record.h"

namespace history {

// The lines that differ between the two contents of the change; a file that comes or goes is one
// range.
std::vector<ChangedLines> RangesOf(const files::FileChange& change);

FileVersion VersionOf(std::string_view bytes);

// The contents of a file with the lines of every range as they were before the change.
struct TakenBack {
  std::string contents;
  std::vector<files::KeptRange> kept;
  const ChangedLines* failed = nullptr;  // whose lines are not found, or in several places
};
TakenBack TakeBack(std::string_view contents, const ChangedFile& file);

}  // namespace history
