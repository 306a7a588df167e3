// SPDX-License-Identifier: MIT
#include "codegen/identifier.h"
#include "codegen/text_numbers.h"
#include "platform/text.h"
#include "store/operations_impl.h"
#include "store/text_numbers.h"

namespace store {

void Operations::Impl::RequireFormulaName(std::string_view name) {
  const codegen::IdentifierHint hint = codegen::CheckIdentifier(name);
  if (!hint) return;
  run_.Refuse(kTextFormulaMalformed, {{"<Name>", name}},
              run_.texts().Text(codegen::HintText(hint.problem),
                                {{"<Name>", name}, {"<Character>", hint.character}}));
}

void Operations::Impl::RequireFormulaClass(std::string_view prog_id) {
  run_.RequireProjects();
  const bool fits = run_.options().with_rows_only ? !prog_id.empty() : IsFormulaClass(prog_id);
  if (!fits) run_.Refuse(kTextNoFormulaClass, {{"<Class>", prog_id}});
}

void Operations::Impl::RequireFreeInClass(std::string_view prog_id, std::string_view name,
                                          std::int32_t but_id) {
  const auto other = rows().FindFormulaInClass(prog_id, name);
  if (!other || other->id == but_id) return;
  run_.Refuse(kTextFormulaExists, {{"<Class>", prog_id}, {"<Name>", name}});
}

void Operations::Impl::RequireNoInAndOut(std::int32_t formula_id) {
  std::string names;
  for (const ArgumentRecord& argument : rows().ArgumentsOf(formula_id)) {
    if (argument.in && argument.out) names += (names.empty() ? "" : ", ") + argument.vb_alias;
  }
  if (names.empty()) return;
  run_.Refuse(kTextInAndOut, {}, run_.texts().Text(kTextInAndOutDetail, {{"<Names>", names}}));
}

OperationResult Operations::Impl::AddFormula(const FormulaValues& values,
                                             const OperationOptions& options) {
  return run_.Run(options, kTextNothingChanged, [&](OperationResult& result) {
    RequireFormulaName(values.name);
    RequireFormulaClass(values.prog_id);
    RequireFreeInClass(values.prog_id, values.name, 0);
    if (values.type < 0 || values.type >= kCallTypes) {
      run_.Refuse(kTextCallType, {{"<Type>", std::to_string(values.type)}});
    }
    const std::int32_t id = rows().Add(kFormulasTable, {{"Name", FieldText(values.name)},
                                                        {"ProgID", FieldText(values.prog_id)},
                                                        {"Type", values.type},
                                                        {"ScanTime", values.scan_time},
                                                        {"Enabled", values.enabled},
                                                        {"Comment", FieldText(values.comment)}});
    result.ids.push_back(id);
    run_.SetFunctionName(values.name);
    if (auto* code = run_.code()) code->AddFunction(values.prog_id, values.name, "");
  });
}

void Operations::Impl::RenameInCode(const FormulaRecord& old, const FormulaValues& values) {
  if (auto* code = run_.code()) {
    code->RenameFunction(old.prog_id, old.name, values.name);
    run_.CheckCode();
  }
}

void Operations::Impl::MoveInCode(const FormulaRecord& formula, std::string_view old_class,
                                  bool with_code) {
  codegen::CVBFormulaCode* code = run_.code();
  if (!code) return;
  const std::string old_code = code->FunctionText(old_class, formula.name, false);
  const bool adopts = code->LookUp(formula.prog_id, formula.name) == codegen::MemberUse::kSub;
  for (const ArgumentRecord& argument : rows().ArgumentsOf(formula.id)) {
    if (argument.vb_alias.empty()) continue;
    RequireDeclarable(formula.prog_id, argument.vb_alias);
    code->DeleteParameter(old_class, argument.vb_alias,
                          {formula.id, formula.name, argument.alias_id, 0});
    code->AddParameter(formula.prog_id, argument.vb_alias, argument.item_id, old_class);
  }
  // The switched-off copy keeps its header as it stands.
  code->DeactivateFunction(old_class, formula.name);
  code->AddFunction(formula.prog_id, formula.name, with_code ? old_code : std::string());
  if (!old_code.empty() && (!with_code || adopts)) {
    run_.Warn(kTextCodeLeftBehind, {{"<Name>", formula.name}, {"<Class>", old_class}});
  }
}

OperationResult Operations::Impl::EditFormula(std::int32_t id, const FormulaValues& values,
                                              const EditFormulaOptions& options) {
  return run_.Run(options, kTextFormulaNotStored, [&](OperationResult& result) {
    const FormulaRecord old = RequireFormula(id);
    result.ids.push_back(id);
    const bool renamed = values.name != old.name;
    const bool moved = !platform::EqualsIgnoringCase(values.prog_id, old.prog_id);
    if (renamed) RequireFormulaName(values.name);
    if (moved) RequireFormulaClass(values.prog_id);
    if (renamed || moved) {
      run_.RequireProjects();
      RequireFreeInClass(values.prog_id, values.name, id);
    }
    ProjectRows::Values fields;
    if (values.type != old.type) {
      if (values.type < 0 || values.type >= kCallTypes) {
        run_.Refuse(kTextCallType, {{"<Type>", std::to_string(values.type)}});
      }
      if (values.type == kOnVariableChange) RequireNoInAndOut(id);
      fields.emplace_back("Type", values.type);
    }
    if (renamed) fields.emplace_back("Name", FieldText(values.name));
    if (!moved && values.prog_id != old.prog_id) {
      fields.emplace_back("ProgID", FieldText(values.prog_id));
    }
    if (values.scan_time != old.scan_time) fields.emplace_back("ScanTime", values.scan_time);
    if (values.enabled != old.enabled) fields.emplace_back("Enabled", values.enabled);
    if (values.comment != old.comment) fields.emplace_back("Comment", FieldText(values.comment));

    run_.SetFunctionName(values.name);
    // The header in the old class lists all arguments before they leave it.
    if (moved && run_.code()) run_.code()->RebuildFunctionCommentHeader(old.name, old.prog_id);
    if (!fields.empty()) rows().Change(kFormulasTable, id, fields);
    if (renamed) RenameInCode(old, values);
    if (moved) {
      rows().Change(kFormulasTable, id, {{"ProgID", FieldText(values.prog_id)}});
      FormulaRecord formula = old;
      formula.name = values.name;
      formula.prog_id = values.prog_id;
      MoveInCode(formula, old.prog_id, options.with_code);
    }
  });
}

void Operations::Impl::DeleteFormula(std::int32_t id) {
  const FormulaRecord formula = RequireFormula(id);
  codegen::CVBFormulaCode* code = run_.code();
  run_.SetFunctionName(formula.name);
  // The switched-off copy keeps a header that lists all its arguments.
  if (code) code->RebuildFunctionCommentHeader(formula.name, formula.prog_id);
  for (const ArgumentRecord& argument : rows().ArgumentsOf(id)) {
    if (code && !argument.vb_alias.empty()) {
      code->DeleteParameter(formula.prog_id, argument.vb_alias,
                            {id, formula.name, argument.alias_id, 0});
    }
    rows().Remove(kArgumentsTable, argument.id);
  }
  rows().Remove(kFormulasTable, id);
  if (code) code->DeactivateFunction(formula.prog_id, formula.name);
}

OperationResult Operations::Impl::DeleteFormulas(std::span<const std::int32_t> ids,
                                                 const OperationOptions& options) {
  return run_.Run(options, kTextNothingChanged, [&](OperationResult&) {
    run_.RequireProjects();
    for (std::size_t i = 0; i < ids.size(); ++i) {
      run_.Progress(i, ids.size());
      DeleteFormula(ids[i]);
      run_.CheckCode();
    }
  });
}

}  // namespace store
