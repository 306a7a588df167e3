// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace cli {

// A value of a list: Null, boolean, number or text.
using Cell = std::variant<std::monostate, bool, std::int64_t, std::string>;

// The cell as plain output shows it: true and false, tab and line break as \t and \n, a text of
// one character of code 0 as empty text.
std::string PlainText(const Cell& cell);
// The cell as JSON.
std::string JsonText(const Cell& cell);
// A JSON string of UTF-8 text; what is not UTF-8 becomes U+FFFD.
std::string JsonString(std::string_view text);

enum class RowFormat {
  kPlain,     // for scripts: tab-separated, no header row
  kJson,      // one array of objects
  kTerminal,  // for people: aligned columns under a header row
};

// Writes a list row by row. Plain and JSON output stream; a terminal's columns are aligned over
// the whole list.
class RowWriter {
 public:
  RowWriter(std::ostream& out, RowFormat format, std::vector<std::string> columns);

  void Write(const std::vector<Cell>& row);
  // Ends the list; nothing may be written afterwards.
  void Finish();

 private:
  void WriteAligned();

  std::ostream& out_;
  RowFormat format_;
  std::vector<std::string> columns_;
  std::vector<std::vector<std::string>> held_;  // rows of a terminal's list
  std::size_t rows_ = 0;
};

// Members of one JSON object, in order; used for single objects and nested arrays.
std::string JsonObject(const std::vector<std::pair<std::string, std::string>>& members);

}  // namespace cli
