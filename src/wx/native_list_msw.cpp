// SPDX-License-Identifier: MIT
#include <wx/dc.h>
#include <wx/headerctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <algorithm>
#include <utility>

#include "wx/convert.h"
#include "wx/native_list.h"

namespace wx {

namespace {

constexpr int kTextMargin = 24;
constexpr int kButtonGap = 2;  // pixels at 100 %, on both sides of a cell's button

// Texts that can be edited, with a picture at the end of the cell.
class CellText : public wxDataViewTextRenderer {
 public:
  using wxDataViewTextRenderer::wxDataViewTextRenderer;

  wxBitmapBundle picture;
  std::function<void(wxTextCtrl& entry, const wxDataViewItem& item)> on_start;
  std::function<void(bool escaped)> on_end;

  int ButtonWidth() const {
    const wxWindow& list = *GetView();
    const int picture_width = picture.IsOk() ? picture.GetPreferredLogicalSizeFor(&list).x : 0;
    return picture_width > 0 ? picture_width + 2 * list.FromDIP(kButtonGap) : 0;
  }

  // A cell with a button is drawn as wide as its column.
  wxSize GetSize() const override {
    wxSize size = wxDataViewTextRenderer::GetSize();
    if (ButtonWidth() > 0) size.x = std::max(size.x + ButtonWidth(), GetOwner()->GetWidth());
    return size;
  }

  bool StartEditing(const wxDataViewItem& item, wxRect place) override {
    if (!wxDataViewTextRenderer::StartEditing(item, place)) return false;
    if (on_start) on_start(*static_cast<wxTextCtrl*>(GetEditorCtrl()), item);
    return true;
  }
  void CancelEditing() override { End(true); }
  bool FinishEditing() override { return End(false); }

  bool Render(wxRect cell, wxDC* dc, int state) override {
    const int width = ButtonWidth();
    wxRect text = cell;
    text.width = std::max(0, text.width - width);
    wxDataViewTextRenderer::Render(text, dc, state);
    if (width == 0) return true;
    const wxBitmap bitmap = picture.GetBitmapFor(GetView());
    dc->DrawBitmap(bitmap, cell.GetRight() + 1 - width + GetView()->FromDIP(kButtonGap),
                   cell.y + (cell.height - bitmap.GetLogicalHeight()) / 2, true);
    return true;
  }

 private:
  bool End(bool escaped) {
    if (!GetEditorCtrl()) return true;
    bool taken = true;
    if (escaped) {
      wxDataViewTextRenderer::CancelEditing();
      GetView()->SetFocus();
    } else {
      taken = wxDataViewTextRenderer::FinishEditing();
    }
    if (on_end) on_end(escaped);
    return taken;
  }
};

}  // namespace

wxDataViewRenderer* NewTextRenderer(wxDataViewCellMode mode) {
  return new CellText("string", mode);
}

// The list keeps the keyboard where it is.
void WatchPicks(wxDataViewCtrl& list,
                const std::function<void(const wxDataViewItem& item)>& on_pick) {
  list.GetMainWindow()->Bind(wxEVT_LEFT_DOWN, [&list, on_pick](wxMouseEvent& event) {
    wxDataViewItem item;
    wxDataViewColumn* column = nullptr;
    const wxPoint on_screen = list.GetMainWindow()->ClientToScreen(event.GetPosition());
    list.HitTest(list.ScreenToClient(on_screen), item, column);
    if (item.IsOk()) on_pick(item);
  });
}

void ScrollToRow(wxDataViewCtrl& list, unsigned row) {
  list.EnsureVisible(static_cast<wxDataViewVirtualListModel*>(list.GetModel())->GetItem(row));
}

void MoveKeyboardToRow(wxDataViewCtrl& list, unsigned row) {
  list.SetCurrentItem(static_cast<wxDataViewVirtualListModel*>(list.GetModel())->GetItem(row));
}

struct NativeList::State {
  wxDataViewCtrl* list = nullptr;
  wxWeakRef<wxWindow> top;
  wxStaticText* empty_text = nullptr;
  CellText* edited = nullptr;
  bool may_edit = false;     // nothing but Edit begins the editing
  bool pressing = false;     // a press of the mouse is being handled
  bool let_through = false;  // the list itself moves the keyboard to the cell that is pressed
  std::function<bool(const CellPress&)> on_press;
  std::function<void()> on_order;
  std::function<bool(std::size_t, Neighbour, Neighbour)> may_stand;
  std::function<void(std::size_t)> on_header;
  std::vector<std::function<void(int)>> on_width;  // by the order in which columns were appended

  // What was drawn while a dialog disabled the window is grey.
  void OnActivate(wxActivateEvent& event) {
    event.Skip();
    if (event.GetActive()) Rows().Refresh();
  }

  wxTextCtrl* Entry() const {
    return edited ? static_cast<wxTextCtrl*>(edited->GetEditorCtrl()) : nullptr;
  }
  std::size_t RowOf(const wxDataViewItem& item) const {
    return static_cast<wxDataViewVirtualListModel*>(list->GetModel())->GetRow(item);
  }
  wxWindow& Rows() const { return *list->GetMainWindow(); }

  void OnPress(wxMouseEvent& event) {
    const wxPoint place = list->ScreenToClient(Rows().ClientToScreen(event.GetPosition()));
    wxDataViewItem item;
    wxDataViewColumn* column = nullptr;
    list->HitTest(place, item, column);
    if (!on_press || !item.IsOk() || !column) return event.Skip();
    CellPress cell;
    cell.row = RowOf(item);
    cell.column = column->GetModelColumn();
    if (const auto* text = dynamic_cast<const CellText*>(column->GetRenderer())) {
      const wxRect area = list->GetItemRect(item, column);
      cell.on_button = place.x > area.GetRight() - text->ButtonWidth();
    }
    cell.double_click = event.LeftDClick();
    cell.plain = !event.HasAnyModifiers();
    pressing = true;
    let_through = false;
    const bool used = on_press(cell);
    pressing = false;
    event.Skip(!used || let_through);
  }

  // The generic list has no key for it.
  void OnKeyDown(wxKeyEvent& event) {
    if (event.GetKeyCode() != 'A' || event.GetModifiers() != wxMOD_CONTROL) return event.Skip();
    list->SelectAll();
    wxDataViewEvent changed(wxEVT_DATAVIEW_SELECTION_CHANGED, list, list->GetCurrentItem());
    list->HandleWindowEvent(changed);
  }

  // The numbers in the model, from left to right.
  std::vector<std::size_t> Order() const {
    std::vector<std::size_t> order;
    const wxHeaderCtrl* header = list->GenericGetHeader();
    if (!header) return order;
    for (const int place : header->GetColumnsOrder())
      order.push_back(list->GetColumn(static_cast<unsigned>(place))->GetModelColumn());
    return order;
  }

  bool MayMove(std::size_t column, std::size_t place) const {
    std::vector<std::size_t> order = Order();
    std::erase(order, column);
    place = std::min(place, order.size());
    const Neighbour left = place > 0 ? Neighbour(order[place - 1]) : Neighbour();
    const Neighbour right = place < order.size() ? Neighbour(order[place]) : Neighbour();
    return may_stand(column, left, right);
  }

  void BindHeader() {
    wxHeaderCtrl* header = list->GenericGetHeader();
    if (!header) return;
    header->Bind(wxEVT_HEADER_END_RESIZE, [this](wxHeaderCtrlEvent& event) {
      event.Skip();
      const auto column = static_cast<std::size_t>(event.GetColumn());
      if (column < on_width.size() && on_width[column]) on_width[column](event.GetWidth());
    });
    header->Bind(wxEVT_HEADER_END_REORDER, [this](wxHeaderCtrlEvent& event) {
      const auto number =
          list->GetColumn(static_cast<unsigned>(event.GetColumn()))->GetModelColumn();
      if (may_stand && !MayMove(number, event.GetNewOrder())) return event.Veto();
      event.Skip();
    });
  }

  // Disabled, it looks like a hint and leaves clicks to the list.
  void PlaceEmptyText() {
    const int margin = list->FromDIP(kTextMargin);
    const int width = std::max(0, Rows().GetClientSize().GetWidth() - 2 * margin);
    empty_text->Wrap(width);
    empty_text->InvalidateBestSize();  // a label of a fixed size keeps that of its last text
    empty_text->SetSize(margin, margin, width, empty_text->GetBestSize().GetHeight());
  }
};

NativeList::NativeList(wxDataViewCtrl& list) : state_(std::make_unique<State>()) {
  State* state = state_.get();
  state->list = &list;
  state->empty_text =
      new wxStaticText(&state->Rows(), wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                       wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE);
  state->empty_text->Disable();
  state->empty_text->Hide();
  for (const auto& press : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK})
    state->Rows().Bind(press, &State::OnPress, state);
  if (list.HasFlag(wxDV_MULTIPLE)) state->Rows().Bind(wxEVT_KEY_DOWN, &State::OnKeyDown, state);
  state->Rows().Bind(wxEVT_SIZE, [state](wxSizeEvent& event) {
    event.Skip();
    if (state->empty_text->IsShown()) state->PlaceEmptyText();
  });
  list.Bind(wxEVT_DATAVIEW_ITEM_START_EDITING, [state](wxDataViewEvent& event) {
    if (!state->may_edit) event.Veto();
  });
  list.Bind(wxEVT_DATAVIEW_COLUMN_REORDERED, [state](wxDataViewEvent& event) {
    event.Skip();
    if (state->on_order) state->on_order();
  });
  list.Bind(wxEVT_DATAVIEW_COLUMN_HEADER_CLICK, [state](wxDataViewEvent& event) {
    if (state->on_header && event.GetDataViewColumn())
      state->on_header(event.GetDataViewColumn()->GetModelColumn());
  });
  state->BindHeader();
  state->top = wxGetTopLevelParent(&list);
  state->top->Bind(wxEVT_ACTIVATE, &State::OnActivate, state);
}

NativeList::~NativeList() {
  if (state_->top) state_->top->Unbind(wxEVT_ACTIVATE, &State::OnActivate, state_.get());
}

void NativeList::WatchEditing(wxDataViewRenderer& renderer, CellEditing editing) {
  auto& text = dynamic_cast<CellText&>(renderer);
  State* state = state_.get();
  text.on_start = [state, &text, editing](wxTextCtrl& entry, const wxDataViewItem& item) {
    state->edited = &text;
    entry.Bind(wxEVT_TEXT, [&entry, editing](wxCommandEvent& event) {
      event.Skip();
      editing.on_text(FromWx(entry.GetValue()));
    });
    entry.Bind(wxEVT_KEY_DOWN, [editing](wxKeyEvent& event) {
      const bool up = event.GetKeyCode() == WXK_UP;
      const bool arrow = up || event.GetKeyCode() == WXK_DOWN;
      if (!arrow || !editing.on_arrow || !editing.on_arrow(up)) event.Skip();
    });
    editing.on_start(state->RowOf(item));
  };
  text.on_end = [state, editing](bool escaped) {
    state->edited = nullptr;
    editing.on_end(escaped);
  };
}

void NativeList::WatchWidth(wxDataViewColumn& column, std::function<void(int)> on_width) {
  const auto place = static_cast<std::size_t>(state_->list->GetColumnIndex(&column));
  if (place >= state_->on_width.size()) state_->on_width.resize(place + 1);
  state_->on_width[place] = std::move(on_width);
}

void NativeList::WatchOrder(std::function<void()> on_order,
                            std::function<bool(std::size_t, Neighbour, Neighbour)> may_stand) {
  state_->on_order = std::move(on_order);
  state_->may_stand = std::move(may_stand);
}

std::vector<std::size_t> NativeList::Order() const { return state_->Order(); }

void NativeList::WatchHeaders(std::function<void(std::size_t column)> on_header) {
  state_->on_header = std::move(on_header);
}

void NativeList::ShowSort(std::optional<std::size_t> number, bool descending) {
  for (unsigned i = 0; i < state_->list->GetColumnCount(); ++i) {
    wxDataViewColumn& column = *state_->list->GetColumn(i);
    if (number == column.GetModelColumn()) {
      column.SetSortOrder(!descending);
    } else if (column.IsSortKey()) {
      column.UnsetAsSortKey();
    }
  }
}

void NativeList::ForgetColumns() {
  state_->on_header = nullptr;
  state_->on_press = nullptr;
  state_->on_order = nullptr;
  state_->may_stand = nullptr;
  state_->on_width.clear();
  state_->edited = nullptr;
  for (unsigned i = 0; i < state_->list->GetColumnCount(); ++i) {
    auto* text = dynamic_cast<CellText*>(state_->list->GetColumn(i)->GetRenderer());
    if (!text) continue;
    text->on_start = nullptr;
    text->on_end = nullptr;
  }
}

void NativeList::Edit(const wxDataViewItem& item, wxDataViewColumn& column) {
  state_->may_edit = true;
  state_->list->EditItem(item, &column);
  state_->may_edit = false;
}

void NativeList::SetEntryText(const std::string& text) {
  wxTextCtrl* entry = state_->Entry();
  if (!entry) return;
  entry->SetValue(ToWx(text));
  entry->SetInsertionPointEnd();
}

void NativeList::CompleteEntry(const std::string& text, const std::string& typed) {
  SetEntryText(text);
  if (wxTextCtrl* entry = state_->Entry())
    entry->SetSelection(static_cast<long>(ToWx(typed).length()), -1);
}

void NativeList::CommitEditing() {
  if (state_->Entry()) state_->edited->FinishEditing();
}

void NativeList::CancelEditing() {
  if (state_->Entry()) state_->edited->CancelEditing();
}

bool NativeList::Editing() const { return state_->Entry() != nullptr; }

wxRect NativeList::EntryRectangle() const {
  const wxTextCtrl* entry = state_->Entry();
  return entry ? entry->GetScreenRect() : wxRect();
}

void NativeList::AddCellButton(wxDataViewColumn& column, const wxBitmapBundle& picture) {
  if (auto* text = dynamic_cast<CellText*>(column.GetRenderer())) text->picture = picture;
}

void NativeList::WatchPresses(std::function<bool(const CellPress&)> on_press) {
  state_->on_press = std::move(on_press);
}

// The list knows no current column but that of a click or of the arrow keys.
void NativeList::SetCurrentCell(std::size_t row, std::size_t) {
  state_->let_through = state_->pressing;
  auto* model = static_cast<wxDataViewVirtualListModel*>(state_->list->GetModel());
  state_->list->SetCurrentItem(model->GetItem(static_cast<unsigned>(row)));
}

void NativeList::Redraw() { state_->Rows().Refresh(); }

void NativeList::SetEmptyText(const std::string& text) {
  state_->empty_text->SetLabel(ToLabel(text));
  state_->empty_text->Show(!text.empty());
  if (!text.empty()) state_->PlaceEmptyText();
}

}  // namespace wx
