// SPDX-License-Identifier: MIT
// What an operation changes, as text: a line for each row, a unified diff for each file of code.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "history/record.h"
#include "store/operation_result.h"
#include "vbfiles/environment.h"

namespace project {

// ISO 8601, UTC, such as "2026-11-21T14:05:09Z".
std::string TimeText(std::int64_t seconds);

// The text on one line: tab and line break as \t and \n, a text of one character of code 0 as
// empty text.
std::string OneLine(std::string_view text);

// --- Of the history ---
// Bytes of a file that a record names, as UTF-8.
using ToUtf8 = std::function<std::string(const history::ChangedFile&, const std::string&)>;

// A line for each row as it was ("-") and as it became ("+"): table and values.
std::string RowsText(const history::Record& record);
// The unified diff of the files.
std::string DiffText(const history::Record& record, const ToUtf8& to_utf8);

// --- Of an operation that is carried out, or would be ---
// A line for each row: what becomes of it, table and values.
std::string RowsText(const std::vector<store::RowChange>& rows);
// The unified diff of the code as the open unit of work would write it.
std::string DiffText(vbfiles::Environment& code);

}  // namespace project
