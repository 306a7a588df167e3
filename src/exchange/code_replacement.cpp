// SPDX-License-Identifier: MIT
// What replacements make of names and of code.
#include <algorithm>
#include <string>
#include <unordered_map>

#include "codegen/identifier.h"
#include "exchange/formula_copy.h"
#include "platform/text.h"

namespace exchange {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsWordCharacter(char c) {
  const auto code = static_cast<unsigned char>(c);
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '_' || code >= 0x80;
}

// The replacement whose text stands there, the longest one; null when there is none.
const Replacement* ReplacementAt(std::string_view text, std::size_t at,
                                 const std::vector<Replacement>& replacements) {
  const Replacement* found = nullptr;
  for (const Replacement& replacement : replacements) {
    const std::string& from = replacement.from;
    if (from.empty() || !text.substr(at).starts_with(from)) continue;
    const std::size_t end = at + from.size();
    const bool cuts_number = (at > 0 && IsDigit(text[at - 1]) && IsDigit(from.front())) ||
                             (end < text.size() && IsDigit(text[end]) && IsDigit(from.back()));
    if (!cuts_number && (!found || from.size() > found->from.size())) found = &replacement;
  }
  return found;
}

class CodeReplacer {
 public:
  CodeReplacer(const std::vector<std::pair<std::string, std::string>>& names,
               const std::vector<Replacement>& replacements)
      : replacements_(replacements) {
    for (const auto& [from, to] : names) names_.emplace(platform::FoldCase(from), to);
  }

  std::string Line(std::string_view line) const {
    std::string text;
    bool in_literal = false;
    for (std::size_t at = 0; at < line.size();) {
      const char c = line[at];
      if (c == '\'' && !in_literal) return text + Words(line.substr(at));
      if (c == '"') {
        in_literal = !in_literal;
        text += c;
        ++at;
        continue;
      }
      if (in_literal) {
        const std::size_t end = std::min(line.find('"', at), line.size());
        text += Words(line.substr(at, end - at));
        at = end;
      } else if (IsWordCharacter(c)) {
        const std::string_view word = WordAt(line, at);
        text += Identifier(word);
        at += word.size();
      } else {
        text += c;
        ++at;
      }
    }
    return text;
  }

 private:
  static std::string_view WordAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && IsWordCharacter(text[end])) ++end;
    return text.substr(at, end - at);
  }

  const std::string* NameOf(std::string_view word) const {
    const auto known = names_.find(platform::FoldCase(word));
    return known == names_.end() ? nullptr : &known->second;
  }

  // A word of code.
  std::string Identifier(std::string_view word) const {
    if (const std::string* name = NameOf(word)) return *name;
    if (IsDigit(word.front()) || codegen::IsReservedWord(word)) return std::string(word);
    std::string replaced = Replaced(word, replacements_);
    return codegen::CheckIdentifier(replaced) ? std::string(word) : replaced;
  }

  // Of a comment or literal: names stand there as words, replacements anywhere.
  std::string Words(std::string_view text) const {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
      const bool begins_word =
          IsWordCharacter(text[at]) && (at == 0 || !IsWordCharacter(text[at - 1]));
      const std::string_view word = begins_word ? WordAt(text, at) : std::string_view();
      const std::string* name = begins_word ? NameOf(word) : nullptr;
      const Replacement* replacement = ReplacementAt(text, at, replacements_);
      if (name) {
        result += *name;
        at += word.size();
      } else if (replacement) {
        result += replacement->to;
        at += replacement->from.size();
      } else {
        result += text[at++];
      }
    }
    return result;
  }

  const std::vector<Replacement>& replacements_;
  std::unordered_map<std::string, std::string> names_;
};

}  // namespace

std::string Replaced(std::string_view text, const std::vector<Replacement>& replacements) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const Replacement* replacement = ReplacementAt(text, at, replacements);
    result += replacement ? std::string_view(replacement->to) : text.substr(at, 1);
    at += replacement ? replacement->from.size() : 1;
  }
  return result;
}

std::string ReplacedInCode(std::string_view code,
                           const std::vector<std::pair<std::string, std::string>>& names,
                           const std::vector<Replacement>& replacements) {
  const CodeReplacer replacer(names, replacements);
  std::string text;
  while (!code.empty()) {
    const std::size_t end = std::min(code.find_first_of("\r\n"), code.size());
    text += replacer.Line(code.substr(0, end));
    const std::size_t next = std::min(code.find_first_not_of("\r\n", end), code.size());
    text += code.substr(end, next - end);
    code.remove_prefix(next);
  }
  return text;
}

}  // namespace exchange
