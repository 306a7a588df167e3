// SPDX-License-Identifier: MIT
#include "check/class_check.h"

#include <algorithm>

#include "codegen/code_texts.h"
#include "codegen/comment_text.h"
#include "codegen/data_type.h"
#include "codegen/identifier.h"
#include "codegen/report.h"
#include "codegen/source_line.h"
#include "platform/text.h"
#include "store/project_rows.h"

namespace check {

using codegen::Difference;
using platform::FoldCase;
using store::FormulaRecord;

namespace {

std::vector<std::string> NamesOf(const std::vector<const store::AliasRecord*>& aliases) {
  std::vector<std::string> names;
  names.reserve(aliases.size());
  for (const store::AliasRecord* alias : aliases) names.push_back(alias->vb_alias);
  return names;
}

}  // namespace

ClassCheck::ClassCheck(std::string prog_id, std::vector<const FormulaRecord*> formulas,
                       const Modules::Module& module, const vbcode::Program::Module& code,
                       const Context& context)
    : prog_id_(std::move(prog_id)),
      formulas_(std::move(formulas)),
      module_(module),
      code_(code),
      context_(context),
      file_(module.component->FileName()),
      blocks_(code.lines->text()),
      members_(module.component->Module()->Members()) {
  member_of_.reserve(members_.size());
  for (std::size_t i = 0; i < members_.size(); ++i) {
    member_of_.emplace(FoldCase(members_[i].name), i);
  }
  by_name_.reserve(formulas_.size());
  for (const FormulaRecord* formula : formulas_) by_name_.emplace(FoldCase(formula->name), formula);
}

void ClassCheck::Run() {
  wanted_.prog_id = prog_id_;
  WantFormulas();
  CheckTaken();
  CheckOtherSubs();
  CheckDeclarations();
  codegen::Compare(module(), WantedOfModule(), context_.parts.code.templates,
                   [this](const Difference& difference) { Visit(difference); });
  for (const auto& formula : wanted_.formulas) CheckFormulaSub(*FormulaNamed(formula.name));
  CheckTwice();
  CheckSwitchedOff();
}

// Without the aliases that the class declares: what is wrong with those is among what is to go.
codegen::WantedClass ClassCheck::WantedOfModule() const {
  codegen::WantedClass wanted{wanted_.prog_id, wanted_.gone, {}, wanted_.formulas};
  for (const codegen::WantedClass::Declaration& declaration : wanted_.declared) {
    if (!member_of_.contains(FoldCase(declaration.alias))) wanted.declared.push_back(declaration);
  }
  return wanted;
}

const FormulaRecord* ClassCheck::FormulaNamed(std::string_view name) const {
  const auto found = by_name_.find(FoldCase(name));
  return found == by_name_.end() ? nullptr : found->second;
}

// --- What the rows want ---

void ClassCheck::WantFormulas() {
  for (const FormulaRecord* formula : formulas_) {
    const auto aliases = context_.rows.AliasesOf(*formula);
    for (const Alias* alias : aliases) {
      const auto [used, is_new] =
          used_.try_emplace(FoldCase(alias->vb_alias), Used{alias, {}, true});
      if (!is_new) continue;
      aliases_.push_back(alias);
      used->second.declared = WantDeclaration(*alias);
    }
    if (FormulaNamed(formula->name) != formula) continue;
    wanted_.formulas.push_back({formula->name, NamesOf(aliases)});
  }
}

// What they declare is looked at as if the formula were there already.
void ClassCheck::WantListed(const std::vector<std::string>& aliases) {
  for (const std::string& name : aliases) {
    const Alias* alias = context_.rows.FindAlias(name);
    if (!alias) continue;
    const auto [used, is_new] = used_.try_emplace(FoldCase(name), Used{alias, {}, false});
    if (is_new) used->second.declared = WantDeclaration(*alias);
  }
}

std::optional<std::size_t> ClassCheck::WantDeclaration(const Alias& alias) {
  if (!codegen::IsDeclarable(alias.vb_alias)) return std::nullopt;
  const std::optional<std::int32_t> known = context_.rows.TypeOf(alias);
  wanted_.declared.push_back(
      {alias.vb_alias, alias.item_id,
       known ? std::string(codegen::GetDataType(*known)) : std::string("Variant"), !known});
  return wanted_.declared.size() - 1;
}

const ClassCheck::Used* ClassCheck::FindUsed(std::string_view name) const {
  const auto found = used_.find(FoldCase(name));
  return found == used_.end() ? nullptr : &found->second;
}

// --- Differences ---

void ClassCheck::Visit(const Difference& difference) {
  switch (difference.kind) {
    case Difference::Kind::kLooseDeclaration:
      return AddLoose(difference);
    case Difference::Kind::kNoDeclaration:
      return AddUndeclared(difference);
    case Difference::Kind::kHeader:
      return AddHeader(difference);
    case Difference::Kind::kNoSub:               // see CheckFormulaSub
    case Difference::Kind::kForeignDeclaration:  // an engineer's own
    case Difference::Kind::kKeptDeclaration:
    case Difference::Kind::kLeftDeclaration:
      return;
  }
}

Finding ClassCheck::AtLine(const Rule& rule, std::int32_t line, const Alias& alias) const {
  const auto old = old_.find(FoldCase(alias.vb_alias));
  const Used* used = FindUsed(alias.vb_alias);
  const std::string comment =
      old == old_.end()
          ? ""
          : old->second.comment.substr(std::min<std::size_t>(1, old->second.comment.size()));
  Finding finding(rule, Line(file_, line),
                  {{"<Name>", alias.vb_alias},
                   {"<Class>", prog_id_},
                   {"<Item>", alias.item_id},
                   {"<Type>", used && used->declared ? wanted_.declared[*used->declared].type : ""},
                   {"<OldType>", old == old_.end() ? "" : old->second.type},
                   {"<OldItem>", comment}});
  if (!rule.repairable) return finding;
  Subject subject;
  subject.prog_id = prog_id_;
  subject.alias = alias.vb_alias;
  subject.item = alias.item_id;
  // A declaration that names none of the items is commented out, not deleted.
  if (!alias.item_id.empty()) subject.old_item = comment;
  finding.MakeRepairable(std::move(subject));
  return finding;
}

void ClassCheck::AddUndeclared(const Difference& difference) {
  for (const std::string& name : difference.names) {
    const Used& used = *FindUsed(name);
    if (!used.by_formula || types_.contains(FoldCase(name))) continue;  // see CheckTaken
    context_.findings.Add(AtLine(rule::kNoDeclaration, difference.line, *used.alias));
  }
}

// The names stand from the bottom up.
void ClassCheck::AddLoose(const Difference& difference) {
  std::int32_t line = difference.line + static_cast<std::int32_t>(difference.names.size());
  for (const std::string& name : difference.names) {
    --line;
    const Used* used = FindUsed(name);
    if (!used) {
      // Of an alias that does not name its item any more it may be an engineer's own.
      const Alias* alias = context_.rows.FindAlias(name);
      const bool sure =
          alias && codegen::ShowsText(old_.at(FoldCase(name)).comment, alias->item_id);
      context_.findings.Add(
          AtLine(rule::kLooseDeclaration, line, sure ? *alias : Alias{{"", name}, 0}));
      continue;
    }
    const Alias& alias = *used->alias;
    const bool same_item = codegen::ShowsText(old_.at(FoldCase(name)).comment, alias.item_id);
    context_.findings.Add(AtLine(same_item ? rule::kOtherType : rule::kOtherItem, line, alias));
  }
}

void ClassCheck::AddHeader(const Difference& difference) {
  const std::string& name = difference.names.front();
  const FormulaRecord& formula = *FormulaNamed(name);
  const auto header = codegen::FindGeneratedHeader(difference.now, context_.parts.code.templates);
  const auto aliases = NamesOf(context_.rows.AliasesOf(formula));
  if (header && codegen::IsHeaderOf(*header, name, aliases, context_.parts.code.templates)) return;
  const std::int32_t line = difference.line + static_cast<std::int32_t>(difference.now.size());
  AddOfSub(header ? rule::kOtherHeader : rule::kNoHeader, line, formula);
}

// --- Procedures ---

void ClassCheck::AddOfSub(const Rule& rule, std::int32_t line, const FormulaRecord& formula) {
  Finding finding(rule,
                  line > 0 ? Line(file_, line) : Row(store::kFormulasTable, formula.id, "Name"),
                  {{"<Name>", formula.name}, {"<Class>", prog_id_}});
  if (rule.repairable && !codegen::CheckIdentifier(formula.name)) {
    Subject subject;
    subject.prog_id = prog_id_;
    subject.formula = formula.name;
    finding.MakeRepairable(std::move(subject));
  }
  context_.findings.Add(std::move(finding));
}

void ClassCheck::CheckFormulaSub(const FormulaRecord& formula) {
  if (const auto sub = codegen::FindSub(module(), formula.name)) return CheckSub(formula, *sub);
  const auto member = module().FindMember(formula.name);
  if (!member) return AddOfSub(rule::kNoSub, 0, formula);
  AddOfSub(rule::kNotPublicSub, member->code_location, formula);
}

void ClassCheck::CheckSub(const FormulaRecord& formula, const codegen::SubLocation& sub) {
  switch (codegen::WhyNoFormula(module(), sub, blocks_)) {
    case codegen::kTextHasParameters:
      return AddOfSub(rule::kParameters, sub.body_line, formula);
    case codegen::kTextNotPublic:
      return AddOfSub(rule::kNotPublicSub, sub.body_line, formula);
    case codegen::kTextInConditionalBlock:
      return AddOfSub(rule::kConditionalSub, sub.body_line, formula);
    default:
      return;
  }
}

// Those with a generated header that belong to no formula.
void ClassCheck::CheckOtherSubs() {
  std::unordered_set<vbcode::NameId> names;
  for (const vbcode::Procedure& procedure : code_.code.procedures) {
    const vbcode::Declaration& declaration =
        code_.code.declarations[vbcode::Index(procedure.declaration)];
    if (declaration.kind != vbcode::DeclarationKind::kSub) continue;
    if (!names.insert(declaration.name).second) continue;
    const std::string_view line = code_.lines->Line(declaration.place.line);
    const std::string name(line.substr(declaration.place.column, declaration.place.length));
    if (FormulaNamed(name)) continue;
    if (const auto sub = codegen::FindSub(module(), name)) CheckOtherSub(*sub);
  }
}

void ClassCheck::CheckOtherSub(const codegen::SubLocation& sub) {
  const auto header = codegen::FindGeneratedHeader(codegen::FindHeaderRegion(module(), sub).lines,
                                                   context_.parts.code.templates);
  if (!header) return;
  WantListed(header->aliases);
  Finding finding(rule::kNoFormulaOfSub, Line(file_, sub.body_line),
                  {{"<Name>", sub.name},
                   {"<Class>", prog_id_},
                   {"<Names>", codegen::NamesInShort(header->aliases)}});
  if (module_.can_hold_formulas && !codegen::CheckIdentifier(sub.name) &&
      codegen::WhyNoFormula(module(), sub, blocks_) == messages::kNoText) {
    Subject subject;
    subject.prog_id = prog_id_;
    subject.formula = sub.name;
    subject.aliases = header->aliases;
    finding.MakeRepairable(std::move(subject));
  }
  context_.findings.Add(std::move(finding));
}

void ClassCheck::CheckSwitchedOff() {
  for (std::int32_t number = 1; number <= code_.lines->LineCount(); ++number) {
    const std::string_view line = code_.lines->Line(number);
    if (!line.starts_with('\'') || line.find("Sub") == std::string_view::npos) continue;
    const auto sub = codegen::ParseSub({std::string(line.substr(1))});
    const FormulaRecord* formula = sub ? FormulaNamed(sub->name) : nullptr;
    if (!formula || !codegen::FindSub(module(), formula->name)) continue;
    AddOfSub(rule::kSwitchedOffCopy, number, *formula);
  }
}

}  // namespace check
