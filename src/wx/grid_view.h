// SPDX-License-Identifier: MIT
#pragma once

#include "forms/grid.h"
#include "forms/list_view.h"
#include "wx/cell_editor.h"
#include "wx/rows_view.h"

namespace wx {

// A grid: cells edited in place, check boxes, cell buttons, columns that the user moves and sizes.
class GridView : public RowsView {
 public:
  GridView(forms::Grid& grid, wxWindow* parent, const ViewContext& context);

 private:
  void BuildColumns() override;
  bool ResizeColumns() override;
  std::vector<std::size_t> CopiedColumns() const override;
  void TakeColumn() override;
  bool OnKey(const wxKeyEvent& event) override;
  void Show(forms::Property property) override;

  wxDataViewColumn* MakeColumn(std::size_t number);
  void AppendRestIfNeeded();
  int ShownWidth(std::size_t number) const;
  std::string Columns() const;
  bool OnPress(const CellPress& press);
  bool StaysInSplit(std::size_t column, NativeList::Neighbour left,
                    NativeList::Neighbour right) const;
  void TakeOrder();
  void SortByHeader(std::size_t column);
  void SortBy(const std::optional<forms::RowSort>& sort);
  void ShowSort();
  std::size_t NumberOf(const wxDataViewColumn* column) const;

  forms::Grid& grid_;
  CellEditor editor_;
  std::string built_;      // the columns as they were built
  bool has_rest_ = false;  // an empty column takes the rest of the width
};

// A list with columns, without editing.
class ListViewView : public RowsView {
 public:
  ListViewView(forms::ListView& list, wxWindow* parent, const ViewContext& context);

 private:
  void BuildColumns() override;
  std::vector<std::size_t> CopiedColumns() const override;

  forms::ListView& list_model_;
};

}  // namespace wx
