// SPDX-License-Identifier: MIT
#pragma once

#include <wx/popupwin.h>

#include <functional>
#include <memory>
#include <string>

#include "forms/combo_box.h"
#include "wx/entries_model.h"

namespace wx {

// The list below a cell that is being edited. It never takes the keyboard: the cell's entry keeps
// it and moves the mark.
class CellList {
 public:
  // `on_chosen` is told the text of an entry that was clicked.
  CellList(wxWindow* parent, std::shared_ptr<forms::ListSource> source,
           const std::function<void(const std::string& text)>& on_chosen);
  ~CellList();
  CellList(const CellList&) = delete;
  CellList& operator=(const CellList&) = delete;

  // Opens below a rectangle of the screen.
  void Open(const wxRect& cell);
  // Marks the first entry that begins with the text and returns its text; "" when there is none.
  std::string MarkPrefix(const std::string& text);
  // Moves the mark and returns the entry's text; "" when there are no entries.
  std::string Move(bool up);

 private:
  std::shared_ptr<forms::ListSource> source_;
  wxObjectDataPtr<EntriesModel> model_;
  wxPopupWindow* popup_;
  wxDataViewCtrl* list_;
  std::int32_t marked_ = -1;
};

}  // namespace wx
