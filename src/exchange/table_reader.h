// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "exchange/contents.h"
#include "exchange/delimited_text.h"
#include "exchange/table_header.h"
#include "messages/text_number.h"

namespace exchange {

// Reads the lines of a table into contents, by its header.
class TableReader {
 public:
  // Both must outlive the reader.
  TableReader(const TableHeader& header, Contents& contents)
      : header_(header), contents_(contents) {}

  // A line that says nothing usable becomes a problem of the contents.
  void Read(const Record& record);

 private:
  // The cell of a member, without an apostrophe against spreadsheets; empty when there is none.
  std::string_view Text(Member member) const;
  Place PlaceOf(Member member) const;

  void ReadAlias();
  void ReadFormula();
  void ReadSignal();
  void AddSignal(std::string_view item, std::string_view alias, std::string_view formula);
  std::uint32_t AliasRowOf(std::string_view item, std::string_view alias);
  FormulaRow& FormulaRowOf(std::string_view name, std::string_view prog_id);

  [[noreturn]] void Refuse(Member member, const messages::Message& reason) const;
  [[noreturn]] void Refuse(Member member, messages::TextNumber text) const;
  // Values of a member; nothing when the cell is empty. Raise a problem for what is none.
  std::optional<bool> Truth(Member member) const;
  std::optional<std::int32_t> WholeNumber(Member member) const;
  std::optional<std::int32_t> CallType() const;

  const TableHeader& header_;
  Contents& contents_;
  const Record* record_ = nullptr;
  // Of signals, whose lines name an alias or a formula again and again; in lower case.
  std::unordered_map<std::string, std::uint32_t> alias_rows_;
  std::unordered_map<std::string, std::uint32_t> formula_rows_;
};

}  // namespace exchange
