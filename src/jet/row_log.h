// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "jet/page.h"
#include "jet/row_buffer.h"
#include "jet/value.h"

namespace jet {

class Table;

// The values of a row, in no more room than they take.
class RowImage {
 public:
  explicit RowImage(const RowBuffer& row) : values_(row.values().begin(), row.values().end()) {
    std::size_t size = 0;
    for (const Value& value : values_) size += OutsideOf(value).size();
    bytes_ = std::make_unique_for_overwrite<char[]>(size);
    char* at = bytes_.get();
    for (Value& value : values_) {
      const std::string_view outside = OutsideOf(value);
      if (outside.empty()) continue;
      std::ranges::copy(outside, at);
      value = value.WithBytesAt(at);
      at += outside.size();
    }
  }

  std::size_t size() const { return values_.size(); }
  const Value& operator[](std::size_t i) const { return values_[i]; }

 private:
  // What the value refers to.
  static std::string_view OutsideOf(const Value& value) {
    using enum ValueKind;
    const bool refers = value.kind() == kText || value.kind() == kBinary || value.kind() == kGuid ||
                        value.kind() == kDecimal;
    return refers ? value.text() : std::string_view();
  }

  std::vector<Value> values_;
  std::unique_ptr<char[]> bytes_;
};

// A row that a transaction added, changed or deleted. What it is afterwards stands in the table.
enum class RowEdit : std::uint8_t { kAdded, kChanged, kDeleted };
struct LoggedRow {
  RowEdit edit = RowEdit::kAdded;
  RowId id;  // of a row that is deleted another may get it
  Table* table = nullptr;
  std::unique_ptr<RowImage> before;  // all columns; null: it was added
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
