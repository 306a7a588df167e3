// SPDX-License-Identifier: MIT
#include "project/html.h"

#include <algorithm>
#include <array>

#include "codegen/identifier.h"
#include "platform/text.h"

namespace project {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsWordByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
         byte >= 0x80;
}

std::size_t StringEnd(std::string_view line, std::size_t at) {
  const std::size_t end = line.find('"', at + 1);
  return end == std::string_view::npos ? line.size() : end + 1;
}

void AppendElement(std::string& html, char name, std::string_view text) {
  html += '<';
  html += name;
  html += '>';
  html += EscapeHtml(text);
  html += "</";
  html += name;
  html += '>';
}

// One line; `in_comment` says whether a comment of the line before goes on, and becomes whether
// this line's comment goes on.
void AppendLine(std::string& html, std::string_view line, bool& in_comment) {
  std::size_t at = 0;
  bool comment = in_comment;
  while (!comment && at < line.size()) {
    const char c = line[at];
    if (c == '\'') {
      comment = true;
    } else if (c == '"') {
      const std::size_t end = StringEnd(line, at);
      AppendElement(html, 'q', line.substr(at, end - at));
      at = end;
    } else if (IsWordByte(c)) {
      const std::size_t end = static_cast<std::size_t>(
          std::find_if_not(line.begin() + static_cast<std::ptrdiff_t>(at), line.end(), IsWordByte) -
          line.begin());
      const std::string_view word = line.substr(at, end - at);
      if (platform::EqualsIgnoringCase(word, "Rem")) {
        comment = true;
        continue;
      }
      codegen::IsReservedWord(word) ? AppendElement(html, 'b', word)
                                    : void(html += EscapeHtml(word));
      at = end;
    } else {
      html += EscapeHtml(line.substr(at++, 1));
    }
  }
  if (comment) AppendElement(html, 'i', line.substr(at));
  in_comment = comment && (line.ends_with(" _") || line.ends_with("\t_"));
}

}  // namespace

std::string EscapeHtml(std::string_view text) {
  std::string html;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = at;
    const char32_t c = platform::NextCodePoint(text, at);
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      case '\t':
      case '\n':
        html += static_cast<char>(c);
        break;
      default:
        html += c < 0x20 || c == 0x7F || (c >= 0xD800 && c <= 0xDFFF)
                    ? kReplacement
                    : text.substr(begin, at - begin);
    }
  }
  return html;
}

std::string HighlightVisualBasic(std::string_view source) {
  std::string html;
  bool in_comment = false;
  while (!source.empty()) {
    const std::size_t end = std::min(source.find('\n'), source.size());
    std::string_view line = source.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    AppendLine(html, line, in_comment);
    html += '\n';
    source.remove_prefix(std::min(end + 1, source.size()));
  }
  return html;
}

}  // namespace project
