// SPDX-License-Identifier: MIT
#include "codegen/declaration.h"

#include <algorithm>
#include <utility>

#include "codegen/source_line.h"
#include "codegen/templates.h"
#include "platform/text.h"

namespace codegen {
namespace {

// What a character behind a name says of its type.
constexpr std::pair<char, std::string_view> kTypeCharacters[] = {
    {'%', "Integer"}, {'&', "Long"},     {'!', "Single"},
    {'#', "Double"},  {'@', "Currency"}, {'$', "String"}};

// Reads words and signs of a statement from left to right.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(TrimBlanks(text)) {}

  bool AtEnd() const { return text_.empty(); }
  std::string_view Rest() const { return text_; }

  // A name or keyword, brackets included; empty when something else follows.
  std::string_view Word() {
    std::size_t end = 0;
    if (text_.starts_with('[')) {
      end = text_.find(']');
      end = end == std::string_view::npos ? text_.size() : end + 1;
    } else {
      while (end < text_.size() && IsNameByte(text_[end])) ++end;
    }
    return Take(end);
  }

  bool Take(char sign) {
    if (!text_.starts_with(sign)) return false;
    Take(std::size_t{1});
    return true;
  }

  bool TakeWord(std::string_view word) {
    const Reader before = *this;
    if (platform::EqualsIgnoringCase(Word(), word)) return true;
    *this = before;
    return false;
  }

  // The type that a type character names; empty when none stands here.
  std::string_view TypeCharacter() {
    for (const auto& [sign, type] : kTypeCharacters) {
      if (Take(sign)) return type;
    }
    return {};
  }

  // What stands up to the closing parenthesis, which is taken too.
  std::string_view Parenthesised() {
    int depth = 1;
    bool in_string = false;
    std::size_t end = 0;
    for (; end < text_.size(); ++end) {
      const char c = text_[end];
      if (c == '"') in_string = !in_string;
      if (in_string) continue;
      if (c == '(') ++depth;
      if (c == ')' && --depth == 0) break;
    }
    const std::string_view inside = Take(end);
    Take(')');
    return inside;
  }

 private:
  std::string_view Take(std::size_t count) {
    const std::string_view taken = text_.substr(0, count);
    text_ = TrimBlanks(text_.substr(count));
    return taken;
  }

  std::string_view text_;
};

std::string_view WithoutBrackets(std::string_view name) {
  if (name.size() >= 2 && name.front() == '[') return name.substr(1, name.size() - 2);
  return name;
}

// Where the name of a declared sub stands.
struct NamePlace {
  std::size_t line = 0;
  std::size_t column = 0;
  std::size_t length = 0;
};

// REQUIRES: the lines declare a sub.
NamePlace FindSubName(const std::vector<std::string>& lines) {
  bool behind_sub = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string_view text = lines[i];
    if (IsContinued(text)) text.remove_suffix(1);
    Reader reader(text);
    while (!reader.AtEnd()) {
      const auto column = static_cast<std::size_t>(reader.Rest().data() - text.data());
      const std::string_view word = reader.Word();
      if (word.empty()) break;
      if (behind_sub) return {i, column, word.size()};
      behind_sub = platform::EqualsIgnoringCase(word, "sub");
    }
  }
  return {};
}

// One logical line, the continuation marks taken out.
std::string JoinContinued(const std::vector<std::string>& lines) {
  std::string joined;
  for (const std::string& line : lines) {
    joined += line;
    if (!IsContinued(line)) break;
    joined.pop_back();
  }
  return joined;
}

// Collects the names of types and enumerations, statement by statement.
class TypeNameCollector {
 public:
  void Visit(std::string_view statement) {
    Reader reader(statement);
    if (block_ != Block::kNone) return VisitElement(reader);
    if (!reader.TakeWord("public")) reader.TakeWord("private");
    if (reader.TakeWord("type")) {
      block_ = Block::kType;
    } else if (reader.TakeWord("enum")) {
      block_ = Block::kEnum;
    } else {
      return;
    }
    Add(reader.Word());
  }

  std::unordered_set<std::string> Take() { return std::move(names_); }

 private:
  enum class Block { kNone, kType, kEnum };

  void VisitElement(Reader& reader) {
    const std::string_view word = reader.Word();
    const bool ends = platform::EqualsIgnoringCase(word, "end") &&
                      reader.TakeWord(block_ == Block::kType ? "type" : "enum");
    if (ends) {
      block_ = Block::kNone;
    } else if (block_ == Block::kEnum) {
      Add(word);
    }
  }

  void Add(std::string_view name) {
    name = WithoutBrackets(name);
    if (!name.empty()) names_.insert(platform::FoldCase(name));
  }

  Block block_ = Block::kNone;
  std::unordered_set<std::string> names_;
};

}  // namespace

std::optional<SubDeclaration> ParseSub(const std::vector<std::string>& lines) {
  const std::string line = JoinContinued(lines);
  const std::size_t comment = CommentStart(line);
  Reader reader(std::string_view(line).substr(0, comment));
  SubDeclaration result;
  result.is_public = !reader.TakeWord("private") && !reader.TakeWord("friend");
  reader.TakeWord("public");
  result.is_static = reader.TakeWord("static");
  if (!reader.TakeWord("sub")) return std::nullopt;
  result.name = WithoutBrackets(reader.Word());
  if (result.name.empty()) return std::nullopt;
  if (reader.Take('(')) result.parameters = TrimBlanks(reader.Parenthesised());
  result.rest = reader.Rest();
  result.comment = line.substr(comment);
  return result;
}

std::vector<std::string> RenamedSub(const std::vector<std::string>& lines,
                                    const SubDeclaration& old, std::string_view new_name) {
  std::vector<std::string> renamed = lines;
  if (!old.parameters.empty() || old.is_static) {
    const NamePlace name = FindSubName(lines);
    renamed[name.line].replace(name.column, name.length, new_name);
    return renamed;
  }
  renamed[0] = Templates::SubDeclaration(new_name) + old.rest;
  if (!old.comment.empty()) renamed[0] += " " + old.comment;
  // They would be left as broken code.
  for (std::size_t i = 1; i < renamed.size(); ++i) renamed[i].insert(0, "'");
  return renamed;
}

std::optional<VariableLine> ParseVariableLine(std::string_view line) {
  if (IsContinued(line)) return std::nullopt;
  const std::size_t comment = CommentStart(line);
  Reader reader(line.substr(0, comment));
  if (!reader.TakeWord("public") && !reader.TakeWord("global")) return std::nullopt;
  VariableLine variable;
  variable.name = WithoutBrackets(reader.Word());
  variable.type = reader.TypeCharacter();
  if (reader.TakeWord("as")) {
    if (reader.TakeWord("new")) variable.type = "New ";
    for (bool more = true; more;) {
      const std::string_view word = reader.Word();
      if (word.empty()) return std::nullopt;
      variable.type.append(word);
      more = reader.Take('.');
      if (more) variable.type += '.';
    }
  }
  if (variable.name.empty() || !reader.AtEnd()) return std::nullopt;
  variable.comment = line.substr(comment);
  return variable;
}

std::unordered_set<std::string> TypeNames(const std::vector<std::string>& declarations) {
  TypeNameCollector collector;
  bool continued = false;
  bool in_comment = false;
  for (const std::string& line : declarations) {
    const bool goes_on = continued;
    const std::size_t comment = goes_on && in_comment ? 0 : CommentStart(line);
    continued = IsContinued(line);
    in_comment = continued && comment < line.size();
    if (goes_on) continue;
    // A colon inside a literal begins a statement that declares nothing.
    std::string_view code = std::string_view(line).substr(0, comment);
    while (!code.empty()) {
      const std::size_t end = std::min(code.find(':'), code.size());
      collector.Visit(code.substr(0, end));
      code.remove_prefix(std::min(end + 1, code.size()));
    }
  }
  return collector.Take();
}

}  // namespace codegen
