// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "codegen/code_sync.h"
#include "codegen/code_texts.h"
#include "codegen/declaration.h"
#include "codegen/formula_sub.h"
#include "codegen/identifier.h"
#include "codegen/source_line.h"
#include "platform/text.h"

namespace codegen {
namespace {

// Whether a conditional compilation line of a procedure has its partner outside. All such lines
// have to stay as they are then.
bool CutsConditionalBlock(const std::vector<std::string>& lines) {
  int depth = 0;
  for (const std::string& line : lines) {
    if (!IsDirective(line)) continue;
    const std::string word = platform::FoldCase(TrimBlanks(TrimBlanks(line).substr(1)));
    if (word.starts_with("if")) ++depth;
    if (word.starts_with("end") && --depth < 0) return true;
    if (word.starts_with("else") && depth == 0) return true;
  }
  return depth != 0;
}

}  // namespace

// --- Formulas whose rows changed ---

void CodeSync::FollowFormula(const Touched::Formula& formula) {
  if (!formula.before) {
    const auto& [prog_id, name] = *formula.now;
    const Place place = Locate(context_, prog_id);
    const std::int32_t end = place ? place.module->CountOfLines() : 0;
    AddSub(prog_id, name, formula.code, ArgumentsOf(prog_id, name));
    const bool is_given = place && !formula.code.empty();
    if (const auto sub = is_given ? FindSub(*place.module, name) : std::nullopt) {
      RequireCallable(place, *sub, end + 1);
    }
    WorkOn(prog_id).formulas.insert(platform::FoldCase(name));  // it has its header
    return RegisterClass(prog_id);
  }
  const auto& [old_class, old_name] = *formula.before;
  if (!formula.now) {
    // The switched-off copy keeps a header that lists all its arguments.
    RebuildHeader(old_class, old_name, formula.arguments);
    SwitchOff(old_class, old_name);
    return UnregisterClass(old_class);
  }
  const auto& [prog_id, name] = *formula.now;
  const std::vector<std::string> aliases = ArgumentsOf(prog_id, name);
  const bool moved = !platform::EqualsIgnoringCase(old_class, prog_id);
  if (moved) WarnOfCodeLeft(formula);
  if (moved) RebuildHeader(old_class, old_name, aliases);
  if (name != old_name) RenameSub(old_class, old_name, name, aliases);
  if (moved) Move(formula, aliases);
}

void CodeSync::Move(const Touched::Formula& formula, const std::vector<std::string>& aliases) {
  const std::string& old_class = formula.before->prog_id;
  const auto& [prog_id, name] = *formula.now;
  std::string code;
  if (formula.with_code) code = SubText(Locate(context_, old_class), name, false);
  // The switched-off copy keeps its header as it stands.
  SwitchOff(old_class, name);
  UnregisterClass(old_class);
  AddSub(prog_id, name, code, aliases);
  RegisterClass(prog_id);
}

void CodeSync::WarnOfCodeLeft(const Touched::Formula& formula) {
  const Place old = Locate(context_, formula.before->prog_id);
  // A sub that was deleted by hand is added before it moves when it gets a new name.
  const bool stands = old && (formula.now->name != formula.before->name ||
                              FindSub(*old.module, formula.before->name));
  if (!stands) return;
  const Place place = Locate(context_, formula.now->prog_id);
  const bool adopts = place && FindSub(*place.module, formula.now->name);
  if (formula.with_code && !adopts) return;
  report_.Warn(kTextCodeLeftBehind,
               {{"<Name>", formula.now->name}, {"<Class>", formula.before->prog_id}});
}

// --- Adding ---

bool CodeSync::MayHoldBlocks(const Place& place) {
  const auto [known, is_new] = holds_blocks_.try_emplace(platform::FoldCase(place.prog_id), false);
  if (is_new) {
    known->second = ConditionalBlocks(place.module->Lines(1, place.module->CountOfLines())).Any();
  }
  return known->second;
}

void CodeSync::RequireCallable(const Place& place, const SubLocation& sub,
                               std::int32_t first_line) {
  const std::int32_t above = MayHoldBlocks(place) ? sub.body_line - first_line : 0;
  const ConditionalBlocks blocks(above > 0 ? place.module->Lines(first_line, above) : std::string(),
                                 first_line);
  const messages::TextNumber reason = WhyNoFormula(*place.module, sub, blocks);
  if (reason != messages::kNoText) {
    report_.Refuse(reason, {{"<File>", place.File()},
                            {"<Line>", std::to_string(sub.body_line)},
                            {"<Name>", sub.name}});
  }
}

void CodeSync::RequireAdoptable(const Place& place, const SubLocation& sub,
                                std::initializer_list<std::string_view> formulas) {
  RequireCallable(place, sub, 1);
  const std::vector<std::string> above = FindHeaderRegion(*place.module, sub).lines;
  const bool known = std::ranges::any_of(above, [&](const std::string& text) {
    return std::ranges::any_of(
        formulas, [&](std::string_view name) { return context_.templates.IsTitleOf(text, name); });
  });
  if (!known) WorkOn(place.prog_id).sub_warnings.emplace_back(kTextAdopted, sub.name);
}

void CodeSync::RequireFree(const Place& place, std::string_view name) {
  const std::optional<platform::Member> member = place.module->FindMember(name);
  if (member || IsTypeName(place, name)) {
    const std::string where =
        member ? " (" + place.File() + ":" + std::to_string(member->code_location) + ")" : "";
    const messages::Message kind(
        {member ? KindText(*place.module, *member) : kTextTypeOrEnumeration});
    report_.Refuse(
        kTextNameTaken,
        {{"<Class>", place.prog_id}, {"<Name>", name}, {"<Kind>", kind}, {"<Where>", where}});
  }
  if (const IdentifierHint hint = CheckIdentifier(name)) {
    report_.Refuse(HintText(hint.problem), {{"<Name>", name}, {"<Character>", hint.character}});
  }
}

void CodeSync::RebuildHeader(std::string_view prog_id, std::string_view name,
                             const std::vector<std::string>& aliases) {
  const Place place = LocateOrWarn(prog_id);
  if (!place) return;
  const WantedClass wanted = {place.prog_id, {}, {}, {{std::string(name), aliases}}};
  Compare(*place.module, wanted, context_.templates,
          [&](const Difference& difference) { Mend(place, difference); });
}

void CodeSync::ReplaceHeader(std::string_view prog_id, std::string_view name,
                             const std::vector<std::string>& lines) {
  const Place place = LocateOrWarn(prog_id);
  if (!place) return;
  const std::optional<SubLocation> sub = FindSub(*place.module, name);
  if (!sub) return WarnNoSub(prog_id, name);
  const HeaderRegion region = FindHeaderRegion(*place.module, *sub);
  RewriteLines(*place.module, region.first_line, region.lines, lines);
}

void CodeSync::AppendSub(const Place& place, std::string_view name, std::string_view code,
                         const std::vector<std::string>& aliases) {
  const std::int32_t end = place.module->CountOfLines();
  place.module->AddFromString(code);
  if (code.find('#') != std::string_view::npos) {
    holds_blocks_[platform::FoldCase(place.prog_id)] = true;
  }
  WarnOfLimits(place);
  const std::optional<SubLocation> sub = FindSub(*place.module, name);
  if (!sub) return report_.Warn(kTextCodeWithoutSub, {{"<Name>", name}});
  // Comments above the new text were written by somebody else.
  const HeaderRegion region = LimitedRegion(FindHeaderRegion(*place.module, *sub), end + 1);
  const Templates& templates = context_.templates;
  RewriteLines(*place.module, region.first_line, region.lines,
               WithHeader(region.lines, templates.Header(name, aliases), templates));
}

void CodeSync::RequireAddable(std::string_view prog_id, std::string_view name) {
  const Place place = Locate(context_, prog_id);
  if (!place) return;
  if (const auto sub = FindSub(*place.module, name)) {
    RequireAdoptable(place, *sub, {name});
  } else {
    RequireFree(place, name);
  }
}

void CodeSync::RequireFree(std::string_view prog_id, std::string_view name) {
  if (const Place place = Locate(context_, prog_id)) RequireFree(place, name);
}

void CodeSync::AddSub(std::string_view prog_id, std::string_view name, std::string_view code,
                      const std::vector<std::string>& aliases) {
  const Place place = LocateOrWarn(prog_id);
  if (!place) return;
  if (const auto sub = FindSub(*place.module, name)) {
    RequireAdoptable(place, *sub, {name});
    return RebuildHeader(prog_id, name, aliases);
  }
  RequireFree(place, name);
  AppendSub(place, name, code.empty() ? Templates::Sub(name) : std::string(code), aliases);
}

// --- Renaming ---

void CodeSync::RenameDeclaration(const Place& place, const SubLocation& sub,
                                 std::string_view new_name) {
  const std::vector<std::string> lines = DeclarationLines(*place.module, sub);
  const std::optional<SubDeclaration> old = ParseSub(lines);
  if (!old) return;
  const std::vector<std::string> renamed = RenamedSub(lines, *old, new_name);
  if (!old->parameters.empty()) {
    WorkOn(place.prog_id).sub_warnings.emplace_back(kTextParametersStay, new_name);
  }
  if (old->name == new_name && std::ranges::equal(lines, renamed, SameLine)) return;
  // The first line last: what follows it is found by the old declaration.
  for (std::size_t i = lines.size(); i-- > 0;) {
    if (renamed[i] == lines[i]) continue;
    const std::int32_t line = sub.body_line + static_cast<std::int32_t>(i);
    place.module->ReplaceLine(line, renamed[i]);
    WarnOfLongLine(place, line, renamed[i]);
  }
}

void CodeSync::RenameSub(std::string_view prog_id, std::string_view old_name,
                         std::string_view new_name, const std::vector<std::string>& aliases) {
  const Place place = LocateOrWarn(prog_id);
  if (!place) return;
  const bool same = platform::EqualsIgnoringCase(old_name, new_name);
  const std::optional<SubLocation> old_sub = FindSub(*place.module, old_name);
  const auto stands = same || old_sub ? std::nullopt : FindSub(*place.module, new_name);
  if (stands) {
    RequireAdoptable(place, *stands, {old_name, new_name});
  } else if (!same || !old_sub) {
    RequireFree(place, new_name);
  }
  if (old_sub) {
    RenameDeclaration(place, *old_sub, new_name);
    // The other branches of an #If block may declare it too.
    while (auto twin = same ? std::nullopt : FindSub(*place.module, old_name)) {
      RenameDeclaration(place, *twin, new_name);
    }
  } else if (!stands) {
    report_.Warn(kTextSubAdded, {{"<Class>", prog_id}, {"<Old>", old_name}, {"<Name>", new_name}});
    return AppendSub(place, new_name, Templates::Sub(new_name), aliases);
  }
  RebuildHeader(prog_id, new_name, aliases);
}

// --- Switching off and deleting ---

bool CodeSync::KeepsDirectives(const Place& place, const SubLocation& sub,
                               const std::vector<std::string>& lines) {
  if (!CutsConditionalBlock(lines)) return false;
  WarnAt(place, kTextDirectivesLeft, sub.body_line, sub.name);
  return true;
}

void CodeSync::DeleteSub(std::string_view prog_id, std::string_view name) {
  const Place place = LocateOrWarn(prog_id);
  if (!place) return;
  const std::optional<SubLocation> sub = FindSub(*place.module, name);
  if (!sub) return WarnNoSub(prog_id, name);
  const std::vector<std::string> lines = ProcedureLines(*place.module, *sub);
  const bool keep_directives = KeepsDirectives(place, *sub, lines);
  // From the bottom up, so that the numbers stay right; what goes together goes in one call.
  std::int32_t pending = 0;
  for (std::size_t i = lines.size(); i-- > 0;) {
    const auto goes = [&](std::size_t at) { return !keep_directives || !IsDirective(lines[at]); };
    if (!goes(i)) continue;
    ++pending;
    if (i > 0 && goes(i - 1)) continue;
    place.module->DeleteLines(sub->body_line + static_cast<std::int32_t>(i),
                              std::exchange(pending, 0));
  }
}

void CodeSync::CommentOut(const Place& place, const SubLocation& sub) {
  const std::vector<std::string> lines = ProcedureLines(*place.module, sub);
  const bool keep_directives = KeepsDirectives(place, sub, lines);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (keep_directives && IsDirective(lines[i])) continue;
    const std::int32_t line = sub.body_line + static_cast<std::int32_t>(i);
    place.module->ReplaceLine(line, "'" + lines[i]);
    WarnOfLongLine(place, line, "'" + lines[i]);
  }
}

void CodeSync::SwitchOff(std::string_view prog_id, std::string_view name) {
  const Place place = LocateOrWarn(prog_id);
  if (!place) return;
  std::optional<SubLocation> sub = FindSub(*place.module, name);
  if (!sub) return WarnNoSub(prog_id, name);
  // The other branches of an #If block may declare it too.
  for (; sub; sub = FindSub(*place.module, name)) CommentOut(place, *sub);
}

}  // namespace codegen
