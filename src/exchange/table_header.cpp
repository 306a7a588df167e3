// SPDX-License-Identifier: MIT
#include "exchange/table_header.h"

#include <algorithm>
#include <utility>

#include "exchange/place.h"
#include "platform/text.h"

namespace exchange {
namespace {

using enum Member;

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

std::size_t KnownNames(std::string line, char separator) {
  DelimitedText text(line, separator);
  Record record;
  try {
    if (!text.Next(record)) return 0;
  } catch (const FormatError&) {
    return 0;
  }
  return static_cast<std::size_t>(std::ranges::count_if(
      record.cells, [](const Cell& cell) { return MemberOf(cell.text).has_value(); }));
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
  // More than that is no header.
  const std::string line(text.substr(begin, std::min<std::size_t>(end - begin, 1 << 16)));
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

}  // namespace exchange
