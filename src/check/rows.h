// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory_resource>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/studio.h"
#include "store/formula_records.h"
#include "store/operations.h"

namespace check {

// All rows of a project, each read once.
class Rows {
 public:
  // Raises platform::Error when the database fails.
  Rows(store::Operations& operations, platform::OVItems* items);

  const std::vector<store::FormulaRecord>& formulas() const { return formulas_; }  // by ID
  const std::vector<store::AliasRecord>& aliases() const { return aliases_; }      // by ID
  // By formula, alias and ID; name and item of the alias are not filled in.
  const std::vector<store::ArgumentRecord>& arguments() const { return arguments_; }

  // How many rows the tables count and did not show.
  std::int32_t missing() const { return missing_; }

  // Null when there is none.
  const store::FormulaRecord* FindFormula(std::int32_t id) const;
  const store::AliasRecord* FindAlias(std::int32_t id) const;
  // Letter case does not count; of several the first.
  const store::AliasRecord* FindAlias(std::string_view name) const;
  std::span<const store::ArgumentRecord> ArgumentsOf(std::int32_t formula_id) const;
  // The aliases of a formula's arguments, each once, in the order of their IDs.
  std::vector<const store::AliasRecord*> AliasesOf(const store::FormulaRecord& formula) const;
  // The variant type code of the alias's item, looked up once; nothing for one that nobody knows.
  std::optional<std::int32_t> TypeOf(const store::AliasRecord& alias) const {
    return types_[static_cast<std::size_t>(&alias - aliases_.data())];
  }
  // Whether an alias stands for the item.
  bool IsItem(std::string_view item) const { return items_.contains(item); }
  // REQUIRES: IsItem(item).
  const store::AliasRecord& FirstOfItem(std::string_view item) const {
    return aliases_[items_.at(item)];
  }

 private:
  store::Statistics Found() const;

  std::int32_t missing_ = 0;
  std::vector<store::FormulaRecord> formulas_;
  std::vector<store::AliasRecord> aliases_;
  std::vector<store::ArgumentRecord> arguments_;
  std::vector<std::optional<std::int32_t>> types_;  // of the aliases
  std::pmr::monotonic_buffer_resource memory_;      // of the tables
  // Indexes of aliases: by name, folded; the first by item.
  std::pmr::unordered_map<std::string, std::uint32_t> names_{&memory_};
  std::pmr::unordered_map<std::string_view, std::uint32_t> items_{&memory_};
};

}  // namespace check
