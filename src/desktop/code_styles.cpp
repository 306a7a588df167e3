// SPDX-License-Identifier: MIT
#include "desktop/code_styles.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "vbcode/source_lexer.h"

namespace desktop {

namespace {

using vbcode::TokenKind;

constexpr auto kKeywords = std::to_array<std::string_view>(
    {"addressof", "alias",      "and",        "any",    "as",      "base",     "boolean",
     "byref",     "byte",       "byval",      "call",   "case",    "cbool",    "cbyte",
     "ccur",      "cdate",      "cdbl",       "cint",   "clng",    "close",    "const",
     "csng",      "cstr",       "currency",   "cvar",   "cverr",   "date",     "debug",
     "declare",   "defbool",    "defbyte",    "defcur", "defdate", "defdbl",   "defint",
     "deflng",    "defobj",     "defsng",     "defstr", "defvar",  "dim",      "do",
     "double",    "each",       "else",       "elseif", "empty",   "end",      "enum",
     "eqv",       "erase",      "error",      "event",  "exit",    "explicit", "false",
     "for",       "friend",     "function",   "get",    "global",  "gosub",    "goto",
     "if",        "imp",        "implements", "in",     "input",   "integer",  "is",
     "let",       "lib",        "like",       "line",   "lock",    "long",     "loop",
     "lset",      "me",         "mod",        "new",    "next",    "not",      "nothing",
     "null",      "object",     "on",         "open",   "option",  "optional", "or",
     "output",    "paramarray", "preserve",   "print",  "private", "property", "public",
     "put",       "raiseevent", "random",     "read",   "redim",   "rem",      "resume",
     "return",    "rset",       "seek",       "select", "set",     "single",   "static",
     "step",      "stop",       "string",     "sub",    "tab",     "then",     "to",
     "true",      "type",       "unlock",     "until",  "variant", "wend",     "while",
     "with",      "withevents", "write",      "xor"});

class Lines final : public vbcode::SourceLines {
 public:
  explicit Lines(std::string_view text) {
    for (std::size_t begin = 0; begin <= text.size();) {
      const std::size_t end = std::min(text.find('\n', begin), text.size());
      lines_.push_back(text.substr(begin, end - begin));
      begin = end + 1;
    }
  }
  std::int32_t LineCount() const override { return static_cast<std::int32_t>(lines_.size()); }
  std::string_view Line(std::int32_t line) const override {
    return lines_[static_cast<std::size_t>(line) - 1];
  }

 private:
  std::vector<std::string_view> lines_;
};

bool IsKeyword(const vbcode::Token& token) {
  std::string word(token.text);
  std::ranges::transform(word, word.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  });
  return std::ranges::binary_search(kKeywords, word);
}

// A name behind a point is a member, whatever it is called.
CodeStyle StyleOf(const vbcode::Token& token, bool member) {
  switch (token.kind) {
    case TokenKind::kWord:
      return !member && !token.bracketed && IsKeyword(token) ? CodeStyle::kKeyword
                                                             : CodeStyle::kPlain;
    case TokenKind::kNumber:
      return CodeStyle::kNumber;
    case TokenKind::kString:
      return CodeStyle::kString;
    case TokenKind::kOther:
      return token.text.size() > 1 && token.text.front() == '#' ? CodeStyle::kDate
                                                                : CodeStyle::kPlain;
    case TokenKind::kColon:
    case TokenKind::kEnd:
      break;
  }
  return CodeStyle::kPlain;
}

}  // namespace

std::string StylesOf(std::string_view code) {
  std::string styles(code.size(), static_cast<char>(CodeStyle::kPlain));
  const Lines lines(code);
  const auto place = [&](std::int32_t line, std::size_t column) {
    return static_cast<std::size_t>(lines.Line(line).data() - code.data()) + column;
  };
  const auto paint = [&](std::size_t begin, std::size_t end, CodeStyle style) {
    std::fill(styles.begin() + static_cast<std::ptrdiff_t>(begin),
              styles.begin() + static_cast<std::ptrdiff_t>(end), static_cast<char>(style));
  };
  for (std::int32_t line = 1; line <= lines.LineCount();) {
    vbcode::Lexer lexer(lines, vbcode::kNoLeadBytes, line);
    bool member = false;
    for (vbcode::Token token = lexer.Next(); token.kind != TokenKind::kEnd; token = lexer.Next()) {
      const std::size_t begin = place(token.line, token.column);
      paint(begin, begin + token.text.size(), StyleOf(token, member));
      member = token.text == "." || token.text == "!";
    }
    const std::int32_t last = lexer.last_line();
    if (lexer.has_comment()) {
      paint(place(lexer.comment_line(), lexer.comment_column()),
            place(last, lines.Line(last).size()), CodeStyle::kComment);
    }
    line = std::max(line, last) + 1;
  }
  return styles;
}

bool GoesOn(std::string_view code, std::size_t line_end) {
  const std::size_t begin = code.substr(0, line_end).find_last_of('\n') + 1;
  return vbcode::IsContinued(code.substr(begin, line_end - begin));
}

}  // namespace desktop
