// SPDX-License-Identifier: MIT
#include "codegen/source_line.h"

#include <algorithm>

#include "platform/text.h"

namespace codegen {
namespace {

constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

bool StartsWithWord(std::string_view text, std::string_view word) {
  return text.size() >= word.size() &&
         platform::EqualsIgnoringCase(text.substr(0, word.size()), word) &&
         (text.size() == word.size() || IsBlank(text[word.size()]));
}

// "End Sub" and its kin as the last words of the text.
bool EndsWithProcedureEnd(std::string_view text) {
  text = TrimBlanks(text);
  for (const std::string_view kind : {"sub", "function", "property"}) {
    if (text.size() <= kind.size() ||
        !platform::EqualsIgnoringCase(text.substr(text.size() - kind.size()), kind)) {
      continue;
    }
    const std::string_view before = text.substr(0, text.size() - kind.size());
    const std::string_view word = TrimBlanks(before);
    if (word.size() == before.size() || word.size() < 3 ||
        !platform::EqualsIgnoringCase(word.substr(word.size() - 3), "end")) {
      continue;
    }
    const std::string_view rest = word.substr(0, word.size() - 3);
    if (rest.empty() || IsBlank(rest.back()) || rest.back() == ':' || rest.back() == '\'') {
      return true;
    }
  }
  return false;
}

// Whether the same words stand in both, however far apart.
bool SameComment(std::string_view a, std::string_view b) {
  if (a.starts_with('\'') != b.starts_with('\'')) return false;
  if (a.starts_with('\'')) a.remove_prefix(1), b.remove_prefix(1);
  a = TrimBlanks(a);
  b = TrimBlanks(b);
  while (!a.empty() && !b.empty()) {
    const std::size_t end = a.find_first_of(kBlanks);
    if (end != b.find_first_of(kBlanks) || a.substr(0, end) != b.substr(0, end)) return false;
    a = end == std::string_view::npos ? std::string_view() : TrimBlanks(a.substr(end));
    b = end == std::string_view::npos ? std::string_view() : TrimBlanks(b.substr(end));
  }
  return a.empty() && b.empty();
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool IsNameByte(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsBlankLine(std::string_view line) { return TrimBlanks(line).empty(); }

bool IsCommentLine(std::string_view line) {
  const std::string_view text = TrimBlanks(line);
  return !text.empty() && (text[0] == '\'' || StartsWithWord(text, "rem"));
}

bool IsContinued(std::string_view line) {
  return line.size() >= 2 && line.back() == '_' && IsBlank(line[line.size() - 2]);
}

bool IsDirective(std::string_view line) {
  const std::string_view text = TrimBlanks(line);
  return !text.empty() && text[0] == '#';
}

std::size_t CommentStart(std::string_view line) {
  bool in_string = false;
  bool statement_start = true;
  bool line_number = true;  // nothing but the digits of one so far
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '"') in_string = !in_string;
    if (in_string) {
      statement_start = false;
      continue;
    }
    if (c == '\'') return i;
    if (statement_start && StartsWithWord(line.substr(i), "rem")) return i;
    if (IsBlank(c)) continue;
    line_number = line_number && c >= '0' && c <= '9';
    statement_start = line_number || c == ':';
  }
  return line.size();
}

bool IsProcedureEnd(std::string_view line) {
  return EndsWithProcedureEnd(line.substr(0, CommentStart(line)));
}

bool IsCommentedProcedureEnd(std::string_view line) {
  if (!IsCommentLine(line)) return false;
  std::string_view text = TrimBlanks(line);
  if (text[0] != '\'') text = TrimBlanks(text.substr(3));
  while (!text.empty() && (text[0] == '\'' || IsBlank(text[0]))) text.remove_prefix(1);
  return EndsWithProcedureEnd(text) || IsProcedureEnd(text);
}

std::string WithoutBlanks(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  std::copy_if(text.begin(), text.end(), std::back_inserter(result),
               [](char c) { return !IsBlank(c); });
  return result;
}

bool SameLine(std::string_view a, std::string_view b) {
  if (a == b) return true;
  const std::size_t comment_a = CommentStart(a);
  const std::size_t comment_b = CommentStart(b);
  return SameComment(a.substr(comment_a), b.substr(comment_b)) &&
         platform::EqualsIgnoringCase(WithoutBlanks(a.substr(0, comment_a)),
                                      WithoutBlanks(b.substr(0, comment_b)));
}

std::vector<std::string> SplitLines(std::string_view text) {
  std::vector<std::string> lines;
  if (text.empty()) return lines;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') continue;
    lines.emplace_back(text.substr(begin, i - begin));
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    begin = i + 1;
  }
  lines.emplace_back(text.substr(begin));
  return lines;
}

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (&line != &lines.front()) text += "\r\n";
    text += line;
  }
  return text;
}

}  // namespace codegen
