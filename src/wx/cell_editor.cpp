// SPDX-License-Identifier: MIT
#include "wx/cell_editor.h"

#include "wx/convert.h"

namespace wx {

namespace {

using platform::Variant;

}  // namespace

CellEditor::CellEditor(forms::Grid& grid, wxDataViewCtrl& list, NativeList& native)
    : grid_(grid), list_(list), native_(native) {}

CellEditor::~CellEditor() = default;

void CellEditor::Watch(wxDataViewRenderer& renderer, std::size_t column) {
  native_.WatchEditing(renderer,
                       {.on_start = [this, column](std::size_t row) { OnStart(row, column); },
                        .on_text = [this](const std::string& text) { OnText(text); },
                        .on_arrow = [this](bool up) { return OnArrow(up); },
                        .on_end = [this](bool escaped) { OnEnd(escaped); }});
}

bool CellEditor::CanEdit(std::size_t column) const {
  return column < grid_.ColumnCount() && !grid_.ColumnAt(column).Locked() &&
         grid_.ColumnAt(column).Kind() != forms::ColumnKind::kCheckBox;
}

void CellEditor::Start() {
  const wxDataViewItem item = list_.GetCurrentItem();
  wxDataViewColumn* column = CurrentColumn();
  if (item.IsOk() && column && CanEdit(column->GetModelColumn())) native_.Edit(item, *column);
}

// The column with the keyboard; the first one that can be edited while the user chose none.
wxDataViewColumn* CellEditor::CurrentColumn() const {
  wxDataViewColumn* current = list_.GetCurrentColumn();
  if (current && current->GetModelColumn() < grid_.ColumnCount()) return current;
  for (unsigned i = 0; i < list_.GetColumnCount(); ++i) {
    if (CanEdit(list_.GetColumn(i)->GetModelColumn())) return list_.GetColumn(i);
  }
  return nullptr;
}

bool CellEditor::OnKey(const wxKeyEvent& event) {
  if (event.GetKeyCode() != WXK_F2 || event.GetModifiers() != wxMOD_NONE) return false;
  Start();
  return true;
}

// The native list would open the entry.
bool CellEditor::OnPress(const CellPress& press) {
  const bool current = grid_.CurrentPosition() == press.row;
  if (!press.plain || !current || !CanEdit(press.column)) return false;
  list_.SetFocus();
  native_.SetCurrentCell(press.row, press.column);
  return true;
}

void CellEditor::OnStart(std::size_t row, std::size_t column) {
  if (!grid_.SetCurrentId(grid_.IdAt(row)) || !grid_.BeginEdit(column)) {
    list_.CallAfter([this] { native_.CancelEditing(); });
    return;
  }
  last_text_ = grid_.EditValue().ToText();
  if (grid_.ColumnAt(column).Kind() == forms::ColumnKind::kDropDown) {
    // The entry has its place when the start is over.
    list_.CallAfter([this, column] { OpenList(grid_.ColumnAt(column)); });
  }
}

void CellEditor::OpenList(const forms::Column& column) {
  if (!native_.Editing() || !column.List()) return;
  cell_list_ = std::make_unique<CellList>(&list_, column.List(), [this](const std::string& text) {
    native_.SetEntryText(text);
    list_.CallAfter([this] { native_.CommitEditing(); });
  });
  cell_list_->Open(native_.EntryRectangle());
  cell_list_->MarkPrefix(grid_.EditValue().ToText());
}

void CellEditor::OnText(const std::string& text) {
  grid_.SetEditValue(Variant(text));
  bool grew = text.size() > last_text_.size() || !last_text_.starts_with(text);
  last_text_ = text;
  if (completing_ || !cell_list_) return;
  std::string entry = cell_list_->MarkPrefix(text);
  if (!grew || entry.size() <= text.size()) return;
  // What was typed stays; the rest is selected, so that the next key replaces it.
  list_.CallAfter([this, entry, typed = text] {
    if (!native_.Editing() || last_text_ != typed) return;
    completing_ = true;
    native_.CompleteEntry(entry, typed);
    completing_ = false;
    last_text_ = typed;
  });
}

bool CellEditor::OnArrow(bool up) {
  if (!cell_list_) return false;
  std::string entry = cell_list_->Move(up);
  completing_ = true;
  native_.SetEntryText(entry);
  completing_ = false;
  return true;
}

void CellEditor::OnEnd(bool escaped) {
  cell_list_.reset();
  if (!grid_.EditActive()) return;
  list_.CallAfter([this, escaped] {
    if (escaped) {
      grid_.CancelEdit();
    } else {
      grid_.EndEdit();
    }
  });
}

// A value that the model sets has ended its edit by then.
void CellEditor::OnModelBegan() {
  if (native_.Editing()) return;
  list_.CallAfter([this] {
    if (!grid_.EditActive() || native_.Editing() || !grid_.CurrentPosition()) return;
    list_.SetFocus();
    native_.SetCurrentCell(*grid_.CurrentPosition(), grid_.CurrentColumn());
    Start();
    if (!native_.Editing()) grid_.CancelEdit();
  });
}

void CellEditor::OnModelEnded() {
  if (native_.Editing()) native_.CancelEditing();
}

}  // namespace wx
