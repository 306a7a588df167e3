// SPDX-License-Identifier: MIT
#include "desktop/place_table.h"

#include <utility>

#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

// The rows, asked for as they are drawn.
class PlaceTable::Model : public wxDataViewVirtualListModel {
 public:
  explicit Model(const std::vector<Row>& rows) : rows_(rows) {}

  void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override {
    value = row < rows_.size() ? wx::ToWx(rows_[row][column]) : wxString();
  }
  bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

 private:
  const std::vector<Row>& rows_;
};

PlaceTable::PlaceTable(wxWindow* parent, const std::string& name,
                       const std::vector<Column>& columns)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                     wxDV_SINGLE | wxDV_ROW_LINES),
      model_(new Model(rows_)) {
  AssociateModel(model_.get());
  wx::SetAccessibleName(*this, wx::ToWx(name));
  for (const Column& column : columns) {
    const int width = column.width == 0 ? wxCOL_WIDTH_DEFAULT : column.width * GetCharWidth();
    AppendTextColumn(wx::ToWx(column.title), GetColumnCount(), wxDATAVIEW_CELL_INERT, width,
                     wxALIGN_LEFT, wxDATAVIEW_COL_RESIZABLE);
  }
  wxDataViewCtrl::Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent& event) {
    if (on_activate) on_activate(model_->GetRow(event.GetItem()));
  });
}

void PlaceTable::ShowRows(std::vector<Row> rows) {
  rows_ = std::move(rows);
  model_->Reset(static_cast<unsigned>(rows_.size()));
  if (rows_.empty()) return;
  const wxDataViewItem first = model_->GetItem(0);
  SetCurrentItem(first);
  Select(first);
  EnsureVisible(first);
}

}  // namespace desktop
