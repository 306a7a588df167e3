// SPDX-License-Identifier: MIT
#include "recordset/row_cursor.h"

#include <cassert>

namespace recordset {

using jet::RowId;

void RowCursor::Restart() {
  state_ = State::kUnread;
  place_.reset();
  rows_ = {};
  all_ = false;
}

void RowCursor::Resolve() {
  if (state_ != State::kUnread) return;
  if (!all_) {
    if (const auto first = FindFirstRow(query_)) {
      state_ = first->ids.empty() ? State::kEmpty : State::kRow;
      current_ = first->ids;
      place_.reset();
      first_alone_ = true;
      return;
    }
    FindAll();
  }
  if (rows_.size() == 0) {
    state_ = State::kEmpty;
  } else {
    SetPlace(0);
  }
}

void RowCursor::FindAll() {
  if (all_) return;
  rows_ = RowList(FindRows(query_, MakePlan(query_)));
  all_ = true;
}

void RowCursor::SetPlace(std::size_t place) {
  const auto row = rows_[place];
  current_.assign(row.begin(), row.end());
  place_ = place;
  first_alone_ = false;
  state_ = State::kRow;
}

bool RowCursor::AtBegin() {
  Resolve();
  return state_ == State::kBegin || state_ == State::kEmpty;
}

bool RowCursor::AtEnd() {
  Resolve();
  return state_ == State::kEnd || state_ == State::kEmpty;
}

bool RowCursor::OnRow() {
  Resolve();
  return state_ == State::kRow;
}

bool RowCursor::OnFirst() {
  if (state_ == State::kUnread) return true;
  return state_ == State::kRow && (first_alone_ || place_ == std::size_t{0});
}

std::size_t RowCursor::Place() {
  Resolve();
  if (place_ && all_) return *place_;
  FindAll();
  if (!place_) place_ = rows_.Find(current_);
  if (!place_) {
    // Others added the row since the rows were found, or took it away.
    all_ = false;
    FindAll();
    place_ = rows_.Find(current_);
  }
  if (!place_) {
    place_ = rows_.width() == 1 ? rows_.PlaceInOrder(current_) : rows_.size();
    state_ = State::kRemoved;
  }
  return *place_;
}

std::optional<std::size_t> RowCursor::PlaceOf(std::span<const RowId> row) {
  FindAll();
  return rows_.Find(row);
}

std::size_t RowCursor::Count() { return All().size(); }

const RowList& RowCursor::All() {
  FindAll();
  return rows_;
}

void RowCursor::MoveFirst() {
  if (state_ == State::kUnread) return;
  state_ = State::kUnread;
  place_.reset();
}

void RowCursor::MoveLast() {
  FindAll();
  if (rows_.size() == 0) {
    state_ = State::kEmpty;
  } else {
    SetPlace(rows_.size() - 1);
  }
}

void RowCursor::MoveNext() {
  Resolve();
  std::size_t next = 0;
  if (state_ == State::kRow || state_ == State::kRemoved) {
    // A place that is not known is looked up, which can show that the row is gone.
    next = Place();
    if (state_ == State::kRow) ++next;
  } else if (state_ != State::kBegin) {
    return;
  }
  FindAll();
  if (next < rows_.size()) {
    SetPlace(next);
  } else {
    MoveToEnd();
  }
}

void RowCursor::MovePrevious() {
  Resolve();
  std::size_t place = 0;
  if (state_ == State::kRow || state_ == State::kRemoved) {
    place = Place();
  } else if (state_ == State::kEnd) {
    place = Count();
  } else {
    return;
  }
  if (place > 0) {
    SetPlace(place - 1);
  } else {
    MoveToBegin();
  }
}

void RowCursor::MoveToBegin() {
  FindAll();
  state_ = rows_.size() == 0 ? State::kEmpty : State::kBegin;
  place_.reset();
}

void RowCursor::MoveToEnd() {
  // Whether there are rows at all need not be asked when one was current.
  const bool empty = (all_ && rows_.size() == 0) || (state_ == State::kUnread && IsEmpty());
  state_ = empty || state_ == State::kEmpty ? State::kEmpty : State::kEnd;
  place_.reset();
}

void RowCursor::MoveTo(std::size_t place) {
  FindAll();
  assert(place < rows_.size());
  SetPlace(place);
}

bool RowCursor::MoveToRow(std::span<const RowId> row) {
  const auto place = PlaceOf(row);
  if (place) SetPlace(*place);
  return place.has_value();
}

void RowCursor::MoveToFound(RowId row) {
  current_.assign(1, row);
  place_.reset();
  first_alone_ = false;
  state_ = State::kRow;
}

void RowCursor::Add(RowId row) {
  MoveToFound(row);
  if (!all_) return;
  rows_.Append(row);
  place_ = rows_.size() - 1;
}

void RowCursor::Remove() {
  const std::size_t place = Place();
  if (state_ == State::kRow) RemoveAt(place);
}

void RowCursor::RemoveAt(std::size_t place) {
  rows_.Erase(place);
  if (place_ == place) state_ = State::kRemoved;
}

}  // namespace recordset
