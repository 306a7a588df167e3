// SPDX-License-Identifier: MIT
#include "exchange/import_run.h"

#include <algorithm>
#include <utility>

#include "store/operation_texts.h"

namespace exchange {
namespace {

// Aliases that are added at once; each time the pages that change are kept for going back.
constexpr std::size_t kBatch = 4000;

// Ends an import.
struct Stopped {
  store::OperationResult result;
};

store::OperationResult Require(store::OperationResult result) {
  if (!result.success()) throw Stopped{std::move(result)};
  return result;
}

}  // namespace

store::OperationResult ImportRun::Run() {
  try {
    AddAliases();
    ChangeAliases();
    for (PlannedFormula& formula : plan_.formulas_) {
      BringFormula(formula);
      Advance(1);
    }
    return {};
  } catch (Stopped& stopped) {
    return std::move(stopped.result);
  }
}

void ImportRun::Advance(std::size_t rows) {
  done_ += rows;
  const std::size_t total = plan_.aliases_.size() + plan_.formulas_.size();
  if (!options_.progress || options_.progress(std::min(done_, total), total)) return;
  store::OperationResult cancelled;
  cancelled.outcome = store::Outcome::kCancelled;
  cancelled.message = messages::Message({store::kTextCancelled});
  throw Stopped{cancelled};
}

void ImportRun::AddAliases() {
  std::vector<store::AliasValues> values;
  std::vector<std::size_t> added;
  const auto add = [&] {
    const store::OperationResult result = Require(operations_.AddAliases(values));
    for (std::size_t i = 0; i < added.size(); ++i) {
      plan_.aliases_.SetId(added[i], result.ids[i]);
    }
    Advance(added.size());
    values.clear();
    added.clear();
  };
  for (std::size_t i = 0; i < plan_.aliases_.size(); ++i) {
    if (plan_.aliases_.ActionOf(i) != RowAction::kNew) continue;
    const PlannedAlias alias = plan_.aliases_[i];
    values.push_back({std::string(alias.item), std::string(alias.alias)});
    added.push_back(i);
    if (values.size() == kBatch) add();
  }
  if (!values.empty()) add();
}

void ImportRun::ChangeAliases() {
  for (std::size_t i = 0; i < plan_.aliases_.size(); ++i) {
    if (plan_.aliases_.ActionOf(i) != RowAction::kChanged) continue;
    const PlannedAlias alias = plan_.aliases_[i];
    Require(operations_.EditAlias(alias.id, {std::string(alias.item), std::string(alias.alias)}));
    Advance(1);
  }
}

void ImportRun::EditFormula(const PlannedFormula& formula) {
  if (formula.values_differ) Require(operations_.EditFormula(formula.id, formula.values));
}

void ImportRun::BringFormula(PlannedFormula& formula) {
  switch (formula.action) {
    case RowAction::kRefused:
      return;
    case RowAction::kNew:
      formula.id = Require(operations_.AddFormulaWithCode(formula.values, formula.code)).id();
      return BringArguments(formula);
    case RowAction::kUnchanged:
    case RowAction::kChanged:
      break;
  }
  // Arguments that are input and return value at once must go before their formula becomes one
  // that forbids them.
  const bool arguments_first = formula.values.type == store::kOnVariableChange;
  if (!arguments_first) EditFormula(formula);
  BringArguments(formula);
  if (arguments_first) EditFormula(formula);
}

void ImportRun::BringArguments(const PlannedFormula& formula) {
  std::vector<std::int32_t> gone;
  for (const store::ArgumentRecord& argument : formula.gone) gone.push_back(argument.id);
  if (!gone.empty()) Require(operations_.DeleteArguments(gone));
  std::vector<store::ArgumentValues> added;
  for (const PlannedArgument& argument : formula.arguments) {
    if (argument.action != RowAction::kNew && argument.action != RowAction::kChanged) continue;
    const store::ArgumentValues values = {plan_.aliases_.IdOf(argument.alias), argument.in,
                                          argument.out};
    if (argument.action == RowAction::kNew) {
      added.push_back(values);
    } else {
      Require(operations_.EditArgument(argument.id, values));
    }
  }
  if (!added.empty()) Require(operations_.AddArguments(formula.id, added));
}

store::OperationResult Import(ImportPlan& plan, store::Operations& operations,
                              const messages::Message& title,
                              const store::OperationOptions& options) {
  store::OperationOptions for_all = options;
  for_all.with_rows = options.dry_run;
  return operations.AsOne(
      title, [&] { return ImportRun(plan, operations, for_all).Run(); }, for_all);
}

}  // namespace exchange
