// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "vbcode/source_lines.h"

namespace vbcode {

// Which bytes begin a character of two bytes.
using LeadBytes = std::array<bool, 256>;
// UTF-8 and pages of one byte a character: every byte of a character is a word's.
inline constexpr LeadBytes kNoLeadBytes{};

inline constexpr std::array<bool, 256> kWordCharacters = [] {
  std::array<bool, 256> is_word{};
  for (std::size_t c = 0; c < 256; ++c) {
    is_word[c] = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                 c == '_' || c >= 0x80;
  }
  return is_word;
}();

// Whether the byte can be part of a word: an ASCII letter or digit, "_", all from 0x80 on.
inline bool IsWordCharacter(char c) { return kWordCharacters[static_cast<unsigned char>(c)]; }

enum class TokenKind {
  kWord,    // identifier or keyword, type character and brackets left off
  kNumber,  // with sign of base, exponent and type character
  kString,
  kColon,  // between statements
  kOther,  // one character of punctuation, or a date
  kEnd,    // of the logical line
};

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;
  std::int32_t line = 0;
  std::size_t column = 0;       // of text in the line, from 0
  bool bracketed = false;       // a word in brackets is never a keyword
  bool type_character = false;  // one stands behind the word
  bool glued = false;  // nothing stands between it and the token in front, in the same line
};

// The tokens of one logical line: physical lines joined by " _". Comments yield no token; one
// that ends with " _" takes the next physical line along.
class Lexer {
 public:
  Lexer(const SourceLines& lines, const LeadBytes& lead_bytes, std::int32_t line,
        std::size_t column = 0);

  Token Next() {
    Token token;
    Next(token);
    return token;
  }
  // The same into a new Token, for who keeps many.
  void Next(Token& token);

  // After kEnd was delivered:
  std::int32_t last_line() const { return line_; }
  bool has_comment() const { return comment_line_ != 0; }
  // Where the comment begins; line 0 when there is none.
  std::int32_t comment_line() const { return comment_line_; }
  std::size_t comment_column() const { return comment_column_; }

 private:
  bool EnterLine(std::int32_t line);
  void SkipComment();
  void Take(Token& token, TokenKind kind, std::size_t length);
  void TakeWord(Token& token);
  void TakeBracketed(Token& token);
  void TakeString(Token& token);
  std::size_t WordLength() const;
  bool AtRem() const;
  bool IsWordStart(std::size_t position) const;
  std::size_t NumberLength() const;
  std::size_t BasedNumberLength() const;
  std::size_t DateLength() const;

  const SourceLines& lines_;
  const LeadBytes& lead_bytes_;
  std::int32_t line_;
  std::size_t position_ = 0;
  std::string_view text_;           // of the line, without the continuation mark
  std::int32_t unclosed_line_ = 0;  // has no closing bracket any more
  bool continued_ = false;
  bool glued_ = false;  // the token that comes next
  bool statement_start_ = true;
  bool first_token_ = true;
  std::int32_t comment_line_ = 0;
  std::size_t comment_column_ = 0;
};

// Where the comment of a physical line begins: the index of its apostrophe or Rem, text.size()
// when it has none, 0 when it continues a comment.
std::size_t CommentStart(std::string_view text, const LeadBytes& lead_bytes,
                         bool continues_comment);

}  // namespace vbcode
