// SPDX-License-Identifier: MIT
#include "platform/text.h"

#include <algorithm>

namespace platform {

namespace {

// 0x80..0x9F of Windows-1252.
constexpr char16_t kHigh[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// Length of the well-formed sequence at `position`; 0 when there is none. Surrogates are accepted
// (text of a database may hold lone ones).
std::size_t SequenceLength(std::string_view text, std::size_t position) {
  const auto lead = static_cast<unsigned char>(text[position]);
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length == 0 || position + length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[position + i])) return 0;
  }
  if (length < 3) return length;
  const auto second = static_cast<unsigned char>(text[position + 1]);
  if (lead == 0xE0 && second < 0xA0) return 0;
  if (lead == 0xED && (second == 0xB2 || second == 0xB3)) return 0;  // U+DC80..U+DCFF
  if (lead == 0xF0 && second < 0x90) return 0;
  if (lead == 0xF4 && second > 0x8F) return 0;
  return length;
}

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

char FoldAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; }

}  // namespace

char32_t NextCodePoint(std::string_view text, std::size_t& position) {
  const auto lead = static_cast<unsigned char>(text[position]);
  if (lead < 0x80) {
    ++position;
    return lead;
  }
  const std::size_t length = SequenceLength(text, position);
  if (length == 0) {
    ++position;
    return 0xDC00u + lead;
  }
  char32_t code_point = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    code_point = code_point << 6 | (static_cast<unsigned char>(text[position + i]) & 0x3Fu);
  }
  position += length;
  return code_point;
}

void AppendCodePoint(std::string& text, char32_t code_point) {
  auto tail = [&](int shift) { text += static_cast<char>(0x80 | (code_point >> shift & 0x3F)); };
  if (code_point < 0x80) {
    text += static_cast<char>(code_point);
  } else if (code_point < 0x800) {
    text += static_cast<char>(0xC0 | code_point >> 6);
    tail(0);
  } else if (code_point >= 0xDC80 && code_point <= 0xDCFF) {
    text += static_cast<char>(code_point - 0xDC00);
  } else if (code_point < 0x10000) {
    text += static_cast<char>(0xE0 | code_point >> 12);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0 | code_point >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

bool IsValidUtf8(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t length = SequenceLength(text, position);
    if (length == 0) return false;
    position += length;
  }
  return true;
}

char32_t FoldCase(char32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 0x20 : c;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 0x20;
  if (c == 0x178) return 0xFF;
  if ((c >= 0x100 && c <= 0x137 && c != 0x130 && c != 0x131) || (c >= 0x14A && c <= 0x177))
    return c | 1;
  if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return c % 2 == 1 ? c + 1 : c;
  if (c >= 0x391 && c <= 0x3AB && c != 0x3A2) return c + 0x20;
  if (c == 0x386) return 0x3AC;
  if (c >= 0x388 && c <= 0x38A) return c + 0x25;
  if (c == 0x38C) return 0x3CC;
  if (c == 0x38E || c == 0x38F) return c + 0x3F;
  if (c >= 0x410 && c <= 0x42F) return c + 0x20;
  if (c >= 0x400 && c <= 0x40F) return c + 0x50;
  if (c >= 0x460 && c <= 0x481) return c | 1;
  return c;
}

std::string FoldCase(std::string_view text) {
  std::string folded(text);
  const auto other = std::ranges::find_if(folded, [](char c) { return !IsAscii(c); });
  const auto ascii = static_cast<std::size_t>(other - folded.begin());
  for (std::size_t i = 0; i < ascii; ++i) folded[i] = FoldAscii(folded[i]);
  folded.resize(ascii);
  for (std::size_t position = ascii; position < text.size();) {
    AppendCodePoint(folded, FoldCase(NextCodePoint(text, position)));
  }
  return folded;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  while (i < a.size() && i < b.size() && IsAscii(a[i]) && IsAscii(b[i])) {
    if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
    ++i;
  }
  std::size_t j = i;
  while (i < a.size() && j < b.size()) {
    if (FoldCase(NextCodePoint(a, i)) != FoldCase(NextCodePoint(b, j))) return false;
  }
  return i == a.size() && j == b.size();
}

char32_t FromWindows1252(std::uint8_t byte) {
  return byte >= 0x80 && byte <= 0x9F ? kHigh[byte - 0x80] : byte;
}

std::optional<std::uint8_t> ToWindows1252(char32_t code_point) {
  if (code_point < 0x80 || (code_point >= 0xA0 && code_point <= 0xFF)) {
    return static_cast<std::uint8_t>(code_point);
  }
  const auto* found = std::find(std::begin(kHigh), std::end(kHigh), code_point);
  if (found == std::end(kHigh)) return std::nullopt;
  return static_cast<std::uint8_t>(0x80 + (found - kHigh));
}

std::string Windows1252ToUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (char byte : bytes) AppendCodePoint(text, FromWindows1252(static_cast<std::uint8_t>(byte)));
  return text;
}

}  // namespace platform
