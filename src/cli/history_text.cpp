// SPDX-License-Identifier: MIT
#include "cli/history_text.h"

#include <charconv>
#include <utility>
#include <vector>

#include "cli/row_writer.h"
#include "project/change_text.h"

namespace cli {

namespace {

Cell Shown(const history::Cell& cell) {
  const std::string text = cell.empty() ? cell : cell.substr(1);
  switch (cell.empty() ? 'n' : cell[0]) {
    case 'n':
      return std::monostate();
    case 'b':
      return text == "1";
    case 'i': {
      std::int64_t number = 0;
      std::from_chars(text.data(), text.data() + text.size(), number);
      return number;
    }
    default:
      return text;
  }
}

std::string RowJson(const std::optional<history::Row>& row) {
  if (!row) return "null";
  std::vector<std::pair<std::string, std::string>> members;
  for (const auto& [name, cell] : *row) members.emplace_back(name, JsonText(Shown(cell)));
  return JsonObject(members);
}

std::string Joined(const std::vector<std::string>& objects) {
  std::string text = "[";
  for (const std::string& object : objects) text += (text.size() > 1 ? ", " : "") + object;
  return text + "]";
}

}  // namespace

std::string EntryJson(const history::Entry& entry, const std::string& title,
                      const project::ToUtf8& to_utf8) {
  const history::Record& record = entry.record;
  std::vector<std::string> rows;
  for (const history::ChangedRow& row : record.rows) {
    rows.push_back(JsonObject({{"Table", JsonString(row.table)},
                               {"ID", std::to_string(row.id)},
                               {"Before", RowJson(row.before)},
                               {"After", RowJson(row.after)}}));
  }
  return JsonObject({{"Number", std::to_string(record.number)},
                     {"Time", JsonString(project::TimeText(record.time))},
                     {"Who", JsonString(record.who)},
                     {"Program", JsonString(record.program)},
                     {"Title", JsonString(title)},
                     {"Undone", entry.undone ? "true" : "false"},
                     {"Rows", Joined(rows)},
                     {"Diff", JsonString(project::DiffText(record, to_utf8))}});
}

}  // namespace cli
