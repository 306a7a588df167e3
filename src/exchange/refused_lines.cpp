// SPDX-License-Identifier: MIT
#include "exchange/refused_lines.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>

#include "exchange/cell_values.h"
#include "exchange/contents.h"
#include "exchange/delimited_text.h"
#include "exchange/json_text.h"
#include "exchange/table_header.h"

namespace exchange {
namespace {

// Reasons by line; those of one line together.
using Reasons = std::map<std::uint32_t, std::string>;

void AppendRecord(std::string& text, const Record& record, std::size_t columns, char separator,
                  const std::string& last) {
  for (std::size_t i = 0; i < std::max(columns, record.cells.size()); ++i) {
    const bool filled =
        i < record.cells.size() && (record.cells[i].quoted || !record.cells[i].text.empty());
    if (filled) AppendCell(text, record.cells[i].text, separator);
    text += separator;
  }
  AppendCell(text, last, separator);
  text += "\r\n";
}

std::string WriteTable(std::string text, const Reasons& reasons, const std::string& reason_name) {
  const char named = TakeSeparatorLine(text);
  TakeTitleLines(text);
  const char separator = named != '\0' ? named : FindSeparator(text);
  DelimitedText table(text, separator);
  std::string written = "\xEF\xBB\xBF";
  Record record;
  if (!table.Next(record)) return written;
  // A column of reasons that is there is written anew.
  std::size_t columns = record.cells.size();
  std::size_t old = columns;
  for (std::size_t i = 0; i < columns; ++i) {
    if (MemberOf(record.cells[i].text) == Member::kReason) old = i;
  }
  const auto without_old = [&] {
    if (old < record.cells.size() && old < columns) {
      record.cells.erase(record.cells.begin() + static_cast<std::ptrdiff_t>(old));
    }
  };
  const std::size_t left = old < columns ? columns - 1 : columns;
  without_old();
  AppendRecord(written, record, left, separator, reason_name);
  while (table.Next(record)) {
    const auto reason = reasons.find(record.line);
    if (reason == reasons.end()) continue;
    without_old();
    AppendRecord(written, record, left, separator, SafeCell(reason->second));
  }
  return written;
}

std::string WriteJson(const std::string& raw, const std::vector<RefusedLine>& lines) {
  std::string text = raw;  // strings are unescaped in it
  JsonText json(text);
  std::string written;
  const auto copy_rows = [&] {
    std::string rows;
    json.ReadArray([&] {
      const Place place = json.Here();
      const std::size_t begin = json.position();
      json.Skip();
      const Place end = json.Here();
      for (const RefusedLine& line : lines) {
        if (line.place < place || !(line.place < end)) continue;
        rows += (rows.empty() ? "\n {" : ",\n {") + std::string("\"Reason\": ") +
                JsonString(line.reason) + ", " + raw.substr(begin + 1, json.position() - begin - 1);
        break;
      }
    });
    return "[" + rows + "\n]";
  };
  if (json.Peek() == JsonText::Kind::kArray) return copy_rows() + "\n";
  json.ReadObject([&](std::string_view name) {
    if (name != "aliases" && name != "formulas") return json.Skip();
    written += (written.empty() ? "{" : ",\n") + JsonString(name) + ": " + copy_rows();
  });
  return written + "}\n";
}

}  // namespace

std::string WriteRefusedLines(std::string bytes, const std::vector<RefusedLine>& lines,
                              const std::string& reason_name) {
  std::string text = Decode(std::move(bytes)).text;
  if (IsJson(text)) return WriteJson(text, lines);
  Reasons reasons;
  for (const RefusedLine& line : lines) {
    std::string& reason = reasons[line.place.line];
    reason += (reason.empty() ? "" : " ") + line.reason;
  }
  return WriteTable(std::move(text), reasons, reason_name);
}

}  // namespace exchange
