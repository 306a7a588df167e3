// SPDX-License-Identifier: MIT
#pragma once

#include "forms/grid.h"
#include "forms/list_view.h"
#include "wx/rows_view.h"

namespace wx {

// A grid: cells edited in place, check boxes, cell buttons, columns that the user moves and sizes.
class GridView : public RowsView {
 public:
  GridView(forms::Grid& grid, wxWindow* parent, const ViewContext& context);

 private:
  void BuildColumns() override;
  std::vector<std::size_t> ShownColumns() const override;
  bool OnKey(const wxKeyEvent& event) override;
  void Show(forms::Property property) override;

  wxDataViewColumn* MakeColumn(std::size_t number);
  void OnLeftUp(wxMouseEvent& event);
  void OnReordered(const wxDataViewColumn& moved);
  void OnStart(std::size_t row, std::size_t column);
  void OnEnd(bool escaped);
  void StartEditing();
  std::size_t NumberOf(const wxDataViewColumn* column) const;

  forms::Grid& grid_;
  bool ending_ = false;
};

// A list with columns, without editing.
class ListViewView : public RowsView {
 public:
  ListViewView(forms::ListView& list, wxWindow* parent, const ViewContext& context);

 private:
  void BuildColumns() override;
  std::vector<std::size_t> ShownColumns() const override;

  forms::ListView& list_model_;
};

}  // namespace wx
