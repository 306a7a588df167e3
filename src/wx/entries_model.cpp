// SPDX-License-Identifier: MIT
#include "wx/entries_model.h"

#include "wx/convert.h"
#include "wx/native_list.h"

namespace wx {

void EntriesModel::GetValueByRow(wxVariant& value, unsigned row, unsigned) const {
  value = source_ ? ToWx(source_->Item(row).text) : wxString();
}

wxDataViewCtrl* MakeEntriesList(wxWindow* parent, EntriesModel& model) {
  auto* list = new wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                  wxDV_SINGLE | wxDV_NO_HEADER);
  list->AssociateModel(&model);
  list->AppendTextColumn(wxEmptyString, 0);
  return list;
}

void MarkEntry(wxDataViewCtrl& list, EntriesModel& model, std::int32_t index) {
  list.UnselectAll();
  if (index < 0 || index >= static_cast<std::int32_t>(model.GetCount())) return;
  wxDataViewItem item = model.GetItem(static_cast<unsigned>(index));
  list.Select(item);
  ScrollToRow(list, static_cast<unsigned>(index));
}

}  // namespace wx
