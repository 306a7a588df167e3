// SPDX-License-Identifier: MIT
#include "codegen/code_sync.h"

#include <algorithm>
#include <iterator>

#include "codegen/code_texts.h"
#include "codegen/data_type.h"
#include "codegen/declaration.h"
#include "codegen/formula_sub.h"
#include "codegen/identifier.h"
#include "codegen/name_uses.h"
#include "codegen/source_line.h"
#include "messages/text_number.h"
#include "platform/text.h"

namespace codegen {
namespace {

constexpr std::string_view kComponentKey = "FormulaComponents";
constexpr std::string_view kVariant = "Variant";

// Beyond this there is little room left.
constexpr std::int32_t NearLimit(std::int32_t limit) { return limit - limit / 50; }

// The type that the class gives the name; empty when it declares no such variable.
std::string TypeOf(const Place& place, std::string_view alias) {
  const auto member = place ? place.module->FindMember(alias) : std::nullopt;
  if (!member || member->type != platform::MemberType::kVariable) return {};
  const auto line = ParseVariableLine(place.module->Lines(member->code_location, 1));
  return line ? line->type : std::string();
}

}  // namespace

Place CodeSync::LocateOrWarn(std::string_view prog_id) {
  Place place = Locate(context_, prog_id);
  if (!place) report_.Warn(kTextNoClass, {{"<Class>", prog_id}});
  return place;
}

bool CodeSync::IsTypeName(const Place& place, std::string_view name) {
  const auto [known, is_new] = type_names_.try_emplace(platform::FoldCase(place.prog_id));
  if (is_new) {
    const std::int32_t count = place.module->CountOfDeclarationLines();
    // Most sections declare no types, and are large.
    if (place.module->Find("Type", 1, count) || place.module->Find("Enum", 1, count)) {
      known->second = TypeNames(SplitLines(place.module->Lines(1, count)));
    }
  }
  return known->second.contains(platform::FoldCase(name));
}

bool CodeSync::CanDeclare(std::string_view prog_id, std::string_view alias) {
  const Place place = Locate(context_, prog_id);
  if (!place) return true;
  const std::optional<platform::Member> member = place.module->FindMember(alias);
  if (!member) return !IsTypeName(place, alias);
  return DeclaresAlias(*member);
}

std::vector<std::string> CodeSync::ArgumentsOf(std::string_view prog_id,
                                               std::string_view name) const {
  return context_.rows ? context_.rows->ArgumentsOf(name, prog_id) : std::vector<std::string>();
}

void CodeSync::Follow(const Touched& touched) {
  for (const Touched::Replacement& replacement : touched.replacements) {
    FollowReplacement(replacement);
  }
  for (const Touched::Uses& uses : touched.uses) FollowUses(uses);
  for (const Touched::Formula& formula : touched.formulas) FollowFormula(formula);
  for (const Touched::Argument& argument : touched.arguments) FollowArgument(argument);
  for (const Touched::Alias& alias : touched.aliases) FollowAlias(alias);
  for (const Touched::Declaration& declaration : touched.declarations) {
    FollowDeclaration(declaration);
  }
  for (const FormulaName& formula : touched.headers) WantHeader(formula.prog_id, formula.name);
  Finish();
}

// --- What the rows want ---

CodeSync::ClassWork& CodeSync::WorkOn(std::string_view prog_id) {
  ClassWork& work = classes_[platform::FoldCase(prog_id)];
  if (work.wanted.prog_id.empty()) work.wanted.prog_id = prog_id;
  return work;
}

void CodeSync::WantHeader(std::string_view prog_id, std::string_view name,
                          const std::vector<std::string>* aliases) {
  ClassWork& work = WorkOn(prog_id);
  if (!work.formulas.insert(platform::FoldCase(name)).second) return;
  work.wanted.formulas.push_back(
      {std::string(name), aliases ? *aliases : ArgumentsOf(prog_id, name)});
}

void CodeSync::WantDeclaration(std::string_view prog_id, std::string_view alias,
                               std::string_view item, std::string_view old_prog_id,
                               std::string_view old_alias) {
  WantedClass& wanted = WorkOn(prog_id).wanted;
  if (!IsDeclarable(alias)) {
    report_.Warn(kTextNotDeclarable, {{"<Name>", alias}, {"<Class>", wanted.prog_id}});
    return;
  }
  const auto known = context_.items ? context_.items->VariantTypeOf(item) : std::nullopt;
  const std::string type =
      known ? std::string(GetDataType(*known)) : TypeOf(Locate(context_, old_prog_id), old_alias);
  const bool kept = !known && !type.empty() && !platform::EqualsIgnoringCase(type, kVariant);
  wanted.declared.push_back(
      {std::string(alias), std::string(item), type.empty() ? std::string(kVariant) : type, kept});
}

void CodeSync::FollowArgument(const Touched::Argument& argument, std::int32_t leaving_id) {
  const std::string& prog_id = argument.formula.prog_id;
  if (argument.gained) {
    WantDeclaration(prog_id, argument.alias, argument.item, argument.moved_from, argument.alias);
  } else if (!context_.rows ||
             !context_.rows->IsUsedInClass(prog_id, argument.alias_id, leaving_id)) {
    WorkOn(prog_id).wanted.gone.push_back({argument.alias, {argument.item}});
  }
  if (!argument.formula.name.empty()) WantHeader(prog_id, argument.formula.name);
}

void CodeSync::FollowAlias(const Touched::Alias& alias) {
  if (!context_.rows) return;
  const std::optional<FormulaRows::Alias> record = context_.rows->FindAlias(alias.id);
  if (!record) return;
  const std::vector<FormulaRows::Use> uses = context_.rows->UsesOf(alias.id);
  if (uses.empty()) return;
  // The formulas of an alias are many; one query serves them all.
  const auto arguments = context_.rows->ReadArgumentsOfUsers(alias.id);
  std::unordered_set<const ClassWork*> classes;
  for (const FormulaRows::Use& use : uses) {
    ClassWork& work = WorkOn(use.prog_id);
    if (classes.insert(&work).second) {
      work.wanted.gone.push_back({alias.old_name,
                                  {alias.old_item, record->item_id},
                                  platform::EqualsIgnoringCase(alias.old_name, alias.name)});
      WantDeclaration(use.prog_id, alias.name, record->item_id, use.prog_id, alias.old_name);
    }
    const auto known = arguments.find(use.formula_id);
    WantHeader(use.prog_id, use.name, known != arguments.end() ? &known->second : nullptr);
  }
}

void CodeSync::FollowDeclaration(const Touched::Declaration& declaration) {
  const auto& [prog_id, alias, item, old_item] = declaration;
  WorkOn(prog_id).wanted.gone.push_back({alias, {old_item, item}});
  if (!item.empty()) WantDeclaration(prog_id, alias, item, prog_id, alias);
}

// --- What the class gets ---

void CodeSync::Mend(const Place& place, const Difference& difference) {
  using Kind = Difference::Kind;
  const std::string& name = difference.names.front();
  if (difference.kind == Kind::kLeftDeclaration) {
    return WarnAt(place, kTextDeclarationLeft, difference.line, name);
  }
  if (difference.kind == Kind::kKeptDeclaration) {
    return WarnAt(place, kTextDeclarationKept, difference.line, name);
  }
  if (difference.kind == Kind::kNoSub) return WarnNoSub(place.prog_id, name);
  if (difference.kind == Kind::kNoDeclaration) {
    for (const std::string& alias : difference.names) {
      if (const IdentifierHint hint = CheckIdentifier(alias)) {
        report_.Warn(HintText(hint.problem), {{"<Name>", alias}, {"<Character>", hint.character}});
      }
    }
  }
  RewriteLines(*place.module, difference.line, difference.now, difference.wanted);
  if (difference.kind == Kind::kForeignDeclaration) {
    WarnAt(place, kTextDeclarationOff, difference.line, name);
  }
  if (difference.kind != Kind::kNoDeclaration) return;
  std::int32_t line = difference.line;
  for (const std::string& text : difference.wanted) WarnOfLongLine(place, line++, text);
  WarnOfLimits(place);
}

std::vector<std::string> CodeSync::FinishClass(const Place& place, const ClassWork& work) {
  using Kind = Difference::Kind;
  std::vector<std::string> gone;
  std::vector<std::string> kept_types;
  Compare(*place.module, work.wanted, context_.templates, [&](const Difference& difference) {
    Mend(place, difference);
    const bool goes =
        difference.kind == Kind::kLooseDeclaration || difference.kind == Kind::kForeignDeclaration;
    if (goes) gone.insert(gone.end(), difference.names.begin(), difference.names.end());
    if (difference.kind != Kind::kNoDeclaration) return;
    const std::unordered_set<std::string> added(difference.names.begin(), difference.names.end());
    for (const WantedClass::Declaration& declaration : work.wanted.declared) {
      if (declaration.type_kept && added.contains(declaration.alias)) {
        kept_types.push_back(declaration.alias);
      }
    }
  });
  for (const auto& [text, name] : work.sub_warnings) {
    if (const std::optional<SubLocation> sub = FindSub(*place.module, name)) {
      WarnAt(place, text, sub->body_line, sub->name);
    }
  }
  std::erase_if(gone, [&](const std::string& name) { return place.module->FindMember(name); });
  if (gone.empty()) return kept_types;
  for (const NameUse& use : FindNameUses(*place.module, gone)) {
    WarnAt(place, kTextStillUses, use.line, use.name);
  }
  return kept_types;
}

void CodeSync::Finish() {
  std::vector<std::string> kept_types;
  for (const auto& [key, work] : std::exchange(classes_, {})) {
    if (const Place place = LocateOrWarn(work.wanted.prog_id)) {
      std::ranges::move(FinishClass(place, work), std::back_inserter(kept_types));
    }
  }
  std::ranges::sort(kept_types);
  kept_types.erase(std::unique(kept_types.begin(), kept_types.end()), kept_types.end());
  if (!kept_types.empty()) report_.Warn(kTextTypeKept, {{"<Names>", NamesInShort(kept_types)}});
  WarnOfLeftUses();
}

// --- Warnings ---

void CodeSync::WarnNoSub(std::string_view prog_id, std::string_view name) {
  report_.Warn(kTextNoSub, {{"<Class>", prog_id}, {"<Name>", name}});
}

void CodeSync::WarnAt(const Place& place, messages::TextNumber text, std::int32_t line,
                      std::string_view name) {
  report_.Warn(text, {{"<File>", place.File()},
                      {"<Line>", line},
                      {"<Name>", name},
                      {"<Path>", place.component->FileName()}});
}

void CodeSync::WarnOfLimits(const Place& place) {
  const std::int32_t count = place.module->CountOfLines();
  if (count <= NearLimit(kMaxModuleLines)) return;
  report_.Warn(kTextLongModule, {{"<File>", place.File()}, {"<Count>", std::to_string(count)}});
}

void CodeSync::WarnOfLongLine(const Place& place, std::int32_t line, std::string_view text) {
  const auto count = static_cast<std::int32_t>(CharacterCount(text));
  if (count <= NearLimit(kMaxLineLength)) return;
  report_.Warn(kTextLongLine, {{"<File>", place.File()},
                               {"<Line>", std::to_string(line)},
                               {"<Count>", std::to_string(count)}});
}

// --- The component list ---

void CodeSync::RegisterClass(std::string_view prog_id) {
  if (context_.components && !prog_id.empty()) {
    component_changes_.push_back({true, std::string(prog_id)});
  }
}

void CodeSync::UnregisterClass(std::string_view prog_id) {
  if (!context_.components || prog_id.empty()) return;
  const ComponentChange change = {false, std::string(prog_id)};
  if (std::ranges::count(component_changes_, change) > 0) return;
  if (!context_.rows || !context_.rows->HasFormulas(prog_id)) component_changes_.push_back(change);
}

void CodeSync::CommitComponents() {
  const std::vector<ComponentChange> changes = std::exchange(component_changes_, {});
  if (changes.empty()) return;
  try {
    context_.components->Open(context_.project);
    for (const ComponentChange& change : changes) {
      if (change.add) {
        context_.components->Add(kComponentKey, change.prog_id);
      } else {
        context_.components->Remove(kComponentKey, change.prog_id);
      }
    }
    context_.components->Commit();
  } catch (const std::exception& error) {
    // The list is no part of the operation's result; the next operation of the class mends it.
    report_.Warn(kTextComponentList, {{"<Cause>", messages::MessageOf(error)}});
  }
}

}  // namespace codegen
