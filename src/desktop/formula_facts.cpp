// SPDX-License-Identifier: MIT
#include "desktop/formula_facts.h"

#include <string>

#include "platform/error.h"

namespace desktop {

void FormulaFacts::ReadAll() {
  records_.clear();
  store::Operations* operations = own_.operations();
  if (!operations) return;
  try {
    operations->ForEachFormula(
        [this](const store::FormulaRecord& formula) { records_[formula.id] = formula; });
  } catch (const platform::Error&) {
    records_.clear();  // those whose tables they are say why
  }
}

void FormulaFacts::Read(std::int32_t id) {
  records_.erase(id);
  store::Operations* operations = own_.operations();
  if (!operations) return;
  try {
    if (const auto record = operations->FindFormula(id)) records_[id] = *record;
  } catch (const platform::Error&) {
  }
}

const store::FormulaRecord* FormulaFacts::Of(std::int32_t id) const {
  const auto found = records_.find(id);
  return found == records_.end() ? nullptr : &found->second;
}

void FormulaFacts::CollectWords(store::Operations& operations) {
  words_.Clear();
  std::unordered_map<std::int32_t, std::string> aliases, of_formula;
  operations.ForEachAlias([&](const store::AliasRecord& alias) {
    aliases[alias.id] = alias.vb_alias + " " + alias.item_id;
  });
  operations.ForEachArgument([&](const store::ArgumentRecord& argument) {
    of_formula[argument.parent_id] += "\n" + aliases[argument.alias_id];
  });
  operations.ForEachFormula([&](const store::FormulaRecord& formula) {
    words_.Add({NameIndex::Kind::kFormula, formula.id, formula.name,
                formula.comment + of_formula[formula.id]});
  });
}

// Whoever changes the words changes the database's file.
std::unordered_set<std::int32_t> FormulaFacts::Find(std::string_view text) {
  std::unordered_set<std::int32_t> ids;
  store::Operations* operations = own_.operations();
  if (!operations) return ids;
  const auto stamp = own_.stamp();
  try {
    if (!collected_ || collected_ != stamp) CollectWords(*operations);
    collected_ = stamp;
  } catch (const platform::Error&) {
    collected_.reset();
  }
  for (const std::size_t place : words_.Find(text, words_.size())) ids.insert(words_.At(place).id);
  return ids;
}

}  // namespace desktop
