// SPDX-License-Identifier: MIT
#include "codegen/class_edits.h"

#include <algorithm>
#include <functional>
#include <unordered_set>
#include <utility>

#include "codegen/declaration.h"
#include "codegen/identifier.h"
#include "codegen/name_uses.h"
#include "codegen/source_line.h"
#include "codegen/text_numbers.h"
#include "platform/text.h"

namespace codegen {

std::string FileNameOf(std::string_view path) {
  return std::string(path.substr(path.find_last_of("/\\") + 1));
}

void WarnOfLimits(std::string_view file, platform::CodeModule& module, Report& report) {
  const std::int32_t count = module.CountOfLines();
  if (count > kMaxModuleLines - kMaxModuleLines / 50) {
    report.Warn(kTextLongModule, {{"<File>", file}, {"<Count>", std::to_string(count)}});
  }
}

void WarnOfLongLine(std::string_view file, std::int32_t line, std::string_view text,
                    Report& report) {
  if (CharacterCount(text) > kMaxLineLength) {
    report.Warn(kTextLongLine, {{"<File>", file}, {"<Line>", std::to_string(line)}});
  }
}

void ClassEdits::Apply(platform::VBComponent& component, platform::CodeModule& module,
                       Report& report) {
  const Place place = {FileNameOf(component.FileName()), module, report};
  std::vector<std::string> gone;
  report.Step([&] { gone = RemoveLines(place); });
  report.Step([&] { InsertDeclarations(place); });
  report.Step([&] {
    std::erase_if(gone, [&](const std::string& name) { return module.FindMember(name); });
    if (gone.empty()) return;
    for (const NameUse& use : FindNameUses(module.Lines(1, module.CountOfLines()), gone)) {
      report.Warn(
          kTextStillUses,
          {{"<File>", place.file}, {"<Line>", std::to_string(use.line)}, {"<Name>", use.name}});
    }
  });
}

std::vector<std::string> ClassEdits::RemoveLines(const Place& place) {
  std::vector<std::pair<std::int32_t, std::string>> lines;
  for (const std::string& name : removed_) {
    const std::optional<platform::Member> member = place.module.FindMember(name);
    if (!member) continue;
    const std::int32_t line = member->code_location;
    const std::string text = place.module.Lines(line, 1);
    const bool deletable = member->type == platform::MemberType::kVariable &&
                           member->scope == platform::MemberScope::kPublic &&
                           DeclaresOnlyPublicVariable(text, name) &&
                           (line == 1 || !IsContinued(place.module.Lines(line - 1, 1)));
    if (!deletable) {
      place.report.Warn(
          kTextDeclarationLeft,
          {{"<File>", place.file}, {"<Line>", std::to_string(line)}, {"<Name>", name}});
      continue;
    }
    const auto again = std::find_if(declared_.begin(), declared_.end(), [&](const auto& d) {
      return d.alias == member->name && SameLine(d.line, text);
    });
    if (again == declared_.end()) lines.emplace_back(line, name);
  }
  std::sort(lines.begin(), lines.end(), std::greater<>());
  lines.erase(std::unique(lines.begin(), lines.end(),
                          [](const auto& a, const auto& b) { return a.first == b.first; }),
              lines.end());
  std::vector<std::string> names;
  for (std::size_t i = 0; i < lines.size();) {
    // Neighbouring lines go in one call.
    const std::int32_t last = lines[i].first;
    std::int32_t first = last;
    names.push_back(lines[i].second);
    for (++i; i < lines.size() && lines[i].first == first - 1; ++i) {
      first = lines[i].first;
      names.push_back(lines[i].second);
    }
    place.module.DeleteLines(first, last - first + 1);
  }
  return names;
}

void ClassEdits::InsertDeclarations(const Place& place) {
  std::vector<std::string> lines;
  std::unordered_set<std::string> names;
  for (const Declaration& declaration : declared_) {
    if (place.module.FindMember(declaration.alias)) continue;
    if (!names.insert(platform::FoldCase(declaration.alias)).second) continue;
    lines.push_back(declaration.line);
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
