// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/row_view.h"

namespace forms {

struct ListColumn {
  std::string caption;
  double width = 0;  // twips
  friend bool operator==(const ListColumn&, const ListColumn&) = default;
};

// A read-only list with columns over virtual rows, searched by typing.
class ListView : public RowView {
 public:
  using RowView::RowView;

  const std::vector<ListColumn>& Columns() const { return columns_; }
  void SetColumns(std::vector<ListColumn> columns) {
    Assign(columns_, std::move(columns), Property::kColumns);
  }

 private:
  std::vector<ListColumn> columns_;
};

}  // namespace forms
