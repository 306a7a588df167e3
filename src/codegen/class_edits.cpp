// SPDX-License-Identifier: MIT
#include "codegen/class_edits.h"

#include <algorithm>
#include <functional>
#include <unordered_set>
#include <utility>

#include "codegen/comment_text.h"
#include "codegen/identifier.h"
#include "codegen/name_uses.h"
#include "codegen/source_line.h"
#include "codegen/templates.h"
#include "codegen/text_numbers.h"
#include "platform/text.h"

namespace codegen {
namespace {

// Beyond this there is little room left.
constexpr std::int32_t NearLimit(std::int32_t limit) { return limit - limit / 50; }

}  // namespace

std::string FileNameOf(std::string_view path) {
  return std::string(path.substr(path.find_last_of("/\\") + 1));
}

void WarnOfLimits(std::string_view file, platform::CodeModule& module, Report& report) {
  const std::int32_t count = module.CountOfLines();
  if (count > NearLimit(kMaxModuleLines)) {
    report.Warn(kTextLongModule, {{"<File>", file}, {"<Count>", std::to_string(count)}});
  }
}

void WarnOfLongLine(std::string_view file, std::int32_t line, std::string_view text,
                    Report& report) {
  const auto count = static_cast<std::int32_t>(CharacterCount(text));
  if (count > NearLimit(kMaxLineLength)) {
    report.Warn(
        kTextLongLine,
        {{"<File>", file}, {"<Line>", std::to_string(line)}, {"<Count>", std::to_string(count)}});
  }
}

void WarnOfUses(const std::vector<std::string>& names, platform::VBComponent& component,
                platform::CodeModule& module, Report& report) {
  if (names.empty()) return;
  const std::string file = FileNameOf(component.FileName());
  for (const NameUse& use : FindNameUses(module, names)) {
    report.Warn(kTextStillUses,
                {{"<File>", file}, {"<Line>", std::to_string(use.line)}, {"<Name>", use.name}});
  }
}

std::vector<std::string> ClassEdits::Apply(platform::VBComponent& component,
                                           platform::CodeModule& module, Report& report) {
  const Place place = {FileNameOf(component.FileName()), module, report};
  std::vector<std::string> gone;
  report.Step([&] { gone = RemoveLines(place); });
  report.Step([&] { InsertDeclarations(place); });
  report.Step([&] {
    std::erase_if(gone,
                  [&](const std::string& name) { return module.FindMember(name).has_value(); });
  });
  return gone;
}

bool ClassEdits::Declaration::IsWrittenIn(const VariableLine& line) const {
  return line.name == alias && platform::EqualsIgnoringCase(line.type, type) &&
         ShowsText(line.comment, item);
}

std::optional<ClassEdits::GoneLine> ClassEdits::FindLine(const Place& place,
                                                         const Removal& removal) const {
  const std::optional<platform::Member> member = place.module.FindMember(removal.alias);
  if (!member) return std::nullopt;
  const std::int32_t line = member->code_location;
  std::string text = place.module.Lines(line, 1);
  const std::optional<VariableLine> variable = ParseVariableLine(text);
  const bool alone = member->type == platform::MemberType::kVariable &&
                     member->scope == platform::MemberScope::kPublic && variable &&
                     platform::EqualsIgnoringCase(variable->name, removal.alias) &&
                     (line == 1 || !IsContinued(place.module.Lines(line - 1, 1)));
  if (!alone) {
    place.report.Warn(
        kTextDeclarationLeft,
        {{"<File>", place.file}, {"<Line>", std::to_string(line)}, {"<Name>", removal.alias}});
    return std::nullopt;
  }
  const bool stays = std::any_of(declared_.begin(), declared_.end(),
                                 [&](const Declaration& d) { return d.IsWrittenIn(*variable); });
  if (stays) return std::nullopt;
  const bool ours = !variable->comment.empty() &&
                    std::any_of(removal.items.begin(), removal.items.end(),
                                [&](const auto& i) { return ShowsText(variable->comment, i); });
  return GoneLine{line, removal.alias, std::move(text), ours};
}

std::vector<std::string> ClassEdits::RemoveLines(const Place& place) {
  std::vector<GoneLine> lines;
  for (const Removal& removal : removed_) {
    if (auto line = FindLine(place, removal)) lines.push_back(std::move(*line));
  }
  // From the bottom up, so that the numbers stay right; neighbouring lines go in one call.
  std::sort(lines.begin(), lines.end(),
            [](const GoneLine& a, const GoneLine& b) { return a.line > b.line; });
  lines.erase(std::unique(lines.begin(), lines.end(),
                          [](const GoneLine& a, const GoneLine& b) { return a.line == b.line; }),
              lines.end());
  std::vector<std::string> names;
  std::int32_t pending = 0;  // lines from the last one looked at downward that are to be deleted
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const GoneLine& gone = lines[i];
    names.push_back(gone.alias);
    if (!gone.ours) {
      place.module.ReplaceLine(gone.line, "'" + gone.text);
      place.report.Warn(
          kTextDeclarationOff,
          {{"<File>", place.file}, {"<Line>", std::to_string(gone.line)}, {"<Name>", gone.alias}});
      continue;
    }
    ++pending;
    const bool next_too =
        i + 1 < lines.size() && lines[i + 1].ours && lines[i + 1].line == gone.line - 1;
    if (next_too) continue;
    place.module.DeleteLines(gone.line, pending);
    pending = 0;
  }
  return names;
}

void ClassEdits::InsertDeclarations(const Place& place) {
  std::vector<std::string> lines;
  std::unordered_set<std::string> names;
  for (const Declaration& declaration : declared_) {
    if (place.module.FindMember(declaration.alias)) continue;
    if (!names.insert(platform::FoldCase(declaration.alias)).second) continue;
    lines.push_back(Templates::Declaration(declaration.alias, declaration.type, declaration.item));
    if (declaration.type_kept) kept_types_.push_back(declaration.alias);
    if (const IdentifierHint hint = CheckIdentifier(declaration.alias)) {
      place.report.Warn(HintText(hint.problem),
                        {{"<Name>", declaration.alias}, {"<Character>", hint.character}});
    }
  }
  if (lines.empty()) return;
  const std::int32_t last = place.module.CountOfDeclarationLines();
  // A comment at the end of a module without procedures may continue onto the next line.
  if (last > 0 && IsContinued(place.module.Lines(last, 1))) lines.insert(lines.begin(), "");
  place.module.InsertLines(last + 1, JoinLines(lines));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    WarnOfLongLine(place.file, last + 1 + static_cast<std::int32_t>(i), lines[i], place.report);
  }
  WarnOfLimits(place.file, place.module, place.report);
}

}  // namespace codegen
