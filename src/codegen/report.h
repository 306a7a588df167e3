// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <unordered_set>
#include <vector>

#include "texts/text_table.h"

namespace codegen {

// A step that was left out, or something else that the engineer should know.
struct Warning {
  std::int32_t text_id = 0;  // of the text table, 1100 to 1199
  std::string message;       // that text in the table's language, values filled in
  friend bool operator==(const Warning&, const Warning&) = default;
};

// The names with commas between them; of a long list the first ones and the number of all.
std::string NamesInShort(const std::vector<std::string>& names);

// The warnings of an operation, each once.
class Report {
 public:
  explicit Report(const texts::TextTable& texts) : texts_(texts) {}

  const texts::TextTable& texts() const { return texts_; }

  using Replacements = std::initializer_list<texts::TextTable::Replacement>;

  // Keeps a text of the table as a warning, unless it is kept already.
  void Warn(std::int32_t text, Replacements values);
  // Raises it as a platform::Error: what was asked for cannot be done.
  [[noreturn]] void Refuse(std::int32_t text, Replacements values) const;

  // Hands out what is kept and forgets it.
  std::vector<Warning> TakeWarnings();

 private:
  const texts::TextTable& texts_;
  std::vector<Warning> warnings_;
  std::unordered_set<std::string> messages_;  // of the warnings
};

}  // namespace codegen
