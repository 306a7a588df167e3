// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "recordset/messages.h"

namespace recordset {

enum class TokenKind : std::uint8_t {
  kEnd,
  kWord,    // keyword or name
  kName,    // name in brackets; `text` is what stands between them
  kText,    // quoted with ' or "; `text` is with its quotes
  kNumber,  // without sign
  kSymbol,
};

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;  // part of the source
  std::size_t offset = 0;

  bool IsSymbol(std::string_view symbol) const {
    return kind == TokenKind::kSymbol && text == symbol;
  }
  // Keywords match without regard to case; `keyword` is in capitals.
  bool IsKeyword(std::string_view keyword) const;
};

// Splits the text of a query or criterion into tokens. The source must outlive the tokens.
class Lexer {
 public:
  explicit Lexer(std::string_view source) : source_(source) {}

  // The next token; kEnd at the end, again and again. Raises kErrSyntax.
  Token Next();
  std::string_view source() const { return source_; }

 private:
  Token Make(TokenKind kind, std::size_t begin, std::size_t end);
  Token Quoted(std::size_t begin);
  Token Bracketed(std::size_t begin);
  Token Number(std::size_t begin);

  std::string_view source_;
  std::size_t at_ = 0;
};

// The contents of a kText token: without the quotes, doubled quotes single.
std::string Unquote(std::string_view quoted);

// Raises kErrSyntax with the place, given in characters from 1 on, and the cause, a sentence
// without its full stop.
[[noreturn]] void ThrowSyntax(std::string_view source, std::size_t offset,
                              const messages::Message& cause);
// The same with another error number.
[[noreturn]] void ThrowAt(std::int32_t number, std::string_view source, std::size_t offset,
                          const messages::Message& cause);

}  // namespace recordset
