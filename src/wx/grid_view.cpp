// SPDX-License-Identifier: MIT
#include "wx/grid_view.h"

#include <wx/utils.h>

#include <algorithm>

#include "wx/convert.h"
#include "wx/pictures.h"

namespace wx {

namespace {

constexpr int kMinWidth = 20;  // of a column, in pixels at 100 %

using platform::Variant;

}  // namespace

GridView::GridView(forms::Grid& grid, wxWindow* parent, const ViewContext& context)
    : RowsView(grid, parent, context), grid_(grid), editor_(grid, List(), Native()) {
  Cells().on_value = [this](std::size_t row, std::size_t column, const Variant& value) {
    if (grid_.ColumnAt(column).Kind() != forms::ColumnKind::kCheckBox) {
      grid_.SetEditValue(value);  // the end of the editing takes it over
      return;
    }
    Later([this, id = grid_.IdAt(row), column, value] {
      if (grid_.SetCurrentId(id)) grid_.EditCell(column, value);
      Native().Redraw();
    });
  };
  Start();
}

std::size_t GridView::NumberOf(const wxDataViewColumn* column) const {
  return column ? column->GetModelColumn() : 0;
}

void GridView::BuildColumns() {
  Native().ForgetColumns();
  Native().WatchPresses([this](const CellPress& press) { return OnPress(press); });
  List().ClearColumns();
  for (std::size_t number : grid_.DisplayOrder()) List().AppendColumn(MakeColumn(number));
  for (unsigned i = 0; i < List().GetColumnCount(); ++i) {
    wxDataViewColumn& column = *List().GetColumn(i);
    std::size_t number = NumberOf(&column);
    const forms::Column& model = grid_.ColumnAt(number);
    if (model.Button()) Native().AddCellButton(column, Picture(model.ButtonPicture()));
    Native().WatchWidth(column, [this, number](int width) {
      if (width != ShownWidth(number)) grid_.ColumnAt(number).Resize(ToTwips(List(), width));
    });
  }
  has_rest_ = false;
  AppendRestIfNeeded();
  built_ = Columns();
  Native().WatchHeaders([this](std::size_t column) {
    if (column < grid_.ColumnCount()) Later([this, column] { SortByHeader(column); });
  });
  ShowSort();
  Native().WatchOrder(
      [this] { Later([this] { TakeOrder(); }); },
      [this](std::size_t column, NativeList::Neighbour left, NativeList::Neighbour right) {
        return StaysInSplit(column, left, right);
      });
}

bool GridView::ResizeColumns() {
  if (built_ != Columns()) return false;
  for (unsigned i = 0; i < List().GetColumnCount(); ++i) {
    wxDataViewColumn& column = *List().GetColumn(i);
    const std::size_t number = NumberOf(&column);
    if (number >= grid_.ColumnCount()) continue;
    const int width = ShownWidth(number);
    if (column.GetWidth() != width) column.SetWidth(width);
  }
  AppendRestIfNeeded();
  return true;
}

int GridView::ShownWidth(std::size_t number) const {
  const forms::Column& column = grid_.ColumnAt(number);
  return std::max(ToPixels(List(), column.Width() + column.Extra()), List().FromDIP(kMinWidth));
}

// All of the native columns but their widths.
std::string GridView::Columns() const {
  std::string text;
  for (const std::size_t number : grid_.DisplayOrder()) {
    const forms::Column& column = grid_.ColumnAt(number);
    text += std::to_string(number) + ' ' + std::to_string(static_cast<int>(column.Kind())) +
            (column.Locked() ? 'l' : '-') + (column.AllowSizing() ? 's' : '-') +
            (column.Visible() ? 'v' : '-') + column.ButtonPicture() + '\t' + column.Caption() +
            '\n';
  }
  return text;
}

// The native list stretches its last column over the rest of its width. Where that is not to be, an
// empty one behind the others takes the rest; it has the number behind theirs. It costs something
// for each row that comes.
void GridView::AppendRestIfNeeded() {
  const std::vector<std::size_t> shown = grid_.ShownColumns();
  if (has_rest_ || (!shown.empty() && grid_.ColumnAt(shown.back()).Fills())) return;
  has_rest_ = true;
  auto* renderer = new wxDataViewTextRenderer("string", wxDATAVIEW_CELL_INERT);
  List().AppendColumn(new wxDataViewColumn(
      wxString(), renderer, static_cast<unsigned>(grid_.ColumnCount()), 1, wxALIGN_LEFT, 0));
}

wxDataViewColumn* GridView::MakeColumn(std::size_t number) {
  const forms::Column& model = grid_.ColumnAt(number);
  wxDataViewRenderer* renderer = nullptr;
  wxAlignment alignment = wxALIGN_LEFT;
  if (model.Kind() == forms::ColumnKind::kCheckBox) {
    renderer = new wxDataViewToggleRenderer(
        "bool", model.Locked() ? wxDATAVIEW_CELL_INERT : wxDATAVIEW_CELL_ACTIVATABLE);
    alignment = wxALIGN_CENTER;
  } else {
    if (model.Kind() == forms::ColumnKind::kNumber) alignment = wxALIGN_RIGHT;
    renderer = NewTextRenderer(model.Locked() ? wxDATAVIEW_CELL_INERT : wxDATAVIEW_CELL_EDITABLE);
    renderer->EnableEllipsize(wxELLIPSIZE_END);
    editor_.Watch(*renderer, number);
  }
  int flags = wxDATAVIEW_COL_REORDERABLE | (model.AllowSizing() ? wxDATAVIEW_COL_RESIZABLE : 0) |
              (model.Visible() ? 0 : wxDATAVIEW_COL_HIDDEN);
  auto* column =
      new wxDataViewColumn(ToWx(model.Caption()), renderer, static_cast<unsigned>(number),
                           ShownWidth(number), alignment, flags);
  column->SetMinWidth(List().FromDIP(kMinWidth));
  return column;
}

// A column that was clicked again turns the order round, and then gives it up.
void GridView::SortByHeader(std::size_t column) {
  const std::optional<forms::RowSort>& sort = grid_.Sort();
  if (!sort || sort->column != column) return SortBy(forms::RowSort{column, false});
  SortBy(sort->descending ? std::nullopt : std::optional(forms::RowSort{column, true}));
}

void GridView::SortBy(const std::optional<forms::RowSort>& sort) {
  const wxBusyCursor busy;  // all rows are read
  grid_.SetSort(sort);
  ShowSort();
}

void GridView::ShowSort() {
  const std::optional<forms::RowSort>& sort = grid_.Sort();
  Native().ShowSort(sort ? std::optional(sort->column) : std::nullopt, sort && sort->descending);
}

std::vector<std::size_t> GridView::CopiedColumns() const { return grid_.CopiedColumns(); }

// The splits lie side by side; what is behind the columns of the model lies behind all of them.
bool GridView::StaysInSplit(std::size_t column, NativeList::Neighbour left,
                            NativeList::Neighbour right) const {
  const auto split = [this](std::size_t number) {
    return number < grid_.ColumnCount() ? grid_.SplitOfColumn(number) : grid_.SplitCount();
  };
  return column < grid_.ColumnCount() && (!left || split(*left) <= split(column)) &&
         (!right || split(*right) >= split(column));
}

// The user put a column somewhere else.
void GridView::TakeOrder() {
  std::vector<std::size_t> order = Native().Order();
  std::erase_if(order, [this](std::size_t number) { return number >= grid_.ColumnCount(); });
  if (order == grid_.DisplayOrder() || order.size() != grid_.ColumnCount()) return;
  grid_.SetDisplayOrder(order);
  built_ = order == grid_.DisplayOrder() ? Columns() : std::string();
}

bool GridView::OnPress(const CellPress& press) {
  if (press.column >= grid_.ColumnCount()) return false;
  if (press.double_click) {
    bool check_box = grid_.ColumnAt(press.column).Kind() == forms::ColumnKind::kCheckBox;
    if (!check_box) {
      Later([this, id = grid_.IdAt(press.row)] {
        if (grid_.SetCurrentId(id)) OnDoubleClick();
      });
    }
    return true;
  }
  if (!press.on_button) return PressRow(press) || editor_.OnPress(press);
  Later([this, id = grid_.IdAt(press.row), column = press.column] {
    if (!grid_.SetCurrentId(id)) return;
    ShowCurrent();
    grid_.SetCurrentColumn(column);
    if (grid_.on_button_click) grid_.on_button_click(column);
  });
  return true;
}

void GridView::Show(forms::Property property) {
  RowsView::Show(property);
  if (property != forms::Property::kEditState) return;
  grid_.EditActive() ? editor_.OnModelBegan() : editor_.OnModelEnded();
}

// Alt with an arrow key orders the rows by the column with the keyboard.
bool GridView::OnKey(const wxKeyEvent& event) {
  const int code = event.GetKeyCode();
  if (event.GetModifiers() != wxMOD_ALT || (code != WXK_UP && code != WXK_DOWN))
    return editor_.OnKey(event);
  SortBy(forms::RowSort{grid_.CurrentColumn(), code == WXK_DOWN});
  return true;
}

void GridView::TakeColumn() {
  std::size_t current = NumberOf(List().GetCurrentColumn());
  if (current < grid_.ColumnCount()) grid_.SetCurrentColumn(current);
}

ListViewView::ListViewView(forms::ListView& list, wxWindow* parent, const ViewContext& context)
    : RowsView(list, parent, context), list_model_(list) {
  Start();
}

void ListViewView::BuildColumns() {
  List().ClearColumns();
  for (std::size_t i = 0; i < list_model_.Columns().size(); ++i) {
    const forms::ListColumn& column = list_model_.Columns()[i];
    wxDataViewColumn* native = List().AppendTextColumn(
        ToWx(column.caption), static_cast<unsigned>(i), wxDATAVIEW_CELL_INERT,
        ToPixels(List(), column.width), wxALIGN_LEFT, wxDATAVIEW_COL_RESIZABLE);
    native->GetRenderer()->EnableEllipsize(wxELLIPSIZE_END);
  }
}

std::vector<std::size_t> ListViewView::CopiedColumns() const {
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < list_model_.Columns().size(); ++i) shown.push_back(i);
  return shown;
}

}  // namespace wx
