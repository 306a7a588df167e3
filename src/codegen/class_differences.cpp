// SPDX-License-Identifier: MIT
#include "codegen/class_differences.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

#include "codegen/comment_text.h"
#include "codegen/source_line.h"
#include "codegen/sub_lines.h"
#include "platform/text.h"

namespace codegen {
namespace {

using Kind = Difference::Kind;

// The line that declares what is gone, unless the same declaration is wanted.
std::optional<Difference> FindGone(platform::CodeModule& module, const WantedClass::Gone& gone,
                                   const WantedClass& wanted) {
  const std::optional<platform::Member> member = module.FindMember(gone.alias);
  if (!member) return std::nullopt;
  const std::int32_t line = member->code_location;
  const std::string text = module.Lines(line, 1);
  const std::optional<VariableLine> variable = ParseVariableLine(text);
  const bool alone = member->type == platform::MemberType::kVariable &&
                     member->scope == platform::MemberScope::kPublic && variable &&
                     platform::EqualsIgnoringCase(variable->name, gone.alias) &&
                     (line == 1 || !IsContinued(module.Lines(line - 1, 1)));
  if (!alone) return Difference{Kind::kLeftDeclaration, {gone.alias}, line};
  if (std::ranges::any_of(wanted.declared, [&](const auto& d) {
        return variable->name == d.alias && Says(*variable, d);
      })) {
    return std::nullopt;
  }
  const bool ours = !variable->comment.empty() && std::ranges::any_of(gone.items, [&](auto& item) {
    return ShowsText(variable->comment, item);
  });
  if (ours) return Difference{Kind::kLooseDeclaration, {gone.alias}, line, {text}};
  if (gone.only_ours) return Difference{Kind::kKeptDeclaration, {gone.alias}, line};
  return Difference{Kind::kForeignDeclaration, {gone.alias}, line, {text}, {"'" + text}};
}

void CompareGone(platform::CodeModule& module, const WantedClass& wanted,
                 const std::function<void(const Difference&)>& visit) {
  std::vector<Difference> found;
  for (const WantedClass::Gone& gone : wanted.gone) {
    std::optional<Difference> difference = FindGone(module, gone, wanted);
    if (!difference) continue;
    if (difference->now.empty()) {
      visit(*difference);
    } else {
      found.push_back(std::move(*difference));
    }
  }
  // From the bottom up, so that the numbers stay right; neighbouring lines go together.
  std::ranges::stable_sort(found, std::ranges::greater(), &Difference::line);
  const auto same_line = [](const Difference& a, const Difference& b) { return a.line == b.line; };
  found.erase(std::unique(found.begin(), found.end(), same_line), found.end());
  for (std::size_t i = 0; i < found.size();) {
    Difference group = std::move(found[i]);
    while (++i < found.size() && group.kind == Kind::kLooseDeclaration &&
           found[i].kind == group.kind && found[i].line == group.line - 1) {
      group.line = found[i].line;
      group.names.push_back(std::move(found[i].names[0]));
      group.now.push_back(std::move(found[i].now[0]));
    }
    std::ranges::reverse(group.now);
    visit(group);
  }
}

// All of them stand behind the module's declarations.
void CompareDeclared(platform::CodeModule& module, const WantedClass& wanted,
                     const std::function<void(const Difference&)>& visit) {
  Difference difference{Kind::kNoDeclaration, {}};
  std::unordered_set<std::string> names;
  for (const WantedClass::Declaration& declaration : wanted.declared) {
    if (module.FindMember(declaration.alias)) continue;
    if (!names.insert(platform::FoldCase(declaration.alias)).second) continue;
    difference.names.push_back(declaration.alias);
    difference.wanted.push_back(
        Templates::Declaration(declaration.alias, declaration.type, declaration.item));
  }
  if (difference.names.empty()) return;
  const std::int32_t last = module.CountOfDeclarationLines();
  difference.line = last + 1;
  // A comment at the end of a module without procedures may continue onto the next line.
  if (last > 0 && IsContinued(module.Lines(last, 1))) {
    difference.wanted.insert(difference.wanted.begin(), "");
  }
  visit(difference);
}

void CompareFormula(platform::CodeModule& module, const WantedClass::Formula& formula,
                    const Templates& templates,
                    const std::function<void(const Difference&)>& visit) {
  const std::optional<SubLocation> sub = FindSub(module, formula.name);
  if (!sub) return visit({Kind::kNoSub, {formula.name}});
  HeaderRegion region = FindHeaderRegion(module, *sub);
  std::vector<std::string> header =
      WithHeader(region.lines, templates.Header(formula.name, formula.aliases), templates);
  if (std::ranges::equal(region.lines, header, SameLine)) return;
  visit({Kind::kHeader,
         {formula.name},
         region.first_line,
         std::move(region.lines),
         std::move(header)});
}

}  // namespace

bool Says(const VariableLine& line, const WantedClass::Declaration& declaration) {
  return platform::EqualsIgnoringCase(line.name, declaration.alias) &&
         platform::EqualsIgnoringCase(line.type, declaration.type) &&
         ShowsText(line.comment, declaration.item);
}

void Compare(platform::CodeModule& module, const WantedClass& wanted, const Templates& templates,
             const std::function<void(const Difference&)>& visit) {
  CompareGone(module, wanted, visit);
  CompareDeclared(module, wanted, visit);
  for (const WantedClass::Formula& formula : wanted.formulas) {
    CompareFormula(module, formula, templates, visit);
  }
}

}  // namespace codegen
