// SPDX-License-Identifier: MIT
// Entries of the history as the command line prints them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "history/entries.h"

namespace cli {

// ISO 8601, UTC, such as "2026-11-21T14:05:09Z".
std::string TimeText(std::int64_t seconds);

// Bytes of a file that a record names, as UTF-8.
using ToUtf8 = std::function<std::string(const history::ChangedFile&, const std::string&)>;

// A line for each row as it was ("-") and as it became ("+"): table and values.
std::string RowsText(const history::Record& record);
// The unified diff of the files.
std::string DiffText(const history::Record& record, const ToUtf8& to_utf8);
// The entry as one JSON object.
std::string EntryJson(const history::Entry& entry, const std::string& title, const ToUtf8& to_utf8);

}  // namespace cli
