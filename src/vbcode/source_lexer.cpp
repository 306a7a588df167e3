// SPDX-License-Identifier: MIT
#include "vbcode/source_lexer.h"

#include <algorithm>
#include <array>

namespace vbcode {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsTypeCharacter(char c) {
  return c == '%' || c == '&' || c == '@' || c == '!' || c == '#' || c == '$';
}
bool IsHigh(char c) { return static_cast<unsigned char>(c) >= 0x80; }
char WithoutCase(char c) { return static_cast<char>(c | 0x20); }  // of a letter

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

Lexer::Lexer(const SourceLines& lines, const LeadBytes& lead_bytes, std::int32_t line,
             std::size_t column)
    : lines_(lines), lead_bytes_(lead_bytes), line_(line) {
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

void Lexer::Take(Token& token, TokenKind kind, std::size_t length) {
  token.kind = kind;
  token.text = text_.substr(position_, length);
  token.line = line_;
  token.column = position_;
  token.glued = glued_;
  position_ += length;
  statement_start_ = kind == TokenKind::kColon || (kind == TokenKind::kNumber && first_token_);
  first_token_ = false;
}

void Lexer::Next(Token& token) {
  const std::int32_t line_before = line_;
  const std::size_t position_before = position_;
  for (;;) {
    position_ = SkipBlanks(text_, position_);
    if (position_ < text_.size()) break;
    if (!continued_ || !EnterLine(line_ + 1)) return;
  }
  glued_ = line_ == line_before && position_ == position_before;
  const char c = text_[position_];
  if (IsWordCharacter(c) && !IsDigit(c)) {
    if (statement_start_ && AtRem()) return SkipComment();
    return TakeWord(token);
  }
  if (IsDigit(c)) return Take(token, TokenKind::kNumber, NumberLength());
  switch (c) {
    case '\'':
      return SkipComment();
    case '"':
      return TakeString(token);
    case '[':
      return TakeBracketed(token);
    case ':':
      if (position_ + 1 < text_.size() && text_[position_ + 1] == '=') break;
      return Take(token, TokenKind::kColon, 1);
    case '#':
      return Take(token, TokenKind::kOther, DateLength());
    case '&':
      if (const std::size_t length = BasedNumberLength(); length > 0) {
        return Take(token, TokenKind::kNumber, length);
      }
      break;
    default:
      break;
  }
  Take(token, TokenKind::kOther, 1);
}

bool Lexer::AtRem() const {
  constexpr std::size_t kRem = 3;
  const std::size_t behind = position_ + kRem;
  return IsKeyword(text_.substr(position_, kRem), "rem") &&
         (behind == text_.size() || IsBlank(text_[behind]));
}

void Lexer::TakeWord(Token& token) {
  const std::size_t length = WordLength();
  const bool name = length > 1 || text_[position_] != '_';
  Take(token, name ? TokenKind::kWord : TokenKind::kOther, length);
  // A comment can be all that a branch of a single-line If holds.
  statement_start_ =
      length == 4 && (IsKeyword(token.text, "then") || IsKeyword(token.text, "else"));
  // Collection!Key names a member.
  if (position_ < text_.size() && IsTypeCharacter(text_[position_]) &&
      !(text_[position_] == '!' && IsWordStart(position_ + 1))) {
    token.type_character = true;
    ++position_;
  }
}

bool Lexer::IsWordStart(std::size_t position) const {
  if (position >= text_.size()) return false;
  const char c = text_[position];
  return c == '[' || (IsWordCharacter(c) && !IsDigit(c));
}

void Lexer::TakeBracketed(Token& token) {
  const std::size_t close =
      unclosed_line_ == line_ ? std::string_view::npos : text_.find(']', position_);
  if (close == std::string_view::npos) {
    unclosed_line_ = line_;
    return Take(token, TokenKind::kOther, 1);
  }
  ++position_;
  Take(token, TokenKind::kWord, close - position_);
  token.bracketed = true;
  ++position_;
}

void Lexer::TakeString(Token& token) {
  std::size_t end = position_ + 1;
  for (;; end += 2) {
    end = text_.find('"', end);
    if (end == std::string_view::npos) {
      return Take(token, TokenKind::kString, text_.size() - position_);
    }
    if (end + 1 == text_.size() || text_[end + 1] != '"') break;
  }
  Take(token, TokenKind::kString, end + 1 - position_);
}

std::size_t Lexer::WordLength() const {
  std::size_t end = position_;
  while (end < text_.size() && IsWordCharacter(text_[end])) {
    const bool lead = IsHigh(text_[end]) && lead_bytes_[static_cast<unsigned char>(text_[end])];
    end += lead ? 2 : 1;
  }
  return std::min(end, text_.size()) - position_;
}

std::size_t Lexer::NumberLength() const {
  std::size_t end = position_;
  while (end < text_.size() && (IsDigit(text_[end]) || text_[end] == '.')) ++end;
  if (end < text_.size() && (WithoutCase(text_[end]) == 'e' || WithoutCase(text_[end]) == 'd')) {
    std::size_t digits = end + 1;
    if (digits < text_.size() && (text_[digits] == '+' || text_[digits] == '-')) ++digits;
    if (digits < text_.size() && IsDigit(text_[digits])) {
      end = digits;
      while (end < text_.size() && IsDigit(text_[end])) ++end;
    }
  }
  if (end < text_.size() && IsTypeCharacter(text_[end])) ++end;
  return end - position_;
}

// Length of the hexadecimal or octal number at the "&"; 0 when it is an operator.
std::size_t Lexer::BasedNumberLength() const {
  std::size_t end = position_ + 1;
  if (end == text_.size()) return 0;
  const char base = WithoutCase(text_[end]);
  if (base != 'h' && base != 'o') return 0;
  const std::size_t digits = ++end;
  while (end < text_.size() &&
         (IsDigit(text_[end]) ||
          (base == 'h' && WithoutCase(text_[end]) >= 'a' && WithoutCase(text_[end]) <= 'f'))) {
    ++end;
  }
  if (end == digits || (end < text_.size() && IsWordCharacter(text_[end]))) return 0;
  if (end < text_.size() && (text_[end] == '&' || text_[end] == '%')) ++end;
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

std::size_t CommentStart(std::string_view text, const LeadBytes& lead_bytes,
                         bool continues_comment) {
  if (continues_comment) return 0;
  const OneLine line(text);
  Lexer lexer(line, lead_bytes, 1);
  while (lexer.Next().kind != TokenKind::kEnd) {
  }
  return lexer.has_comment() ? lexer.comment_column() : text.size();
}

}  // namespace vbcode
