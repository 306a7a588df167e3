// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "vbfiles/code_page.h"
#include "vbfiles/source_lines.h"

namespace vbfiles {

// Whether the byte can be part of a word: an ASCII letter or digit, "_", all from 0x80 on.
bool IsWordCharacter(char c);

enum class TokenKind {
  kWord,  // identifier or keyword, type character and brackets left off
  kNumber,
  kString,
  kColon,  // between statements
  kOther,  // one character of punctuation, or a date
  kEnd,    // of the logical line
};

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;
  std::int32_t line = 0;
  std::size_t column = 0;  // of text in the line, from 0
  bool bracketed = false;  // a word in brackets is never a keyword
};

// The tokens of one logical line: physical lines joined by " _". Comments yield no token; one
// that ends with " _" takes the next physical line along.
class Lexer {
 public:
  Lexer(const SourceLines& lines, const CodePage& page, std::int32_t line, std::size_t column = 0);

  Token Next();

  // After kEnd was delivered:
  std::int32_t last_line() const { return line_; }
  bool has_comment() const { return comment_line_ != 0; }
  // Where the comment begins; line 0 when there is none.
  std::int32_t comment_line() const { return comment_line_; }
  std::size_t comment_column() const { return comment_column_; }

 private:
  bool EnterLine(std::int32_t line);
  void SkipComment();
  Token Take(TokenKind kind, std::size_t length);
  Token TakeWord();
  Token TakeBracketed();
  Token TakeString();
  std::size_t WordLength() const;
  std::size_t NumberLength() const;
  std::size_t DateLength() const;

  const SourceLines& lines_;
  const CodePage& page_;
  std::int32_t line_;
  std::size_t position_ = 0;
  std::string_view text_;  // of the line, without the continuation mark
  bool continued_ = false;
  bool statement_start_ = true;
  bool first_token_ = true;
  std::int32_t comment_line_ = 0;
  std::size_t comment_column_ = 0;
};

// Where the comment of a physical line begins: the index of its apostrophe or Rem, text.size()
// when it has none, 0 when it continues a comment.
std::size_t CommentStart(std::string_view text, const CodePage& page, bool continues_comment);

}  // namespace vbfiles
