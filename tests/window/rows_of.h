// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>

#include <string>
#include <vector>

namespace window_tests {

// The rows that a list shows, their cells with bars between them.
inline std::vector<std::string> RowsOf(const wxDataViewCtrl& list) {
  const auto* model = dynamic_cast<const wxDataViewVirtualListModel*>(list.GetModel());
  std::vector<std::string> rows;
  for (unsigned row = 0; row < model->GetCount(); ++row) {
    std::string text;
    for (unsigned column = 0; column < list.GetColumnCount(); ++column) {
      wxVariant cell;
      model->GetValueByRow(cell, row, column);
      text += (column ? "|" : "") + cell.GetString().utf8_string();
    }
    rows.push_back(text);
  }
  return rows;
}

}  // namespace window_tests
