// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "forms/observable.h"

namespace desktop {

// Places that can be gone to, by double click or Enter, and looked at by selecting them: a row of
// texts for each.
class PlaceTable : public wxDataViewCtrl {
 public:
  using Row = std::vector<std::string>;
  struct Column {
    std::string title;
    int width = 0;  // characters; 0 takes what is left
  };

  // The name is for screen readers.
  // `style`: whether several rows can be selected.
  PlaceTable(wxWindow* parent, const std::string& name, const std::vector<Column>& columns,
             long style = wxDV_SINGLE);

  // In place of those that are shown, each with a text for every column. The first is selected.
  void ShowRows(std::vector<Row> rows);
  std::size_t Count() const { return rows_.size(); }
  // From top to bottom.
  std::vector<std::size_t> Selected() const;
  // Nothing else is selected then.
  void SelectRow(std::size_t row);
  // The same with the keyboard: Enter and the arrow keys go on from there. For a table in sight;
  // one without its size yet would scroll the row out.
  void MoveToRow(std::size_t row);

  std::function<void()> on_select;  // by the user
  std::function<void(std::size_t row)> on_activate;

 private:
  class Model;

  std::vector<Row> rows_;
  wxObjectDataPtr<Model> model_;
  forms::Subscription table_font_;
};

}  // namespace desktop
