// SPDX-License-Identifier: MIT
#include "vbfiles/source_scanner.h"

#include <cstring>

#include "vbfiles/statement_parser.h"

namespace vbfiles {

using vbcode::IsContinued;
using vbcode::IsKeyword;
using vbcode::Lexer;
using vbcode::SkipBlanks;
using vbcode::Token;
using vbcode::TokenKind;

namespace {

bool StartsWith(std::string_view text, std::size_t position, std::string_view keyword) {
  return text.size() >= position + keyword.size() &&
         IsKeyword(text.substr(position, keyword.size()), keyword);
}

// Whether the text at `first` begins like the end of a procedure.
bool MayEndProcedure(std::string_view text, std::size_t first) {
  if (!StartsWith(text, first, "end")) return false;
  const std::size_t second = SkipBlanks(text, first + 3);
  return StartsWith(text, second, "sub") || StartsWith(text, second, "function") ||
         StartsWith(text, second, "property");
}

// Whether a line inside a procedure, whose first character stands at `first`, can hold anything
// but statements of the body. Nearly every line of a module is answered here.
bool IsPlainBody(std::string_view text, std::size_t first) {
  const char c = text[first];
  if (c == '#' || (c >= '0' && c <= '9')) return false;
  if ((c == 'E' || c == 'e') && MayEndProcedure(text, first)) return false;
  if ((c == 'R' || c == 'r') && StartsWith(text, first, "rem")) return false;
  return std::memchr(text.data() + first, ':', text.size() - first) == nullptr;
}

// Reads a directive; its conditions are not evaluated.
DirectiveMark ReadDirective(Lexer& lexer) {
  const Token word = lexer.Next();
  const Token second = lexer.Next();
  for (Token token = second; token.kind != TokenKind::kEnd; token = lexer.Next()) {
  }
  if (IsKeyword(word.text, "if")) return DirectiveMark::kIf;
  if (IsKeyword(word.text, "end") && IsKeyword(second.text, "if")) return DirectiveMark::kEndIf;
  return DirectiveMark::kNone;
}

}  // namespace

std::int32_t SourceScanner::Scan(std::int32_t line, ScanMode& mode, std::span<LineInfo> infos,
                                 ScanResult& result) const {
  const std::string_view text = lines_.Line(line);
  result.pending = Continuation::kNone;
  LineInfo info;
  info.mode = mode;
  const std::size_t first = SkipBlanks(text);
  if (first == text.size()) {
    infos[static_cast<std::size_t>(line) - 1] = info;
    return line + 1;
  }
  info.line_class = LineClass::kCode;
  if (!IsContinued(text)) {
    const bool comment = text[first] == '\'';
    if (comment) info.line_class = LineClass::kComment;
    if (comment || (mode == ScanMode::kProcedure && IsPlainBody(text, first))) {
      infos[static_cast<std::size_t>(line) - 1] = info;
      return line + 1;
    }
  }
  const bool directive = text[first] == '#';
  Lexer lexer(lines_, page_.lead_bytes(), line, directive ? first + 1 : first);
  DirectiveMark directive_mark = DirectiveMark::kNone;
  bool declaration_ends = directive;
  const std::size_t procedures = result.procedures.size();
  const ScanMode mode_before = mode;
  if (directive) {
    directive_mark = ReadDirective(lexer);
  } else {
    StatementParser parser(lexer, page_, mode, result);
    parser.Run();
    mode = parser.mode();
    declaration_ends = parser.declaration_ends();
    if (!parser.has_tokens() && lexer.has_comment()) info.line_class = LineClass::kComment;
  }
  for (std::int32_t i = line; i <= lexer.last_line(); ++i) {
    infos[static_cast<std::size_t>(i) - 1] = info;
    info.continuation = lexer.has_comment() && i >= lexer.comment_line() ? Continuation::kComment
                                                                         : Continuation::kCode;
  }
  if (IsContinued(lines_.Line(lexer.last_line()))) result.pending = info.continuation;
  LineInfo& last = infos[static_cast<std::size_t>(lexer.last_line()) - 1];
  last.directive = directive_mark;
  last.declaration_ends = declaration_ends;
  const bool opened = result.procedures.size() > procedures;
  if (mode == ScanMode::kModule && (opened || mode_before == ScanMode::kProcedure)) {
    (result.procedures.empty() ? result.open_end_line : result.procedures.back().end_line) =
        lexer.last_line();
  }
  return lexer.last_line() + 1;
}

}  // namespace vbfiles
