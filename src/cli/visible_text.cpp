// SPDX-License-Identifier: MIT
#include "cli/visible_text.h"

#include <cstdio>

#include "platform/text.h"

namespace cli {

namespace {

constexpr char32_t kFirstLoneByte = 0xDC80, kLastLoneByte = 0xDCFF;

// Whether a terminal would act on it.
bool IsCommand(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x061C || c == 0x200E || c == 0x200F ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

// Whether more bytes could make a character, or a line end, of the text's last ones.
std::size_t BytesToHold(std::string_view text) {
  if (text.ends_with('\r')) return 1;
  for (std::size_t back = 1; back <= 3 && back <= text.size(); ++back) {
    const auto byte = static_cast<unsigned char>(text[text.size() - back]);
    if ((byte & 0xC0) == 0x80) continue;
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    return length > back ? back : 0;
  }
  return 0;
}

void AppendVisible(std::string& visible, std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const char32_t c = platform::NextCodePoint(text, at);
    char escape[16];
    if (c >= kFirstLoneByte && c <= kLastLoneByte) {
      std::snprintf(escape, sizeof escape, "\\x%02X", static_cast<unsigned>(c - 0xDC00));
      visible += escape;
    } else if (c == '\n' || c == '\t' || (c == '\r' && text.substr(at).starts_with('\n')) ||
               !IsCommand(c)) {
      visible += text.substr(start, at - start);
    } else {
      std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(c));
      visible += escape;
    }
  }
}

}  // namespace

std::string VisibleText(std::string_view text) {
  std::string visible;
  AppendVisible(visible, text);
  return visible;
}

VisibleBuffer::~VisibleBuffer() {
  target_ << VisibleText(held_);
  target_.flush();
}

VisibleBuffer::int_type VisibleBuffer::overflow(int_type c) {
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  const char one = traits_type::to_char_type(c);
  return xsputn(&one, 1) == 1 ? c : traits_type::eof();
}

std::streamsize VisibleBuffer::xsputn(const char* text, std::streamsize size) {
  held_.append(text, static_cast<std::size_t>(size));
  const std::size_t hold = BytesToHold(held_);
  target_ << VisibleText(std::string_view(held_).substr(0, held_.size() - hold));
  held_.erase(0, held_.size() - hold);
  return target_ ? size : 0;
}

int VisibleBuffer::sync() {
  target_.flush();
  return target_ ? 0 : -1;
}

}  // namespace cli
