// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <vector>

#include "codegen/code_texts.h"
#include "codegen/identifier.h"
#include "codegen/report.h"
#include "platform/text.h"
#include "store/operation_context.h"
#include "store/operation_texts.h"
#include "store/operation_titles.h"
#include "store/rules.h"

namespace store {
namespace {

// German in every language, on purpose.
constexpr const char* kAliasInUse =
    "Der zu löschende Alias wird in einer Funktion benutzt. Er kann nicht gelöscht werden";

std::string NamesOf(const std::vector<FormulaRecord>& formulas) {
  std::vector<std::string> names;
  names.reserve(formulas.size());
  for (const FormulaRecord& f : formulas) names.push_back(f.prog_id + "." + f.name);
  return codegen::NamesInShort(names);
}

// From so many on it pays to ask for the indexes first.
constexpr std::size_t kMany = 100;

// Whether the database itself refuses a second alias of a name.
bool HasUniqueNames(platform::Connection& connection) {
  return std::ranges::any_of(connection.Indexes(kAliasTable), [](const auto& index) {
    return index.unique && index.columns.size() == 1 &&
           platform::EqualsIgnoringCase(index.columns.front(), "VBAlias");
  });
}

}  // namespace

std::string Operations::ProposeAlias(std::string_view item, std::int32_t actual_id) {
  return codegen::FirstFreeName(codegen::CleanIdentifier(item), [&](const std::string& name) {
    const auto other = rows().FindAliasByName(name);
    return other && other->id != actual_id;
  });
}

void Operations::RequireItem(std::string_view item) {
  if (IsBlank(item)) context_->Refuse(kTextAliasEmpty);
  if (!IsOneLine(item)) context_->Refuse(kTextItemMalformed);
}

void Operations::RequireAliasName(std::string_view name, std::int32_t actual_id) {
  if (IsBlank(name)) context_->Refuse(kTextAliasEmpty);
  if (const codegen::IdentifierHint hint = JudgeAlias(name)) {
    const std::string valid = ProposeAlias(codegen::ValidIdentifier(name), actual_id);
    context_->Refuse(kTextAliasMalformed, {},
                     messages::Joined({{codegen::HintText(hint.problem)},
                                       {{"<Name>", name}, {"<Character>", hint.character}}},
                                      {{kTextAliasValid}, {{"<Name>", valid}}}));
  }
  const auto other = rows().FindAliasByName(name);
  if (other && other->id != actual_id) {
    context_->Refuse(
        kTextAliasTaken,
        {{"<Name>", name}, {"<Item>", other->item_id}, {"<Free>", ProposeAlias(name, actual_id)}});
  }
}

void Operations::WarnOfAlias(std::string_view name) {
  if (const codegen::IdentifierHint hint = codegen::CheckIdentifier(name)) {
    context_->Warn(codegen::HintText(hint.problem),
                   {{"<Name>", name}, {"<Character>", hint.character}});
  }
}

void Operations::RequireAliasValues(const AliasValues& values, const AliasRecord* old) {
  if (!old || values.item_id != old->item_id) RequireItem(values.item_id);
  if (old && values.vb_alias == old->vb_alias) return;
  RequireAliasName(values.vb_alias, old ? old->id : 0);
  WarnOfAlias(values.vb_alias);
}

OperationResult Operations::AddAliases(std::span<const AliasValues> values,
                                       const OperationOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult& result) {
    context_->SetTitle(values.size() == 1
                           ? messages::Message(title::kAddAlias, {{"<Name>", values[0].vb_alias}})
                           : messages::Message(title::kAddAliases, {{"<Count>", values.size()}}));
    // Of many it is left to the index to find a name that is taken.
    const bool by_index = values.size() >= kMany && HasUniqueNames(*context_->parts().connection);
    for (std::size_t i = 0; i < values.size(); ++i) {
      context_->Progress(i, values.size());
      const AliasValues& alias = values[i];
      RequireItem(alias.item_id);
      if (!by_index || IsBlank(alias.vb_alias) || JudgeAlias(alias.vb_alias)) {
        RequireAliasName(alias.vb_alias, 0);
      }
      WarnOfAlias(alias.vb_alias);
      try {
        result.ids.push_back(rows().Add(kAliasTable, {{"ItemID", FieldText(alias.item_id)},
                                                      {"VBAlias", FieldText(alias.vb_alias)}}));
      } catch (const platform::Error&) {
        // A name that is taken has words of its own.
        if (by_index) RequireAliasName(alias.vb_alias, 0);
        throw;
      }
    }
  });
}

OperationResult Operations::EditAlias(std::int32_t id, const AliasValues& values,
                                      const RenameOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult& result) {
    const AliasRecord old = RequireAlias(id);
    result.ids.push_back(id);
    if (values == old) return;
    RequireAliasValues(values, &old);
    ProjectRows::Values fields;
    if (values.item_id != old.item_id) fields.emplace_back("ItemID", FieldText(values.item_id));
    const bool renamed = values.vb_alias != old.vb_alias;
    if (renamed) {
      context_->SetTitle(
          {title::kRenameAlias, {{"<Name>", old.vb_alias}, {"<New>", values.vb_alias}}});
      fields.emplace_back("VBAlias", FieldText(values.vb_alias));
    }
    const std::vector<FormulaRecord> uses = rows().UsesOfAlias(id);
    if (!uses.empty()) context_->RequireProjects();
    const std::vector<std::string> classes = ClassesOf(uses);
    if (renamed && !platform::EqualsIgnoringCase(values.vb_alias, old.vb_alias)) {
      for (const std::string& prog_id : classes) RequireDeclarable(prog_id, values.vb_alias);
    }
    context_->SetTitle({title::kEditAlias, {{"<Name>", old.vb_alias}}});
    rows().Change(kAliasTable, id, fields);
    if (uses.empty()) return;
    if (renamed) TouchUses(options, classes, old.vb_alias, values.vb_alias);
    context_->touched().aliases.push_back({id, old.vb_alias, old.item_id, values.vb_alias});
  });
}

OperationResult Operations::DeleteAliases(std::span<const std::int32_t> ids,
                                          const OperationOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult&) {
    if (ids.size() != 1) context_->SetTitle({title::kDeleteAliases, {{"<Count>", ids.size()}}});
    for (std::size_t i = 0; i < ids.size(); ++i) {
      context_->Progress(i, ids.size());
      const AliasRecord alias = RequireAlias(ids[i]);
      if (ids.size() == 1) context_->SetTitle({title::kDeleteAlias, {{"<Name>", alias.vb_alias}}});
      const std::vector<FormulaRecord> uses = rows().UsesOfAlias(ids[i]);
      if (!uses.empty()) {
        throw OperationRefusal(
            Outcome::kRefused, messages::Message::Verbatim(kAliasInUse),
            {{kTextAliasUsedBy}, {{"<Name>", alias.vb_alias}, {"<Formulas>", NamesOf(uses)}}});
      }
      rows().Remove(kAliasTable, ids[i]);
    }
  });
}

}  // namespace store
