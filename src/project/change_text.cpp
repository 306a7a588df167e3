// SPDX-License-Identifier: MIT
#include "project/change_text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "files/change_set.h"
#include "project/line_diff.h"
#include "project/unified_diff.h"

namespace project {

namespace {

std::string CellText(const history::Cell& cell) {
  const std::string text = cell.empty() ? cell : cell.substr(1);
  switch (cell.empty() ? 'n' : cell[0]) {
    case 'n':
      return {};
    case 'b':
      return text == "1" ? "true" : "false";
    default:
      return OneLine(text);
  }
}

std::string CellText(const platform::Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return {};
  if (const auto* flag = value.Get<bool>()) return *flag ? "true" : "false";
  return OneLine(value.ToText());
}

std::string RowText(char sign, const std::string& table, const history::Row& row) {
  std::string text = std::string(1, sign) + '\t' + table;
  for (const auto& [name, cell] : row) text += '\t' + CellText(cell);
  return text + '\n';
}

std::string Span(std::int64_t line, std::size_t count) {
  return std::to_string(count == 0 ? line - 1 : line) +
         (count == 1 ? "" : "," + std::to_string(count));
}

// One range with up to three lines around it, as far as these are not part of another range.
std::string RangeText(const history::ChangedFile& file, std::size_t at, const ToUtf8& to_utf8) {
  constexpr std::int64_t kContext = 3;
  const history::ChangedLines& range = file.ranges[at];
  const std::string texts[] = {to_utf8(file, range.above), to_utf8(file, range.before),
                               to_utf8(file, range.after), to_utf8(file, range.below)};
  Lines above = SplitLines(texts[0]), below = SplitLines(texts[3]);
  const Lines removed = SplitLines(texts[1]);
  const Lines added = SplitLines(texts[2]);
  const auto most = [](const Lines& lines, std::int64_t free) {
    const std::int64_t count = std::min<std::int64_t>({kContext, std::ssize(lines), free});
    return static_cast<std::size_t>(std::max<std::int64_t>(count, 0));
  };
  const auto end_of = [&](const history::ChangedLines& other) {
    return other.line_after + std::count(other.after.begin(), other.after.end(), '\n');
  };
  // Of the lines between two ranges the upper one shows no more than half.
  const auto upper_half = [=](std::int64_t gap) { return std::min(kContext, gap / 2); };
  const std::int64_t gap_above =
      at == 0 ? 2 * kContext : range.line_after - end_of(file.ranges[at - 1]);
  const std::int64_t gap_below =
      at + 1 == file.ranges.size() ? 2 * kContext : file.ranges[at + 1].line_after - end_of(range);
  const std::size_t lead = most(above, gap_above - upper_half(gap_above));
  const std::size_t tail = most(below, upper_half(gap_below));
  above.erase(above.begin(), above.end() - static_cast<std::ptrdiff_t>(lead));
  below.resize(tail);
  const auto shift = static_cast<std::int64_t>(lead);
  std::string text = "@@ -" + Span(range.line_before - shift, lead + removed.size() + tail) + " +" +
                     Span(range.line_after - shift, lead + added.size() + tail) + " @@\n";
  const auto append = [&](char sign, const Lines& lines) {
    for (const std::string_view line : lines) text.append(1, sign).append(line).append(1, '\n');
  };
  append(' ', above);
  append('-', removed);
  append('+', added);
  append(' ', below);
  return text;
}

}  // namespace

std::string TimeText(std::int64_t seconds) {
  using namespace std::chrono;
  const sys_seconds time{std::chrono::seconds(seconds)};
  const year_month_day date(floor<days>(time));
  const hh_mm_ss clock(time - floor<days>(time));
  std::array<char, 64> text = {};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text.data();
}

std::string OneLine(std::string_view text) {
  std::string line;
  if (text == std::string_view("\0", 1)) return line;
  for (const char c : text) {
    switch (c) {
      case '\t':
        line += "\\t";
        break;
      case '\n':
        line += "\\n";
        break;
      case '\r':
        line += "\\r";
        break;
      default:
        line += c;
    }
  }
  return line;
}

std::string RowsText(const history::Record& record) {
  std::string text;
  for (const history::ChangedRow& row : record.rows) {
    if (row.before) text += RowText('-', row.table, *row.before);
    if (row.after) text += RowText('+', row.table, *row.after);
  }
  return text;
}

std::string DiffText(const history::Record& record, const ToUtf8& to_utf8) {
  std::string text;
  for (const history::ChangedFile& file : record.files) {
    text += "--- " + file.path + "\n+++ " + file.path + "\n";
    for (std::size_t i = 0; i < file.ranges.size(); ++i) text += RangeText(file, i, to_utf8);
  }
  return text;
}

std::string RowsText(const std::vector<store::RowChange>& rows) {
  std::string text;
  for (const store::RowChange& row : rows) {
    text.append(1, static_cast<char>(row.kind)).append(1, '\t').append(row.table);
    for (const auto& [name, value] : row.members) text += '\t' + CellText(value);
    text += '\n';
  }
  return text;
}

std::string DiffText(vbfiles::Environment& code) {
  files::ChangeSet changes;
  code.Collect(changes);
  std::string diff;
  for (const files::FileChange& change : changes.files) {
    const auto text = [&](const files::Contents& bytes) {
      return bytes ? code.ToUtf8(change.path, *bytes) : std::string();
    };
    diff += UnifiedDiff(change.path, text(change.before), text(change.after));
  }
  return diff;
}

}  // namespace project
