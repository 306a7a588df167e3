// SPDX-License-Identifier: MIT
#include "codegen/templates.h"

#include <algorithm>

#include "codegen/comment_text.h"
#include "codegen/source_line.h"
#include "messages/text_number.h"
#include "platform/text.h"
#include "texts/text_table.h"

namespace codegen {
namespace {

constexpr messages::TextNumber kRuleText{600};
constexpr messages::TextNumber kTitleText{601};
constexpr messages::TextNumber kCaptionText{602};
constexpr std::string_view kNameMarker = "<Name>";

std::string Substitute(std::string_view text, std::string_view marker, std::string_view value) {
  std::string result;
  for (std::size_t at; (at = text.find(marker)) != std::string_view::npos;) {
    result.append(text.substr(0, at)).append(value);
    text.remove_prefix(at + marker.size());
  }
  return result.append(text);
}

// One word behind the tab, by which IsArgument knows the line again, also for a row that holds no
// identifier.
std::string ArgumentLine(std::string_view alias) {
  std::string line = WithCommentText("'\t", alias.empty() ? "?" : alias);
  std::replace(line.begin() + 2, line.end(), ' ', '?');
  return line;
}

}  // namespace

Templates::Templates(const texts::TextTable& texts)
    : header_(SplitLines("\r\n" + texts.Text(kRuleText) + "\r\n" + texts.Text(kTitleText) +
                         texts.Text(kCaptionText))),
      rule_(texts.Text(kRuleText)) {
  for (const texts::Language language : {texts::Language::kGerman, texts::Language::kEnglish}) {
    const texts::TextTable table(language);
    const std::string title = SplitLines(table.Text(kTitleText)).front();
    titles_.push_back(title);
    title_starts_.push_back(WithoutBlanks(title.substr(0, title.find(kNameMarker))));
    captions_.push_back(table.Text(kCaptionText));
  }
}

std::string Templates::Sub(std::string_view function_name) {
  return SubDeclaration(function_name) + "\r\n\r\nEnd Sub";
}

std::string Templates::SubDeclaration(std::string_view function_name) {
  return Substitute("Public Sub <Name>()", kNameMarker, function_name);
}

std::string Templates::Declaration(std::string_view alias, std::string_view data_type,
                                   std::string_view item) {
  std::string code = "Public ";
  code.append(alias).append(" as ").append(data_type).append(" '");
  return WithCommentText(code, item);
}

std::vector<std::string> Templates::Header(std::string_view function_name,
                                           const std::vector<std::string>& aliases) const {
  const std::string name = WithCommentText("", function_name);
  std::vector<std::string> lines;
  lines.reserve(header_.size() + aliases.size() + 1);
  for (const std::string& line : header_) lines.push_back(Substitute(line, kNameMarker, name));
  for (const std::string& alias : aliases) lines.push_back(ArgumentLine(alias));
  lines.push_back(rule_);
  return lines;
}

bool Templates::IsRule(std::string_view line) const { return SameLine(line, rule_); }

bool Templates::IsTitle(std::string_view line) const {
  const std::string text = WithoutBlanks(line);
  return std::any_of(title_starts_.begin(), title_starts_.end(),
                     [&](const std::string& start) { return text.starts_with(start); });
}

bool Templates::IsTitleOf(std::string_view line, std::string_view function_name) const {
  const std::string text = WithoutBlanks(line);
  return std::any_of(titles_.begin(), titles_.end(), [&](const std::string& title) {
    return platform::EqualsIgnoringCase(
        text, WithoutBlanks(Substitute(title, kNameMarker, function_name)));
  });
}

bool Templates::IsCaption(std::string_view line) const {
  return std::any_of(captions_.begin(), captions_.end(),
                     [&](const std::string& caption) { return SameLine(line, caption); });
}

bool Templates::IsArgument(std::string_view line) {
  std::string_view text = TrimBlanks(line);
  if (text.empty() || text[0] != '\'') return false;
  text.remove_prefix(1);
  // The environment turns the tab into blanks; a note begins with one blank at most.
  const bool indented = text.starts_with('\t') || text.starts_with("  ");
  return indented && TrimBlanks(text).find_first_of(" \t") == std::string_view::npos;
}

}  // namespace codegen
