// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/variant.h"

namespace forms {

// A row as a grid or list shows it. The ID names the row for as long as it exists (a table's
// primary key) and survives reloading and sorting.
struct Row {
  std::int64_t id = 0;
  std::vector<platform::Variant> cells;  // in the order of the columns
};

// Delivers the rows of a grid or list in blocks, as they are seen.
class RowSource {
 public:
  virtual ~RowSource() = default;
  virtual std::size_t RowCount() = 0;
  // Up to `count` rows from position `first` on. Must be cheap anywhere in the rows.
  virtual std::vector<Row> Rows(std::size_t first, std::size_t count) = 0;
  // Position of the row; nothing when there is none. The default looks at every row.
  virtual std::optional<std::size_t> IndexOf(std::int64_t id);
};

// A source that holds its rows.
class MemoryRows : public RowSource {
 public:
  MemoryRows() = default;
  explicit MemoryRows(std::vector<Row> rows) : rows_(std::move(rows)) {}
  std::vector<Row>& All() { return rows_; }
  std::size_t RowCount() override { return rows_.size(); }
  std::vector<Row> Rows(std::size_t first, std::size_t count) override;

 private:
  std::vector<Row> rows_;
};

}  // namespace forms
