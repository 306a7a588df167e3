// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>

#include <functional>

#include "forms/grid.h"
#include "forms/row_view.h"

namespace wx {

// The rows of a grid or list as the native list asks for them: cell by cell, as they are drawn.
class RowsModel : public wxDataViewVirtualListModel {
 public:
  // Holds no row until it is reset.
  explicit RowsModel(forms::RowView& rows)
      : rows_(&rows), grid_(dynamic_cast<forms::Grid*>(&rows)) {}

  // What the user did to a cell, as long as it is heard.
  std::function<void(std::size_t row, std::size_t column, const platform::Variant& value)> on_value;

  // Shows nothing more: the rows are about to end.
  void Detach() {
    rows_ = nullptr;
    grid_ = nullptr;
    on_value = nullptr;
  }

  void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override;
  bool SetValueByRow(const wxVariant& value, unsigned row, unsigned column) override;
  unsigned GetColumnCount() const override;
  wxString GetColumnType(unsigned column) const override;

 private:
  bool IsCheckBox(unsigned column) const;

  forms::RowView* rows_;
  forms::Grid* grid_;
};

}  // namespace wx
