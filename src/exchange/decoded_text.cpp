// SPDX-License-Identifier: MIT
#include "exchange/decoded_text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "exchange/place.h"
#include "platform/text.h"

namespace exchange {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Little = "\xFF\xFE";
constexpr std::string_view kUtf16Big = "\xFE\xFF";
// Compressed and compound files: what workbooks are inside.
constexpr std::string_view kZip = "PK\x03\x04";
constexpr std::string_view kCompound = "\xD0\xCF\x11\xE0";

Place PlaceOf(std::string_view text, std::size_t at) {
  const std::string_view before = text.substr(0, at);
  const auto lines = std::ranges::count(before, '\n');
  std::size_t column = 1;
  for (std::size_t i = before.rfind('\n') + 1; i < at; ++column) {
    platform::NextCodePoint(text, i);
  }
  return {static_cast<std::uint32_t>(lines + 1), static_cast<std::uint32_t>(column)};
}

std::size_t FindBrokenUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = at;
    const char32_t code_point = platform::NextCodePoint(text, at);
    if (code_point >= 0xDC80 && code_point <= 0xDCFF) return begin;
  }
  return std::string_view::npos;
}

std::string FromUtf16(std::string_view bytes, bool little) {
  std::string text;
  text.reserve(bytes.size());
  const auto unit = [&](std::size_t i) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    return static_cast<char32_t>(little ? first | second << 8 : first << 8 | second);
  };
  const auto broken = [&] { throw FormatError(PlaceOf(text, text.size()), {{kTextBrokenUtf16}}); };
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    if (i + 1 == bytes.size()) broken();
    char32_t code_point = unit(i);
    if (code_point >= 0xD800 && code_point < 0xE000) {
      const bool paired = code_point < 0xDC00 && i + 3 < bytes.size() && unit(i + 2) >= 0xDC00 &&
                          unit(i + 2) < 0xE000;
      if (!paired) broken();
      code_point = 0x10000 + ((code_point - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
      i += 2;
    }
    platform::AppendCodePoint(text, code_point);
  }
  return text;
}

DecodedText DecodeMarked(std::string bytes) {
  if (bytes.starts_with(kUtf16Little) || bytes.starts_with(kUtf16Big)) {
    const bool little = bytes.starts_with(kUtf16Little);
    return {FromUtf16(std::string_view(bytes).substr(2), little), Encoding::kUtf16};
  }
  const bool marked = bytes.starts_with(kUtf8Mark);
  if (marked) bytes.erase(0, kUtf8Mark.size());
  if (platform::IsValidUtf8(bytes)) return {std::move(bytes), Encoding::kUtf8};
  if (marked) throw FormatError(PlaceOf(bytes, FindBrokenUtf8(bytes)), {{kTextBrokenUtf8}});
  return {platform::Windows1252ToUtf8(bytes), Encoding::kWindows1252};
}

}  // namespace

DecodedText Decode(std::string bytes) {
  if (bytes.starts_with(kZip) || bytes.starts_with(kCompound)) {
    throw FormatError({}, {{kTextWorkbook}});
  }
  DecodedText decoded = DecodeMarked(std::move(bytes));
  const std::size_t zero = decoded.text.find('\0');
  if (zero != std::string::npos) {
    throw FormatError(PlaceOf(decoded.text, zero), {{kTextNulCharacter}});
  }
  return decoded;
}

}  // namespace exchange
