// SPDX-License-Identifier: MIT
#include "vbcode/text_search.h"

#include <algorithm>

#include "platform/text.h"
#include "vbcode/columns.h"
#include "vbcode/source_lexer.h"

namespace vbcode {

namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; }

// How much of the line equals the text there, letter case left aside; npos when it does not.
std::size_t MatchedLength(std::string_view line, std::size_t begin, std::string_view text) {
  std::size_t at = begin;
  for (std::size_t wanted = 0; wanted < text.size();) {
    if (at == line.size()) return std::string_view::npos;
    if (platform::FoldCase(platform::NextCodePoint(line, at)) !=
        platform::FoldCase(platform::NextCodePoint(text, wanted))) {
      return std::string_view::npos;
    }
  }
  return at - begin;
}

bool IsWholeWord(std::string_view line, const TextPlace& place) {
  const std::size_t end = place.begin + place.length;
  return (place.begin == 0 || !IsWordCharacter(line[place.begin - 1])) &&
         (end == line.size() || !IsWordCharacter(line[end]));
}

// The first place where the text may begin; letters of both cases, or anything outside ASCII.
std::size_t FindStart(std::string_view line, std::size_t begin, char first) {
  const char lower = Lower(first);
  while (begin < line.size() && Lower(line[begin]) != lower && (line[begin] & 0x80) == 0) ++begin;
  return begin;
}

TextPlace FindIgnoringCase(std::string_view line, std::size_t begin, std::string_view text) {
  for (;; ++begin) {
    begin = FindStart(line, begin, text[0]);
    if (begin >= line.size()) return {};
    if ((line[begin] & 0xC0) == 0x80) continue;  // within a character
    const std::size_t length = MatchedLength(line, begin, text);
    if (length != std::string_view::npos) return {begin, length};
  }
}

}  // namespace

TextPlace FindInLine(std::string_view line, std::size_t begin, std::string_view text,
                     const SearchOptions& options) {
  if (text.empty()) return {};
  for (;;) {
    TextPlace place;
    if (options.match_case) {
      place = {line.find(text, begin), text.size()};
    } else {
      place = FindIgnoringCase(line, begin, text);
    }
    if (place.begin == std::string_view::npos) return {};
    if (!options.whole_word || IsWholeWord(line, place)) return place;
    begin = place.begin + 1;
  }
}

std::vector<Use> FindText(const Program& program, std::string_view text,
                          const SearchOptions& options) {
  std::vector<Use> uses;
  ColumnCounter columns;
  for (std::int32_t m = 0; m < program.ModuleCount(); ++m) {
    const TextLines& lines = *program.module(m).lines;
    for (std::int32_t number = 1; number <= lines.LineCount(); ++number) {
      const std::string_view line = lines.Line(number);
      std::size_t begin = 0;
      for (;;) {
        const TextPlace place = FindInLine(line, begin, text, options);
        if (place.begin == std::string_view::npos) break;
        Use use;
        use.module = m;
        use.line = number;
        use.column = columns.CharactersBefore(line, place.begin) + 1;
        use.length = CountCharacters(line.substr(place.begin, place.length));
        use.procedure = program.ProcedureOfLine(m, number);
        use.kind = UseKind::kText;
        uses.push_back(use);
        begin = place.begin + place.length;
      }
    }
  }
  return uses;
}

}  // namespace vbcode
