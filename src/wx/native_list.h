// SPDX-License-Identifier: MIT
// What the native list offers beyond wxDataViewCtrl: the entry of a cell that is edited, widths
// that the user drags, pictures as cell buttons, and a text in place of rows.
#pragma once

#include <wx/bmpbndl.h>
#include <wx/dataview.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wx {

// A renderer of texts that NativeList can follow and put buttons in.
wxDataViewRenderer* NewTextRenderer(wxDataViewCellMode mode);

// Tells which row of a list in a popup is clicked; the list does not take the keyboard by it.
void WatchPicks(wxDataViewCtrl& list,
                const std::function<void(const wxDataViewItem& item)>& on_pick);

// Scrolls a row of a list with a virtual model into sight. The list may lose its rows right after:
// its own EnsureVisible would look for the row again when the program is idle.
void ScrollToRow(wxDataViewCtrl& list, unsigned row);

// Moves the keyboard of a list with a virtual model to a row, which is selected by it without an
// event. The list's own SetCurrentItem selects and leaves the keyboard where it was, if only one
// row can be selected.
void MoveKeyboardToRow(wxDataViewCtrl& list, unsigned row);

// Follows the editing of a column's cells in place.
struct CellEditing {
  std::function<void(std::size_t row)> on_start;
  std::function<void(const std::string& text)> on_text;
  // Up or Down while editing; true when it was used.
  std::function<bool(bool up)> on_arrow;
  // The user left the cell; `escaped` by Esc.
  std::function<void(bool escaped)> on_end;
};

// A press of the left button on a cell.
struct CellPress {
  std::size_t row = 0;
  std::size_t column = 0;  // of the model
  bool on_button = false;  // on the picture at the end of the cell
  bool double_click = false;
  bool plain = true;  // no modifier is held
};

class NativeList {
 public:
  explicit NativeList(wxDataViewCtrl& list);
  ~NativeList();
  NativeList(const NativeList&) = delete;
  NativeList& operator=(const NativeList&) = delete;

  // The callbacks must stay valid until the column is removed.
  void WatchEditing(wxDataViewRenderer& renderer, CellEditing editing);
  // The user dragged the border of the column; the width is in pixels.
  void WatchWidth(wxDataViewColumn& column, std::function<void(int width)> on_width);
  // The user dragged a column to another place. `may_stand` says whether a column may be put
  // between two others, all by their numbers in the model; nothing stands for the border of the
  // list.
  using Neighbour = std::optional<std::size_t>;
  void WatchOrder(
      std::function<void()> on_order,
      std::function<bool(std::size_t column, Neighbour left, Neighbour right)> may_stand);
  // The numbers of all columns in the model, from left to right.
  std::vector<std::size_t> Order() const;
  // The user clicked the header of a column, named by its number in the model.
  void WatchHeaders(std::function<void(std::size_t column)> on_header);
  // Marks the column that the rows are ordered by; nothing marks none.
  void ShowSort(std::optional<std::size_t> column, bool descending);
  // Columns that were watched are gone.
  void ForgetColumns();

  // Begins the editing of a cell.
  void Edit(const wxDataViewItem& item, wxDataViewColumn& column);
  // The text of the cell that is being edited.
  void SetEntryText(const std::string& text);
  // The same, with what follows the typed text selected.
  void CompleteEntry(const std::string& text, const std::string& typed);
  // Ends the editing of a cell as Enter does.
  void CommitEditing();
  // Ends the editing of a cell as Esc does.
  void CancelEditing();
  bool Editing() const;
  // Screen rectangle of the cell that is being edited.
  wxRect EntryRectangle() const;

  // Puts the picture at the right end of each cell of the column.
  void AddCellButton(wxDataViewColumn& column, const wxBitmapBundle& picture);
  // Sees presses before the list does; true keeps them from it.
  void WatchPresses(std::function<bool(const CellPress& press)> on_press);

  // Moves the keyboard to a cell, without editing it.
  void SetCurrentCell(std::size_t row, std::size_t column);

  // Draws all cells again (the control's own Refresh leaves them as they were).
  void Redraw();
  // Text that is drawn where the rows would be; "" for none.
  void SetEmptyText(const std::string& text);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace wx
