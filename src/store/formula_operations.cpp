// SPDX-License-Identifier: MIT
#include <charconv>
#include "codegen/code_texts.h"

#include "codegen/identifier.h"
#include "platform/text.h"
#include "store/operation_context.h"
#include "store/operation_texts.h"
#include "store/operation_titles.h"
#include "store/rules.h"

namespace store {

std::optional<std::int32_t> ParseScanTime(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  std::int32_t milliseconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), milliseconds);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && milliseconds >= 0 ? std::optional(milliseconds) : std::nullopt;
}

void Operations::RequireFormulaName(std::string_view name) {
  const codegen::IdentifierHint hint = codegen::CheckIdentifier(name);
  if (!hint) return;
  context_->Refuse(
      kTextFormulaMalformed, {{"<Name>", name}},
      {{codegen::HintText(hint.problem)}, {{"<Name>", name}, {"<Character>", hint.character}}});
}

void Operations::RequireFormulaClass(std::string_view prog_id) {
  context_->RequireProjects();
  const bool fits = context_->options().with_rows_only ? !prog_id.empty() : IsFormulaClass(prog_id);
  if (!fits) context_->Refuse(kTextNoFormulaClass, {{"<Class>", prog_id}});
}

void Operations::RequireCallType(std::int32_t type) {
  if (IsCallType(type)) return;
  context_->Refuse(kTextCallType, {{"<Type>", std::to_string(type)}});
}

void Operations::RequireScanTime(const FormulaValues& values) {
  if (values.scan_time < 0) context_->Refuse(kTextScanTime);
  if (values.scan_time > 0 && values.type != kAsynchronous) context_->Warn(kTextScanTimeUse, {});
}

OperationResult Operations::CheckScanTime(std::string_view text) {
  return context_->Answer(kTextNothingChanged, [&](OperationResult&) {
    if (!ParseScanTime(text)) context_->Refuse(kTextScanTime);
  });
}

void Operations::RequireFreeInClass(std::string_view prog_id, std::string_view name,
                                    std::int32_t excluded_id) {
  const auto other = rows().FindFormulaInClass(prog_id, name);
  if (!other || other->id == excluded_id) return;
  context_->Refuse(kTextFormulaExists, {{"<Class>", prog_id}, {"<Name>", name}});
}

void Operations::RequireNoInAndOut(std::int32_t formula_id) {
  std::string names;
  for (const ArgumentRecord& argument : rows().ArgumentsOf(formula_id)) {
    if (!TakesArgument(kOnVariableChange, argument.in, argument.out))
      names += (names.empty() ? "" : ", ") + argument.vb_alias;
  }
  if (names.empty()) return;
  context_->Refuse(kTextInAndOut, {}, {{kTextInAndOutDetail}, {{"<Names>", names}}});
}

void Operations::RequireNewFormula(const FormulaValues& values, bool with_code) {
  RequireFormulaName(values.name);
  RequireFormulaClass(values.prog_id);
  RequireFreeInClass(values.prog_id, values.name, 0);
  RequireCallType(values.type);
  RequireScanTime(values);
  if (with_code && context_->code()) context_->code()->RequireFree(values.prog_id, values.name);
}

OperationResult Operations::AddFormula(const FormulaValues& values,
                                       const OperationOptions& options) {
  return AddFormulaWithCode(values, {}, options);
}

OperationResult Operations::AddFormulaWithCode(const FormulaValues& values, std::string_view code,
                                               const OperationOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult& result) {
    context_->SetTitle({title::kAddFormula, {{"<Name>", values.name}}});
    RequireNewFormula(values, !code.empty());
    const std::int32_t id = rows().Add(kFormulasTable, {{"Name", FieldText(values.name)},
                                                        {"ProgID", FieldText(values.prog_id)},
                                                        {"Type", values.type},
                                                        {"ScanTime", values.scan_time},
                                                        {"Enabled", values.enabled},
                                                        {"Comment", FieldText(values.comment)}});
    result.ids.push_back(id);
    codegen::Touched::Formula touched = {{}, {{values.prog_id, values.name}}};
    touched.code = code;
    context_->touched().formulas.push_back(std::move(touched));
  });
}

void Operations::TouchMovedArguments(const FormulaRecord& formula, const std::string& new_class) {
  for (const ArgumentRecord& argument : rows().ArgumentsOf(formula.id)) {
    if (argument.vb_alias.empty()) continue;
    RequireDeclarable(new_class, argument.vb_alias);
    Touch({formula.prog_id, {}}, argument, false);
    Touch({new_class, {}}, argument, true, formula.prog_id);
  }
}

OperationResult Operations::EditFormula(std::int32_t id, const FormulaValues& values,
                                        const EditFormulaOptions& options) {
  return context_->Run(options, kTextFormulaNotStored, [&](OperationResult& result) {
    const FormulaRecord old = RequireFormula(id);
    result.ids.push_back(id);
    const bool renamed = values.name != old.name;
    const bool moved = !platform::EqualsIgnoringCase(values.prog_id, old.prog_id);
    if (renamed) RequireFormulaName(values.name);
    if (moved) RequireFormulaClass(values.prog_id);
    if (renamed || moved) {
      context_->RequireProjects();
      RequireFreeInClass(values.prog_id, values.name, id);
    }
    if (renamed) {
      context_->SetTitle({title::kRenameFormula, {{"<Name>", old.name}, {"<New>", values.name}}});
    } else if (moved) {
      context_->SetTitle(
          {title::kMoveFormula, {{"<Name>", old.name}, {"<Class>", values.prog_id}}});
    }
    context_->SetTitle({title::kEditFormula, {{"<Name>", old.name}}});
    ProjectRows::Values fields;
    if (values.type != old.type) {
      RequireCallType(values.type);
      if (values.type == kOnVariableChange) RequireNoInAndOut(id);
      fields.emplace_back("Type", values.type);
    }
    if (renamed) fields.emplace_back("Name", FieldText(values.name));
    if (values.prog_id != old.prog_id) {
      fields.emplace_back("ProgID", FieldText(values.prog_id));
    }
    if (values.scan_time != old.scan_time) {
      RequireScanTime(values);
      fields.emplace_back("ScanTime", values.scan_time);
    }
    if (values.enabled != old.enabled) fields.emplace_back("Enabled", values.enabled);
    if (values.comment != old.comment) fields.emplace_back("Comment", FieldText(values.comment));

    if (!fields.empty()) rows().Change(kFormulasTable, id, fields);
    if (!renamed && !moved) return;
    if (renamed) TouchUses(options, {old.prog_id}, old.name, values.name);
    context_->touched().formulas.push_back({{{old.prog_id, old.name}},
                                            {{moved ? values.prog_id : old.prog_id, values.name}},
                                            options.with_code});
    if (moved) TouchMovedArguments(old, values.prog_id);
  });
}

void Operations::DeleteFormula(std::int32_t id) {
  const FormulaRecord formula = RequireFormula(id);
  context_->SetTitle({title::kDeleteFormula, {{"<Name>", formula.name}}});
  codegen::Touched::Formula touched = {{{formula.prog_id, formula.name}}, {}};
  if (context_->code())
    touched.arguments = context_->code()->ArgumentsOf(formula.prog_id, formula.name);
  for (const ArgumentRecord& argument : rows().ArgumentsOf(id)) {
    rows().Remove(kArgumentsTable, argument.id);
    Touch({formula.prog_id, {}}, argument, false);
  }
  rows().Remove(kFormulasTable, id);
  context_->touched().formulas.push_back(std::move(touched));
}

OperationResult Operations::DeleteFormulas(std::span<const std::int32_t> ids,
                                           const OperationOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult&) {
    context_->RequireProjects();
    if (ids.size() != 1) context_->SetTitle({title::kDeleteFormulas, {{"<Count>", ids.size()}}});
    for (std::size_t i = 0; i < ids.size(); ++i) {
      context_->Progress(i, ids.size());
      DeleteFormula(ids[i]);
    }
  });
}

}  // namespace store
