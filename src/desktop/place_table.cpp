// SPDX-License-Identifier: MIT
#include "desktop/place_table.h"

#include <algorithm>
#include <utility>

#include "wx/convert.h"
#include "wx/native.h"
#include "wx/native_list.h"
#include "wx/table_font.h"

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
                       const std::vector<Column>& columns, long style)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, style | wxDV_ROW_LINES),
      model_(new Model(rows_)) {
  AssociateModel(model_.get());
  wx::SetAccessibleName(*this, wx::ToWx(name));
  wx::LeaveOutScrollbarWithoutRoom(*this);
  SetFont(wx::TableFont());
  table_font_ = wx::ObserveTableFont([this] { SetFont(wx::TableFont()); });
  for (const Column& column : columns) {
    const int width = column.width == 0 ? wxCOL_WIDTH_DEFAULT : column.width * GetCharWidth();
    AppendTextColumn(wx::ToWx(column.title), GetColumnCount(), wxDATAVIEW_CELL_INERT, width,
                     wxALIGN_LEFT, wxDATAVIEW_COL_RESIZABLE);
  }
  wxDataViewCtrl::Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent& event) {
    if (on_activate) on_activate(model_->GetRow(event.GetItem()));
  });
  wxDataViewCtrl::Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    if (on_select) on_select();
  });
}

void PlaceTable::ShowRows(std::vector<Row> rows) {
  rows_ = std::move(rows);
  model_->Reset(static_cast<unsigned>(rows_.size()));
  if (rows_.empty()) return;
  SelectRow(0);
  // Its pane may give it its height only now; until then the end of the row was in sight.
  CallAfter([this] {
    const std::vector<std::size_t> selected = Selected();
    if (!selected.empty()) wx::ScrollToRow(*this, static_cast<unsigned>(selected.front()));
  });
}

std::vector<std::size_t> PlaceTable::Selected() const {
  wxDataViewItemArray items;
  GetSelections(items);
  std::vector<std::size_t> rows;
  for (const wxDataViewItem& item : items) rows.push_back(model_->GetRow(item));
  std::ranges::sort(rows);
  return rows;
}

void PlaceTable::SelectRow(std::size_t row) {
  const wxDataViewItem item = model_->GetItem(static_cast<unsigned>(row));
  UnselectAll();
  SetCurrentItem(item);
  Select(item);
  wx::ScrollToRow(*this, static_cast<unsigned>(row));
}

void PlaceTable::MoveToRow(std::size_t row) {
  SelectRow(row);
  wx::MoveKeyboardToRow(*this, static_cast<unsigned>(row));
}

}  // namespace desktop
