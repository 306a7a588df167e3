// SPDX-License-Identifier: MIT
#include "forms/grid.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/error.h"
#include "platform/text.h"

namespace forms {

using platform::EqualsIgnoringCase;
using platform::Variant;

Split& Grid::AddSplit(double width) {
  splits_.push_back(std::make_unique<Split>(width, [this] { Notify(Property::kColumns); }));
  return *splits_.back();
}

std::size_t Grid::ColumnCount() const {
  std::size_t count = 0;
  for (const auto& split : splits_) count += split->Columns().size();
  return count;
}

const Column& Grid::ColumnAt(std::size_t index) const {
  for (const auto& split : splits_) {
    if (index < split->Columns().size()) return *split->Columns()[index];
    index -= split->Columns().size();
  }
  throw std::out_of_range("grid column");
}

Column& Grid::ColumnAt(std::size_t index) {
  return const_cast<Column&>(std::as_const(*this).ColumnAt(index));
}

std::optional<std::size_t> Grid::FindColumn(std::string_view field) const {
  std::size_t number = 0;
  for (const auto& split : splits_) {
    for (const auto& column : split->Columns()) {
      if (EqualsIgnoringCase(column->DataField(), field)) return number;
      ++number;
    }
  }
  return std::nullopt;
}

std::size_t Grid::SplitOfColumn(std::size_t column) const {
  std::size_t split = 0;
  while (split + 1 < splits_.size() && column >= splits_[split]->Columns().size()) {
    column -= splits_[split++]->Columns().size();
  }
  return split;
}

std::vector<std::size_t> Grid::DisplayOrder() const {
  std::vector<std::size_t> order;
  for (const auto& split : splits_) {
    const auto& columns = split->Columns();
    std::size_t first = order.size();
    for (std::size_t i = 0; i < columns.size(); ++i) order.push_back(first + i);
    std::stable_sort(order.begin() + static_cast<std::ptrdiff_t>(first), order.end(),
                     [&](std::size_t a, std::size_t b) {
                       return columns[a - first]->Order() < columns[b - first]->Order();
                     });
  }
  return order;
}

void Grid::SetDisplayOrder(const std::vector<std::size_t>& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    ColumnAt(columns[i]).SetOrder(static_cast<std::int32_t>(i));
  }
}

void Grid::SetCurrentColumn(std::size_t column) {
  if (column >= ColumnCount() || column == current_column_ || !EndEdit()) return;
  Assign(current_column_, column, Property::kCurrentRow);
}

Variant Grid::ShownCell(std::size_t position, std::size_t column) const {
  auto change = changes_.find(column);
  if (change != changes_.end() && CurrentPosition() == position) return change->second;
  return Cell(position, column);
}

bool Grid::BeginEdit(std::size_t column) {
  auto position = CurrentPosition();
  if (!position || column >= ColumnCount() || ColumnAt(column).Locked()) return false;
  if (edit_active_ && column == current_column_) return true;
  if (!EndEdit()) return false;
  current_column_ = column;
  edit_value_ = ShownCell(*position, column);
  Assign(edit_active_, true, Property::kEditState);
  return true;
}

bool Grid::EndEdit() {
  if (!edit_active_) return true;
  edit_active_ = false;
  auto position = CurrentPosition();
  Variant old_value = position ? ShownCell(*position, current_column_) : Variant();
  Variant new_value = edit_value_;
  bool cancel = !position;
  if (position && !(new_value == old_value)) {
    if (on_before_column_update) {
      on_before_column_update(current_column_, old_value, new_value, cancel);
    }
    if (!cancel) changes_[current_column_] = new_value;
  }
  Notify(Property::kEditState);
  bool taken = !cancel && changes_.contains(current_column_) && !(new_value == old_value);
  if (taken && on_after_column_update) on_after_column_update(current_column_);
  return !cancel;
}

void Grid::CancelEdit() { Assign(edit_active_, false, Property::kEditState); }

bool Grid::EditCell(std::size_t column, const Variant& value) {
  if (!BeginEdit(column)) return false;
  SetEditValue(value);
  return EndEdit();
}

std::vector<CellChange> Grid::PendingChanges() const {
  std::vector<CellChange> changes;
  auto position = CurrentPosition();
  if (!position) return changes;
  for (const auto& [column, value] : changes_) {
    const std::string& field = ColumnAt(column).DataField();
    changes.push_back({column, field, Cell(*position, column), value});
  }
  return changes;
}

std::vector<std::size_t> Grid::ShownColumns() const {
  std::vector<std::size_t> shown = DisplayOrder();
  std::erase_if(shown, [this](std::size_t column) { return !ColumnAt(column).Visible(); });
  return shown;
}

std::vector<std::size_t> Grid::CopiedColumns() const {
  std::vector<std::size_t> columns = ShownColumns();
  const auto locked = [this](std::size_t column) { return ColumnAt(column).Locked(); };
  if (!std::all_of(columns.begin(), columns.end(), locked)) std::erase_if(columns, locked);
  return columns;
}

bool Grid::Update() {
  if (ending_edit_) return true;  // the row is written when the edit has ended
  ending_edit_ = true;
  const bool ended = EndEdit();
  ending_edit_ = false;
  if (!ended) return false;
  auto changes = PendingChanges();
  if (changes.empty()) {
    changes_.clear();
    return true;
  }
  try {
    if (on_write) on_write(*CurrentId(), changes);
  } catch (const platform::Error& error) {
    problem_ = error.message();
    if (on_error) on_error({error.number(), error.message()});
    return false;
  }
  changes_.clear();
  RefreshCells();
  return true;
}

void Grid::CancelUpdate() {
  edit_active_ = false;
  if (changes_.empty()) {
    Notify(Property::kEditState);
    return;
  }
  changes_.clear();
  RefreshCells();
}

PropertyObject* Grid::SubObject(std::string_view name, const std::optional<Variant>& argument) {
  if (EqualsIgnoringCase(name, "Splits") && argument && !argument->IsText()) {
    double index = argument->ToDouble();
    bool fits = index >= 0 && index < static_cast<double>(splits_.size());
    return fits ? splits_[static_cast<std::size_t>(index)].get() : nullptr;
  }
  if (EqualsIgnoringCase(name, "Columns") && argument) {
    if (auto field = argument->Get<std::string>()) {
      auto column = FindColumn(*field);
      return column ? &ColumnAt(*column) : nullptr;
    }
    double index = argument->ToDouble();
    bool fits = index >= 0 && index < static_cast<double>(ColumnCount());
    return fits ? &ColumnAt(static_cast<std::size_t>(index)) : nullptr;
  }
  return RowView::SubObject(name, argument);
}

}  // namespace forms
