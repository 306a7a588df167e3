// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>

#include "forms/combo_box.h"

namespace wx {

// The entries of a drop-down list in one column, asked for as they are drawn.
class EntriesModel : public wxDataViewVirtualListModel {
 public:
  explicit EntriesModel(forms::ListSource& source)
      : wxDataViewVirtualListModel(static_cast<unsigned>(source.Count())), source_(&source) {}
  // Shows nothing more: the source is about to end.
  void Detach() { source_ = nullptr; }
  void Reload() { Reset(source_ ? static_cast<unsigned>(source_->Count()) : 0); }

  unsigned GetColumnCount() const override { return 1; }
  wxString GetColumnType(unsigned) const override { return "string"; }
  void GetValueByRow(wxVariant& value, unsigned row, unsigned) const override;
  bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

 private:
  forms::ListSource* source_;
};

// A list without header over the entries, as a child of `parent`.
wxDataViewCtrl* MakeEntriesList(wxWindow* parent, EntriesModel& model);

// Marks an entry and scrolls to it; none when there is no such entry.
void MarkEntry(wxDataViewCtrl& list, EntriesModel& model, std::int32_t index);

}  // namespace wx
