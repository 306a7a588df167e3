// SPDX-License-Identifier: MIT
// What grids and list views share: virtual rows, a filter, the current row and the selection.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "forms/control.h"
#include "forms/keys.h"
#include "forms/row_order.h"
#include "forms/row_source.h"

namespace forms {

// Positions count the rows that pass the filter, from 0, in the order shown; IDs name rows for
// good. Current row and selection are kept by ID, so that they survive reloading.
class RowView : public Control {
 public:
  using Control::Control;

  // Shows other rows; null shows none. Current row, selection and filter are dropped.
  void SetRowSource(std::shared_ptr<RowSource> source);
  const std::shared_ptr<RowSource>& Source() const { return source_; }
  // Reads everything again. Current row and selection stay on the rows that still exist; when the
  // current row is gone, the row at its position becomes current.
  void Rebind();
  // The cells of rows differ, their number and order do not.
  void RefreshCells();

  std::size_t RowCount() const;
  // ID of the row at a position, which must be below RowCount().
  std::int64_t IdAt(std::size_t position) const;
  std::optional<std::size_t> PositionOf(std::int64_t id) const;
  // Empty for a position or column that does not exist.
  platform::Variant Cell(std::size_t position, std::size_t column) const;

  // Keeps the rows of which a cell contains the text; letter case does not count; ""
  // keeps all.
  void SetFilter(std::string_view text);
  const std::string& Filter() const { return filter_; }

  // Orders the rows by a column; nothing shows them in the order of their source. A row whose cell
  // changes stays where it is until all rows are read again.
  void SetSort(const std::optional<RowSort>& sort);
  const std::optional<RowSort>& Sort() const { return sort_; }

  // The row with the keyboard; nothing when there are no rows or none was chosen.
  std::optional<std::int64_t> CurrentId() const { return current_id_; }
  std::optional<std::size_t> CurrentPosition() const;
  // Chooses a row; false when there is no such row, or when a pending edit refuses to be written.
  bool SetCurrentId(std::optional<std::int64_t> id);

  bool MultiSelect() const { return multi_select_; }
  void SetMultiSelect(bool multi_select) { multi_select_ = multi_select; }
  // IDs of the selected rows in the order of the rows.
  std::vector<std::int64_t> SelectedIds() const;
  // Their positions, ascending, with their IDs.
  std::vector<std::pair<std::size_t, std::int64_t>> SelectedRows() const;
  std::size_t SelectedCount() const { return selection_.size(); }
  bool IsSelected(std::int64_t id) const { return selection_.contains(id); }
  void SetSelection(const std::vector<std::int64_t>& ids);

  // The selected rows as tab-separated text, a row each line.
  std::string SelectedText(const std::vector<std::size_t>& columns) const;

  // What the rows are called when they are dragged elsewhere; "" for rows that are not. Set before
  // they are shown.
  const std::string& DragKind() const { return drag_kind_; }
  void SetDragKind(std::string_view kind) { drag_kind_ = kind; }

  // What a screen reader calls the rows; set before they are shown.
  const std::string& AccessibleName() const { return accessible_name_; }
  void SetAccessibleName(std::string_view name) { accessible_name_ = name; }

  // What to do when there are no rows ("No arguments yet. F8 adds one."), shown in their place.
  const std::string& EmptyText() const { return empty_text_; }
  void SetEmptyText(std::string_view text) {
    Assign(empty_text_, std::string(text), Property::kCaption);
  }

  std::function<void()> on_current_row;
  std::function<void()> on_selection;
  std::function<void()> on_double_click;  // on a data cell of the current row
  std::function<void(KeyEvent&)> on_key_down;
  std::function<void()> on_clear_filter;  // Escape among rows that a filter keeps
  std::function<void(const MouseEvent&)> on_mouse_up;

 protected:
  // Called before another row becomes current; false keeps the row.
  virtual bool LeaveRow() { return true; }

 private:
  static constexpr std::size_t kBlockRows = 256;
  static constexpr std::size_t kBlocksKept = 32;
  static constexpr std::size_t kHidden = static_cast<std::size_t>(-1);

  const Row* RowAt(std::size_t position) const;
  const Row* SourceRow(std::size_t index) const;
  // Whether a filter or an order says where rows stand, not the source.
  bool Arranged() const { return sort_.has_value() || !filter_.empty(); }
  void Arrange();
  void ReadFoldedRows();
  void ForgetRows();
  void KeepPassingSelection();
  void KeepExistingSelection();
  void KeepCurrentRow();

  std::shared_ptr<RowSource> source_;
  mutable std::unordered_map<std::size_t, std::vector<Row>> blocks_;
  std::string filter_;
  std::vector<std::string> folded_;  // text of each row of the source since the last filter
  std::optional<RowSort> sort_;
  std::vector<std::size_t> order_;   // all rows of the source, sorted
  std::vector<std::int64_t> ids_;    // of all rows of the source, while it is arranged
  std::vector<std::size_t> shown_;   // rows of the source as they are shown, while it is arranged
  std::vector<std::size_t> places_;  // of all rows of the source among those shown
  std::optional<std::int64_t> current_id_;
  std::size_t known_position_ = 0;  // of the current row when it was last looked up
  std::set<std::int64_t> selection_;
  bool multi_select_ = true;
  std::string drag_kind_;
  std::string accessible_name_;
  std::string empty_text_;
};

}  // namespace forms
