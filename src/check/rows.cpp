// SPDX-License-Identifier: MIT
#include "check/rows.h"

#include <algorithm>
#include <tuple>

#include "platform/text.h"

namespace check {

using store::AliasRecord;
using store::ArgumentRecord;
using store::FormulaRecord;

namespace {

template <class Record>
const Record* Find(const std::vector<Record>& records, std::int32_t id) {
  const auto found = std::ranges::lower_bound(records, id, {}, &Record::id);
  return found != records.end() && found->id == id ? &*found : nullptr;
}

std::int32_t CountMissing(const store::Statistics& counted, const store::Statistics& found) {
  const auto less = [](std::int32_t wanted, std::int32_t is) { return std::max(wanted - is, 0); };
  return less(counted.formulas, found.formulas) + less(counted.arguments, found.arguments) +
         less(counted.aliases, found.aliases);
}

}  // namespace

Rows::Rows(store::Operations& operations, platform::OVItems* items) {
  const store::Statistics counted = operations.Count();
  operations.ForEachFormula([&](const FormulaRecord& formula) { formulas_.push_back(formula); });
  operations.ForEachAlias([&](const AliasRecord& alias) { aliases_.push_back(alias); });
  operations.ForEachArgument(
      [&](const ArgumentRecord& argument) { arguments_.push_back(argument); });
  // What others added or deleted meanwhile is not missing.
  if (operations.Count() == counted) missing_ = CountMissing(counted, Found());
  std::ranges::sort(arguments_, {}, [](const ArgumentRecord& argument) {
    return std::tuple(argument.parent_id, argument.alias_id, argument.id);
  });
  types_.resize(aliases_.size());
  for (std::size_t i = 0; items && i < aliases_.size(); ++i) {
    types_[i] = items->VariantTypeOf(aliases_[i].item_id);
  }
  names_.reserve(aliases_.size());
  items_.reserve(aliases_.size());
  for (std::uint32_t i = 0; i < aliases_.size(); ++i) {
    names_.emplace(platform::FoldCase(aliases_[i].vb_alias), i);
    items_.emplace(aliases_[i].item_id, i);
  }
}

store::Statistics Rows::Found() const {
  const auto size = [](const auto& records) { return static_cast<std::int32_t>(records.size()); };
  return {size(formulas_), size(arguments_), size(aliases_)};
}

const FormulaRecord* Rows::FindFormula(std::int32_t id) const { return Find(formulas_, id); }
const AliasRecord* Rows::FindAlias(std::int32_t id) const { return Find(aliases_, id); }

const AliasRecord* Rows::FindAlias(std::string_view name) const {
  const auto found = names_.find(platform::FoldCase(name));
  return found == names_.end() ? nullptr : &aliases_[found->second];
}

std::span<const ArgumentRecord> Rows::ArgumentsOf(std::int32_t formula_id) const {
  const auto first =
      std::ranges::lower_bound(arguments_, formula_id, {}, &ArgumentRecord::parent_id);
  const auto last =
      std::ranges::upper_bound(first, arguments_.end(), formula_id, {}, &ArgumentRecord::parent_id);
  return {first, last};
}

std::vector<const AliasRecord*> Rows::AliasesOf(const FormulaRecord& formula) const {
  std::vector<const AliasRecord*> aliases;
  std::int32_t last = 0;
  for (const ArgumentRecord& argument : ArgumentsOf(formula.id)) {
    const bool is_new = aliases.empty() || argument.alias_id != last;
    last = argument.alias_id;
    const AliasRecord* alias = is_new ? FindAlias(argument.alias_id) : nullptr;
    if (alias) aliases.push_back(alias);
  }
  return aliases;
}

}  // namespace check
