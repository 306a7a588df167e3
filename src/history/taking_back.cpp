// SPDX-License-Identifier: MIT
#include "history/taking_back.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <list>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "files/error.h"
#include "history/line_ranges.h"
#include "history/messages.h"
#include "messages/error.h"

namespace history {
namespace {

constexpr std::string_view kFormulas = "TvbfFormulas";
constexpr std::string_view kAliases = "TvbfAlias";
constexpr std::string_view kArguments = "TvbfParams";
constexpr const char* kIdColumn = "ID";

// --- Rows ---

// A cell as it is shown.
std::string Shown(const Cell& cell) {
  if (cell.empty() || cell == "n") return "Null";
  const std::string text = cell.substr(1);
  if (cell[0] == 'b') return text == "1" ? "true" : "false";
  return text == std::string(1, '\0') ? std::string() : text;
}

std::string Shown(const Row& row) {
  std::string text;
  for (const auto& [name, cell] : row) text += (text.empty() ? "" : ", ") + Shown(cell);
  return text;
}

const Cell* CellOf(const Row& row, std::string_view name) {
  const auto found = std::ranges::find(row, name, &Row::value_type::first);
  return found == row.end() ? nullptr : &found->second;
}

// Place of the row by its ID, through an index where there is one.
std::optional<jet::RowId> FindRow(jet::Table& table, std::string_view column_name,
                                  std::int32_t id) {
  const auto column = table.FindColumn(column_name);
  if (!column) return std::nullopt;
  const jet::Value key[] = {jet::Value::Integer(id)};
  for (std::size_t i = 0; i < table.indexes().size(); ++i) {
    const auto& parts = table.physical_indexes()[table.indexes()[i].physical].columns;
    if (parts.empty() || parts.front().column != *column) continue;
    jet::IndexCursor cursor = table.OpenCursor(i);
    return cursor.Seek(key) ? std::optional(cursor.row()) : std::nullopt;
  }
  const std::size_t columns[] = {*column};
  jet::Scan scan = table.OpenScan(columns);
  for (jet::RowBuffer row; scan.Next(row);) {
    if (row[0] == key[0]) return row.id();
  }
  return std::nullopt;
}

// The row now; nothing when there is none.
std::optional<Row> RowNow(jet::Table& table, std::int32_t id) {
  const auto place = FindRow(table, kIdColumn, id);
  jet::RowBuffer values;
  if (!place || !table.Read(*place, values)) return std::nullopt;
  Row row;
  for (std::size_t i = 0; i < values.size(); ++i) {
    row.emplace_back(table.columns()[i].name, ToCell(values[i]));
  }
  return row;
}

// Whether the row is as it was left. Columns that came since do not count.
bool IsAsLeft(const Row& now, const Row& left) {
  return std::ranges::all_of(left, [&](const auto& member) {
    const Cell* cell = CellOf(now, member.first);
    return cell && *cell == member.second;
  });
}

// Of a row that was there when the record was checked.
jet::RowId PlaceOf(jet::Table& table, const ChangedRow& row) {
  if (const auto place = FindRow(table, kIdColumn, row.id)) return *place;
  throw messages::Error({message::kRowIsGone,
                         {{"<Place>", row.table + " #" + std::to_string(row.id)},
                          {"<Expected>", row.after ? Shown(*row.after) : std::string()}}});
}

messages::Message::Value Value(const char* name, const std::string& text) { return {name, text}; }

std::optional<messages::Message> CheckRow(jet::Database& database, const ChangedRow& row) {
  const std::string place = row.table + " #" + std::to_string(row.id);
  if (!database.HasTable(row.table)) {
    return messages::Message(message::kNoTable, {Value("<Table>", row.table)});
  }
  const auto now = RowNow(database.OpenTable(row.table), row.id);
  if (!row.after) {
    if (!now) return std::nullopt;
    return messages::Message(message::kRowIsThere,
                             {Value("<Place>", place), Value("<Found>", Shown(*now))});
  }
  if (!now) {
    return messages::Message(message::kRowIsGone,
                             {Value("<Place>", place), Value("<Expected>", Shown(*row.after))});
  }
  if (IsAsLeft(*now, *row.after)) return std::nullopt;
  return messages::Message(message::kRowDiffers,
                           {Value("<Place>", place), Value("<Expected>", Shown(*row.after)),
                            Value("<Found>", Shown(*now))});
}

// The values that the row is to have; a change gives only those that differ.
class Values {
 public:
  Values(const jet::Table& table, const Row& row, const Row* now) {
    for (const auto& [name, cell] : row) {
      const auto column = table.FindColumn(name);
      const Cell* other = now ? CellOf(*now, name) : nullptr;
      if (!column || (other && *other == cell)) continue;
      const auto value = FromCell(cell, room_.emplace_back());
      if (value) values_.push_back({*column, *value});
    }
  }
  const std::vector<jet::ColumnValue>& get() const { return values_; }

 private:
  std::list<std::string> room_;
  std::vector<jet::ColumnValue> values_;
};

platform::Variant ToVariant(const Cell& cell) {
  std::string room;
  const auto value = FromCell(cell, room);
  if (!value || value->is_null()) return platform::Null{};
  switch (value->kind()) {
    case jet::ValueKind::kBoolean:
      return value->boolean();
    case jet::ValueKind::kInteger:
      return static_cast<std::int32_t>(value->integer());
    case jet::ValueKind::kReal:
      return value->real();
    default:
      return cell.substr(1);
  }
}

// --- Lines ---

messages::Message FirstLines(std::string_view text) {
  constexpr std::size_t kShown = 3;
  std::size_t end = 0;
  for (std::size_t i = 0; i < kShown && end < text.size(); ++i) {
    end = std::min(text.find('\n', end), text.size() - 1) + 1;
  }
  std::string shown(text.substr(0, end));
  while (shown.ends_with('\n') || shown.ends_with('\r')) shown.pop_back();
  return messages::Message::Verbatim(end < text.size() ? shown + " ..." : shown);
}

std::string_view FromLine(std::string_view text, std::int64_t line) {
  for (; line > 1 && !text.empty(); --line) {
    const std::size_t end = text.find('\n');
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return text;
}

class FileTaker {
 public:
  FileTaker(const ChangedFile& file, std::string path) : file_(file), path_(std::move(path)) {}

  // `contents`: what the file holds now; nothing when it is not there.
  std::optional<messages::Message> Take(const std::optional<std::string>& contents,
                                        std::vector<files::FileChange>& changes) {
    const std::string now = contents.value_or(std::string());
    files::FileChange change{path_, {}, {}};
    if (contents) change.before = now;
    if (file_.after && !contents) return Say(message::kFileIsMissing);
    if (!file_.after && contents) return Say(message::kFileIsThere);
    if (!file_.before && !(VersionOf(now) == *file_.after)) return Say(message::kFileDiffers);
    if (file_.before) {
      TakenBack back = TakeBack(now, file_);
      if (back.failed) return NotFound(now, *back.failed);
      change.after = std::move(back.contents);
      change.kept = std::move(back.kept);
    }
    changes.push_back(std::move(change));
    return std::nullopt;
  }

 private:
  messages::Message Say(const messages::Pattern& pattern) const {
    return {pattern, {{"<Path>", path_}}};
  }
  messages::Message NotFound(const std::string& now, const ChangedLines& range) const {
    return {message::kLinesNotFound,
            {{"<Path>", path_},
             {"<Line>", range.line_after},
             {"<Expected>", FirstLines(range.after.empty() ? range.below : range.after)},
             {"<Found>", FirstLines(FromLine(now, range.line_after))}}};
  }

  const ChangedFile& file_;
  std::string path_;
};

// A file that nobody is to write.
std::optional<messages::Message> CheckProtection(files::FileSystem& system,
                                                 const std::string& path) {
  if (system.IsWritable(path)) return std::nullopt;
  try {
    files::Raise(files::ErrorKind::kReadOnly, path, files::message::kCannotBeWritten,
                 files::message::kWriteProtected);
  } catch (const files::Error& error) {
    return error.message();
  }
}

// --- What rests on what ---

// Whether the change of the row concerns whoever refers to it: it came, went or got another name.
bool ConcernsOthers(const ChangedRow& row) {
  if (!row.before || !row.after) return true;
  for (const char* name : {"Name", "ProgID", "VBAlias", "ItemID"}) {
    const Cell* before = CellOf(*row.before, name);
    const Cell* after = CellOf(*row.after, name);
    if (before && after && *before != *after) return true;
  }
  return false;
}

std::optional<std::int32_t> NumberIn(const Row& row, const char* column) {
  const Cell* cell = CellOf(row, column);
  std::int32_t number = 0;
  if (!cell || cell->empty()) return std::nullopt;
  std::from_chars(cell->data() + 1, cell->data() + cell->size(), number);
  return number;
}

// What an argument refers to, before and after its change.
std::vector<std::pair<std::string_view, std::int32_t>> ReferredBy(const ChangedRow& row) {
  std::vector<std::pair<std::string_view, std::int32_t>> referred;
  if (row.table != kArguments) return referred;
  const auto add = [&](const std::optional<Row>& image, const char* column,
                       std::string_view table) {
    const Cell* cell = image ? CellOf(*image, column) : nullptr;
    if (cell && cell->starts_with('i')) referred.emplace_back(table, *NumberIn(*image, column));
  };
  for (const auto* image : {&row.before, &row.after}) {
    add(*image, "AliasID", kAliases);
    add(*image, "ParentID", kFormulas);
  }
  return referred;
}

// The rows of a record, for telling quickly which others are tied to one of them: those of the same
// ID, arguments that rest on them, and what their arguments rest on. It refers to the record.
class Ties {
 public:
  explicit Ties(const Record& record) {
    for (const ChangedRow& row : record.rows) {
      const std::pair<std::string_view, std::int32_t> key(row.table, row.id);
      rows_.insert(key);
      if (ConcernsOthers(row)) concerning_.insert(key);
      for (const auto& other : ReferredBy(row)) referred_.insert(other);
    }
  }

  bool Has(const ChangedRow& row) const {
    const std::pair<std::string_view, std::int32_t> key(row.table, row.id);
    if (rows_.contains(key)) return true;
    if (referred_.contains(key) && ConcernsOthers(row)) return true;
    return std::ranges::any_of(ReferredBy(row),
                               [&](const auto& other) { return concerning_.contains(other); });
  }

 private:
  std::set<std::pair<std::string_view, std::int32_t>> rows_, concerning_, referred_;
};

bool HasRow(jet::Database& database, std::string_view table, std::string_view column,
            std::int32_t id) {
  return database.HasTable(table) && FindRow(database.OpenTable(table), column, id).has_value();
}

// Whether an argument names the alias or the formula of the row.
bool IsUsed(jet::Database& database, const ChangedRow& row) {
  if (row.table == kAliases) return HasRow(database, kArguments, "AliasID", row.id);
  if (row.table == kFormulas) return HasRow(database, kArguments, "ParentID", row.id);
  return false;
}

}  // namespace

Obstacles CheckRows(jet::Database& database, const Record& record) {
  Obstacles obstacles;
  for (const ChangedRow& row : record.rows) {
    if (auto obstacle = CheckRow(database, row)) obstacles.push_back(std::move(*obstacle));
  }
  return obstacles;
}

// What goes makes room for what comes.
void PutRowsBack(jet::Database& database, const Record& record) {
  for (const ChangedRow& row : record.rows) {
    jet::Table& table = database.OpenTable(row.table);
    if (!row.before) table.Delete(PlaceOf(table, row));
  }
  for (const ChangedRow& row : record.rows) {
    jet::Table& table = database.OpenTable(row.table);
    if (!row.before || !row.after) continue;
    const Values values(table, *row.before, &*row.after);
    table.Update(PlaceOf(table, row), values.get());
  }
  for (const ChangedRow& row : record.rows) {
    jet::Table& table = database.OpenTable(row.table);
    if (row.before && !row.after) table.Insert(Values(table, *row.before, nullptr).get());
  }
}

std::vector<store::RowChange> RowChangesOf(const Record& record) {
  using enum store::RowChange::Kind;
  std::vector<store::RowChange> changes;
  for (const ChangedRow& row : record.rows) {
    store::RowChange& change = changes.emplace_back();
    change.kind = !row.before ? kDeleted : !row.after ? kAdded : kChanged;
    change.table = row.table;
    for (const auto& [name, cell] : row.before ? *row.before : row.after.value_or(Row())) {
      change.members.emplace_back(name, ToVariant(cell));
    }
  }
  return changes;
}

Obstacles TakeCodeBack(files::FileSystem& system, const files::Reach& reach,
                       const Recorder& recorder, const Record& record, CodeBack& back) {
  Obstacles obstacles;
  const auto take = [&](const ChangedFile& file, const std::string& path,
                        const std::optional<std::string>& contents,
                        std::vector<files::FileChange>& changes) {
    if (auto obstacle = FileTaker(file, path).Take(contents, changes))
      obstacles.push_back(std::move(*obstacle));
  };
  for (const ChangedFile& file : record.files) {
    std::string path = recorder.PathOf(file);
    if (OpenCode* const code = recorder.open_code()) {
      if (const auto contents = code->Read(path)) {
        take(file, path, contents, back.open);
        continue;
      }
    }
    try {
      path = files::ResolveTarget(system, path);
    } catch (const files::Error&) {
      obstacles.push_back({message::kFileIsMissing, {{"<Path>", path}}});
      continue;
    }
    if (!reach || !reach(path)) {
      obstacles.push_back({message::kFileOutside, {{"<Path>", path}}});
    } else if (!system.Exists(path)) {
      take(file, path, std::nullopt, back.files);
    } else if (auto obstacle = CheckProtection(system, path)) {
      obstacles.push_back(std::move(*obstacle));
    } else {
      take(file, path, files::ReadFile(system, path), back.files);
    }
  }
  return obstacles;
}

Obstacles CheckReferences(jet::Database& database, const Record& record) {
  Obstacles obstacles;
  const auto say = [&](const messages::Pattern& pattern, const ChangedRow& row) {
    obstacles.push_back({pattern, {{"<Place>", row.table + " #" + std::to_string(row.id)}}});
  };
  for (const ChangedRow& row : record.rows) {
    if (row.table == kArguments && row.before) {
      const auto alias = NumberIn(*row.before, "AliasID");
      const auto formula = NumberIn(*row.before, "ParentID");
      const bool whole = alias && formula && HasRow(database, kAliases, kIdColumn, *alias) &&
                         HasRow(database, kFormulas, kIdColumn, *formula);
      if (!whole) say(message::kArgumentAlone, row);
    } else if (!row.before && IsUsed(database, row)) {
      say(message::kStillUsed, row);
    }
  }
  return obstacles;
}

std::vector<const Record*> Dependants(const Record& record, const std::vector<Record>& since) {
  const Ties ties(record);
  std::vector<const Record*> dependants;
  for (const Record& later : since) {
    const bool tied =
        std::ranges::any_of(later.rows, [&](const ChangedRow& row) { return ties.Has(row); });
    if (tied) dependants.push_back(&later);
  }
  return dependants;
}

}  // namespace history
