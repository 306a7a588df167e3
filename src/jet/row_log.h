// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "jet/row_buffer.h"

namespace jet {

class Table;

// A row that a transaction added (no `before`), deleted (no `after`) or changed, with the values
// of all columns.
struct LoggedRow {
  const Table* table = nullptr;
  std::unique_ptr<RowBuffer> before;
  std::unique_ptr<RowBuffer> after;
};

// The rows that the open transaction changed, in order. What a savepoint takes back is taken out.
class RowLog {
 public:
  void Begin() {
    if (marks_.empty()) rows_.clear();
    marks_.push_back(rows_.size());
  }
  void Commit() { marks_.pop_back(); }
  void Rollback() {
    rows_.resize(marks_.back());
    marks_.pop_back();
  }

  void Add(LoggedRow row) { rows_.push_back(std::move(row)); }
  // Of the transaction that is open, or was the last.
  const std::vector<LoggedRow>& rows() const { return rows_; }

  bool kept = false;  // nothing is added otherwise

 private:
  std::vector<LoggedRow> rows_;
  std::vector<std::size_t> marks_;
};

}  // namespace jet
