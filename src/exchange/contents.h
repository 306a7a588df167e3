// SPDX-License-Identifier: MIT
// What a list says, before anybody looks into a project.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/decoded_text.h"
#include "exchange/place.h"
#include "exchange/table_header.h"

namespace exchange {

// Texts belong to the contents. An empty one, and a value that is missing, says nothing: a default
// for what is new, and what exists keeps what it has.

struct AliasRow {
  std::string_view item;
  std::string_view alias;  // empty: to be proposed from the item
  Place place;
  friend bool operator==(const AliasRow&, const AliasRow&) = default;
};

struct ArgumentRow {
  static constexpr std::uint32_t kNoRow = 0xFFFFFFFF;

  std::string_view alias;  // its name, or an item
  std::string_view item;   // for an alias that is missing
  std::optional<bool> in;
  std::optional<bool> out;
  std::uint32_t alias_row = kNoRow;  // of the contents, which is this argument's alias
  Place place;
};

struct FormulaRow {
  std::string_view name;
  std::string_view prog_id;
  std::optional<std::int32_t> type;
  std::optional<std::int32_t> scan_time;
  std::optional<bool> enabled;
  std::optional<std::string_view> comment;
  std::vector<ArgumentRow> arguments;
  // The formula has no arguments but these; otherwise they are some of them.
  bool all_arguments = false;
  // The procedure from declaration to end, of a copy.
  std::string_view code;
  Place place;
};

struct Contents {
  std::vector<AliasRow> aliases;
  std::vector<FormulaRow> formulas;
  std::vector<Problem> problems;     // lines that are left out
  std::vector<std::string> ignored;  // columns or members that nobody knows
  // Of a table; nothing for JSON and for what was made otherwise.
  std::optional<TableHeader> header;
  Encoding encoding = Encoding::kUtf8;

  // Keeps a text as long as the contents.
  std::string_view Keep(std::string text) { return kept_.emplace_back(std::move(text)); }
  // What texts are views of.
  std::string& SetText(std::string text) {
    text_ = std::make_unique<std::string>(std::move(text));
    return *text_;
  }

 private:
  std::unique_ptr<std::string> text_;
  std::deque<std::string> kept_;
};

// Whether a text is JSON rather than a table.
bool IsJson(std::string_view text);

// Reads a file of aliases, formulas or signals: a table with a header, or JSON as it is exported.
// Raises FormatError for what is neither.
Contents ReadList(std::string bytes);

// Reads aliases only: a table whose header names at least an item and one more column, or lines
// "ITEM" and "ITEM<Tab>ALIAS". Raises FormatError.
Contents ReadAliases(std::string bytes);

}  // namespace exchange
