// SPDX-License-Identifier: MIT
#include <optional>
#include <unordered_set>

#include "store/operation_context.h"
#include "store/operation_texts.h"
#include "store/operation_titles.h"
#include "store/rules.h"

namespace store {
namespace {

codegen::FormulaName NameOf(const FormulaRecord& formula) {
  return {formula.prog_id, formula.name};
}

ArgumentRecord ArgumentOf(const AliasRecord& alias) {
  ArgumentRecord argument;
  argument.alias_id = alias.id;
  argument.vb_alias = alias.vb_alias;
  argument.item_id = alias.item_id;
  return argument;
}

}  // namespace

void Operations::RequireDeclarable(std::string_view prog_id, std::string_view alias) {
  if (!context_->code() || context_->code()->CanDeclare(prog_id, alias)) return;
  context_->Refuse(kTextNameTaken, {{"<Class>", prog_id}, {"<Name>", alias}});
}

void Operations::Touch(const codegen::FormulaName& formula, const ArgumentRecord& argument,
                       bool gained, std::string_view moved_from) {
  // The alias's row may be missing.
  if (argument.vb_alias.empty() && !gained) return;
  context_->touched().arguments.push_back({formula, argument.alias_id, argument.vb_alias,
                                           argument.item_id, gained, std::string(moved_from)});
}

void Operations::RequireNewArgument(const FormulaRecord& formula, const AliasRecord& alias,
                                    bool is_there) {
  if (is_there) {
    context_->Refuse(kTextArgumentExists,
                     {{"<Name>", alias.vb_alias}, {"<Formula>", formula.name}});
  }
  RequireDeclarable(formula.prog_id, alias.vb_alias);
}

void Operations::RequireInOrOut(const FormulaValues& formula, const ArgumentValues& values,
                                std::string_view alias) {
  if (TakesArgument(formula.type, values.in, values.out)) return;
  context_->Refuse(kTextInAndOut, {}, {{kTextInAndOutDetail}, {{"<Names>", alias}}});
}

OperationResult Operations::AddArguments(std::int32_t formula_id,
                                         std::span<const ArgumentValues> values,
                                         const OperationOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult& result) {
    context_->RequireProjects();
    const FormulaRecord formula = RequireFormula(formula_id);
    if (values.size() != 1) {
      context_->SetTitle(
          {title::kAddArguments, {{"<Count>", values.size()}, {"<Formula>", formula.name}}});
    }
    std::unordered_set<std::int32_t> arguments = rows().AliasesOf(formula_id);
    for (std::size_t i = 0; i < values.size(); ++i) {
      context_->Progress(i, values.size());
      const std::optional<AliasRecord>& known = rows().KnownAlias(values[i].alias_id);
      const AliasRecord alias = known ? *known : RequireAlias(values[i].alias_id);
      context_->SetTitle(
          {title::kAddArgument, {{"<Name>", alias.vb_alias}, {"<Formula>", formula.name}}});
      RequireNewArgument(formula, alias, !arguments.insert(alias.id).second);
      RequireInOrOut(formula, values[i], alias.vb_alias);
      result.ids.push_back(rows().Add(kArgumentsTable, {{"AliasID", values[i].alias_id},
                                                        {"ParentID", formula_id},
                                                        {"In", values[i].in},
                                                        {"Out", values[i].out}}));
      Touch(NameOf(formula), ArgumentOf(alias), true);
    }
  });
}

OperationResult Operations::EditArgument(std::int32_t argument_id, const ArgumentValues& values,
                                         const RenameOptions& options) {
  return context_->Run(options, kTextArgumentNotStored, [&](OperationResult& result) {
    const ArgumentRecord old = RequireArgument(argument_id);
    const FormulaRecord formula = RequireFormula(old.parent_id);
    const AliasRecord alias = RequireAlias(values.alias_id);
    result.ids.push_back(argument_id);
    const bool exchanged = values.alias_id != old.alias_id;
    ProjectRows::Values fields;
    if (exchanged) {
      context_->SetTitle(
          {title::kExchangeArgument,
           {{"<Name>", old.vb_alias}, {"<Formula>", formula.name}, {"<New>", alias.vb_alias}}});
      context_->RequireProjects();
      RequireNewArgument(formula, alias, rows().AliasesOf(formula.id).contains(alias.id));
      fields.emplace_back("AliasID", values.alias_id);
    }
    if (values.in != old.in) fields.emplace_back("In", values.in);
    if (values.out != old.out) fields.emplace_back("Out", values.out);
    if (fields.empty()) return;
    RequireInOrOut(formula, values, alias.vb_alias);
    context_->SetTitle(
        {title::kEditArgument, {{"<Name>", alias.vb_alias}, {"<Formula>", formula.name}}});
    rows().Change(kArgumentsTable, argument_id, fields);
    if (!exchanged) return;
    if (!old.vb_alias.empty()) {
      TouchUses(options, {formula.prog_id}, old.vb_alias, alias.vb_alias, formula.name);
    }
    Touch(NameOf(formula), old, false);
    Touch(NameOf(formula), ArgumentOf(alias), true);
  });
}

OperationResult Operations::DeleteArguments(std::span<const std::int32_t> argument_ids,
                                            const OperationOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult&) {
    context_->RequireProjects();
    if (argument_ids.size() != 1) {
      context_->SetTitle({title::kDeleteArguments, {{"<Count>", argument_ids.size()}}});
    }
    FormulaRecord formula;
    for (std::size_t i = 0; i < argument_ids.size(); ++i) {
      context_->Progress(i, argument_ids.size());
      const ArgumentRecord argument = RequireArgument(argument_ids[i]);
      if (formula.id != argument.parent_id) formula = RequireFormula(argument.parent_id);
      context_->SetTitle(
          {title::kDeleteArgument, {{"<Name>", argument.vb_alias}, {"<Formula>", formula.name}}});
      rows().Remove(kArgumentsTable, argument.id);
      Touch(NameOf(formula), argument, false);
    }
  });
}

}  // namespace store
