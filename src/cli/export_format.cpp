// SPDX-License-Identifier: MIT
#include "cli/export_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "cli/row_writer.h"

namespace cli {

namespace {

using jet::Value;
using jet::ValueKind;

template <class Number>
void AppendNumber(std::string& line, Number number) {
  char buffer[40];
  line.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr);
}

// A whole number of 10^-scale, without trailing zeros behind the point.
void AppendScaled(std::string& line, bool negative, std::string digits, std::size_t scale) {
  if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
  if (scale > 0) {
    digits.insert(digits.size() - scale, 1, '.');
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') digits.pop_back();
  }
  if (negative && digits.find_first_not_of("0.") != std::string::npos) line += '-';
  line += digits;
}

void AppendCurrency(std::string& line, std::int64_t value) {
  const bool negative = value < 0;
  const auto magnitude =
      negative ? ~static_cast<std::uint64_t>(value) + 1 : static_cast<std::uint64_t>(value);
  AppendScaled(line, negative, std::to_string(magnitude), 4);
}

std::uint32_t Word(std::span<const std::byte> bytes, std::size_t at) {
  std::uint32_t word = 0;
  for (std::size_t i = 4; i-- > 0;)
    word = word << 8 | std::to_integer<std::uint32_t>(bytes[at + i]);
  return word;
}

// A sign byte, then 96 significant bits in words, the most significant first.
void AppendDecimal(std::string& line, std::span<const std::byte> bytes, std::uint8_t scale) {
  std::array<std::uint32_t, 4> words{};
  for (std::size_t i = 0; i < words.size(); ++i) words[i] = Word(bytes, 1 + 4 * i);
  std::string digits;
  while (std::any_of(words.begin(), words.end(), [](std::uint32_t word) { return word != 0; })) {
    std::uint64_t rest = 0;
    for (std::uint32_t& word : words) {
      rest = rest << 32 | word;
      word = static_cast<std::uint32_t>(rest / 10);
      rest %= 10;
    }
    digits += static_cast<char>('0' + rest);
  }
  std::reverse(digits.begin(), digits.end());
  AppendScaled(line, std::to_integer<int>(bytes[0]) != 0, digits.empty() ? "0" : digits, scale);
}

void AppendHex(std::string& line, std::span<const std::byte> bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  for (const std::byte byte : bytes) {
    line += kDigits[std::to_integer<unsigned>(byte) >> 4];
    line += kDigits[std::to_integer<unsigned>(byte) & 15];
  }
}

void AppendGuid(std::string& line, std::span<const std::byte> bytes) {
  constexpr std::array<int, 16> kOrder = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
  line += '{';
  for (std::size_t i = 0; i < kOrder.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) line += '-';
    AppendHex(line, bytes.subspan(static_cast<std::size_t>(kOrder[i]), 1));
  }
  line += '}';
}

// Days since 1899-12-30; for negative values the fraction counts forward from midnight.
void AppendDate(std::string& line, double days) {
  constexpr double kFirst = -657434, kLast = 2958466;  // years 100 to 9999
  if (!(days >= kFirst && days < kLast)) return AppendNumber(line, days);
  double whole = std::trunc(days);
  auto seconds = static_cast<int>(std::lround(std::abs(days - whole) * 86400));
  if (seconds == 86400) {
    seconds = 0;
    ++whole;
  }
  const auto epoch = std::chrono::sys_days(std::chrono::year(1899) / 12 / 30);
  const std::chrono::year_month_day date(epoch + std::chrono::days(static_cast<int>(whole)));
  char buffer[32];
  const int length = std::snprintf(
      buffer, sizeof buffer, "%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(date.year()),
      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), seconds / 3600,
      seconds / 60 % 60, seconds % 60);
  line.append(buffer, static_cast<std::size_t>(length));
}

void AppendReal(std::string& line, double value, const jet::Column& column) {
  if (column.type == jet::ColumnType::kSingle) {
    AppendNumber(line, static_cast<float>(value));
  } else {
    AppendNumber(line, value);
  }
}

// Every kind but Null, boolean and text, which CSV and JSON write differently.
void AppendPlain(std::string& line, const Value& value, const jet::Column& column) {
  switch (value.kind()) {
    case ValueKind::kInteger:
      return AppendNumber(line, value.integer());
    case ValueKind::kCurrency:
      return AppendCurrency(line, value.integer());
    case ValueKind::kReal:
      return AppendReal(line, value.real(), column);
    case ValueKind::kDate:
      return AppendDate(line, value.real());
    case ValueKind::kBinary:
      return AppendHex(line, value.bytes());
    case ValueKind::kGuid:
      return AppendGuid(line, value.bytes());
    case ValueKind::kDecimal:
      return AppendDecimal(line, value.bytes(), column.scale);
    default:
      return;
  }
}

constexpr std::size_t kMaxPlain = 64;  // characters of a number, date or GUID

// Room that a field needs at most.
std::size_t CsvRoom(const Value& value) {
  switch (value.kind()) {
    case ValueKind::kText:
      return 2 * value.text().size() + 2;
    case ValueKind::kBinary:
      return 2 * value.bytes().size();
    default:
      return kMaxPlain;
  }
}

// Copies a text; says whether it may hold a character that asks for quotes. None of these is
// above the comma, and few texts have one that low, so eight are looked at together.
bool CopyLookingForQuotes(std::string_view text, char* out) {
  constexpr std::size_t kWord = 8;
  std::uint64_t found = 0;
  const auto copy_word = [&](std::size_t i) {
    constexpr std::uint64_t kOnes = 0x0101010101010101, kHighBits = 0x8080808080808080;
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + i, kWord);
    std::memcpy(out + i, &word, kWord);
    found |= (word - kOnes * (',' + 1)) & ~word & kHighBits;
  };
  if (text.size() < kWord) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      out[i] = text[i];
      found |= static_cast<unsigned char>(text[i]) <= ',';
    }
    return found != 0;
  }
  for (std::size_t i = 0; i + kWord <= text.size(); i += kWord) copy_word(i);
  copy_word(text.size() - kWord);
  return found != 0;
}

// Writes a field, returns its end.
char* PutCsvText(char* out, std::string_view text) {
  const bool may_need_quotes = CopyLookingForQuotes(text, out) || text.empty();
  if (!may_need_quotes ||
      (!text.empty() && text.find_first_of("\",\r\n") == std::string_view::npos)) {
    return out + text.size();
  }
  *out++ = '"';
  for (const char c : text) {
    if (c == '"') *out++ = c;
    *out++ = c;
  }
  *out++ = '"';
  return out;
}

char* PutCsv(char* out, const Value& value, const jet::Column& column) {
  switch (value.kind()) {
    case ValueKind::kNull:
      return out;
    case ValueKind::kBoolean:
      *out++ = value.boolean() ? '1' : '0';
      return out;
    case ValueKind::kInteger:  // of 32 bits at most
      return std::to_chars(out, out + kMaxPlain, static_cast<std::int32_t>(value.integer())).ptr;
    case ValueKind::kText:
      return PutCsvText(out, value.text());
    default: {
      std::string text;
      AppendPlain(text, value, column);
      return std::copy(text.begin(), text.end(), out);
    }
  }
}

}  // namespace

void AppendCsvText(std::string& line, std::string_view text) {
  const std::size_t begin = line.size();
  line.resize(begin + 2 * text.size() + 2);
  const char* end = PutCsvText(&line[begin], text);
  line.resize(static_cast<std::size_t>(end - line.data()));
}

void AppendCsv(std::string& line, const Value& value, const jet::Column& column) {
  const std::size_t begin = line.size();
  line.resize(begin + CsvRoom(value));
  const char* end = PutCsv(&line[begin], value, column);
  line.resize(static_cast<std::size_t>(end - line.data()));
}

void AppendCsvRow(std::string& text, std::span<const Value> row,
                  std::span<const jet::Column> columns) {
  std::size_t room = 2;
  for (const Value& value : row) room += CsvRoom(value) + 1;
  const std::size_t begin = text.size();
  text.resize(begin + room);
  char* out = &text[begin];
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (i > 0) *out++ = ',';
    out = PutCsv(out, row[i], columns[i]);
  }
  *out++ = '\r';
  *out++ = '\n';
  text.resize(static_cast<std::size_t>(out - text.data()));
}

void AppendJson(std::string& line, const Value& value, const jet::Column& column) {
  switch (value.kind()) {
    case ValueKind::kNull:
      line += "null";
      return;
    case ValueKind::kBoolean:
      line += value.boolean() ? "true" : "false";
      return;
    case ValueKind::kText:
      line += JsonString(value.text());
      return;
    case ValueKind::kReal:
      if (!std::isfinite(value.real())) {
        line += "null";
        return;
      }
      return AppendPlain(line, value, column);
    case ValueKind::kInteger:
    case ValueKind::kCurrency:
    case ValueKind::kDecimal:
      return AppendPlain(line, value, column);
    default:
      line += '"';
      AppendPlain(line, value, column);
      line += '"';
  }
}

}  // namespace cli
