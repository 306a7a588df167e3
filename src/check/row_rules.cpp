// SPDX-License-Identifier: MIT
#include "check/row_rules.h"

#include <string>
#include <unordered_map>

#include "codegen/code_texts.h"
#include "codegen/identifier.h"
#include "platform/text.h"
#include "store/project_rows.h"
#include "store/rules.h"

namespace check {
namespace {

using messages::Message;
using store::AliasRecord;
using store::ArgumentRecord;
using store::FormulaRecord;
using store::kAliasTable;
using store::kArgumentsTable;
using store::kFormulasTable;

// Why a name is none, in a sentence.
Message Why(const codegen::IdentifierHint& hint, std::string_view name) {
  return {{codegen::HintText(hint.problem), {}},
          {{"<Name>", name}, {"<Character>", hint.character}}};
}

Message NameOf(const FormulaRecord& formula) {
  return Message::Verbatim(formula.prog_id.empty() ? formula.name
                                                   : formula.prog_id + "." + formula.name);
}

class RowCheck {
 public:
  RowCheck(const Rows& rows, const Parts& parts, Findings& findings)
      : rows_(rows), parts_(parts), findings_(findings) {}

  void Run() {
    const ArgumentRecord* before = nullptr;
    for (const ArgumentRecord& argument : rows_.arguments()) {
      const bool same = before && before->parent_id == argument.parent_id &&
                        before->alias_id == argument.alias_id;
      Check(argument, same ? before : nullptr);
      if (!same) before = &argument;
    }
    for (const FormulaRecord& formula : rows_.formulas()) Check(formula);
    for (const AliasRecord& alias : rows_.aliases()) Check(alias);
  }

 private:
  // `same` is the first argument of that formula and alias, unless this is it.
  void Check(const ArgumentRecord& argument, const ArgumentRecord* same) {
    const FormulaRecord* formula = rows_.FindFormula(argument.parent_id);
    const AliasRecord* alias = rows_.FindAlias(argument.alias_id);
    const auto add = [&](const Rule& rule, std::string_view member, const ArgumentRecord& first) {
      const Message formula_name = formula ? NameOf(*formula) : Message();
      Finding finding(rule, Row(kArgumentsTable, argument.id, member),
                      {{"<Formula>", formula_name},
                       {"<FormulaID>", argument.parent_id},
                       {"<Alias>", alias ? alias->vb_alias : ""},
                       {"<AliasID>", argument.alias_id},
                       {"<In>", Flag(argument.in)},
                       {"<Out>", Flag(argument.out)},
                       {"<ID>", first.id}});
      // Joined with the first one it may be one that the formula does not take.
      if (rule.repairable && (&rule != &rule::kSameArgument ||
                              store::TakesArgument(formula->type, argument.in || first.in,
                                                   argument.out || first.out))) {
        Subject subject;
        subject.argument_id = first.id;
        finding.MakeRepairable(std::move(subject));
      }
      return findings_.Add(std::move(finding));
    };
    if (!formula) return add(rule::kNoFormulaOfArgument, "ParentID", argument);
    if (!alias) return add(rule::kNoAliasOfArgument, "AliasID", argument);
    if (same) add(rule::kSameArgument, "AliasID", *same);
    if (!store::TakesArgument(formula->type, argument.in, argument.out)) {
      add(rule::kInAndOut, "Out", argument);
    }
  }

  static const char* Flag(bool value) { return value ? "true" : "false"; }

  void Check(const FormulaRecord& formula) {
    const auto add = [&](const Rule& rule, std::string_view member, const Message& why,
                         std::int32_t other) {
      findings_.Add({rule,
                     Row(kFormulasTable, formula.id, member),
                     {{"<Name>", formula.name},
                      {"<Class>", formula.prog_id},
                      {"<Why>", why},
                      {"<Type>", formula.type},
                      {"<ID>", other}}});
    };
    if (const auto hint = codegen::CheckIdentifier(formula.name)) {
      add(rule::kFormulaName, "Name", Why(hint, formula.name), 0);
    }
    if (!store::IsCallType(formula.type)) add(rule::kCallType, "Type", {}, 0);
    if (codegen::CharacterCount(formula.prog_id) > codegen::kMaxProgIdLength) {
      add(rule::kLongProgId, "ProgID", {}, 0);
    }
    const auto [first, is_new] = formulas_.emplace(
        platform::FoldCase(formula.prog_id) + '.' + platform::FoldCase(formula.name), formula.id);
    if (!is_new) add(rule::kSameFormula, "Name", {}, first->second);
  }

  void Check(const AliasRecord& alias) {
    const auto add = [&](const Rule& rule, std::string_view member, const Message& why,
                         const AliasRecord& other) {
      findings_.Add({rule,
                     Row(kAliasTable, alias.id, member),
                     {{"<Name>", alias.vb_alias},
                      {"<Item>", alias.item_id},
                      {"<Why>", why},
                      {"<Other>", other.vb_alias},
                      {"<ID>", other.id}}});
    };
    if (store::IsBlank(alias.vb_alias)) return add(rule::kEmptyAlias, "VBAlias", {}, alias);
    if (const auto hint = store::JudgeAlias(alias.vb_alias)) {
      add(rule::kAliasName, "VBAlias", Why(hint, alias.vb_alias), alias);
    } else if (const auto doubt = codegen::CheckIdentifier(alias.vb_alias)) {
      add(rule::kAliasHint, "VBAlias", Why(doubt, alias.vb_alias), alias);
    }
    const AliasRecord* first = rows_.FindAlias(alias.vb_alias);
    if (first != &alias) add(rule::kSameAlias, "VBAlias", {}, *first);
    if (store::IsBlank(alias.item_id)) return add(rule::kEmptyAlias, "ItemID", {}, alias);
    const AliasRecord& of_item = rows_.FirstOfItem(alias.item_id);
    if (&of_item != &alias) add(rule::kSameItem, "ItemID", {}, of_item);
    if (parts_.has_item && findings_.Wants(rule::kUnknownItem) && !rows_.TypeOf(alias) &&
        !parts_.has_item(alias.item_id)) {
      add(rule::kUnknownItem, "ItemID", {}, alias);
    }
  }

  const Rows& rows_;
  const Parts& parts_;
  Findings& findings_;
  std::unordered_map<std::string, std::int32_t> formulas_;  // ID by class and name, folded
};

}  // namespace

void CheckRows(const Rows& rows, const Parts& parts, Findings& findings) {
  RowCheck(rows, parts, findings).Run();
}

}  // namespace check
