// SPDX-License-Identifier: MIT
#include "vbfiles/attribute_line.h"

#include <algorithm>

#include "vbfiles/field_text.h"
#include "vbfiles/physical_lines.h"
#include "vbfiles/source_lines.h"

namespace vbfiles {

namespace {

constexpr std::string_view kKeyword = "attribute";

std::string_view MemberPart(std::string_view name) { return name.substr(0, name.find('.')); }

std::string Adjusted(std::string_view line, const AttributeChange& change, const CodePage& page) {
  const bool disabled = !line.empty() && line.front() == '\'';
  if (disabled) line.remove_prefix(1);
  const auto attribute = ParseAttributeLine(line);
  if (!attribute) return (disabled ? "'" : "") + std::string(line);
  const std::string_view member = MemberPart(attribute->name);
  auto is_member = [&](std::string_view name) { return page.SameName(name, member); };
  if (!change.renamed_from.empty() && is_member(change.renamed_from)) {
    const auto at = static_cast<std::size_t>(member.data() - line.data());
    return std::string(line.substr(0, at)) + std::string(change.renamed_to) +
           std::string(line.substr(at + member.size()));
  }
  const bool declared = std::any_of(change.declared.begin(), change.declared.end(), is_member);
  return (declared ? "" : "'") + std::string(line);
}

}  // namespace

std::optional<AttributeLine> ParseAttributeLine(std::string_view line) {
  if (line.size() <= kKeyword.size() || !IsKeyword(line.substr(0, kKeyword.size()), kKeyword) ||
      !IsBlank(line[kKeyword.size()])) {
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
    adjusted += Adjusted(TextOf(lines, line), change, page);
    adjusted += lines.substr(line.end, line.next - line.end);
    begin = line.next;
  }
  return adjusted;
}

}  // namespace vbfiles
