// SPDX-License-Identifier: MIT
#include "recordset/sql_lexer.h"

#include <algorithm>

#include "platform/ado.h"
#include "recordset/ascii_text.h"

namespace recordset {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Letters of every script: all bytes of UTF-8 sequences count as letters.
bool IsWordStart(char c) {
  return (Upper(c) >= 'A' && Upper(c) <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool IsWordPart(char c) { return IsWordStart(c) || IsDigit(c); }

// A query may be long; an error shows what stands at the place.
std::string Excerpt(std::string_view source, std::size_t offset) {
  constexpr std::size_t kShown = 20;
  std::size_t end = std::min(source.size(), offset + kShown);
  while (end < source.size() && (static_cast<unsigned char>(source[end]) & 0xC0) == 0x80) ++end;
  std::string text(source.substr(offset, end - offset));
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return text;
}

}  // namespace

bool Token::IsKeyword(std::string_view keyword) const {
  return kind == TokenKind::kWord && SameName(text, keyword);
}

void ThrowAt(std::int32_t number, std::string_view source, std::size_t offset,
             const messages::Message& cause) {
  offset = std::min(offset, source.size());
  const auto characters = 1 + std::count_if(source.begin(), source.begin() + offset, [](char c) {
                            return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
                          });
  const messages::Message place =
      offset == source.size()
          ? messages::Message(message::kAtEnd, {{"<Position>", characters}})
          : messages::Message(message::kAtCharacter,
                              {{"<Position>", characters}, {"<Excerpt>", Excerpt(source, offset)}});
  throw platform::Error(
      platform::ErrorKind::kRefused, number,
      messages::Message(message::kSyntax, {{"<Place>", place}, {"<Cause>", cause}}));
}

void ThrowSyntax(std::string_view source, std::size_t offset, const messages::Message& cause) {
  ThrowAt(platform::kErrSyntax, source, offset, cause);
}

std::string Unquote(std::string_view quoted) {
  const char quote = quoted.front();
  quoted = quoted.substr(1, quoted.size() - 2);
  std::string text;
  text.reserve(quoted.size());
  for (std::size_t i = 0; i < quoted.size(); ++i) {
    text += quoted[i];
    if (quoted[i] == quote) ++i;
  }
  return text;
}

Token Lexer::Next() {
  while (at_ < source_.size() && IsBlank(source_[at_])) ++at_;
  const std::size_t begin = at_;
  if (begin == source_.size()) return Make(TokenKind::kEnd, begin, begin);
  const char c = source_[begin];
  const char next = begin + 1 < source_.size() ? source_[begin + 1] : '\0';
  if (IsWordStart(c)) {
    std::size_t end = begin + 1;
    while (end < source_.size() && IsWordPart(source_[end])) ++end;
    return Make(TokenKind::kWord, begin, end);
  }
  if (IsDigit(c) || (c == '.' && IsDigit(next))) return Number(begin);
  if (c == '\'' || c == '"') return Quoted(begin);
  if (c == '[') return Bracketed(begin);
  if ((c == '<' && (next == '>' || next == '=')) || (c == '>' && next == '=')) {
    return Make(TokenKind::kSymbol, begin, begin + 2);
  }
  if (std::string_view("(),.*=<>?;-+").find(c) != std::string_view::npos) {
    return Make(TokenKind::kSymbol, begin, begin + 1);
  }
  ThrowSyntax(source_, begin, message::kNoMeaning);
}

Token Lexer::Make(TokenKind kind, std::size_t begin, std::size_t end) {
  at_ = end;
  return {kind, source_.substr(begin, end - begin), begin};
}

Token Lexer::Quoted(std::size_t begin) {
  const char quote = source_[begin];
  for (std::size_t end = begin + 1; end < source_.size(); ++end) {
    if (source_[end] != quote) continue;
    if (end + 1 < source_.size() && source_[end + 1] == quote) {
      ++end;
    } else {
      return Make(TokenKind::kText, begin, end + 1);
    }
  }
  ThrowSyntax(source_, begin, message::kUnclosedText);
}

Token Lexer::Bracketed(std::size_t begin) {
  const std::size_t end = source_.find(']', begin);
  if (end == std::string_view::npos || end == begin + 1) {
    ThrowSyntax(source_, begin, message::kUnclosedName);
  }
  Token token = Make(TokenKind::kName, begin, end + 1);
  token.text = source_.substr(begin + 1, end - begin - 1);
  return token;
}

Token Lexer::Number(std::size_t begin) {
  std::size_t end = begin;
  auto digits = [&] {
    while (end < source_.size() && IsDigit(source_[end])) ++end;
  };
  digits();
  if (end < source_.size() && source_[end] == '.') {
    ++end;
    digits();
  }
  if (end < source_.size() && Upper(source_[end]) == 'E') {
    std::size_t exponent = end + 1;
    if (exponent < source_.size() && (source_[exponent] == '+' || source_[exponent] == '-')) {
      ++exponent;
    }
    if (exponent < source_.size() && IsDigit(source_[exponent])) {
      end = exponent;
      digits();
    }
  }
  if (end < source_.size() && IsWordPart(source_[end])) {
    ThrowSyntax(source_, begin, message::kNumberRunsIntoName);
  }
  return Make(TokenKind::kNumber, begin, end);
}

}  // namespace recordset
