// SPDX-License-Identifier: MIT
#include "wx/rows_view.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/utils.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "messages/text_number.h"
#include "texts/text_table.h"
#include "wx/convert.h"
#include "wx/native.h"
#include "wx/row_drag.h"
#include "wx/table_font.h"

namespace wx {

namespace {

using forms::Property;

constexpr messages::TextNumber kFilterText{1490};
constexpr int kDrag = 6;  // pixels at 100 % that the mouse moves before it drags

}  // namespace

RowsView::RowsView(forms::RowView& rows, wxWindow* parent, const ViewContext& context)
    : ControlView(rows),
      rows_(rows),
      context_(context),
      panel_(new wxPanel(parent)),
      filter_(new wxSearchCtrl(panel_, wxID_ANY)),
      list_(new wxDataViewCtrl(
          panel_, wxID_ANY, wxDefaultPosition, wxDefaultSize,
          (rows.MultiSelect() ? wxDV_MULTIPLE : wxDV_SINGLE) | wxDV_VERT_RULES | wxDV_ROW_LINES)),
      native_(*list_),
      cells_(new RowsModel(rows)) {
  filter_->ShowCancelButton(true);
  filter_->SetDescriptiveText(ToWx(context.texts.Text(kFilterText)));
  filter_->Hide();
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(filter_, wxSizerFlags().Expand().Border(wxBOTTOM, panel_->FromDIP(4)));
  sizer->Add(list_, wxSizerFlags(1).Expand());
  panel_->SetSizer(sizer);
  list_->AssociateModel(cells_.get());
  LeaveOutScrollbarWithoutRoom(*list_);
  Attach(panel_, context.relayout);
}

void RowsView::Start() {
  ShowFont();
  table_font_ = ObserveTableFont([this] { ShowFont(); });
  SetAccessibleName(*list_, ToWx(rows_.AccessibleName()));
  BuildColumns();
  Bind();
  ShowRows();
}

void RowsView::ShowFont() {
  const forms::Font& font = rows_.GetFont();
  list_->SetFont(font == forms::Font() ? TableFont() : ToWx(font));
}

void RowsView::Detach() {
  ControlView::Detach();
  table_font_ = {};
  native_.ForgetColumns();
  native_.SetEmptyText({});
  cells_->Detach();
}

void RowsView::Bind() {
  list_->GetMainWindow()->Bind(wxEVT_KEY_DOWN, &RowsView::OnKeyDown, this);
  list_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const bool escape = event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers();
    if (!escape || native_.Editing() || !ClearFilter()) event.Skip();
  });
  list_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { TakeSelection(); });
  list_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) {
    TakeSelection();
    OnDoubleClick();
  });
  list_->Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, [this](wxDataViewEvent& event) {
    TakeKeyboard(event);
    TakeColumn();
    TakeSelection();
    MouseUp(forms::kRightButton, event.GetPosition());
  });
  list_->GetMainWindow()->Bind(wxEVT_MOTION, &RowsView::OnMotion, this);
  list_->GetMainWindow()->Bind(wxEVT_LEFT_UP, &RowsView::OnLeftUp, this);
  filter_->Bind(wxEVT_TEXT,
                [this](wxCommandEvent&) { rows_.SetFilter(FromWx(filter_->GetValue())); });
  filter_->Bind(wxEVT_SEARCHCTRL_CANCEL_BTN, [this](wxCommandEvent&) { CloseFilter(); });
  filter_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE) {
      CloseFilter();
    } else if (event.GetKeyCode() == WXK_DOWN || event.GetKeyCode() == WXK_RETURN) {
      list_->SetFocus();
    } else {
      event.Skip();
    }
  });
}

void RowsView::OnKeyDown(wxKeyEvent& event) {
  TakeCurrent();
  TakeColumn();
  forms::KeyEvent key = ToKeyEvent(event);
  if (rows_.on_key_down) rows_.on_key_down(key);
  if (key.handled) return;
  bool menu = event.GetKeyCode() == WXK_WINDOWS_MENU || event.GetKeyCode() == WXK_MENU ||
              (event.GetKeyCode() == WXK_F10 && event.GetModifiers() == wxMOD_SHIFT);
  if (menu) return MouseUp(forms::kRightButton, PopupPlace(*list_));
  bool control = event.GetModifiers() == wxMOD_CONTROL;
  if (control && event.GetKeyCode() == 'F') {
    OpenFilter();
  } else if (control && event.GetKeyCode() == 'C') {
    CopyRows();
  } else if (!OnKey(event)) {
    event.Skip();
  }
}

// Before what lies around the rows takes the key: it is their search that their user means.
bool RowsView::ClearFilter() {
  if (filter_->IsShown()) {
    CloseFilter();
    return true;
  }
  if (rows_.Filter().empty() || !rows_.on_clear_filter) return false;
  rows_.on_clear_filter();
  return true;
}

// A right click: the native list selects the row and leaves the keyboard where it was.
void RowsView::TakeKeyboard(const wxDataViewEvent& event) {
  list_->SetFocus();
  if (!event.GetItem().IsOk()) return;
  wxDataViewItem item;
  wxDataViewColumn* column = nullptr;
  list_->HitTest(event.GetPosition(), item, column);
  if (list_->GetSelectedItemsCount() > 1 || !column) {
    list_->SetCurrentItem(event.GetItem());
  } else {
    native_.SetCurrentCell(cells_->GetRow(event.GetItem()), column->GetModelColumn());
  }
}

void RowsView::OnDoubleClick() {
  if (rows_.on_double_click) rows_.on_double_click();
}

void RowsView::MouseUp(std::int16_t button, wxPoint position) {
  if (!rows_.on_mouse_up) return;
  rows_.on_mouse_up({button, 0, ToTwips(*list_, position.x), ToTwips(*list_, position.y)});
}

bool RowsView::PressRow(const CellPress& press) {
  press_.reset();
  if (rows_.DragKind().empty() || !press.plain) return false;
  const std::int64_t id = rows_.IdAt(press.row);
  const bool kept = rows_.SelectedCount() > 1 && rows_.IsSelected(id);
  press_ = Press{id, press.column, wxGetMousePosition(), kept};
  if (kept) list_->SetFocus();
  return kept;
}

void RowsView::OnMotion(wxMouseEvent& event) {
  event.Skip();
  if (!press_ || !event.LeftIsDown()) return;
  const wxPoint way = wxGetMousePosition() - press_->at;
  if (std::max(std::abs(way.x), std::abs(way.y)) <= list_->FromDIP(kDrag)) return;
  const Press press = *std::exchange(press_, std::nullopt);
  if (!press.kept) TakeSelection();
  if (rows_.IsSelected(press.id)) DragRows(*list_, {rows_.DragKind(), rows_.SelectedIds()});
}

// The row alone is selected, as by a press.
void RowsView::OnLeftUp(wxMouseEvent& event) {
  event.Skip();
  const auto press = std::exchange(press_, std::nullopt);
  const auto row = press && press->kept ? rows_.PositionOf(press->id) : std::nullopt;
  if (row) native_.SetCurrentCell(*row, press->column);
}

// Brings the current row of the native list to the model: it moves without an event, too. False
// when the model's row cannot be left.
bool RowsView::TakeCurrent() {
  if (syncing_ || rows_pending_) return true;
  const wxDataViewItem current = list_->GetCurrentItem();
  if (rows_.RowCount() == 0 || !current.IsOk()) return true;
  syncing_ = true;
  const bool moved = rows_.SetCurrentId(IdOf(current));
  syncing_ = false;
  if (!moved) Later([this] { ShowCurrent(); });
  return moved;
}

// The same for current row and selection.
void RowsView::TakeSelection() {
  if (syncing_ || !TakeCurrent()) return;
  wxDataViewItemArray items;
  list_->GetSelections(items);
  std::vector<std::int64_t> ids;
  for (const wxDataViewItem& item : items) ids.push_back(IdOf(item));
  syncing_ = true;
  rows_.SetSelection(ids);
  syncing_ = false;
}

std::int64_t RowsView::IdOf(const wxDataViewItem& item) const {
  return rows_.IdAt(cells_->GetRow(item));
}

void RowsView::ShowCurrent() {
  auto position = rows_.CurrentPosition();
  if (!position || syncing_ || rows_pending_) return;
  syncing_ = true;
  wxDataViewItem item = cells_->GetItem(static_cast<unsigned>(*position));
  list_->SetCurrentItem(item);
  ScrollToRow(*list_, static_cast<unsigned>(*position));
  if (rows_.SelectedCount() == 0 || !rows_.MultiSelect()) {
    list_->Select(item);  // the native list shows it so anyway
    rows_.SetSelection({rows_.IdAt(*position)});
  }
  syncing_ = false;
}

void RowsView::ShowSelection() {
  if (syncing_ || rows_pending_) return;
  syncing_ = true;
  wxDataViewItemArray items;
  for (const auto& row : rows_.SelectedRows()) {
    items.Add(cells_->GetItem(static_cast<unsigned>(row.first)));
  }
  list_->SetSelections(items);
  syncing_ = false;
}

void RowsView::SetCovered(bool covered) {
  ControlView::SetCovered(covered);
  if (!covered && rows_pending_) ShowRows();
}

void RowsView::ShowRows() {
  rows_pending_ = Covered() || columns_pending_;
  if (rows_pending_) return;
  bool was_syncing = syncing_;
  syncing_ = true;
  const auto count = static_cast<unsigned>(rows_.RowCount());
  // As many rows as before are only drawn again: the native list holds nothing of them.
  if (count != cells_->GetCount() || native_.Editing()) {
    cells_->Reset(count);
  } else {
    native_.Redraw();
  }
  syncing_ = was_syncing;
  ShowEmptyText();
  ShowSelection();
  ShowCurrent();
}

// Without rows meanwhile: the native list goes through all of them for each column.
void RowsView::RebuildColumns() {
  bool was_syncing = syncing_;
  syncing_ = true;
  cells_->Reset(0);
  BuildColumns();
  syncing_ = was_syncing;
  ShowRows();
}

void RowsView::ShowEmptyText() {
  bool empty = rows_.RowCount() == 0;
  native_.SetEmptyText(empty ? FromWx(ToWx(rows_.EmptyText())) : std::string());
  SetAccessibleDescription(*list_, empty ? ToWx(rows_.EmptyText()) : wxString());
}

void RowsView::Show(Property property) {
  ControlView::Show(property);
  switch (property) {
    case Property::kRows:
      if (filter_->IsShown() && rows_.Filter().empty() && !filter_->IsEmpty()) {
        filter_->ChangeValue(wxEmptyString);
      }
      ShowRows();
      break;
    case Property::kCells:
    case Property::kEditState:
      native_.Redraw();
      break;
    case Property::kCurrentRow:
      ShowCurrent();
      break;
    case Property::kSelection:
      ShowSelection();
      break;
    case Property::kCaption:
      ShowEmptyText();
      break;
    case Property::kFont:
      ShowFont();
      break;
    case Property::kColumns:
      // Settings change many columns in a row: they are built once, afterwards.
      if (columns_pending_) break;
      columns_pending_ = true;
      Later([this] {
        columns_pending_ = false;
        if (!ResizeColumns()) return RebuildColumns();
        if (rows_pending_) ShowRows();
      });
      break;
    default:
      break;
  }
}

void RowsView::OpenFilter() {
  filter_->Show();
  panel_->Layout();
  filter_->SetFocus();
  filter_->SelectAll();
}

void RowsView::CloseFilter() {
  filter_->ChangeValue(wxEmptyString);
  filter_->Hide();
  panel_->Layout();
  rows_.SetFilter({});
  list_->SetFocus();
}

void RowsView::CopyRows() {
  const std::string text = rows_.SelectedText(CopiedColumns());
  if (!text.empty()) ToClipboard(text);
}

}  // namespace wx
