// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>

#include <memory>
#include <string>

#include "forms/grid.h"
#include "wx/cell_list.h"
#include "wx/native_list.h"

namespace wx {

// The editing of a grid's cells in place. It begins by F2 or by the model only: clicks and letters
// would change a cell that nobody meant to. A drop-down column shows its list below the cell and
// completes what is typed.
class CellEditor {
 public:
  CellEditor(forms::Grid& grid, wxDataViewCtrl& list, NativeList& native);
  ~CellEditor();
  CellEditor(const CellEditor&) = delete;
  CellEditor& operator=(const CellEditor&) = delete;

  // Follows the editing of a column.
  void Watch(wxDataViewRenderer& renderer, std::size_t column);
  // A key of the list; true when it began the editing.
  bool OnKey(const wxKeyEvent& event);
  // A press of the left button on a cell; true when it was used.
  bool OnPress(const CellPress& press);
  // The model began or ended the editing by itself.
  void OnModelBegan();
  void OnModelEnded();

 private:
  void Start();
  void OnStart(std::size_t row, std::size_t column);
  void OnText(const std::string& text);
  bool OnArrow(bool up);
  void OnEnd(bool escaped);
  void OpenList(const forms::Column& column);
  bool CanEdit(std::size_t column) const;
  wxDataViewColumn* CurrentColumn() const;

  forms::Grid& grid_;
  wxDataViewCtrl& list_;
  NativeList& native_;
  std::unique_ptr<CellList> cell_list_;
  std::string last_text_;
  bool completing_ = false;
};

}  // namespace wx
