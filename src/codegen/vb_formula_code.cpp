// SPDX-License-Identifier: MIT
#include "codegen/vb_formula_code.h"

#include <utility>

#include "codegen/formula_code_impl.h"

namespace codegen {

CVBFormulaCode::CVBFormulaCode(const texts::TextTable& texts, platform::OVItems* items,
                               platform::ComponentList* components)
    : impl_(std::make_unique<Impl>(texts, items, components)) {}
CVBFormulaCode::~CVBFormulaCode() = default;

void CVBFormulaCode::Initialize(std::shared_ptr<platform::Connection> ado_cnn,
                                std::shared_ptr<platform::VBE> vb_instance,
                                std::string_view ovs_project_name, const platform::Variant&) {
  impl_->report().Step(
      [&] { impl_->Initialize(std::move(ado_cnn), std::move(vb_instance), ovs_project_name); });
}

bool CVBFormulaCode::ShowFunction(CodeWindowCaller& caller, std::string_view prog_id,
                                  std::string_view function_name) {
  return impl_->ShowFunction(caller, prog_id, function_name);
}
void CVBFormulaCode::AddFunction(std::string_view prog_id, std::string_view function_name,
                                 std::string_view given_code) {
  impl_->AddFunction(prog_id, function_name, given_code);
}
void CVBFormulaCode::RenameFunction(std::string_view prog_id, std::string_view old_function_name,
                                    std::string_view new_function_name) {
  impl_->RenameFunction(prog_id, old_function_name, new_function_name);
}
void CVBFormulaCode::DeleteFunction(std::string_view prog_id, std::string_view function_name) {
  impl_->DeleteFunction(prog_id, function_name);
}
void CVBFormulaCode::DeactivateFunction(std::string_view prog_id, std::string_view function_name) {
  impl_->DeactivateFunction(prog_id, function_name);
}
void CVBFormulaCode::AddParameter(std::string_view prog_id, std::string_view parameter_alias,
                                  std::string_view item_name, std::string_view moved_from) {
  impl_->AddParameter(prog_id, parameter_alias, item_name, moved_from);
}
void CVBFormulaCode::RenameParameter(std::string_view prog_id, std::string_view old_parameter_name,
                                     std::string_view new_parameter_name, const ParameterIds& ids) {
  impl_->RenameParameter(prog_id, old_parameter_name, new_parameter_name, ids);
}
void CVBFormulaCode::DeleteParameter(std::string_view prog_id, std::string_view parameter_name,
                                     const ParameterIds& ids) {
  impl_->DeleteParameter(prog_id, parameter_name, ids);
}
std::string CVBFormulaCode::VBConformItemName(std::string& item_name, std::int32_t actual_id) {
  return impl_->VBConformItemName(item_name, actual_id);
}
void CVBFormulaCode::RebuildFunctionCommentHeader(std::string_view function_name,
                                                  std::string_view prog_id) {
  impl_->RebuildHeader(function_name, prog_id);
}
std::vector<AliasUse> CVBFormulaCode::AliasInUse(std::int32_t alias_id) {
  return impl_->AliasInUse(alias_id);
}
std::string CVBFormulaCode::GetFunctionCommentHeader(std::string_view function_name,
                                                     std::string_view prog_id) {
  return impl_->GetHeader(function_name, prog_id);
}
void CVBFormulaCode::ReplaceFunctionCommentHeader(std::string_view function_name,
                                                  std::string_view prog_id,
                                                  std::string_view header_string) {
  impl_->ReplaceHeader(function_name, prog_id, header_string);
}
void CVBFormulaCode::RenameAlias(std::int32_t actual_id, std::string_view old_alias,
                                 std::string_view new_alias, std::string_view old_item) {
  impl_->RenameAlias(actual_id, old_alias, new_alias, old_item);
}

NeedFunctionName CVBFormulaCode::SetNeedFunctionName(NeedFunctionName answer) {
  return impl_->SetNeedFunctionName(std::move(answer));
}
void CVBFormulaCode::BeginBatch() { impl_->BeginBatch(); }
void CVBFormulaCode::EndBatch() { impl_->EndBatch(); }
void CVBFormulaCode::CancelBatch() { impl_->CancelBatch(); }
void CVBFormulaCode::CommitComponents() { impl_->CommitComponents(); }
void CVBFormulaCode::DropComponents() { impl_->DropComponents(); }

bool CVBFormulaCode::HasEnvironment() const { return impl_->HasEnvironment(); }
bool CVBFormulaCode::HasProjects() { return impl_->HasProjects(); }
MemberUse CVBFormulaCode::LookUp(std::string_view prog_id, std::string_view name) {
  return impl_->LookUp(prog_id, name);
}
std::string CVBFormulaCode::FunctionText(std::string_view prog_id, std::string_view function_name,
                                         bool with_header) {
  return impl_->FunctionText(prog_id, function_name, with_header);
}
std::vector<Warning> CVBFormulaCode::TakeWarnings() { return impl_->report().TakeWarnings(); }
std::optional<platform::Error> CVBFormulaCode::TakeFailure() {
  return impl_->report().TakeFailure();
}

}  // namespace codegen
