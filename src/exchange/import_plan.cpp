// SPDX-License-Identifier: MIT
#include "exchange/import_plan.h"

#include <algorithm>

namespace exchange {
namespace {

constexpr std::uint32_t kNoArgument = 0xFFFFFFFF;

void CountRow(RowAction action, ImportPlan::Counts& counts) {
  switch (action) {
    case RowAction::kNew:
      ++counts.added;
      return;
    case RowAction::kChanged:
      ++counts.changed;
      return;
    case RowAction::kUnchanged:
      ++counts.unchanged;
      return;
    case RowAction::kRefused:
      ++counts.refused;
      return;
  }
}

std::string NameOf(const PlannedFormula& formula) {
  const store::FormulaValues& values = formula.values;
  return values.prog_id.empty() ? values.name : values.prog_id + "." + values.name;
}

void AppendWord(std::string& list, std::string_view word) {
  if (word.empty()) return;
  if (!list.empty()) list += ' ';
  list += word;
}

}  // namespace

PlannedAlias PlannedAliases::operator[](std::size_t number) const {
  const Line& line = lines_[number];
  const AliasRow& row = RowOf(number);
  PlannedAlias alias{line.action, line.id, row.item, row.alias, {}, row.place, line.listed};
  const auto reason = reasons_.find(number);
  if (reason != reasons_.end()) alias.reason = reason->second;
  return alias;
}

void PlannedAliases::Add(const PlannedAlias& alias) {
  const std::size_t number = lines_.size();
  Line line{alias.id, ArgumentRow::kNoRow, alias.action, alias.listed};
  const AliasRow row{alias.item, alias.alias, alias.place};
  if (number >= list_.size() || row != list_[number]) {
    line.own = static_cast<std::uint32_t>(own_.size());
    own_.push_back(row);
  }
  if (!alias.reason.empty()) reasons_.emplace(number, alias.reason);
  lines_.push_back(line);
}

const Place& ImportPlan::PlaceOf(const Entry& entry) const {
  switch (entry.kind) {
    case Line::Kind::kAlias:
      return aliases_.PlaceOf(entry.number);
    case Line::Kind::kFormula:
      return formulas_[entry.number].place;
    case Line::Kind::kArgument:
      return formulas_[entry.number].arguments[entry.argument].place;
    case Line::Kind::kUnknown:
      break;
  }
  return problems_[entry.number].place;
}

// A refused formula is one line; of one that is not, refused arguments are lines of their own, but
// for those whose alias is refused in the same line.
void ImportPlan::PutInOrder() {
  using Kind = Line::Kind;
  order_.reserve(problems_.size() + aliases_.size() + formulas_.size());
  for (std::uint32_t i = 0; i < problems_.size(); ++i) {
    order_.push_back({Kind::kUnknown, i, kNoArgument});
  }
  for (std::uint32_t i = 0; i < aliases_.size(); ++i) {
    if (aliases_.IsListed(i)) order_.push_back({Kind::kAlias, i, kNoArgument});
  }
  for (std::uint32_t i = 0; i < formulas_.size(); ++i) {
    const PlannedFormula& formula = formulas_[i];
    order_.push_back({Kind::kFormula, i, kNoArgument});
    if (formula.action == RowAction::kRefused) continue;
    for (std::uint32_t n = 0; n < formula.arguments.size(); ++n) {
      const PlannedArgument& argument = formula.arguments[n];
      if (argument.action == RowAction::kRefused && !argument.reason.empty()) {
        order_.push_back({Kind::kArgument, i, n});
      }
    }
  }
  const auto line = [this](const Entry& entry) { return PlaceOf(entry).line; };
  // Sorting takes room, and a list of aliases is in order.
  if (!std::ranges::is_sorted(order_, {}, line)) std::ranges::stable_sort(order_, {}, line);
}

RowAction ImportPlan::ActionAt(std::size_t index) const {
  const Entry& entry = order_.at(index);
  switch (entry.kind) {
    case Line::Kind::kAlias:
      return aliases_.ActionOf(entry.number);
    case Line::Kind::kFormula:
      return formulas_[entry.number].action;
    default:
      return RowAction::kRefused;
  }
}

ImportPlan::Counts ImportPlan::Count() const {
  Counts counts;
  for (std::size_t i = 0; i < order_.size(); ++i) CountRow(ActionAt(i), counts);
  return counts;
}

ImportPlan::Line ImportPlan::LineAt(std::size_t index) const {
  const Entry& entry = order_.at(index);
  Line line;
  line.kind = entry.kind;
  line.place = PlaceOf(entry);
  if (entry.kind == Line::Kind::kUnknown) {
    line.reason = problems_[entry.number].reason;
    return line;
  }
  if (entry.kind == Line::Kind::kAlias) {
    const PlannedAlias alias = aliases_[entry.number];
    line.action = alias.action;
    line.name = alias.alias;
    line.detail = alias.item;
    line.reason = alias.reason;
    return line;
  }
  const PlannedFormula& formula = formulas_[entry.number];
  if (entry.kind == Line::Kind::kArgument) {
    const PlannedArgument& argument = formula.arguments[entry.argument];
    line.name = NameOf(formula);
    line.reason = argument.reason;
    return line;
  }
  line.action = formula.action;
  line.name = NameOf(formula);
  line.reason = formula.reason;
  if (formula.action == RowAction::kRefused) return line;
  for (const PlannedArgument& argument : formula.arguments) {
    const bool comes = argument.action == RowAction::kNew;
    if (!comes && argument.action != RowAction::kChanged) continue;
    AppendWord(line.detail, (comes ? "+" : "~") + std::string(aliases_.NameOf(argument.alias)));
  }
  for (const auto& argument : formula.gone) AppendWord(line.detail, "-" + argument.vb_alias);
  return line;
}

std::vector<ImportPlan::Line> ImportPlan::Refused() const {
  std::vector<Line> lines;
  for (std::size_t i = 0; i < order_.size(); ++i) {
    if (ActionAt(i) == RowAction::kRefused) lines.push_back(LineAt(i));
  }
  return lines;
}

bool ImportPlan::ChangesFormulas() const {
  return std::ranges::any_of(formulas_, [](const PlannedFormula& formula) {
    return formula.action == RowAction::kNew ||
           (formula.action == RowAction::kChanged && formula.values_differ);
  });
}

}  // namespace exchange
