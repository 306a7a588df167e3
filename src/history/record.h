// SPDX-License-Identifier: MIT
// What one operation changed, as the history keeps it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jet/value.h"
#include "messages/message.h"

namespace history {

// A value of a row as text that tells its kind: "i12" is the number, "t12" the text. Equal values
// have equal texts.
using Cell = std::string;
Cell ToCell(const jet::Value& value);
// Refers to the cell, or to `room`, which takes bytes. Nothing for a text that is no cell.
std::optional<jet::Value> FromCell(const Cell& cell, std::string& room);

// Names of columns and their values, in the table's order.
using Row = std::vector<std::pair<std::string, Cell>>;

struct ChangedRow {
  std::string table;
  std::int32_t id = 0;
  std::optional<Row> before;  // nothing: the row was added
  std::optional<Row> after;   // nothing: it was deleted
  friend bool operator==(const ChangedRow&, const ChangedRow&) = default;
};

// Whole lines of a file that became others, with their line ends and in the file's own code page.
struct ChangedLines {
  std::int64_t line_before = 1;  // number of the first line, from 1
  std::int64_t line_after = 1;
  std::string before;
  std::string after;
  std::string above;  // some lines of the file as it was left, as its bytes
  std::string below;
  friend bool operator==(const ChangedLines&, const ChangedLines&) = default;
};

// Size and hash of a file's bytes.
struct FileVersion {
  std::uint64_t size = 0;
  std::uint64_t hash = 0;
  friend bool operator==(const FileVersion&, const FileVersion&) = default;
};

struct ChangedFile {
  std::string path;  // relative to the database's folder where it lies below that
  std::optional<FileVersion> before;
  std::optional<FileVersion> after;
  std::vector<ChangedLines> ranges;  // from top to bottom
  friend bool operator==(const ChangedFile&, const ChangedFile&) = default;
};

// Rows, one after the other.
class RowSource {
 public:
  using Visitor = std::function<void(const ChangedRow&)>;
  virtual ~RowSource() = default;
  virtual std::size_t size() const = 0;
  virtual void ForEach(const Visitor& visit) const = 0;
};

// Rows of a list, which must outlive it.
class ListedRows final : public RowSource {
 public:
  explicit ListedRows(const std::vector<ChangedRow>& rows) : rows_(rows) {}
  std::size_t size() const override { return rows_.size(); }
  void ForEach(const Visitor& visit) const override {
    for (const ChangedRow& row : rows_) visit(row);
  }

 private:
  const std::vector<ChangedRow>& rows_;
};

enum class Kind : char { kOperation = 'o', kUndo = 'u', kRedo = 'r' };

struct Record {
  std::uint64_t number = 0;  // from 1 on, one more each
  std::int64_t time = 0;     // seconds since 1970-01-01 UTC
  Kind kind = Kind::kOperation;
  std::uint64_t target = 0;  // number of the operation that was undone or redone
  std::string who;           // account@computer
  std::string program;
  messages::Message title;
  std::vector<ChangedRow> rows;
  std::vector<ChangedFile> files;
};

// The record as one line without its end, and back. Nothing for what is no record. WriteLine takes
// `rows` in place of the record's own and hands the line to `sink` in pieces.
std::string ToLine(const Record& record);
void WriteLine(const Record& record, const RowSource& rows,
               const std::function<void(std::string_view)>& sink);
enum class Detail { kAll, kHead };  // the head: without rows and files
std::optional<Record> FromLine(std::string_view line, Detail detail = Detail::kAll);

}  // namespace history
