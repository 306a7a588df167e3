// SPDX-License-Identifier: MIT
#include "handbook/page_text.h"

#include <cstddef>

namespace handbook {

namespace {

struct Entity {
  std::string_view code;
  std::string_view text;
};

constexpr Entity kEntities[] = {
    {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&nbsp;", " "}, {"&amp;", "&"},
};

// Elements inside a line: no blank stands for their tags.
constexpr std::string_view kInline[] = {"a", "b", "code", "em", "i", "kbd", "strong"};

bool IsInline(std::string_view tag) {
  if (tag.starts_with('/')) tag.remove_prefix(1);
  const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n/"));
  for (const std::string_view known : kInline) {
    if (name == known) return true;
  }
  return false;
}

void AppendBlank(std::string& text) {
  if (!text.empty() && text.back() != ' ') text += ' ';
}

}  // namespace

std::string TextOfPage(std::string_view html) {
  if (const auto body = html.find("<body>"); body != std::string_view::npos) {
    html.remove_prefix(body);
  }
  std::string text;
  for (std::size_t at = 0; at < html.size();) {
    const char c = html[at];
    if (c == '<') {
      const std::size_t end = html.find('>', at);
      if (end == std::string_view::npos) break;
      if (!IsInline(html.substr(at + 1, end - at - 1))) AppendBlank(text);
      at = end + 1;
      continue;
    }
    if (c == ' ' || c == '\n' || c == '\r' || c == '\t') {
      AppendBlank(text);
      ++at;
      continue;
    }
    const Entity* found = nullptr;
    for (const Entity& entity : kEntities) {
      if (html.substr(at).starts_with(entity.code)) found = &entity;
    }
    if (found) text.append(found->text);
    if (!found) text += c;
    at += found ? found->code.size() : 1;
  }
  if (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

std::string EscapeHtml(std::string_view text) {
  std::string html;
  for (const char c : text) {
    if (c == '<') {
      html += "&lt;";
    } else if (c == '>') {
      html += "&gt;";
    } else if (c == '&') {
      html += "&amp;";
    } else if (c == '"') {
      html += "&quot;";
    } else {
      html += c;
    }
  }
  return html;
}

}  // namespace handbook
