// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>

#include "codegen/declaration.h"
#include "codegen/formula_code_impl.h"
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

// Whether an #If block is open behind the lines.
bool IsInConditionalBlock(const std::vector<std::string>& lines) {
  int depth = 0;
  bool continues = false;
  for (const std::string& line : lines) {
    if (!continues && IsDirective(line)) {
      const std::string word = platform::FoldCase(TrimBlanks(TrimBlanks(line).substr(1)));
      depth += word.starts_with("if") ? 1 : word.starts_with("end") ? -1 : 0;
    }
    continues = IsContinued(line);
  }
  return depth > 0;
}

// The text that says why the server cannot call the sub as a formula; 0 when it can.
std::int32_t WhyNoFormula(platform::CodeModule& module, const SubLocation& sub) {
  const std::optional<SubDeclaration> declaration = ParseSub(DeclarationLines(module, sub));
  if (!declaration || !declaration->parameters.empty()) return kTextHasParameters;
  if (!declaration->is_public) return kTextNotPublic;
  const bool first = sub.body_line == 1;
  if (!first && IsInConditionalBlock(SplitLines(module.Lines(1, sub.body_line - 1)))) {
    return kTextInConditionalBlock;
  }
  return 0;
}

}  // namespace

bool CVBFormulaCode::Impl::CanAdopt(const Place& place, std::string_view prog_id,
                                    const SubLocation& sub,
                                    std::initializer_list<std::string_view> formulas) {
  if (const std::int32_t reason = WhyNoFormula(*place.module, sub)) {
    report_.Refuse(reason, {{"<File>", place.File()},
                            {"<Line>", std::to_string(sub.body_line)},
                            {"<Name>", sub.name}});
    return false;
  }
  const std::vector<std::string> above = FindHeaderRegion(*place.module, sub).lines;
  const bool known = std::any_of(above.begin(), above.end(), [&](const std::string& text) {
    return std::any_of(formulas.begin(), formulas.end(),
                       [&](std::string_view name) { return templates_.IsTitleOf(text, name); });
  });
  if (!known) WaitingFor(prog_id).sub_warnings.emplace_back(kTextAdopted, sub.name);
  return true;
}

bool CVBFormulaCode::Impl::CanAppend(const Place& place, std::string_view prog_id,
                                     std::string_view name) {
  const std::optional<platform::Member> member = place.module->FindMember(name);
  if (member || IsTypeName(place, prog_id, name)) {
    const std::string where =
        member ? " (" + place.File() + ":" + std::to_string(member->code_location) + ")" : "";
    report_.Refuse(kTextNameTaken, {{"<Class>", prog_id}, {"<Name>", name}, {"<Where>", where}});
    return false;
  }
  const IdentifierHint hint = CheckIdentifier(name);
  if (hint) {
    report_.Refuse(HintText(hint.problem), {{"<Name>", name}, {"<Character>", hint.character}});
  }
  return !hint;
}

void CVBFormulaCode::Impl::AppendSub(const Place& place, std::string_view prog_id,
                                     std::string_view name, std::string_view code) {
  const std::int32_t end = place.module->CountOfLines();
  place.module->AddFromString(code);
  WarnOfLimits(place.File(), *place.module, report_);
  const std::optional<SubLocation> sub = FindSub(*place.module, name);
  if (!sub) {
    report_.Warn(kTextCodeWithoutSub, {{"<Name>", name}});
    return;
  }
  // Comments above the new text were written by somebody else.
  RewriteHeader(place, LimitedRegion(FindHeaderRegion(*place.module, *sub), end + 1), name,
                ArgumentsOf(name, prog_id));
  HeaderIsDone(name, prog_id);
}

void CVBFormulaCode::Impl::AddFunction(std::string_view prog_id, std::string_view name,
                                       std::string_view code) {
  if (!vbe_) return;
  const OperationScope scope(*this);
  report_.Step([&] {
    const Place place = LocateOrWarn(prog_id);
    if (!place) return;
    if (const auto sub = FindSub(*place.module, name)) {
      if (!CanAdopt(place, prog_id, *sub, {name})) return;
      RewriteHeader(place, FindHeaderRegion(*place.module, *sub), name, ArgumentsOf(name, prog_id));
      HeaderIsDone(name, prog_id);
    } else if (CanAppend(place, prog_id, name)) {
      AppendSub(place, prog_id, name, code.empty() ? Templates::Sub(name) : std::string(code));
    }
  });
  RegisterClass(prog_id);
}

void CVBFormulaCode::Impl::RewriteDeclaration(const Place& place, std::string_view prog_id,
                                              const SubLocation& sub, std::string_view new_name) {
  const std::vector<std::string> lines = DeclarationLines(*place.module, sub);
  const std::optional<SubDeclaration> old = ParseSub(lines);
  if (!old) return;
  const std::vector<std::string> renamed = RenamedSub(lines, *old, new_name);
  if (!old->parameters.empty()) {
    WaitingFor(prog_id).sub_warnings.emplace_back(kTextParametersStay, new_name);
  }
  const bool same = old->name == new_name && std::equal(lines.begin(), lines.end(), renamed.begin(),
                                                        renamed.end(), SameLine);
  if (same) return;
  // The first line last: what follows it is found by the old declaration.
  for (std::size_t i = lines.size(); i-- > 0;) {
    if (renamed[i] == lines[i]) continue;
    const std::int32_t line = sub.body_line + static_cast<std::int32_t>(i);
    place.module->ReplaceLine(line, renamed[i]);
    WarnOfLongLine(place.File(), line, renamed[i], report_);
  }
}

void CVBFormulaCode::Impl::RenameFunction(std::string_view prog_id, std::string_view old_name,
                                          std::string_view new_name) {
  if (!vbe_) return;
  const OperationScope scope(*this);
  report_.Step([&] {
    const Place place = LocateOrWarn(prog_id);
    if (!place) return;
    const bool same = platform::EqualsIgnoringCase(old_name, new_name);
    const std::optional<SubLocation> old_sub = FindSub(*place.module, old_name);
    const auto stands = same || old_sub ? std::nullopt : FindSub(*place.module, new_name);
    if (stands) {
      if (!CanAdopt(place, prog_id, *stands, {old_name, new_name})) return;
    } else if (!(same && old_sub) && !CanAppend(place, prog_id, new_name)) {
      return;
    }
    if (old_sub) {
      RewriteDeclaration(place, prog_id, *old_sub, new_name);
      // The other branches of an #If block may declare it too.
      while (auto twin = same ? std::nullopt : FindSub(*place.module, old_name)) {
        RewriteDeclaration(place, prog_id, *twin, new_name);
      }
    } else if (!stands) {
      report_.Warn(kTextSubAdded,
                   {{"<Class>", prog_id}, {"<Old>", old_name}, {"<Name>", new_name}});
      AppendSub(place, prog_id, new_name, Templates::Sub(new_name));
      return;
    }
    RebuildHeader(new_name, prog_id);
  });
}

void CVBFormulaCode::Impl::DeleteProcedure(const Place& place, const SubLocation& sub) {
  const std::vector<std::string> lines = ProcedureLines(*place.module, sub);
  const bool keep_directives = KeepsDirectives(place, sub, lines);
  const auto stays = [&](const std::string& s) { return keep_directives && IsDirective(s); };
  // From the bottom up, so that the numbers stay right.
  for (auto end = lines.end(); end != lines.begin();) {
    const auto begin = std::find_if(std::make_reverse_iterator(end), lines.rend(), stays).base();
    if (begin != end) {
      place.module->DeleteLines(
          sub.body_line + static_cast<std::int32_t>(std::distance(lines.begin(), begin)),
          static_cast<std::int32_t>(std::distance(begin, end)));
    }
    end = begin == lines.begin() ? begin : begin - 1;
  }
}

void CVBFormulaCode::Impl::DeleteFunction(std::string_view prog_id, std::string_view name) {
  if (!vbe_) return;
  const OperationScope scope(*this);
  report_.Step([&] {
    const Place place = LocateOrWarn(prog_id);
    if (!place) return;
    const std::optional<SubLocation> sub = FindSub(*place.module, name);
    if (!sub) return WarnNoSub(prog_id, name);
    HeaderIsDone(name, prog_id);
    DeleteProcedure(place, *sub);
  });
  UnregisterClass(prog_id);
}

bool CVBFormulaCode::Impl::KeepsDirectives(const Place& place, const SubLocation& sub,
                                           const std::vector<std::string>& lines) {
  if (!CutsConditionalBlock(lines)) return false;
  report_.Warn(
      kTextDirectivesLeft,
      {{"<File>", place.File()}, {"<Line>", std::to_string(sub.body_line)}, {"<Name>", sub.name}});
  return true;
}

void CVBFormulaCode::Impl::CommentOut(const Place& place, const SubLocation& sub) {
  const std::vector<std::string> lines = ProcedureLines(*place.module, sub);
  const bool keep_directives = KeepsDirectives(place, sub, lines);
  const std::string file = place.File();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (keep_directives && IsDirective(lines[i])) continue;
    const std::int32_t line = sub.body_line + static_cast<std::int32_t>(i);
    place.module->ReplaceLine(line, "'" + lines[i]);
    WarnOfLongLine(file, line, "'" + lines[i], report_);
  }
}

void CVBFormulaCode::Impl::DeactivateFunction(std::string_view prog_id, std::string_view name) {
  if (!vbe_) return;
  const OperationScope scope(*this);
  report_.Step([&] {
    const Place place = LocateOrWarn(prog_id);
    if (!place) return;
    std::optional<SubLocation> sub = FindSub(*place.module, name);
    HeaderIsDone(name, prog_id);
    if (!sub) return WarnNoSub(prog_id, name);
    // The other branches of an #If block may declare it too.
    for (; sub; sub = FindSub(*place.module, name)) CommentOut(place, *sub);
  });
  UnregisterClass(prog_id);
}

std::vector<std::string> CVBFormulaCode::Impl::ArgumentsOf(std::string_view name,
                                                           std::string_view prog_id) {
  return rows_ ? rows_->ArgumentsOf(name, prog_id) : std::vector<std::string>();
}

void CVBFormulaCode::Impl::RewriteHeader(const Place& place, const HeaderRegion& region,
                                         std::string_view name,
                                         const std::vector<std::string>& aliases) {
  RewriteLines(*place.module, region.first_line, region.lines,
               WithHeader(region.lines, templates_.Header(name, aliases), templates_));
}

void CVBFormulaCode::Impl::RewriteWaitingHeader(const Place& place, const Header& header,
                                                std::string_view prog_id,
                                                const FormulaRows::ArgumentsById& arguments) {
  const std::string& name = header.function_name;
  const std::optional<SubLocation> sub = FindSub(*place.module, name);
  if (!sub) return WarnNoSub(prog_id, name);
  const auto known = arguments.find(header.formula_id);
  RewriteHeader(place, FindHeaderRegion(*place.module, *sub), name,
                known != arguments.end() ? known->second : ArgumentsOf(name, prog_id));
}

void CVBFormulaCode::Impl::RebuildHeader(std::string_view name, std::string_view prog_id) {
  if (!vbe_) return;
  report_.Step([&] {
    const Place place = LocateOrWarn(prog_id);
    if (!place) return;
    RewriteWaitingHeader(place, {std::string(name), 0}, prog_id, {});
    HeaderIsDone(name, prog_id);
  });
}

std::string CVBFormulaCode::Impl::GetHeader(std::string_view name, std::string_view prog_id) {
  std::string text;
  report_.Step([&] {
    const Place place = Locate(prog_id);
    const auto sub = place ? FindSub(*place.module, name) : std::nullopt;
    if (sub) text = JoinLines(FindHeaderRegion(*place.module, *sub).lines);
  });
  return text;
}

void CVBFormulaCode::Impl::ReplaceHeader(std::string_view name, std::string_view prog_id,
                                         std::string_view header) {
  if (!vbe_) return;
  report_.Step([&] {
    const Place place = LocateOrWarn(prog_id);
    if (!place) return;
    const std::optional<SubLocation> sub = FindSub(*place.module, name);
    if (!sub) return WarnNoSub(prog_id, name);
    const HeaderRegion region = FindHeaderRegion(*place.module, *sub);
    RewriteLines(*place.module, region.first_line, region.lines, SplitLines(header));
  });
}

}  // namespace codegen
