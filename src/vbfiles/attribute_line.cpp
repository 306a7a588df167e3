// SPDX-License-Identifier: MIT
#include "vbfiles/attribute_line.h"

#include <algorithm>

#include "vbcode/source_lines.h"
#include "vbfiles/field_text.h"
#include "vbfiles/physical_lines.h"

namespace vbfiles {

using vbcode::IsKeyword;

namespace {

constexpr std::string_view kKeyword = "attribute";

std::string_view MemberPart(std::string_view name) { return name.substr(0, name.find('.')); }

// Appends the line as the change leaves it.
void AppendAdjusted(std::string& text, std::string_view line, const AttributeChange& change,
                    const CodePage& page) {
  const std::string_view whole = line;
  if (line.starts_with('\'')) line.remove_prefix(1);
  const auto attribute = ParseAttributeLine(line);
  if (!attribute) {
    text += whole;
    return;
  }
  const std::string_view member = MemberPart(attribute->name);
  auto is_member = [&](std::string_view name) { return page.SameName(name, member); };
  if (!change.renamed_from.empty() && is_member(change.renamed_from)) {
    const auto at = static_cast<std::size_t>(member.data() - line.data());
    text.append(line.substr(0, at))
        .append(change.renamed_to)
        .append(line.substr(at + member.size()));
    return;
  }
  if (std::ranges::none_of(change.declared, is_member)) text += '\'';
  text += line;
}

}  // namespace

std::optional<AttributeLine> ParseAttributeLine(std::string_view line) {
  if (line.size() <= kKeyword.size() || !IsKeyword(line.substr(0, kKeyword.size()), kKeyword) ||
      !vbcode::IsBlank(line[kKeyword.size()])) {
    return std::nullopt;
  }
  const std::size_t equals = line.find('=', kKeyword.size());
  if (equals == std::string_view::npos) return std::nullopt;
  const std::string_view name = Trimmed(line.substr(kKeyword.size(), equals - kKeyword.size()));
  if (name.empty() || name.find_first_of(" \t\"'(") != std::string_view::npos) return std::nullopt;
  return AttributeLine{name, Trimmed(line.substr(equals + 1))};
}

std::string AdjustAttributeLines(std::string_view lines, const AttributeChange& change,
                                 const CodePage& page) {
  std::string adjusted;
  for (std::size_t begin = 0; begin < lines.size();) {
    const PhysicalLine line = ReadPhysicalLine(lines, begin);
    AppendAdjusted(adjusted, TextOf(lines, line), change, page);
    adjusted += lines.substr(line.end, line.next - line.end);
    begin = line.next;
  }
  return adjusted;
}

}  // namespace vbfiles
