// SPDX-License-Identifier: MIT
#include "project/ini_encoding.h"

#include <algorithm>
#include <cstdint>

#include "platform/text.h"

namespace project {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t unit, char32_t first) { return unit >= first && unit < first + 0x400; }

std::string DecodeUtf16(std::string_view bytes, bool big_endian) {
  auto unit_at = [&](std::size_t i) -> char32_t {
    auto low = static_cast<std::uint8_t>(bytes[i + (big_endian ? 1 : 0)]);
    auto high = static_cast<std::uint8_t>(bytes[i + (big_endian ? 0 : 1)]);
    return static_cast<char32_t>(low | high << 8);
  };
  std::string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    char32_t unit = unit_at(i);
    if (IsSurrogate(unit, 0xD800) && i + 3 < bytes.size() && IsSurrogate(unit_at(i + 2), 0xDC00)) {
      unit = 0x10000 + ((unit - 0xD800) << 10) + (unit_at(i + 2) - 0xDC00);
      i += 2;
    } else if (IsSurrogate(unit, 0xD800) || IsSurrogate(unit, 0xDC00)) {
      unit = kReplacement;
    }
    platform::AppendCodePoint(text, unit);
  }
  return text;
}

void AppendUtf16(std::string& bytes, char32_t unit, bool big_endian) {
  char low = static_cast<char>(unit & 0xFF);
  char high = static_cast<char>(unit >> 8 & 0xFF);
  bytes += big_endian ? high : low;
  bytes += big_endian ? low : high;
}

std::string EncodeUtf16(std::string_view text, bool big_endian) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    char32_t point = platform::NextCodePoint(text, at);
    if (point >= 0x10000) {
      AppendUtf16(bytes, 0xD800 + ((point - 0x10000) >> 10), big_endian);
      point = 0xDC00 + ((point - 0x10000) & 0x3FF);
    } else if (IsSurrogate(point, 0xDC00)) {
      point = kReplacement;  // a stray byte of malformed UTF-8
    }
    AppendUtf16(bytes, point, big_endian);
  }
  return bytes;
}

std::optional<std::string> EncodeWindows1252(std::string_view text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    auto byte = platform::ToWindows1252(platform::NextCodePoint(text, at));
    if (!byte) return std::nullopt;
    bytes += static_cast<char>(*byte);
  }
  return bytes;
}

}  // namespace

IniEncoding DetectEncoding(std::string_view bytes) {
  for (IniEncoding encoding : {IniEncoding::kUtf8, IniEncoding::kUtf16Le, IniEncoding::kUtf16Be}) {
    if (bytes.starts_with(MarkOf(encoding))) return encoding;
  }
  return IniEncoding::kWindows1252;
}

std::string_view MarkOf(IniEncoding encoding) {
  switch (encoding) {
    case IniEncoding::kUtf8:
      return "\xEF\xBB\xBF";
    case IniEncoding::kUtf16Le:
      return "\xFF\xFE";
    case IniEncoding::kUtf16Be:
      return "\xFE\xFF";
    case IniEncoding::kWindows1252:
      break;
  }
  return {};
}

std::size_t UnitSize(IniEncoding encoding) {
  return encoding == IniEncoding::kUtf16Le || encoding == IniEncoding::kUtf16Be ? 2 : 1;
}

std::string Decode(std::string_view bytes, IniEncoding encoding) {
  if (UnitSize(encoding) == 2) return DecodeUtf16(bytes, encoding == IniEncoding::kUtf16Be);
  if (encoding == IniEncoding::kWindows1252) return platform::Windows1252ToUtf8(bytes);
  if (platform::IsValidUtf8(bytes)) return std::string(bytes);
  std::string text;
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t point = platform::NextCodePoint(bytes, at);
    platform::AppendCodePoint(text, IsSurrogate(point, 0xDC00) ? kReplacement : point);
  }
  return text;
}

std::optional<std::string> Encode(std::string_view text, IniEncoding encoding) {
  if (UnitSize(encoding) == 2) return EncodeUtf16(text, encoding == IniEncoding::kUtf16Be);
  if (encoding == IniEncoding::kWindows1252) return EncodeWindows1252(text);
  return std::string(text);
}

}  // namespace project
