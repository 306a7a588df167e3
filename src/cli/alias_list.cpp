// SPDX-License-Identifier: MIT
#include "cli/alias_list.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string_view>

#include "platform/text.h"

namespace cli {

namespace {

using Fields = std::vector<std::string>;

std::string Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

// The fields of a line; nothing when a quotation mark is never closed.
std::optional<Fields> Split(std::string_view line, char separator) {
  Fields fields;
  for (std::size_t at = 0; at <= line.size();) {
    std::string field;
    std::size_t end = std::min(line.find(separator, at), line.size());
    if (at < line.size() && line[at] == '"') {
      for (++at;; ++at) {
        if (at >= line.size()) return std::nullopt;
        if (line[at] == '"' && !line.substr(at + 1).starts_with('"')) break;
        if (line[at] == '"') ++at;
        field += line[at];
      }
      end = std::min(line.find(separator, at), line.size());
    } else {
      field = Trimmed(line.substr(at, end - at));
    }
    fields.push_back(std::move(field));
    at = end + 1;
  }
  return fields;
}

// A table's separator and columns.
struct Header {
  char separator;
  std::size_t item;
  std::optional<std::size_t> alias;
};

std::optional<std::size_t> Column(const Fields& names, std::initializer_list<const char*> wanted) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    for (const char* name : wanted) {
      if (platform::EqualsIgnoringCase(names[i], name)) return i;
    }
  }
  return std::nullopt;
}

std::optional<Header> ReadHeader(std::string_view line) {
  for (const char separator : {',', ';', '\t'}) {
    const Fields names = Split(line, separator).value_or(Fields());
    const auto item = Column(names, {"item", "ItemID"});
    if (item && names.size() > 1)
      return Header{separator, *item, Column(names, {"alias", "VBAlias"})};
  }
  return std::nullopt;
}

[[noreturn]] void Refuse(const Invocation& invocation, const Given& line, int text,
                         const std::string& value) {
  throw CommandError(kRefused,
                     invocation.AtLine(line.line, invocation.Text(text, {{"<Text>", value}})));
}

store::AliasValues FromTable(const Invocation& invocation, const Header& header,
                             const Given& line) {
  const auto fields = Split(line.text, header.separator);
  if (!fields) Refuse(invocation, line, kTextOpenQuote, "");
  const auto field = [&](std::size_t column) {
    return column < fields->size() ? (*fields)[column] : std::string();
  };
  return {field(header.item), header.alias ? field(*header.alias) : ""};
}

store::AliasValues FromLine(const Invocation& invocation, const Given& line) {
  const auto tab = line.text.find('\t');
  if (tab != std::string::npos) return {line.text.substr(0, tab), line.text.substr(tab + 1)};
  const auto separator = line.text.find_first_of(",;");
  if (separator != std::string::npos)
    Refuse(invocation, line, kTextSeparator, line.text.substr(separator, 1));
  return {line.text, ""};
}

}  // namespace

AliasList ReadAliasList(Invocation& invocation) {
  AliasList list;
  list.given = invocation.InputLines();
  if (list.given.empty()) return list;
  std::string& first = list.given.front().text;
  if (first.starts_with("\xEF\xBB\xBF")) first.erase(0, 3);
  const auto header = ReadHeader(first);
  if (header) list.given.erase(list.given.begin());
  for (const Given& line : list.given) {
    list.values.push_back(header ? FromTable(invocation, *header, line)
                                 : FromLine(invocation, line));
  }
  return list;
}

}  // namespace cli
