// SPDX-License-Identifier: MIT
#include "codegen/name_uses.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "codegen/source_line.h"
#include "platform/text.h"

namespace codegen {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Looks for the names in lines of code, one after the other.
class Search {
 public:
  explicit Search(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      if (name.size() >= has_length_.size()) has_length_.resize(name.size() + 1);
      has_length_[name.size()] = true;
      names_.emplace(platform::FoldCase(name), name);
    }
  }

  // Visits lines of a module from the beginning of a logical line on; `first` is the number of the
  // first of them.
  void Visit(std::int32_t first, std::string_view lines) {
    line_ = first;
    in_comment_ = false;
    for (;; ++line_) {
      const std::size_t end = lines.find(kLineEnd);
      VisitLine(lines.substr(0, end));
      if (end == std::string_view::npos) return;
      lines.remove_prefix(end + kLineEnd.size());
    }
  }

  std::vector<NameUse> Take() { return std::move(uses_); }

 private:
  void VisitLine(std::string_view line) {
    const bool was_comment = in_comment_;
    const std::size_t comment = was_comment ? 0 : CommentStart(line);
    in_comment_ = comment < line.size() || was_comment ? IsContinued(line) : false;
    if (!was_comment) VisitCode(line.substr(0, comment));
  }

  void VisitCode(std::string_view code) {
    std::string_view previous;  // word in front
    bool in_string = false;
    for (std::size_t i = 0; i < code.size();) {
      if (code[i] == '"') in_string = !in_string;
      if (in_string || !IsNameByte(code[i])) {
        ++i;
        continue;
      }
      const std::size_t begin = i;
      while (i < code.size() && IsNameByte(code[i])) ++i;
      const std::string_view word = code.substr(begin, i - begin);
      const bool is_member = begin > 0 && (code[begin - 1] == '.' || code[begin - 1] == '!');
      if (!is_member || platform::EqualsIgnoringCase(previous, "me")) VisitWord(word);
      previous = word;
    }
  }

  void VisitWord(std::string_view word) {
    // Letter case does not change the length of the names that Visual Basic takes.
    if (word.size() >= has_length_.size() || !has_length_[word.size()]) return;
    const auto found = names_.find(platform::FoldCase(word));
    if (found == names_.end()) return;
    const NameUse use = {line_, found->second};
    const auto same_line = std::find_if(uses_.rbegin(), uses_.rend(),
                                        [&](const NameUse& u) { return u.line != line_; });
    if (std::find(uses_.rbegin(), same_line, use) == same_line) uses_.push_back(use);
  }

  std::unordered_map<std::string, std::string> names_;  // as given, by folded name
  std::vector<bool> has_length_;                        // lengths that occur among the names
  std::vector<NameUse> uses_;
  std::int32_t line_ = 0;
  bool in_comment_ = false;
};

// The lines that hold one of the names anywhere.
std::set<std::int32_t> LinesWith(const std::vector<std::string>& names,
                                 platform::CodeModule& module, std::int32_t count) {
  std::set<std::int32_t> lines;
  for (const std::string& name : names) {
    for (auto line = module.Find(name, 1, count); line;
         line = module.Find(name, *line + 1, count)) {
      lines.insert(*line);
    }
  }
  return lines;
}

bool IsContinuedLine(platform::CodeModule& module, std::int32_t line) {
  return IsContinued(module.Lines(line, 1));
}

}  // namespace

std::vector<NameUse> FindNameUses(platform::CodeModule& module,
                                  const std::vector<std::string>& names) {
  // The module finds a line with a name faster than its lines can be read, but name by name.
  constexpr std::size_t kFewNames = 8;
  Search search(names);
  const std::int32_t count = module.CountOfLines();
  if (count == 0) return {};
  if (names.size() > kFewNames) {
    search.Visit(1, module.Lines(1, count));
    return search.Take();
  }
  std::int32_t visited = 0;
  for (const std::int32_t line : LinesWith(names, module, count)) {
    if (line <= visited) continue;
    std::int32_t first = line;
    while (first > visited + 1 && IsContinuedLine(module, first - 1)) --first;
    visited = line;
    while (visited < count && IsContinuedLine(module, visited)) ++visited;
    search.Visit(first, module.Lines(first, visited - first + 1));
  }
  return search.Take();
}

}  // namespace codegen
