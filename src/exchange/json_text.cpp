// SPDX-License-Identifier: MIT
#include "exchange/json_text.h"

#include <algorithm>
#include <cstdio>

#include "messages/text_number.h"
#include "platform/text.h"

namespace exchange {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

void JsonText::Refuse(messages::TextNumber text) {
  throw FormatError(Here(), {{at_ < text_.size() ? text : kTextJsonEnd}});
}

Place JsonText::Here() {
  SkipBlanks();
  return {line_, static_cast<std::uint32_t>(at_ - line_start_ - continued_ + 1)};
}

void JsonText::SkipBlanks() {
  for (; at_ < text_.size(); ++at_) {
    const char c = text_[at_];
    if (c == '\n') {
      ++line_;
      line_start_ = at_ + 1;
      continued_ = 0;
    } else if (c != ' ' && c != '\t' && c != '\r') {
      return;
    }
  }
}

bool JsonText::Take(char c) {
  SkipBlanks();
  if (at_ >= text_.size() || text_[at_] != c) return false;
  ++at_;
  return true;
}

void JsonText::Require(char c) {
  if (!Take(c)) Refuse(kTextJsonUnexpected);
}

void JsonText::Enter(char c) {
  Require(c);
  if (++depth_ > kMaxDepth) Refuse(kTextJsonDepth);
}

JsonText::Kind JsonText::Peek() {
  SkipBlanks();
  const char c = at_ < text_.size() ? text_[at_] : '\0';
  switch (c) {
    case '{':
      return Kind::kObject;
    case '[':
      return Kind::kArray;
    case '"':
      return Kind::kString;
    case 't':
      return Kind::kTrue;
    case 'f':
      return Kind::kFalse;
    case 'n':
      return Kind::kNull;
    default:
      if (c == '-' || (c >= '0' && c <= '9')) return Kind::kNumber;
      Refuse(kTextJsonUnexpected);
  }
}

std::string_view JsonText::ReadString() {
  Require('"');
  const std::size_t begin = at_;
  std::size_t to = begin;
  for (;;) {
    if (at_ >= text_.size()) Refuse(kTextJsonUnexpected);
    const char c = text_[at_];
    if (c == '"') break;
    if (static_cast<unsigned char>(c) < 0x20) Refuse(kTextJsonUnexpected);
    if (c == '\\') {
      ++at_;
      Unescape(to);
      continue;
    }
    if ((c & 0xC0) == 0x80) ++continued_;
    text_[to++] = c;
    ++at_;
  }
  ++at_;
  return std::string_view(text_).substr(begin, to - begin);
}

// Of four hexadecimal digits.
char32_t JsonText::TakeUnit() {
  char32_t unit = 0;
  for (int i = 0; i < 4; ++i, ++at_) {
    const char c = at_ < text_.size() ? text_[at_] : '\0';
    const bool digit = c >= '0' && c <= '9';
    const char letter = static_cast<char>(c | 0x20);
    if (!digit && (letter < 'a' || letter > 'f')) Refuse(kTextJsonUnexpected);
    unit = unit * 16 + static_cast<char32_t>(digit ? c - '0' : letter - 'a' + 10);
  }
  return unit;
}

// No escape is shorter than what it stands for.
void JsonText::Unescape(std::size_t& to) {
  static constexpr std::string_view kSigns = "\"\\/bfnrt", kMeant = "\"\\/\b\f\n\r\t";
  const char sign = at_ < text_.size() ? text_[at_] : '\0';
  if (sign != 'u') {
    const std::size_t known = kSigns.find(sign);
    if (sign == '\0' || known == std::string_view::npos) Refuse(kTextJsonUnexpected);
    text_[to++] = kMeant[known];
    ++at_;
    return;
  }
  ++at_;
  char32_t code_point = TakeUnit();
  if (IsHighSurrogate(code_point)) {
    char32_t low = 0;
    if (std::string_view(text_).substr(at_).starts_with("\\u")) {
      at_ += 2;
      low = TakeUnit();
    }
    code_point = IsLowSurrogate(low) ? 0x10000 + ((code_point - 0xD800) << 10) + (low - 0xDC00)
                                     : kReplacement;
  } else if (IsLowSurrogate(code_point)) {
    code_point = kReplacement;
  }
  std::string character;
  platform::AppendCodePoint(character, code_point);
  for (const char c : character) text_[to++] = c;
}

std::string_view JsonText::ReadNumber() {
  SkipBlanks();
  const std::size_t begin = at_;
  at_ = std::min(text_.find_first_not_of("+-.0123456789eE", at_), text_.size());
  if (at_ == begin) Refuse(kTextJsonUnexpected);
  return std::string_view(text_).substr(begin, at_ - begin);
}

void JsonText::TakeWord(std::string_view word) {
  SkipBlanks();
  if (!std::string_view(text_).substr(at_).starts_with(word)) Refuse(kTextJsonUnexpected);
  at_ += word.size();
}

void JsonText::Skip() {
  switch (Peek()) {
    case Kind::kObject:
      return ReadObject([this](std::string_view) { Skip(); });
    case Kind::kArray:
      return ReadArray([this] { Skip(); });
    case Kind::kString:
      ReadString();
      return;
    case Kind::kNumber:
      ReadNumber();
      return;
    case Kind::kTrue:
      return TakeWord("true");
    case Kind::kFalse:
      return TakeWord("false");
    case Kind::kNull:
      return TakeWord("null");
  }
}

void JsonText::RequireEnd() {
  SkipBlanks();
  if (at_ < text_.size()) Refuse(kTextJsonUnexpected);
}

std::string JsonString(std::string_view text) {
  std::string json = "\"";
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code_point = platform::NextCodePoint(text, at);
    if (code_point == '"' || code_point == '\\') {
      json += '\\';
      json += static_cast<char>(code_point);
    } else if (code_point < 0x20 || code_point == 0x7F) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(code_point));
      json += escape;
    } else {
      const bool broken = code_point >= 0xDC80 && code_point <= 0xDCFF;
      platform::AppendCodePoint(json, broken ? kReplacement : code_point);
    }
  }
  return json + '"';
}

}  // namespace exchange
