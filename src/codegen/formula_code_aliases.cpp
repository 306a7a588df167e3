// SPDX-License-Identifier: MIT
#include "codegen/data_type.h"
#include "codegen/declaration.h"
#include "codegen/formula_code_impl.h"
#include "codegen/identifier.h"
#include "platform/text.h"

namespace codegen {
namespace {

constexpr std::string_view kVariant = "Variant";

}  // namespace

std::string CVBFormulaCode::Impl::TypeOf(const OldDeclaration& declaration) {
  const Place place = Locate(declaration.prog_id);
  const auto member = place ? place.module->FindMember(declaration.alias) : std::nullopt;
  if (!member || member->type != platform::MemberType::kVariable) return {};
  const auto line = ParseVariableLine(place.module->Lines(member->code_location, 1));
  return line ? line->type : std::string();
}

void CVBFormulaCode::Impl::Declare(Waiting& waiting, std::string_view alias, std::string_view item,
                                   const OldDeclaration& old) {
  if (!IsDeclarable(alias)) {
    report_.Warn(kTextNotDeclarable, {{"<Name>", alias}, {"<Class>", waiting.prog_id}});
    return;
  }
  std::string type;
  bool kept = false;
  report_.Step([&] {
    const std::optional<std::int32_t> known = items_ ? items_->VariantTypeOf(item) : std::nullopt;
    type = known ? GetDataType(*known) : TypeOf(old);
    kept = !known && !type.empty() && !platform::EqualsIgnoringCase(type, kVariant);
  });
  waiting.declarations.Declare(alias, item, type.empty() ? kVariant : type, kept);
}

void CVBFormulaCode::Impl::AddParameter(std::string_view prog_id, std::string_view alias,
                                        std::string_view item, std::string_view moved_from) {
  if (!vbe_) return;
  const OperationScope scope(*this);
  Declare(WaitingFor(prog_id), alias, item, {moved_from, alias});
  std::string name;
  if (need_function_name_) report_.Step([&] { need_function_name_(name); });
  if (!name.empty()) HeaderWaits(name, prog_id);
}

std::vector<std::string> CVBFormulaCode::Impl::ItemOf(std::int32_t alias_id) {
  std::optional<FormulaRows::Alias> alias;
  if (rows_) alias = rows_->FindAlias(alias_id);
  if (!alias) return {};
  return {std::move(alias->item_id)};
}

void CVBFormulaCode::Impl::RenameParameter(std::string_view prog_id, std::string_view old_name,
                                           std::string_view new_name, const ParameterIds& ids) {
  if (!vbe_) return;
  const OperationScope scope(*this);
  report_.Step([&] {
    if (rows_ && rows_->IsUsedInClass(prog_id, ids.old_alias_id, ids.formula_id)) return;
    WaitingFor(prog_id).declarations.Remove(old_name, ItemOf(ids.old_alias_id));
  });
  report_.Step([&] {
    std::optional<FormulaRows::Alias> alias;
    if (rows_) alias = rows_->FindAlias(ids.alias_id);
    Declare(WaitingFor(prog_id), new_name, alias ? alias->item_id : std::string());
  });
  HeaderWaits(ids.function_name, prog_id);
}

void CVBFormulaCode::Impl::DeleteParameter(std::string_view prog_id, std::string_view name,
                                           const ParameterIds& ids) {
  if (!vbe_) return;
  const OperationScope scope(*this);
  report_.Step([&] {
    if (rows_ && rows_->IsUsedInClass(prog_id, ids.alias_id, ids.formula_id)) return;
    WaitingFor(prog_id).declarations.Remove(name, ItemOf(ids.alias_id));
  });
  HeaderWaits(ids.function_name, prog_id);
}

std::vector<AliasUse> CVBFormulaCode::Impl::AliasInUse(std::int32_t alias_id) {
  std::vector<AliasUse> uses;
  if (!rows_) return uses;
  report_.Step([&] {
    if (!rows_->FindAlias(alias_id)) return;
    for (FormulaRows::Use& use : rows_->UsesOf(alias_id)) {
      uses.push_back({std::move(use.name), std::move(use.prog_id)});
    }
  });
  return uses;
}

void CVBFormulaCode::Impl::RenameAlias(std::int32_t id, std::string_view old_alias,
                                       std::string_view new_alias, std::string_view old_item) {
  if (!vbe_) return;
  const OperationScope scope(*this);
  if (!rows_) return;
  std::optional<FormulaRows::Alias> record;
  std::vector<FormulaRows::Use> uses;
  report_.Step([&] {
    record = rows_->FindAlias(id);
    if (record) uses = rows_->UsesOf(id);
  });
  if (!uses.empty()) renamed_aliases_.push_back(id);
  std::unordered_set<const Waiting*> classes;
  for (const FormulaRows::Use& use : uses) {
    Waiting& waiting = WaitingFor(use.prog_id);
    if (classes.insert(&waiting).second) {
      waiting.declarations.Remove(old_alias, {std::string(old_item), record->item_id});
      Declare(waiting, new_alias, record->item_id, {use.prog_id, old_alias});
    }
    HeaderWaits(use.name, use.prog_id, use.formula_id);
  }
}

std::string CVBFormulaCode::Impl::VBConformItemName(std::string& item_name,
                                                    std::int32_t actual_id) {
  item_name = CleanIdentifier(item_name);
  std::string unique = item_name;
  if (!rows_) return unique;
  report_.Step([&] {
    unique = FirstFreeName(item_name, [&](const std::string& candidate) {
      const std::optional<std::int32_t> id = rows_->FindAliasId(candidate);
      return id && *id != actual_id;
    });
  });
  return unique;
}

}  // namespace codegen
