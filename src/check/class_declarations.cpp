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
  return std::string(codegen::TrimBlanks(std::string_view(line.comment).substr(1)));
}

bool LooksLikeItem(const codegen::VariableLine& line) {
  return line.comment.size() > 1 && line.comment.find_first_of(" \t", 1) == std::string::npos &&
         line.comment.find('.') != std::string::npos;
}

}  // namespace

// Looks at each declaration that is, or was, one of an alias.
void ClassCheck::CheckDeclarations() {
  for (const auto& [folded, index] : member_of_) {
    if (codegen::DeclaresAlias(members_[index])) CheckDeclaration(members_[index], folded);
  }
}

void ClassCheck::CheckDeclaration(const platform::Member& member, const std::string& folded) {
  const auto found = used_.find(folded);
  const Used* used = found == used_.end() ? nullptr : &found->second;
  auto line = codegen::ParseVariableLine(code_.lines->Line(member.code_location));
  if (line && FoldCase(line->name) != folded) line.reset();  // not alone
  codegen::WantedClass::Declaration* wanted =
      used && used->declared ? &wanted_.declared[*used->declared] : nullptr;
  // Nobody knows a better type.
  if (line && wanted && wanted->type_kept && !line->type.empty()) wanted->type = line->type;
  if (line && wanted && codegen::Says(*line, *wanted)) return;
  const std::string item = line ? ItemShown(*line) : std::string();
  const Alias* alias = used ? used->alias : context_.rows.FindAlias(member.name);
  const bool shows_item = alias && line && codegen::ShowsText(line->comment, alias->item_id);
  const bool ours = !item.empty() && (shows_item || context_.rows.IsItem(item) ||
                                      (context_.parts.has_item && context_.parts.has_item(item)) ||
                                      (used && LooksLikeItem(*line)));
  if (alias && used && used->by_formula && !ours) {
    return context_.findings.Add(AtLine(rule::kOwnDeclaration, member.code_location, *alias));
  }
  if (!ours || (used && !wanted)) return;
  old_.emplace(folded, *line);
  wanted_.gone.push_back({member.name, {shows_item ? alias->item_id : item}});
}

// Names of aliases that stand for something else in the class.
void ClassCheck::CheckTaken() {
  const std::int32_t count = module().CountOfDeclarationLines();
  // Most sections declare no types, and are large.
  if (module().Find("Type", 1, count) || module().Find("Enum", 1, count)) {
    std::vector<std::string> lines;
    for (std::int32_t line = 1; line <= std::min(count, code_.lines->LineCount()); ++line) {
      lines.emplace_back(code_.lines->Line(line));
    }
    types_ = codegen::TypeNames(lines);
  }
  for (const Alias* alias : aliases_) {
    const std::string folded = FoldCase(alias->vb_alias);
    const auto found = member_of_.find(folded);
    const platform::Member* member = found == member_of_.end() ? nullptr : &members_[found->second];
    const bool taken = member ? !codegen::DeclaresAlias(*member) : types_.contains(folded);
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
    } else if (const Used* used = FindUsed(name); used && used->by_formula) {
      context_.findings.Add(AtLine(rule::kSameDeclaration, declaration.place.line, *used->alias));
    }
  }
}

}  // namespace check
