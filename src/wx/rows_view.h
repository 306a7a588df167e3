// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>
#include <wx/panel.h>
#include <wx/srchctrl.h>

#include <functional>
#include <optional>
#include <vector>

#include "forms/row_view.h"
#include "wx/control_view.h"
#include "wx/native_list.h"
#include "wx/rows_model.h"

namespace wx {

// What the views of grids and lists share: the native list over virtual rows, current row and
// selection both ways, keys, the context menu, the filter (Ctrl+F) and copying rows (Ctrl+C).
class RowsView : public ControlView {
 public:
  RowsView(forms::RowView& rows, wxWindow* parent, const ViewContext& context);

  wxWindow& FocusWindow() const override { return *list_->GetMainWindow(); }
  void Detach() override;
  void SetCovered(bool covered) override;

 protected:
  // Called at the end of the constructor of a view.
  void Start();
  void Show(forms::Property property) override;
  // Makes the native columns anew from the model.
  virtual void BuildColumns() = 0;
  // Brings changed widths to the native columns; false when something else changed too.
  virtual bool ResizeColumns() { return false; }
  // The numbers of the columns that are copied, from left to right.
  virtual std::vector<std::size_t> CopiedColumns() const = 0;
  // Brings the column with the keyboard to the model, before a key or a menu acts on it.
  virtual void TakeColumn() {}
  // A key that neither the model nor this view used; true when it was used.
  virtual bool OnKey(const wxKeyEvent&) { return false; }
  virtual void OnDoubleClick();

  // The left button is pressed on a row, which may be dragged from now on. True keeps the press
  // from the native list: several rows are selected, and would not be any more.
  bool PressRow(const CellPress& press);

  wxDataViewCtrl& List() const { return *list_; }
  NativeList& Native() { return native_; }
  RowsModel& Cells() const { return *cells_; }
  // Runs a task when no event of the list is being handled.
  void Later(const std::function<void()>& task) { list_->CallAfter(task); }
  void ShowCurrent();

 private:
  void Bind();
  void OnKeyDown(wxKeyEvent& event);
  void TakeKeyboard(const wxDataViewEvent& event);
  bool TakeCurrent();
  void TakeSelection();
  std::int64_t IdOf(const wxDataViewItem& item) const;
  void ShowSelection();
  void ShowFont();
  void ShowRows();
  void RebuildColumns();
  void ShowEmptyText();
  void OpenFilter();
  void CloseFilter();
  bool ClearFilter();
  void CopyRows();
  void MouseUp(std::int16_t button, wxPoint position);
  void OnMotion(wxMouseEvent& event);
  void OnLeftUp(wxMouseEvent& event);

  forms::RowView& rows_;
  const ViewContext& context_;
  wxPanel* panel_;
  wxSearchCtrl* filter_;
  wxDataViewCtrl* list_;
  NativeList native_;
  wxObjectDataPtr<RowsModel> cells_;
  struct Press {
    std::int64_t id = 0;
    std::size_t column = 0;
    wxPoint at;         // on the screen
    bool kept = false;  // from the native list
  };
  forms::Subscription table_font_;
  std::optional<Press> press_;
  bool syncing_ = false;  // the native list is being brought up to the model
  bool columns_pending_ = false;
  bool rows_pending_ = false;  // the rows are shown once the list is in sight
};

}  // namespace wx
