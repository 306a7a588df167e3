// SPDX-License-Identifier: MIT
// The part of the comparison that is about declarations of aliases.
#include <algorithm>
#include <map>

#include "check/class_check.h"
#include "codegen/comment_text.h"
#include "codegen/source_line.h"
#include "platform/text.h"

namespace check {

using platform::FoldCase;

namespace {

// What stands behind the apostrophe, where it is written as the generator does: an item, directly
// behind it. A note begins with a blank or has blanks in it.
std::string ItemShown(const codegen::VariableLine& line) {
  if (line.comment.size() < 2) return {};
  const std::string item(codegen::TrimBlanks(std::string_view(line.comment).substr(1)));
  return item;
}

bool LooksLikeItem(const codegen::VariableLine& line) {
  return line.comment.size() > 1 && line.comment.find_first_of(" \t", 1) == std::string::npos &&
         line.comment.find('.') != std::string::npos;
}

}  // namespace

// Looks at each declaration that is, or was, one of an alias.
void ClassCheck::CheckDeclarations() {
  for (const platform::Member& member : module().Members()) {
    if (codegen::DeclaresAlias(member)) CheckDeclaration(member);
  }
}

void ClassCheck::CheckDeclaration(const platform::Member& member) {
  const std::string name = FoldCase(member.name);
  const Used* used = FindUsed(member.name);
  const auto line =
      codegen::ParseVariableLine(lines_[static_cast<std::size_t>(member.code_location) - 1]);
  const bool alone = line && FoldCase(line->name) == name;
  const std::string item = alone ? ItemShown(*line) : std::string();
  const Alias* alias = used ? used->alias : context_.rows.FindAlias(member.name);
  const bool shows_item = alias && alone && codegen::ShowsText(line->comment, alias->item_id);
  const bool ours = alone && !item.empty() &&
                    (shows_item || context_.rows.IsItem(item) ||
                     (context_.parts.has_item && context_.parts.has_item(item)) ||
                     (used && LooksLikeItem(*line)));
  if (!used) {
    if (!ours || listed_.contains(name)) return;
    old_.emplace(name, *line);
    wanted_.gone.push_back({member.name, {item}});
    return;
  }
  if (!ours) {
    context_.findings.Add(AtLine(rule::kOwnDeclaration, member.code_location, *alias));
    return;
  }
  old_.emplace(name, *line);
  if (!used->declared) return;
  codegen::WantedClass::Declaration& declared = wanted_.declared[*used->declared];
  // Nobody knows a better type.
  if (declared.type_kept && !line->type.empty()) declared.type = line->type;
  if (codegen::Says(*line, declared)) return;
  wanted_.gone.push_back({member.name, {shows_item ? alias->item_id : item}});
}

// Names of aliases that stand for something else in the class.
void ClassCheck::CheckTaken() {
  const std::int32_t count = module().CountOfDeclarationLines();
  types_ = codegen::TypeNames(
      {lines_.begin(), lines_.begin() + std::min<std::ptrdiff_t>(count, std::ssize(lines_))});
  for (const Alias* alias : aliases_) {
    const auto member = module().FindMember(alias->vb_alias);
    const bool taken =
        member ? !codegen::DeclaresAlias(*member) : types_.contains(FoldCase(alias->vb_alias));
    if (!taken) continue;
    context_.findings.Add(AtLine(rule::kNameTaken, member ? member->code_location : 0, *alias));
  }
}

// Procedures and declarations of one name outside of #If.
void ClassCheck::CheckTwice() {
  std::unordered_set<vbcode::NameId> names;
  for (const vbcode::Declaration& declaration : code_.code.declarations) {
    using Kind = vbcode::DeclarationKind;
    const bool is_sub = declaration.kind == Kind::kSub || declaration.kind == Kind::kFunction;
    const bool is_member =
        is_sub || declaration.kind == Kind::kVariable || declaration.kind == Kind::kConstant;
    if (!is_member || declaration.branch != 0) continue;
    if (names.insert(declaration.name).second) continue;
    const std::string_view line = code_.lines->Line(declaration.place.line);
    const std::string name(line.substr(declaration.place.column, declaration.place.length));
    if (const store::FormulaRecord* formula = FormulaNamed(name)) {
      AddOfSub(rule::kSameSub, declaration.place.line, *formula);
    } else if (const Used* used = FindUsed(name)) {
      context_.findings.Add(AtLine(rule::kSameDeclaration, declaration.place.line, *used->alias));
    }
  }
}

}  // namespace check
