// SPDX-License-Identifier: MIT
#include "wx/rows_model.h"

#include "forms/list_view.h"
#include "wx/convert.h"

namespace wx {

bool RowsModel::IsCheckBox(unsigned column) const {
  return grid_ && column < grid_->ColumnCount() &&
         grid_->ColumnAt(column).Kind() == forms::ColumnKind::kCheckBox;
}

void RowsModel::GetValueByRow(wxVariant& value, unsigned row, unsigned column) const {
  platform::Variant cell;
  if (column >= GetColumnCount()) {
    value = wxString();
    return;
  }
  if (grid_) {
    cell = grid_->ShownCell(row, column);
  } else if (rows_) {
    cell = rows_->Cell(row, column);
  }
  if (IsCheckBox(column)) {
    value = cell.ToBool();
  } else {
    value = ToWx(cell.ToText());
  }
}

bool RowsModel::SetValueByRow(const wxVariant& value, unsigned row, unsigned column) {
  if (!on_value) return false;
  if (IsCheckBox(column)) {
    on_value(row, column, platform::Variant(value.GetBool()));
  } else {
    on_value(row, column, platform::Variant(FromWx(value.GetString())));
  }
  return true;
}

unsigned RowsModel::GetColumnCount() const {
  if (grid_) return static_cast<unsigned>(grid_->ColumnCount());
  auto* list = dynamic_cast<forms::ListView*>(rows_);
  return list ? static_cast<unsigned>(list->Columns().size()) : 0;
}

wxString RowsModel::GetColumnType(unsigned column) const {
  return IsCheckBox(column) ? "bool" : "string";
}

}  // namespace wx
