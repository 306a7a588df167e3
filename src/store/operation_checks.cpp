// SPDX-License-Identifier: MIT
// What operations would refuse, asked before they are called.
#include "store/operation_context.h"
#include "store/operation_texts.h"

namespace store {

void Operations::WithChecks(const OperationOptions& options, const std::function<void()>& checks) {
  context_->Look(options, checks);
}

OperationResult Operations::CheckFormulaName(std::string_view name) {
  return context_->Answer(kTextNothingChanged, [&](OperationResult&) { RequireFormulaName(name); });
}

OperationResult Operations::CheckAlias(const AliasValues& values, std::int32_t actual_id) {
  return context_->Answer(kTextNothingChanged, [&](OperationResult&) {
    const auto old = actual_id == 0 ? std::nullopt : rows().FindAlias(actual_id);
    RequireAliasValues(values, old ? &*old : nullptr);
  });
}

OperationResult Operations::CheckFormula(const FormulaValues& values, bool with_code) {
  return context_->Answer(kTextNothingChanged, [&](OperationResult&) {
    RequireNewFormula(values, with_code);
    if (context_->code()) context_->code()->RequireAddable(values.prog_id, values.name);
  });
}

OperationResult Operations::CheckArgument(const FormulaValues& formula, std::string_view alias,
                                          bool in, bool out) {
  return context_->Answer(kTextNothingChanged, [&](OperationResult&) {
    context_->RequireProjects();
    RequireDeclarable(formula.prog_id, alias);
    RequireInOrOut(formula, {0, in, out}, alias);
  });
}

}  // namespace store
