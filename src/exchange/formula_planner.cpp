// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "codegen/identifier.h"
#include "exchange/import_planner.h"
#include "platform/prog_id.h"
#include "platform/text.h"
#include "store/rules.h"

namespace exchange {
namespace {

store::FormulaValues ValuesOf(const FormulaRow& row, store::FormulaValues values) {
  values.type = row.type.value_or(values.type);
  values.scan_time = row.scan_time.value_or(values.scan_time);
  values.enabled = row.enabled.value_or(values.enabled);
  if (row.comment) values.comment = *row.comment;
  return values;
}

std::string KeyOf(const store::FormulaValues& values) {
  return platform::FoldCase(values.prog_id) + '\n' + platform::FoldCase(values.name);
}

}  // namespace

std::string ImportPlanner::ClassOf(const FormulaRow& row) const {
  const std::string_view given = row.prog_id.empty() ? options_.prog_id : row.prog_id;
  if (given.empty() && classes_.size() == 1) return classes_.front().prog_id;
  for (const store::ClassEntry& entry : classes_) {
    if (platform::ProgId(entry.prog_id).IsNamed(given)) return entry.prog_id;
  }
  return std::string(given);
}

std::optional<store::FormulaRecord> ImportPlanner::FindFormula(const store::FormulaValues& values) {
  return operations_.FindFormulaInClass(values.prog_id, values.name);
}

bool ImportPlanner::IsTaken(std::string_view prog_id, std::string_view name) {
  const store::FormulaValues values = {std::string(name), std::string(prog_id)};
  return formulas_.contains(KeyOf(values)) || FindFormula(values);
}

void ImportPlanner::PlanFormula(const FormulaRow& row) {
  PlannedFormula planned;
  planned.place = row.place;
  planned.code = row.code;
  planned.values = {std::string(row.name), ClassOf(row)};
  const auto [known, is_new] = formulas_.try_emplace(
      KeyOf(planned.values), static_cast<std::uint32_t>(plan_.formulas_.size()));
  if (!is_new) {
    Refuse(planned, {{kTextRepeats}, {{"<Line>", plan_.formulas_[known->second].place.line}}});
  } else if (planned.values.prog_id.empty()) {
    std::string classes;
    for (const auto& entry : classes_) classes += (classes.empty() ? "" : ", ") + entry.prog_id;
    Refuse(planned, {{kTextNoClass}, {{"<Choices>", classes}}});
  } else if (row.comment && codegen::CharacterCount(*row.comment) > kMaxText) {
    Refuse(planned, {{kTextTooLong}, {{"<Member>", "Comment"}, {"<Most>", kMaxText}}});
  } else if (const auto existing = FindFormula(planned.values)) {
    PlanExistingFormula(planned, row, *existing);
  } else {
    PlanNewFormula(planned, row);
  }
  plan_.formulas_.push_back(std::move(planned));
}

void ImportPlanner::PlanNewFormula(PlannedFormula& planned, const FormulaRow& row) {
  planned.action = RowAction::kNew;
  planned.values = ValuesOf(row, std::move(planned.values));
  Check(planned, operations_.CheckFormula(planned.values, !row.code.empty()));
  if (planned.action == RowAction::kRefused) return;
  PlanArguments(planned, row, {});
}

void ImportPlanner::RenameFormula(PlannedFormula& planned, const FormulaRow& row) {
  const std::string old_name = planned.values.name;
  planned.id = 0;
  planned.gone.clear();
  planned.arguments.clear();
  planned.values = {
      codegen::FirstFreeName(
          old_name, [&](const std::string& name) { return IsTaken(planned.values.prog_id, name); }),
      planned.values.prog_id};
  formulas_.emplace(KeyOf(planned.values), static_cast<std::uint32_t>(plan_.formulas_.size()));
  PlanNewFormula(planned, row);
  if (planned.action != RowAction::kRefused) {
    planned.reason = {{kTextRenamed}, {{"<Name>", old_name}}};
  }
}

void ImportPlanner::PlanExistingFormula(PlannedFormula& planned, const FormulaRow& row,
                                        const store::FormulaRecord& existing) {
  planned.id = existing.id;
  planned.values = ValuesOf(row, existing);
  planned.values_differ = planned.values != existing;
  PlanArguments(planned, row, operations_.ArgumentsOf(existing.id));
  if (planned.action == RowAction::kRefused) return;
  const bool arguments_differ =
      !planned.gone.empty() || std::ranges::any_of(planned.arguments, [](const auto& argument) {
        return argument.action == RowAction::kNew || argument.action == RowAction::kChanged;
      });
  if (!planned.values_differ && !arguments_differ) return;
  planned.action = RowAction::kChanged;
  // Arguments that a list adds one by one are rows of their own.
  if (!planned.values_differ && !row.all_arguments) return;
  switch (options_.existing) {
    case ExistingPolicy::kUpdate:
      return;
    case ExistingPolicy::kError:
      return Refuse(planned, {{kTextFormulaDiffers}, {{"<Name>", existing.name}}});
    case ExistingPolicy::kSkip:
      planned.action = RowAction::kUnchanged;
      planned.values_differ = false;
      planned.arguments.clear();
      planned.gone.clear();
      planned.reason = {{kTextFormulaSkipped}};
      return;
    case ExistingPolicy::kRename:
      return RenameFormula(planned, row);
  }
}

// --- Arguments ---

void ImportPlanner::PlanArguments(PlannedFormula& planned, const FormulaRow& row,
                                  const std::vector<store::ArgumentRecord>& existing) {
  for (const ArgumentRow& argument : row.arguments) {
    planned.arguments.push_back(PlanArgument(planned, argument, existing, row.all_arguments));
    const PlannedArgument& last = planned.arguments.back();
    if (last.action == RowAction::kRefused && row.all_arguments) {
      return Refuse(planned, {{kTextArgumentRefused},
                              {{"<Name>", argument.alias.empty() ? argument.item : argument.alias},
                               {"<Text>", last.reason}}});
    }
  }
  if (!row.all_arguments) return;
  for (const store::ArgumentRecord& argument : existing) {
    const bool stays = std::ranges::any_of(
        planned.arguments, [&](const PlannedArgument& p) { return p.id == argument.id; });
    if (!stays) planned.gone.push_back(argument);
  }
}

PlannedArgument ImportPlanner::PlanArgument(const PlannedFormula& formula, const ArgumentRow& row,
                                            const std::vector<store::ArgumentRecord>& existing,
                                            bool is_part_of_formula) {
  PlannedArgument planned;
  planned.place = row.place;
  const auto alias = AliasOf(row, planned.reason);
  if (!alias) {
    planned.action = RowAction::kRefused;
    return planned;
  }
  planned.alias = *alias;
  planned.in = row.in.value_or(false);
  planned.out = row.out.value_or(false);
  const auto before = std::ranges::find(formula.arguments, *alias, &PlannedArgument::alias);
  if (before != formula.arguments.end()) {
    Refuse(planned, {{kTextRepeats}, {{"<Line>", before->place.line}}});
    return planned;
  }
  const PlannedAlias used = plan_.aliases_[*alias];
  const auto old = used.id == 0
                       ? existing.end()
                       : std::ranges::find(existing, used.id, &store::ArgumentRecord::alias_id);
  if (old == existing.end()) {
    Check(planned, operations_.CheckArgument(formula.values, used.alias, planned.in, planned.out));
    return planned;
  }
  planned.id = old->id;
  planned.in = row.in.value_or(old->in);
  planned.out = row.out.value_or(old->out);
  planned.action = RowAction::kUnchanged;
  if (planned.in == old->in && planned.out == old->out) return planned;
  planned.action = RowAction::kChanged;
  if (!store::TakesArgument(formula.values.type, planned.in, planned.out)) {
    Refuse(planned, {{kTextInAndOut}, {{"<Name>", used.alias}}});
  } else if (!is_part_of_formula && options_.existing == ExistingPolicy::kSkip) {
    planned.action = RowAction::kUnchanged;
    planned.reason = {{kTextFormulaSkipped}};
  } else if (!is_part_of_formula && options_.existing != ExistingPolicy::kUpdate) {
    Refuse(planned, {{kTextArgumentDiffers}, {{"<Name>", used.alias}}});
  }
  return planned;
}

std::optional<std::uint32_t> ImportPlanner::ExistingAlias(std::string_view name,
                                                          std::string_view item) {
  if (const auto row = rows_by_alias_.Find(name)) {
    if (item.empty() || plan_.aliases_[*row].item == item) return row;
  }
  const auto existing = FindAlias(name);
  if (!existing || (!item.empty() && existing->item_id != item)) return std::nullopt;
  PlannedAlias planned;
  planned.id = existing->id;
  planned.alias = plan_.Keep(existing->vb_alias);
  planned.item = plan_.Keep(existing->item_id);
  planned.listed = false;
  plan_.aliases_.Add(planned);
  const auto number = static_cast<std::uint32_t>(plan_.aliases_.size() - 1);
  rows_by_alias_.Add(number);
  return number;
}

std::optional<std::uint32_t> ImportPlanner::AliasOf(const ArgumentRow& row,
                                                    messages::Message& reason) {
  std::optional<std::uint32_t> number;
  if (row.alias_row != ArgumentRow::kNoRow) {
    number = row.alias_row;
  } else {
    const std::string_view name = row.alias.empty() ? row.item : row.alias;
    // A name may be an item, whose alias is called as it would be proposed.
    number = row.alias.empty() ? std::nullopt : ExistingAlias(row.alias, {});
    if (!number) number = ExistingAlias(codegen::CleanIdentifier(name), name);
    if (!number && !options_.create_aliases) {
      reason = {{kTextUnknownAlias}, {{"<Name>", name}}};
      return std::nullopt;
    }
    if (!number) number = CreateAlias(row, reason);
  }
  const PlannedAlias alias = plan_.aliases_[*number];
  if (alias.action != RowAction::kRefused) return number;
  const bool same_line = row.place.line != 0 && alias.place.line == row.place.line;
  if (same_line && row.alias_row != ArgumentRow::kNoRow) return std::nullopt;
  reason = {{kTextAliasRefused},
            {{"<Name>", alias.alias.empty() ? alias.item : alias.alias}, {"<Text>", alias.reason}}};
  return std::nullopt;
}

std::uint32_t ImportPlanner::CreateAlias(const ArgumentRow& row, messages::Message& reason) {
  AliasRow alias;
  alias.place = row.place;
  alias.item = row.item.empty() ? row.alias : row.item;
  // A name that comes with an item is meant as it stands.
  if (!row.item.empty()) alias.alias = row.alias;
  PlanAlias(alias);
  reason = {};
  return static_cast<std::uint32_t>(plan_.aliases_.size() - 1);
}

}  // namespace exchange
