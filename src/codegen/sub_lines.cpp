// SPDX-License-Identifier: MIT
#include "codegen/sub_lines.h"

#include <algorithm>
#include <iterator>

#include "codegen/declaration.h"
#include "codegen/source_line.h"
#include "platform/text.h"

namespace codegen {
namespace {

constexpr std::int32_t kMaxStatementLines = 25;  // Visual Basic takes 24 continuations
// Headers are short; a block of this many lines holds most of them.
constexpr std::int32_t kFirstBlock = 32;

// Number of lines at the end of the block that are comment or blank and follow no commented-out
// end of a procedure. The comment of the line above may continue onto a line that looks like
// something else.
std::size_t HeaderLinesAtEnd(const std::vector<std::string>& lines) {
  bool stop = false;
  std::size_t first = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool continues = i > 0 && IsContinued(lines[i - 1]);
    if (!continues) {
      stop =
          !(IsBlankLine(lines[i]) || IsCommentLine(lines[i])) || IsCommentedProcedureEnd(lines[i]);
    }
    if (stop) first = i + 1;
  }
  return lines.size() - first;
}

// Marks the lines that the generator wrote: those of the last header, from rule to rule. A line
// inside that is none of a header's is somebody's note; a header further up lost its sub.
std::vector<bool> GeneratedLines(const std::vector<std::string>& lines,
                                 const Templates& templates) {
  std::vector<bool> generated(lines.size(), false);
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    if (!templates.IsRule(lines[i]) || !templates.IsTitle(lines[i + 1])) continue;
    const auto end = std::find_if(lines.begin() + static_cast<std::ptrdiff_t>(i) + 2, lines.end(),
                                  [&](const std::string& s) { return templates.IsRule(s); });
    if (end == lines.end()) break;
    const auto last = static_cast<std::size_t>(std::distance(lines.begin(), end));
    generated.assign(lines.size(), false);
    generated[i] = generated[i + 1] = generated[last] = true;
    for (std::size_t k = i + 2; k < last; ++k) {
      generated[k] = templates.IsCaption(lines[k]) || Templates::IsArgument(lines[k]);
    }
    i = last;
  }
  return generated;
}

// Number of lines up to the first end of a procedure; 0 when there is none. A comment may continue
// onto a line that looks like one.
std::size_t LinesToProcedureEnd(const std::vector<std::string>& lines) {
  bool in_comment = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!in_comment && IsProcedureEnd(lines[i])) return i + 1;
    in_comment = IsContinued(lines[i]) && (in_comment || CommentStart(lines[i]) < lines[i].size());
  }
  return 0;
}

}  // namespace

std::optional<SubLocation> FindSub(platform::CodeModule& module, std::string_view name) {
  const std::optional<platform::Member> member = module.FindMember(name);
  if (!member || member->type != platform::MemberType::kMethod) return std::nullopt;
  SubLocation sub;
  try {
    sub.body_line = module.ProcBodyLine(member->name, platform::ProcKind::kProc);
    sub.start_line = module.ProcStartLine(member->name, platform::ProcKind::kProc);
  } catch (const platform::Error& error) {
    if (error.number() == platform::kErrProcNotDefined) return std::nullopt;
    throw;
  }
  const std::optional<SubDeclaration> declaration = ParseSub(DeclarationLines(module, sub));
  if (!declaration || !platform::EqualsIgnoringCase(declaration->name, name)) return std::nullopt;
  sub.name = member->name;
  sub.start_line = std::min(sub.start_line, sub.body_line);
  return sub;
}

std::vector<std::string> DeclarationLines(platform::CodeModule& module, const SubLocation& sub) {
  std::vector<std::string> lines = {module.Lines(sub.body_line, 1)};
  if (!IsContinued(lines[0])) return lines;
  lines = SplitLines(module.Lines(sub.body_line, kMaxStatementLines));
  const auto last = std::find_if_not(lines.begin(), lines.end(), IsContinued);
  if (last != lines.end()) lines.erase(last + 1, lines.end());
  return lines;
}

std::vector<std::string> ProcedureLines(platform::CodeModule& module, const SubLocation& sub) {
  const std::int32_t behind =
      sub.start_line + module.ProcCountLines(sub.name, platform::ProcKind::kProc);
  std::vector<std::string> lines =
      SplitLines(module.Lines(sub.body_line, std::max(behind - sub.body_line, 1)));
  if (const std::size_t count = LinesToProcedureEnd(lines); count > 0) {
    lines.resize(count);
  } else {
    while (lines.size() > 1 && IsBlankLine(lines.back())) lines.pop_back();
  }
  return lines;
}

HeaderRegion FindHeaderRegion(platform::CodeModule& module, const SubLocation& sub) {
  for (std::int32_t size = kFirstBlock;; size *= 2) {
    const std::int32_t top = std::max(sub.start_line, sub.body_line - size);
    HeaderRegion region;
    region.first_line = sub.body_line;
    if (top == sub.body_line) return region;
    region.lines = SplitLines(module.Lines(top, sub.body_line - top));
    // A text of one empty line splits into nothing.
    if (region.lines.empty()) region.lines.emplace_back();
    const std::size_t count = HeaderLinesAtEnd(region.lines);
    // What the first line of the block belongs to is known only at the region's start.
    if (count == region.lines.size() && top > sub.start_line) continue;
    region.lines.erase(region.lines.begin(),
                       region.lines.end() - static_cast<std::ptrdiff_t>(count));
    region.first_line = sub.body_line - static_cast<std::int32_t>(count);
    return region;
  }
}

HeaderRegion LimitedRegion(HeaderRegion region, std::int32_t floor) {
  std::int32_t first = region.first_line + static_cast<std::int32_t>(region.lines.size());
  while (first > region.first_line &&
         (first > floor ||
          IsBlankLine(region.lines[static_cast<std::size_t>(first - 1 - region.first_line)]))) {
    --first;
  }
  // An empty line that the comment above continues onto belongs to that comment.
  if (first > region.first_line &&
      first < region.first_line + static_cast<std::int32_t>(region.lines.size()) &&
      IsContinued(region.lines[static_cast<std::size_t>(first - 1 - region.first_line)])) {
    ++first;
  }
  region.lines.erase(region.lines.begin(), region.lines.begin() + (first - region.first_line));
  region.first_line = first;
  return region;
}

std::vector<std::string> WithHeader(const std::vector<std::string>& region,
                                    const std::vector<std::string>& header,
                                    const Templates& templates) {
  const std::vector<bool> generated = GeneratedLines(region, templates);
  std::vector<std::string> result;
  std::size_t kept = 0;  // lines up to the last foreign one
  for (std::size_t i = 0; i < region.size(); ++i) {
    if (generated[i]) continue;
    result.push_back(region[i]);
    if (!IsBlankLine(region[i]) || (i > 0 && IsContinued(region[i - 1]))) kept = result.size();
  }
  result.resize(kept);
  if (kept > 0 && IsContinued(result.back())) result.emplace_back();
  result.insert(result.end(), header.begin(), header.end());
  return result;
}

std::optional<GeneratedHeader> FindGeneratedHeader(const std::vector<std::string>& region,
                                                   const Templates& templates) {
  const std::vector<bool> generated = GeneratedLines(region, templates);
  const auto first = std::ranges::find(generated, true);
  if (first == generated.end()) return std::nullopt;
  GeneratedHeader header;
  header.is_whole = std::find(first, generated.end(), false) == generated.end();
  const auto rule = static_cast<std::size_t>(std::distance(generated.begin(), first));
  header.title = region[rule + 1];
  for (std::size_t i = rule + 2; i < region.size(); ++i) {
    if (!generated[i] || !Templates::IsArgument(region[i])) continue;
    header.aliases.emplace_back(TrimBlanks(TrimBlanks(region[i]).substr(1)));
  }
  return header;
}

bool IsHeaderOf(const GeneratedHeader& header, std::string_view name,
                const std::vector<std::string>& aliases, const Templates& templates) {
  if (!header.is_whole || !templates.IsTitleOf(header.title, name)) return false;
  std::vector<std::string> listed = header.aliases;
  std::vector<std::string> wanted =
      FindGeneratedHeader(templates.Header(name, aliases), templates)->aliases;
  std::ranges::sort(listed);
  std::ranges::sort(wanted);
  return listed == wanted;
}

void RewriteLines(platform::CodeModule& module, std::int32_t first_line,
                  const std::vector<std::string>& old_lines,
                  const std::vector<std::string>& new_lines) {
  const auto [old_begin, new_begin] = std::mismatch(old_lines.begin(), old_lines.end(),
                                                    new_lines.begin(), new_lines.end(), SameLine);
  const auto [old_rend, new_rend] =
      std::mismatch(old_lines.rbegin(), std::make_reverse_iterator(old_begin), new_lines.rbegin(),
                    std::make_reverse_iterator(new_begin), SameLine);
  const std::vector<std::string> now(old_begin, old_rend.base());
  const std::vector<std::string> wanted(new_begin, new_rend.base());
  const std::int32_t line =
      first_line + static_cast<std::int32_t>(std::distance(old_lines.begin(), old_begin));
  const std::size_t common = std::min(now.size(), wanted.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (!SameLine(now[i], wanted[i])) {
      module.ReplaceLine(line + static_cast<std::int32_t>(i), wanted[i]);
    }
  }
  const std::int32_t behind = line + static_cast<std::int32_t>(common);
  if (now.size() > common) {
    module.DeleteLines(behind, static_cast<std::int32_t>(now.size() - common));
  } else if (wanted.size() > common) {
    module.InsertLines(
        behind, JoinLines({wanted.begin() + static_cast<std::ptrdiff_t>(common), wanted.end()}));
  }
}

}  // namespace codegen
