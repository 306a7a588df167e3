// SPDX-License-Identifier: MIT
#include "vbfiles/source_lexer.h"

#include <algorithm>
#include <array>

namespace vbfiles {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsTypeCharacter(char c) {
  return c == '%' || c == '&' || c == '@' || c == '!' || c == '#' || c == '$';
}
bool IsHigh(char c) { return static_cast<unsigned char>(c) >= 0x80; }

constexpr std::array<bool, 256> MakeWordCharacters() {
  std::array<bool, 256> is_word{};
  for (std::size_t c = 0; c < 256; ++c) {
    is_word[c] = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                 c == '_' || c >= 0x80;
  }
  return is_word;
}
constexpr std::array<bool, 256> kWordCharacters = MakeWordCharacters();

// A word between the number signs of a date: AM, PM or the name of a month, also shortened.
bool IsDateWord(std::string_view word) {
  static constexpr std::array<std::string_view, 12> kMonths = {
      "january", "february", "march",     "april",   "may",      "june",
      "july",    "august",   "september", "october", "november", "december"};
  if (IsKeyword(word, "am") || IsKeyword(word, "pm")) return true;
  return word.size() >= 3 && std::any_of(kMonths.begin(), kMonths.end(), [&](auto month) {
           return word.size() <= month.size() && IsKeyword(word, month.substr(0, word.size()));
         });
}

class OneLine final : public SourceLines {
 public:
  explicit OneLine(std::string_view text) : text_(text) {}
  std::int32_t LineCount() const override { return 1; }
  std::string_view Line(std::int32_t) const override { return text_; }

 private:
  std::string_view text_;
};

}  // namespace

bool IsWordCharacter(char c) { return kWordCharacters[static_cast<unsigned char>(c)]; }

Lexer::Lexer(const SourceLines& lines, const CodePage& page, std::int32_t line, std::size_t column)
    : lines_(lines), page_(page), line_(line) {
  EnterLine(line);
  position_ = std::min(column, text_.size());
}

bool Lexer::EnterLine(std::int32_t line) {
  if (line > lines_.LineCount()) return false;
  line_ = line;
  position_ = 0;
  text_ = lines_.Line(line);
  continued_ = IsContinued(text_);
  if (continued_) text_.remove_suffix(1);
  return true;
}

void Lexer::SkipComment() {
  comment_line_ = line_;
  comment_column_ = position_;
  position_ = text_.size();
  while (continued_ && EnterLine(line_ + 1)) position_ = text_.size();
  continued_ = false;
}

Token Lexer::Take(TokenKind kind, std::size_t length) {
  const Token token{kind, text_.substr(position_, length), line_, position_, false};
  position_ += length;
  statement_start_ = kind == TokenKind::kColon || (kind == TokenKind::kNumber && first_token_);
  first_token_ = false;
  return token;
}

Token Lexer::Next() {
  for (;;) {
    position_ = SkipBlanks(text_, position_);
    if (position_ < text_.size()) break;
    if (!continued_ || !EnterLine(line_ + 1)) return Token{};
  }
  const char c = text_[position_];
  if (c == '\'') {
    SkipComment();
    return Token{};
  }
  if (c == '"') return TakeString();
  if (c == '[') return TakeBracketed();
  if (IsLetter(c) || IsHigh(c)) {
    const std::string_view word = text_.substr(position_, WordLength());
    const std::size_t behind = position_ + word.size();
    if (statement_start_ && IsKeyword(word, "rem") &&
        (behind == text_.size() || IsBlank(text_[behind]))) {
      SkipComment();
      return Token{};
    }
    return TakeWord();
  }
  if (IsDigit(c)) return Take(TokenKind::kNumber, NumberLength());
  if (c == ':' && (position_ + 1 == text_.size() || text_[position_ + 1] != '=')) {
    return Take(TokenKind::kColon, 1);
  }
  if (c == '#') return Take(TokenKind::kOther, DateLength());
  return Take(TokenKind::kOther, 1);
}

Token Lexer::TakeWord() {
  const Token token = Take(TokenKind::kWord, WordLength());
  if (position_ < text_.size() && IsTypeCharacter(text_[position_])) ++position_;
  return token;
}

Token Lexer::TakeBracketed() {
  const std::size_t close = text_.find(']', position_);
  if (close == std::string_view::npos) return Take(TokenKind::kOther, 1);
  ++position_;
  Token token = Take(TokenKind::kWord, close - position_);
  token.bracketed = true;
  ++position_;
  return token;
}

Token Lexer::TakeString() {
  std::size_t end = position_ + 1;
  for (;; end += 2) {
    end = text_.find('"', end);
    if (end == std::string_view::npos) return Take(TokenKind::kString, text_.size() - position_);
    if (end + 1 == text_.size() || text_[end + 1] != '"') break;
  }
  return Take(TokenKind::kString, end + 1 - position_);
}

std::size_t Lexer::WordLength() const {
  std::size_t end = position_;
  while (end < text_.size() && IsWordCharacter(text_[end])) {
    end += page_.IsLeadByte(text_[end]) ? 2 : 1;
  }
  return std::min(end, text_.size()) - position_;
}

std::size_t Lexer::NumberLength() const {
  std::size_t end = position_;
  while (end < text_.size() && (IsDigit(text_[end]) || text_[end] == '.')) ++end;
  return end - position_;
}

// Length of the date literal at the number sign; 1 when none stands there. Its colons separate
// no statements, whereas those behind a file number (Close #1: Close #2) do.
std::size_t Lexer::DateLength() const {
  std::size_t end = position_ + 1;
  while (end < text_.size() && text_[end] != '#') {
    const char c = text_[end];
    if (IsLetter(c)) {
      const std::size_t word = end;
      while (end < text_.size() && IsLetter(text_[end])) ++end;
      if (!IsDateWord(text_.substr(word, end - word))) return 1;
    } else if (IsDigit(c) || IsBlank(c) || c == '/' || c == '-' || c == ':' || c == ',' ||
               c == '.') {
      ++end;
    } else {
      return 1;
    }
  }
  return end < text_.size() ? end + 1 - position_ : 1;
}

std::size_t CommentStart(std::string_view text, const CodePage& page, bool continues_comment) {
  if (continues_comment) return 0;
  const OneLine line(text);
  Lexer lexer(line, page, 1);
  while (lexer.Next().kind != TokenKind::kEnd) {
  }
  return lexer.has_comment() ? lexer.comment_column() : text.size();
}

}  // namespace vbfiles
