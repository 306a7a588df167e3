// SPDX-License-Identifier: MIT
// The text that the generator writes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace texts {
class TextTable;
}

namespace codegen {

// The sub, header and declaration templates, with the texts of one language.
class Templates {
 public:
  explicit Templates(const texts::TextTable& texts);

  // An empty public sub, lines joined by CR LF.
  static std::string Sub(std::string_view function_name);
  // Declaration line of that sub.
  static std::string SubDeclaration(std::string_view function_name);
  // Declaration line of an alias. Whatever the item's name holds stays inside the comment.
  static std::string Declaration(std::string_view alias, std::string_view data_type,
                                 std::string_view item);
  // An empty line, rule, title, caption, one line for each argument, rule.
  std::vector<std::string> Header(std::string_view function_name,
                                  const std::vector<std::string>& aliases) const;

  // Which lines a header consists of, in either language and for any formula.
  bool IsRule(std::string_view line) const;
  bool IsTitle(std::string_view line) const;
  bool IsTitleOf(std::string_view line, std::string_view function_name) const;
  bool IsCaption(std::string_view line) const;
  static bool IsArgument(std::string_view line);

 private:
  std::vector<std::string> header_;  // with the marker of the name; the argument lines follow
  std::string rule_;
  std::vector<std::string> titles_;        // with the marker of the name; all languages
  std::vector<std::string> title_starts_;  // of them, without blanks
  std::vector<std::string> captions_;
};

}  // namespace codegen
