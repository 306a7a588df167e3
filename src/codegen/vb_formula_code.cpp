// SPDX-License-Identifier: MIT
#include "codegen/vb_formula_code.h"

#include <algorithm>
#include <iterator>

#include "codegen/code_sync.h"
#include "codegen/identifier.h"
#include "codegen/source_line.h"
#include "codegen/sub_lines.h"

namespace codegen {

template <class Step>
void CVBFormulaCode::Try(Step&& step) {
  try {
    step();
  } catch (const std::exception& error) {
    const messages::Message warning = messages::MessageOf(error);
    if (std::ranges::count(warnings_, warning) == 0) warnings_.push_back(warning);
  }
}

template <class... Steps>
void CVBFormulaCode::Run(Steps&&... steps) {
  if (!context_.vbe) return;
  CodeSync sync(context_);
  (Try([&] { steps(sync); }), ...);
  Try([&] { sync.Finish(); });
  sync.CommitComponents();
  std::ranges::move(sync.TakeWarnings(), std::back_inserter(warnings_));
}

void CVBFormulaCode::Initialize(std::shared_ptr<platform::Connection> ado_cnn,
                                std::shared_ptr<platform::VBE> vb_instance,
                                std::string_view ovs_project_name, const platform::Variant&) {
  context_.rows.reset();
  context_.vbe = std::move(vb_instance);
  context_.project = ovs_project_name;
  Try([&] {
    if (ado_cnn) context_.rows = std::make_unique<FormulaRows>(std::move(ado_cnn));
  });
}

bool CVBFormulaCode::ShowFunction(CodeWindowCaller& caller, std::string_view prog_id,
                                  std::string_view function_name) {
  bool shown = false;
  Try([&] {
    const Place place = Locate(context_, prog_id);
    const auto sub = place ? FindSub(*place.module, function_name) : std::nullopt;
    if (!sub) return;
    caller.BringCodeWindowForward();
    place.component->Activate();
    const std::string line = place.module->Lines(sub->body_line, 1);
    platform::CodePane& pane = place.module->Pane();
    pane.SetTopLine(sub->body_line);
    const auto length = static_cast<std::int32_t>(CharacterCount(line));
    pane.SetSelection({sub->body_line, 1, sub->body_line, length});
    shown = true;
  });
  return shown;
}

// --- Subs ---

void CVBFormulaCode::AddFunction(std::string_view prog_id, std::string_view name,
                                 std::string_view given_code) {
  Run([&](CodeSync& s) { s.AddSub(prog_id, name, given_code, s.ArgumentsOf(prog_id, name)); },
      [&](CodeSync& s) { s.RegisterClass(prog_id); });
}

void CVBFormulaCode::RenameFunction(std::string_view prog_id, std::string_view old_name,
                                    std::string_view new_name) {
  Run([&](CodeSync& s) {
    s.RenameSub(prog_id, old_name, new_name, s.ArgumentsOf(prog_id, new_name));
  });
}

void CVBFormulaCode::DeleteFunction(std::string_view prog_id, std::string_view name) {
  Run([&](CodeSync& s) { s.DeleteSub(prog_id, name); },
      [&](CodeSync& s) { s.UnregisterClass(prog_id); });
}

void CVBFormulaCode::DeactivateFunction(std::string_view prog_id, std::string_view name) {
  Run([&](CodeSync& s) { s.SwitchOff(prog_id, name); },
      [&](CodeSync& s) { s.UnregisterClass(prog_id); });
}

// --- Arguments and aliases ---

std::string CVBFormulaCode::ItemOf(std::int32_t alias_id) const {
  const auto alias = context_.rows ? context_.rows->FindAlias(alias_id) : std::nullopt;
  return alias ? alias->item_id : std::string();
}

void CVBFormulaCode::AddParameter(std::string_view prog_id, std::string_view parameter_alias,
                                  std::string_view item_name) {
  Run([&](CodeSync& s) {
    FormulaName formula = {std::string(prog_id), {}};
    if (need_function_name_) Try([&] { need_function_name_(formula.name); });
    s.FollowArgument({formula, 0, std::string(parameter_alias), std::string(item_name), true});
  });
}

void CVBFormulaCode::RenameParameter(std::string_view prog_id, std::string_view old_parameter_name,
                                     std::string_view new_parameter_name, const ParameterIds& ids) {
  const ParameterIds old = {ids.formula_id, ids.function_name, ids.old_alias_id};
  const FormulaName formula = {std::string(prog_id), ids.function_name};
  Run([&](CodeSync& s) { LoseArgument(s, prog_id, old_parameter_name, old); },
      [&](CodeSync& s) {
        s.FollowArgument(
            {formula, ids.alias_id, std::string(new_parameter_name), ItemOf(ids.alias_id), true});
      });
}

void CVBFormulaCode::DeleteParameter(std::string_view prog_id, std::string_view parameter_name,
                                     const ParameterIds& ids) {
  Run([&](CodeSync& s) { LoseArgument(s, prog_id, parameter_name, ids); });
}

void CVBFormulaCode::LoseArgument(CodeSync& sync, std::string_view prog_id, std::string_view alias,
                                  const ParameterIds& ids) const {
  const FormulaName formula = {std::string(prog_id), ids.function_name};
  sync.FollowArgument({formula, ids.alias_id, std::string(alias), ItemOf(ids.alias_id)},
                      ids.formula_id);
}

void CVBFormulaCode::RenameAlias(std::int32_t actual_id, std::string_view old_alias,
                                 std::string_view new_alias, std::string_view old_item) {
  Run([&](CodeSync& s) {
    s.FollowAlias(
        {actual_id, std::string(old_alias), std::string(old_item), std::string(new_alias)});
  });
}

std::vector<AliasUse> CVBFormulaCode::AliasInUse(std::int32_t alias_id) {
  std::vector<AliasUse> uses;
  Try([&] {
    if (!context_.rows || !context_.rows->FindAlias(alias_id)) return;
    for (FormulaRows::Use& use : context_.rows->UsesOf(alias_id)) {
      uses.push_back({std::move(use.name), std::move(use.prog_id)});
    }
  });
  return uses;
}

std::string CVBFormulaCode::VBConformItemName(std::string& item_name, std::int32_t actual_id) {
  item_name = CleanIdentifier(item_name);
  std::string unique = item_name;
  Try([&] {
    unique = FirstFreeName(item_name, [&](const std::string& candidate) {
      const auto id = context_.rows ? context_.rows->FindAliasId(candidate) : std::nullopt;
      return id && *id != actual_id;
    });
  });
  return unique;
}

// --- Headers ---

void CVBFormulaCode::RebuildFunctionCommentHeader(std::string_view function_name,
                                                  std::string_view prog_id) {
  Run([&](CodeSync& s) {
    s.RebuildHeader(prog_id, function_name, s.ArgumentsOf(prog_id, function_name));
  });
}

std::string CVBFormulaCode::GetFunctionCommentHeader(std::string_view function_name,
                                                     std::string_view prog_id) {
  std::string text;
  Try([&] {
    const Place place = Locate(context_, prog_id);
    const auto sub = place ? FindSub(*place.module, function_name) : std::nullopt;
    if (sub) text = JoinLines(FindHeaderRegion(*place.module, *sub).lines);
  });
  return text;
}

void CVBFormulaCode::ReplaceFunctionCommentHeader(std::string_view function_name,
                                                  std::string_view prog_id,
                                                  std::string_view header_string) {
  Run([&](CodeSync& s) { s.ReplaceHeader(prog_id, function_name, SplitLines(header_string)); });
}

}  // namespace codegen
