// SPDX-License-Identifier: MIT
#include <algorithm>

#include "exchange/contents.h"
#include "exchange/json_reader.h"
#include "exchange/series_columns.h"
#include "exchange/table_reader.h"

namespace exchange {
namespace {

std::string NamesOf(const Record& record) {
  std::string names;
  for (const Cell& cell : record.cells) {
    if (cell.text.empty()) continue;
    if (names.size() > 200) return names + ", ...";
    names += (names.empty() ? "" : ", ") + std::string(cell.text);
  }
  return names;
}

// How many records the text can have; of one that has hardly anything but line ends, fewer.
std::size_t CountRecords(std::string_view text) {
  constexpr std::size_t kShortest = 16;
  const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n'));
  return std::min(lines, text.size() / kShortest);
}

// A table from its first record on.
void ReadLines(DelimitedText& table, std::string_view text, Contents& contents) {
  contents.ignored = contents.header->ignored;
  if (contents.header->kind == TableKind::kAliases) contents.aliases.reserve(CountRecords(text));
  TableReader reader(*contents.header, contents);
  for (Record record; table.Next(record);) reader.Read(record);
}

void ReadTable(std::string& text, Contents& contents) {
  const char named = TakeSeparatorLine(text);
  TakeTitleLines(text);
  const char separator = named != '\0' ? named : FindSeparator(text);
  DelimitedText table(text, separator);
  Record record;
  if (!table.Next(record)) throw FormatError({}, {{kTextEmptyFile}});
  contents.header = ReadHeader(record, separator);
  if (!contents.header) {
    throw FormatError({record.line, 0}, {{kTextNoKnownColumn}, {{"<Names>", NamesOf(record)}}});
  }
  ReadLines(table, text, contents);
}

// Whether the text is a table of aliases; then its lines are read.
bool ReadAliasTable(std::string& text, Contents& contents) {
  const char separator = FindSeparator(text);
  // Its first line may be a line of the other form, which knows no quotation marks.
  std::string first_line =
      text.substr(0, text.find_first_of("\r\n", text.find_first_not_of("\r\n")));
  Record record;
  try {
    if (!DelimitedText(first_line, separator).Next(record)) return false;
    const auto header = ReadHeader(record, separator);
    const bool is_table = header && header->kind == TableKind::kAliases &&
                          header->Column(Member::kItem) && header->names.size() > 1;
    if (!is_table) return false;
  } catch (const FormatError&) {
    return false;
  }
  ReadTable(text, contents);
  return true;
}

void ReadAliasLine(std::string_view line, std::uint32_t number, Contents& contents) {
  const Place place = {number, 0};
  const std::size_t tab = line.find('\t');
  const std::string_view item = line.substr(0, tab);
  const std::string_view alias = tab == std::string_view::npos ? "" : line.substr(tab + 1);
  try {
    // A series may hold commas.
    const std::size_t sign = Series(line).size() > 1 ? line.npos : line.find_first_of(",;");
    if (tab == std::string_view::npos && sign != line.npos) {
      contents.problems.push_back({place, {{kTextSeparator}, {{"<Text>", line.substr(sign, 1)}}}});
    } else if (!AppendAliases(item, alias, place, contents)) {
      contents.problems.push_back({place, {{kTextSeriesLengths}}});
    }
  } catch (const messages::Error& series) {
    contents.problems.push_back({place, series.message()});
  }
}

}  // namespace

bool IsJson(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && (text[first] == '{' || text[first] == '[');
}

Contents ReadList(std::string bytes) {
  Contents contents;
  DecodedText decoded = Decode(std::move(bytes));
  contents.encoding = decoded.encoding;
  std::string& text = contents.SetText(std::move(decoded.text));
  if (IsJson(text)) {
    ReadJson(text, contents);
  } else {
    ReadTable(text, contents);
  }
  return contents;
}

Contents ReadAliases(std::string bytes) {
  Contents contents;
  std::string& text = contents.SetText(Decode(std::move(bytes)).text);
  if (ReadAliasTable(text, contents)) return contents;
  std::uint32_t number = 0;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    ++number;
    if (!line.empty()) ReadAliasLine(line, number, contents);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return contents;
}

}  // namespace exchange
