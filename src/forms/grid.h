// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/grid_columns.h"
#include "forms/row_view.h"
#include "messages/message.h"

namespace forms {

// One changed cell of the row that a grid writes.
struct CellChange {
  std::size_t column = 0;
  std::string field;
  platform::Variant old_value;
  platform::Variant new_value;
};

// The failure of writing a row.
struct GridError {
  std::int32_t number = 0;
  messages::Message message;
};

// A table with splits and columns over virtual rows. A cell is edited in the current row:
// BeginEdit, SetEditValue as the user types, EndEdit. The taken over cells are pending
// (DataChanged) until Update writes the row, which leaving the row does too.
class Grid : public RowView {
 public:
  using RowView::RowView;

  // Columns are numbered over all splits in order of creation.
  Split& AddSplit(double width);
  std::size_t SplitCount() const { return splits_.size(); }
  Split& SplitAt(std::size_t index) { return *splits_.at(index); }
  std::size_t ColumnCount() const;
  Column& ColumnAt(std::size_t index);
  const Column& ColumnAt(std::size_t index) const;
  // Number of the column with that field, without regard to case.
  std::optional<std::size_t> FindColumn(std::string_view field) const;
  std::size_t SplitOfColumn(std::size_t column) const;
  // Column numbers from left to right, split by split, hidden columns included.
  std::vector<std::size_t> DisplayOrder() const;
  // Numbers the orders of all columns by their places in `columns`, which names each of them once.
  // A column stays in its split all the same.
  void SetDisplayOrder(const std::vector<std::size_t>& columns);
  // The same order without the hidden columns.
  std::vector<std::size_t> ShownColumns() const;
  // What is copied of rows: the shown columns that can be written, all where none can.
  std::vector<std::size_t> CopiedColumns() const;

  // Column with the keyboard.
  std::size_t CurrentColumn() const { return current_column_; }
  void SetCurrentColumn(std::size_t column);

  // Cell as shown: a pending value in the current row, the source's value otherwise.
  platform::Variant ShownCell(std::size_t position, std::size_t column) const;

  bool EditActive() const { return edit_active_; }
  // Edits a cell of the current row; false when there is no such row or the column is locked.
  // Another cell's edit is ended first.
  bool BeginEdit(std::size_t column);
  void SetEditValue(const platform::Variant& value) {
    Assign(edit_value_, value, Property::kEditValue);
  }
  const platform::Variant& EditValue() const { return edit_value_; }
  // Takes the value over into the row; before and after it the column events. False when refused;
  // the cell has its old value then. True when nothing is being edited.
  bool EndEdit();
  // Ends the edit; the cell keeps its old value.
  void CancelEdit();
  // One whole edit: begin, value, end.
  bool EditCell(std::size_t column, const platform::Variant& value);

  // Whether the current row has values that are not written yet.
  bool DataChanged() const { return !changes_.empty(); }
  std::vector<CellChange> PendingChanges() const;
  // Ends a cell's edit and writes the row by on_write. A failure (platform::Error) goes to
  // on_error and gives false; the values stay pending unless on_error drops them.
  bool Update();
  // Drops the cell's edit and the pending values.
  void CancelUpdate();
  // Description of the last failure of Update.
  const messages::Message& Problem() const { return problem_; }

  // Splits(n) and Columns(field or number) are sub-objects.
  PropertyObject* SubObject(std::string_view name,
                            const std::optional<platform::Variant>& argument) override;

  // Writes the pending values of a row; raises platform::Error when it cannot.
  std::function<void(std::int64_t id, const std::vector<CellChange>& changes)> on_write;
  // May refuse the value by setting `cancel`.
  std::function<void(std::size_t column, const platform::Variant& old_value,
                     const platform::Variant& new_value, bool& cancel)>
      on_before_column_update;
  std::function<void(std::size_t column)> on_after_column_update;
  std::function<void(const GridError& error)> on_error;
  std::function<void(std::size_t column)> on_button_click;

 protected:
  bool LeaveRow() override { return Update(); }

 private:
  std::vector<std::unique_ptr<Split>> splits_;
  std::size_t current_column_ = 0;
  bool edit_active_ = false;
  bool ending_edit_ = false;  // Update ends it
  platform::Variant edit_value_;
  std::map<std::size_t, platform::Variant> changes_;  // by column
  messages::Message problem_;
};

}  // namespace forms
