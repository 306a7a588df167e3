// SPDX-License-Identifier: MIT
#include <algorithm>

#include "exchange/contents.h"
#include "exchange/json_reader.h"
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

void ReadTable(std::string& text, Contents& contents) {
  const char named = TakeSeparatorLine(text);
  const char separator = named != '\0' ? named : FindSeparator(text);
  DelimitedText table(text, separator);
  Record record;
  if (!table.Next(record)) throw FormatError({}, {{kTextEmptyFile}});
  contents.header = ReadHeader(record, separator);
  if (!contents.header) {
    throw FormatError({record.line, 0}, {{kTextNoKnownColumn}, {{"<Names>", NamesOf(record)}}});
  }
  contents.ignored = contents.header->ignored;
  TableReader reader(*contents.header, contents);
  while (table.Next(record)) reader.Read(record);
}

}  // namespace

Contents ReadList(std::string bytes) {
  Contents contents;
  DecodedText decoded = Decode(std::move(bytes));
  contents.encoding = decoded.encoding;
  std::string& text = contents.SetText(std::move(decoded.text));
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first != std::string::npos && (text[first] == '{' || text[first] == '[')) {
    ReadJson(text, contents);
  } else {
    ReadTable(text, contents);
  }
  return contents;
}

}  // namespace exchange
