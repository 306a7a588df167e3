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
  const RowImage* before = nullptr;  // all columns; null: it was added
};

// The rows that the open transaction changed, in order. What a savepoint takes back is taken out.
// Of a row that was added it keeps eight bytes.
class RowLog {
 public:
  void Begin() {
    if (marks_.empty()) Cut(0);
    marks_.push_back(rows_.size());
  }
  void Commit() { marks_.pop_back(); }
  void Rollback() {
    Cut(marks_.back());
    marks_.pop_back();
  }

  // `before`: null for a row that was added.
  void Add(RowEdit edit, RowId id, Table* table, std::unique_ptr<RowImage> before) {
    if (before) images_.push_back({rows_.size(), std::move(before)});
    rows_.push_back({id.Reference(), NumberOf(table), edit});
  }
  // Of the transaction that is open, or was the last.
  std::size_t size() const { return rows_.size(); }
  LoggedRow operator[](std::size_t i) const {
    const Entry& entry = rows_[i];
    LoggedRow row{entry.edit, RowId::FromReference(entry.row), tables_[entry.table], nullptr};
    if (entry.edit == RowEdit::kAdded) return row;
    const auto image = std::ranges::lower_bound(images_, i, {}, &Image::row);
    if (image != images_.end() && image->row == i) row.before = image->image.get();
    return row;
  }
  Table* TableOf(std::size_t i) const { return tables_[rows_[i].table]; }

  bool kept = false;  // nothing is added otherwise

 private:
  struct Entry {
    std::uint32_t row;  // RowId::Reference
    std::uint16_t table;
    RowEdit edit;
  };
  struct Image {
    std::size_t row;
    std::unique_ptr<RowImage> image;
  };

  void Cut(std::size_t size) {
    rows_.resize(size);
    while (!images_.empty() && images_.back().row >= size) images_.pop_back();
  }
  std::uint16_t NumberOf(Table* table) {
    const auto known = std::ranges::find(tables_, table);
    if (known != tables_.end()) return static_cast<std::uint16_t>(known - tables_.begin());
    tables_.push_back(table);
    return static_cast<std::uint16_t>(tables_.size() - 1);
  }

  std::vector<Entry> rows_;
  std::vector<Image> images_;   // of the rows that have one, in order
  std::vector<Table*> tables_;  // of which rows were changed at any time
  std::vector<std::size_t> marks_;
};

}  // namespace jet
