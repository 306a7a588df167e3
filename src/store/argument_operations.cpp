// SPDX-License-Identifier: MIT
#include "store/operations_impl.h"
#include "store/text_numbers.h"

namespace store {

void Operations::Impl::RequireDeclarable(std::string_view prog_id, std::string_view alias) {
  codegen::CVBFormulaCode* code = run_.code();
  if (!code) return;
  const codegen::MemberUse use = code->LookUp(prog_id, alias);
  run_.CheckCode();
  if (use == codegen::MemberUse::kSub || use == codegen::MemberUse::kOther) {
    run_.Refuse(kTextNameTaken, {{"<Class>", prog_id}, {"<Name>", alias}});
  }
}

void Operations::Impl::RequireNewArgument(const FormulaRecord& formula, const AliasRecord& alias) {
  if (rows().HasArgument(formula.id, alias.id)) {
    run_.Refuse(kTextArgumentExists, {{"<Name>", alias.vb_alias}, {"<Formula>", formula.name}});
  }
  RequireDeclarable(formula.prog_id, alias.vb_alias);
}

void Operations::Impl::RequireInOrOut(const FormulaRecord& formula, const ArgumentValues& values,
                                      std::string_view alias) {
  if (formula.type != kOnVariableChange || !values.in || !values.out) return;
  run_.Refuse(kTextInAndOut, {}, run_.texts().Text(kTextInAndOutDetail, {{"<Names>", alias}}));
}

OperationResult Operations::Impl::AddArguments(std::int32_t formula_id,
                                               std::span<const ArgumentValues> values,
                                               const OperationOptions& options) {
  return run_.Run(options, kTextNothingChanged, [&](OperationResult& result) {
    run_.RequireProjects();
    const FormulaRecord formula = RequireFormula(formula_id);
    run_.SetFunctionName(formula.name);
    for (std::size_t i = 0; i < values.size(); ++i) {
      run_.Progress(i, values.size());
      const AliasRecord alias = RequireAlias(values[i].alias_id);
      RequireNewArgument(formula, alias);
      RequireInOrOut(formula, values[i], alias.vb_alias);
      result.ids.push_back(rows().Add(kArgumentsTable, {{"AliasID", values[i].alias_id},
                                                        {"ParentID", formula_id},
                                                        {"In", values[i].in},
                                                        {"Out", values[i].out}}));
      if (auto* code = run_.code()) {
        code->AddParameter(formula.prog_id, alias.vb_alias, alias.item_id);
      }
    }
  });
}

OperationResult Operations::Impl::EditArgument(std::int32_t argument_id,
                                               const ArgumentValues& values,
                                               const OperationOptions& options) {
  return run_.Run(options, kTextArgumentNotStored, [&](OperationResult& result) {
    const ArgumentRecord old = RequireArgument(argument_id);
    const FormulaRecord formula = RequireFormula(old.parent_id);
    const AliasRecord alias = RequireAlias(values.alias_id);
    result.ids.push_back(argument_id);
    const bool exchanged = values.alias_id != old.alias_id;
    ProjectRows::Values fields;
    if (exchanged) {
      run_.RequireProjects();
      RequireNewArgument(formula, alias);
      fields.emplace_back("AliasID", values.alias_id);
    }
    if (values.in != old.in) fields.emplace_back("In", values.in);
    if (values.out != old.out) fields.emplace_back("Out", values.out);
    if (fields.empty()) return;
    RequireInOrOut(formula, values, alias.vb_alias);
    rows().Change(kArgumentsTable, argument_id, fields);
    run_.SetFunctionName(formula.name);
    if (exchanged && run_.code()) {
      run_.code()->RenameParameter(formula.prog_id, old.vb_alias, alias.vb_alias,
                                   {formula.id, formula.name, alias.id, old.alias_id});
    }
  });
}

OperationResult Operations::Impl::DeleteArguments(std::span<const std::int32_t> argument_ids,
                                                  const OperationOptions& options) {
  return run_.Run(options, kTextNothingChanged, [&](OperationResult&) {
    run_.RequireProjects();
    FormulaRecord formula;
    for (std::size_t i = 0; i < argument_ids.size(); ++i) {
      run_.Progress(i, argument_ids.size());
      const ArgumentRecord argument = RequireArgument(argument_ids[i]);
      if (formula.id != argument.parent_id) formula = RequireFormula(argument.parent_id);
      run_.SetFunctionName(formula.name);
      if (auto* code = run_.code(); code && !argument.vb_alias.empty()) {
        code->DeleteParameter(formula.prog_id, argument.vb_alias,
                              {formula.id, formula.name, argument.alias_id, 0});
      }
      rows().Remove(kArgumentsTable, argument.id);
    }
  });
}

}  // namespace store
