// SPDX-License-Identifier: MIT
// Values of a database as CSV fields and JSON.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "jet/schema.h"
#include "jet/value.h"

namespace cli {

// Appends a value as an RFC 4180 field: Null is an empty field, empty text "", Yes/No 1 or 0,
// dates ISO 8601, binary as hex.
void AppendCsv(std::string& line, const jet::Value& value, const jet::Column& column);
// Appends a row of such fields and its line end. Values and columns go together.
void AppendCsvRow(std::string& text, std::span<const jet::Value> row,
                  std::span<const jet::Column> columns);
// Appends a field of that text, quoted where needed.
void AppendCsvText(std::string& line, std::string_view text);
// Appends a value as JSON: null, booleans, numbers and strings.
void AppendJson(std::string& line, const jet::Value& value, const jet::Column& column);

}  // namespace cli
