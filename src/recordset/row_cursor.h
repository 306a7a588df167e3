// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "jet/page.h"
#include "recordset/query.h"
#include "recordset/row_list.h"

namespace recordset {

// A position among the rows of a query. Which rows there are is settled when the query is started:
// as in a keyset, rows that others add do not join, rows that are gone are passed over by the one
// who reads them. The rows are found as late as possible: opening a table costs nothing, and its
// first row is looked up alone.
class RowCursor {
 public:
  // The query must outlive the cursor.
  explicit RowCursor(const Query& query) : query_(query) {}

  // Finds the rows anew; the position is the first row.
  void Restart();

  // Whether the first row, or that there is none, is known already.
  bool IsSettled() const { return state_ != State::kUnread; }
  bool AtBegin();  // before the first row; also when there are no rows
  bool AtEnd();    // behind the last row; also when there are no rows
  bool IsEmpty() { return AtBegin() && AtEnd(); }
  // On a row that was removed by Remove; moving on leaves it.
  bool OnRemoved() const { return state_ == State::kRemoved; }
  // On a row, not a removed one.
  bool OnRow();
  // The row's IDs, one per table. Only on a row.
  std::span<const jet::RowId> Row() const { return current_; }

  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  void MoveToBegin();
  void MoveToEnd();
  // From 0 on, below Count().
  void MoveTo(std::size_t place);
  // Makes this row current. False, changing nothing, when it is not among the rows.
  bool MoveToRow(std::span<const jet::RowId> row);
  // Makes a row current that an index of the query's only table found just now.
  void MoveToFound(jet::RowId row);

  // Place of the current row; finds all rows. Only on a row or a removed row, which has the place
  // of the row behind it.
  std::size_t Place();
  // Place of a row; finds all rows. Nothing when it is not among them.
  std::optional<std::size_t> PlaceOf(std::span<const jet::RowId> row);
  // Number of rows; finds all of them.
  std::size_t Count();
  // All rows; finds them.
  const RowList& All();
  bool FoundAll() const { return all_; }
  // On the first row, and no other is known to stand before it.
  bool OnFirst();

  // Adds a row at the end and makes it current.
  void Add(jet::RowId row);
  // Takes the current row out.
  void Remove();
  // Takes the row at a place out, the current one or one behind it.
  void RemoveAt(std::size_t place);

 private:
  enum class State : std::uint8_t {
    kUnread,   // the first row is current, if there is one: not looked up yet
    kBegin,    // before the first row
    kRow,      // on current_
    kRemoved,  // where current_ was
    kEnd,      // behind the last row
    kEmpty,    // there are no rows
  };

  void Resolve();  // leaves kUnread
  void FindAll();
  void SetPlace(std::size_t place);

  const Query& query_;
  State state_ = State::kUnread;
  std::vector<jet::RowId> current_;
  std::optional<std::size_t> place_;  // of current_, when it is known
  bool first_alone_ = false;          // current_ was looked up as the first row
  RowList rows_;
  bool all_ = false;  // rows_ holds all rows
};

}  // namespace recordset
