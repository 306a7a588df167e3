// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "jet/page.h"
#include "jet/row_buffer.h"
#include "recordset/query.h"

namespace recordset {

// Reads the output of a query for one row after the other.
class RecordReader {
 public:
  // The query must outlive the reader and keep its filter meanwhile.
  explicit RecordReader(const Query& query);

  // Reads the row that these IDs name, one per table. False when it is gone; then nothing is held.
  bool Read(std::span<const jet::RowId> ids);
  // Whether the row that is held still is one that the query finds. An ID may name another row than
  // it did when the rows were found: that of a deleted row can be given away again.
  bool Passes() const { return query_.Passes({rows_.get(), query_.tables().size()}); }
  bool holds_row() const { return holds_row_; }
  void Forget() { holds_row_ = false; }

  // The value of a field by its position in the query's output. Only while a row is held.
  const jet::Value& operator[](std::size_t output) const {
    return rows_[query_.output()[output].source.table][slots_[output]];
  }
  // Whether the other reader, of the same query, holds the same values.
  bool SameValues(const RecordReader& other) const;

 private:
  const Query& query_;
  NeededColumns columns_;
  std::vector<std::size_t> slots_;  // of the output
  std::unique_ptr<jet::RowBuffer[]> rows_;
  bool holds_row_ = false;
};

}  // namespace recordset
