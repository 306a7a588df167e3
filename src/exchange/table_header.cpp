// SPDX-License-Identifier: MIT
#include "exchange/table_header.h"

#include <algorithm>
#include <utility>

#include "exchange/place.h"
#include "platform/text.h"

namespace exchange {
namespace {

using enum Member;

// More than that is no header.
constexpr std::size_t kLongestHeader = std::size_t{1} << 16;

// Names as MemberOf compares them. The first of a member is the one that is written.
constexpr std::pair<std::string_view, Member> kNames[] = {
    {"itemid", kItem},
    {"item", kItem},
    {"itemname", kItem},
    {"signal", kItem},
    {"signalname", kItem},
    {"variable", kItem},
    {"prozessvariable", kItem},
    {"processvariable", kItem},
    {"tag", kItem},
    {"tagname", kItem},
    {"vbalias", kAlias},
    {"alias", kAlias},
    {"aliasname", kAlias},
    {"aliasbezeichner", kAlias},
    {"aliasbezeichnung", kAlias},
    {"aliasidentifier", kAlias},
    {"name", kFormula},
    {"formula", kFormula},
    {"formulaname", kFormula},
    {"formel", kFormula},
    {"formelname", kFormula},
    {"progid", kClass},
    {"class", kClass},
    {"classname", kClass},
    {"klasse", kClass},
    {"klassenname", kClass},
    {"type", kType},
    {"calltype", kType},
    {"callformula", kType},
    {"typ", kType},
    {"formelaufruf", kType},
    {"aufruf", kType},
    {"scantime", kScanTime},
    {"abtastzeit", kScanTime},
    {"enabled", kEnabled},
    {"definitionenabled", kEnabled},
    {"aktiv", kEnabled},
    {"definitionaktiv", kEnabled},
    {"comment", kComment},
    {"remark", kComment},
    {"description", kComment},
    {"kommentar", kComment},
    {"bemerkung", kComment},
    {"beschreibung", kComment},
    {"arguments", kArguments},
    {"argumente", kArguments},
    {"in", kIn},
    {"input", kIn},
    {"inputvalue", kIn},
    {"eingang", kIn},
    {"übergabewert", kIn},
    {"übergabeparameter", kIn},
    {"out", kOut},
    {"output", kOut},
    {"returnvalue", kOut},
    {"ausgang", kOut},
    {"rückgabewert", kOut},
    {"reason", kReason},
    {"grund", kReason},
};

// In lower case, without blanks, hyphens, underscores and a unit in brackets.
std::string Squeezed(std::string_view name) {
  std::string squeezed = platform::FoldCase(name.substr(0, name.find_first_of("([")));
  std::erase_if(squeezed, [](char c) { return c == ' ' || c == '-' || c == '_'; });
  return squeezed;
}

bool IsUsed(TableKind kind, Member member) {
  switch (member) {
    case kItem:
    case kAlias:
      return kind != TableKind::kFormulas;
    case kFormula:
    case kClass:
      return kind != TableKind::kAliases;
    case kType:
    case kScanTime:
    case kEnabled:
    case kComment:
    case kArguments:
      return kind == TableKind::kFormulas;
    case kIn:
    case kOut:
      return kind == TableKind::kSignals;
    case kReason:
      return true;
  }
  return false;
}

std::optional<TableKind> KindOf(const TableHeader& header) {
  const bool signal = header.Column(kItem) || header.Column(kAlias);
  if (!header.Column(kFormula)) return signal ? std::optional(TableKind::kAliases) : std::nullopt;
  return signal ? TableKind::kSignals : TableKind::kFormulas;
}

// The cells of one line; none of a line that is no record of its own.
Record RecordOf(std::string& line, char separator) {
  Record record;
  try {
    DelimitedText(line, separator).Next(record);
  } catch (const FormatError&) {
    record.cells.clear();
  }
  return record;
}

std::size_t KnownNames(std::string line, char separator) {
  return static_cast<std::size_t>(
      std::ranges::count_if(RecordOf(line, separator).cells,
                            [](const Cell& cell) { return MemberOf(cell.text).has_value(); }));
}

std::size_t FilledCells(std::string line, char separator) {
  return static_cast<std::size_t>(std::ranges::count_if(
      RecordOf(line, separator).cells, [](const Cell& cell) { return !cell.text.empty(); }));
}

bool IsHeader(std::string line, char separator) {
  try {
    return ReadHeader(RecordOf(line, separator), separator).has_value();
  } catch (const FormatError&) {
    return true;  // whoever reads it says what is wrong
  }
}

// Begin of what follows the line that begins at `begin`.
std::size_t EndOfLine(std::string_view text, std::size_t begin) {
  const std::size_t end = text.find_first_of("\r\n", begin);
  if (end == std::string_view::npos) return text.size();
  return end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
}

}  // namespace

std::optional<Member> MemberOf(std::string_view column_name) {
  const std::string name = Squeezed(column_name);
  const auto* found = std::ranges::find(kNames, name, &std::pair<std::string_view, Member>::first);
  return found == std::end(kNames) ? std::nullopt : std::optional(found->second);
}

std::optional<TableHeader> ReadHeader(const Record& record, char separator) {
  TableHeader header;
  header.separator = separator;
  std::vector<std::optional<Member>> members;
  for (const Cell& cell : record.cells) {
    header.names.emplace_back(cell.text);
    members.push_back(MemberOf(cell.text));
    if (!members.back()) continue;
    auto& column = header.column[static_cast<std::size_t>(*members.back())];
    if (column) {
      throw FormatError({record.line, static_cast<std::uint32_t>(members.size())},
                        {{kTextColumnTwice},
                         {{"<Name>", header.names.back()}, {"<Other>", header.names[*column]}}});
    }
    column = members.size() - 1;
  }
  const std::optional<TableKind> kind = KindOf(header);
  if (!kind) return std::nullopt;
  header.kind = *kind;
  if (*kind == TableKind::kFormulas && (header.Column(kIn) || header.Column(kOut))) {
    throw FormatError({record.line, 0}, {{kTextNoItemColumn}});
  }
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (members[i] && IsUsed(*kind, *members[i])) continue;
    if (members[i]) header.column[static_cast<std::size_t>(*members[i])].reset();
    if (!header.names[i].empty()) header.ignored.push_back(header.names[i]);
  }
  return header;
}

char FindSeparator(std::string_view text) {
  const std::size_t begin = std::min(text.find_first_not_of("\r\n"), text.size());
  const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
  const std::string line(text.substr(begin, std::min(end - begin, kLongestHeader)));
  char best = ',';
  std::size_t most = 0;
  for (const char separator : {',', ';', '\t'}) {
    const std::size_t known = KnownNames(line, separator);
    if (known <= most) continue;
    most = known;
    best = separator;
  }
  return best;
}

void TakeTitleLines(std::string& text) {
  constexpr int kMostLines = 20;
  struct Title {
    std::size_t begin, length;
  };
  std::vector<Title> titles;
  std::size_t begin = 0;
  for (int i = 0; i < kMostLines && begin < text.size(); ++i) {
    const std::size_t next = EndOfLine(text, begin);
    const std::size_t end = std::min(text.find_first_of("\r\n", begin), next);
    const std::string line = text.substr(begin, std::min(end - begin, kLongestHeader));
    const char separator = FindSeparator(line);
    if (IsHeader(line, separator)) {
      const std::size_t columns = FilledCells(line, separator);
      const bool all_shorter = std::ranges::all_of(titles, [&](const Title& title) {
        return FilledCells(text.substr(title.begin, title.length), separator) < columns;
      });
      if (!all_shorter) return;
      for (auto title = titles.rbegin(); title != titles.rend(); ++title) {
        text.erase(title->begin, title->length);
      }
      return;
    }
    titles.push_back({begin, end - begin});
    begin = next;
  }
}

}  // namespace exchange
