// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <cstdlib>
#include <mutex>
#include <utility>
#include <vector>

#include "wx/native_list.h"

namespace wx {

namespace {

constexpr int kTextMargin = 24;

// A signal handler that is disconnected when it ends before the widget does.
class Handler {
 public:
  Handler(gpointer object, const char* signal, GCallback callback, gpointer data,
          GConnectFlags flags = GConnectFlags{})
      : object_(G_OBJECT(g_object_ref(object))),
        id_(g_signal_connect_data(object, signal, callback, data, nullptr, flags)) {}
  ~Handler() {
    if (g_signal_handler_is_connected(object_, id_)) g_signal_handler_disconnect(object_, id_);
    g_object_unref(object_);
  }
  Handler(const Handler&) = delete;
  Handler& operator=(const Handler&) = delete;

 private:
  GObject* object_;
  gulong id_;
};

// The head of a column that begins to be dragged is laid out in a single pixel, which has no room
// for borders; the toolkit would complain of it. The cell with the keyboard is to be seen in a
// selected row, too.
void StyleLists() {
  GtkCssProvider* style = gtk_css_provider_new();
  gtk_css_provider_load_from_data(
      style,
      "treeview button.dnd { margin: 0; border-width: 0; padding: 0; }"
      "treeview.view.cells:selected { outline: 1px solid currentColor; outline-offset: 0; }",
      -1, nullptr);
  gtk_style_context_add_provider_for_screen(gdk_screen_get_default(), GTK_STYLE_PROVIDER(style),
                                            GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  g_object_unref(style);
}

}  // namespace

wxDataViewRenderer* NewTextRenderer(wxDataViewCellMode mode) {
  return new wxDataViewTextRenderer("string", mode);
}

void WatchPicks(wxDataViewCtrl& list,
                const std::function<void(const wxDataViewItem& item)>& on_pick) {
  list.Bind(wxEVT_LEFT_UP, [&list, on_pick](wxMouseEvent&) {
    if (const wxDataViewItem item = list.GetSelection(); item.IsOk()) on_pick(item);
  });
}

void ScrollToRow(wxDataViewCtrl& list, unsigned row) {
  GtkTreeView* tree = GTK_TREE_VIEW(list.GtkGetTreeView());
  // The tree's own way counts with the height that it had, which may be none.
  if (row == 0)
    return gtk_adjustment_set_value(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(tree)), 0);
  GtkTreePath* path = gtk_tree_path_new_from_indices(static_cast<int>(row), -1);
  gtk_tree_view_scroll_to_cell(tree, path, nullptr, FALSE, 0, 0);
  gtk_tree_path_free(path);
}

void MoveKeyboardToRow(wxDataViewCtrl& list, unsigned row) {
  const wxEventBlocker quiet(&list, wxEVT_DATAVIEW_SELECTION_CHANGED);
  GtkTreePath* path = gtk_tree_path_new_from_indices(static_cast<int>(row), -1);
  gtk_tree_view_set_cursor(GTK_TREE_VIEW(list.GtkGetTreeView()), path, nullptr, FALSE);
  gtk_tree_path_free(path);
}

struct NativeList::State {
  struct Watched {
    State* state;
    CellEditing editing;
  };
  struct Width {
    std::function<void(int)> on_width;
  };
  struct Button {
    GtkTreeViewColumn* column;
    GtkCellRenderer* renderer;
  };

  wxDataViewCtrl* list = nullptr;
  GtkTreeView* tree = nullptr;
  std::function<bool(const CellPress&)> on_press;
  std::function<void()> on_order;
  std::function<bool(std::size_t, Neighbour, Neighbour)> may_stand;
  std::function<void(std::size_t)> on_header;
  std::string empty_text;
  std::vector<std::unique_ptr<Watched>> watched;
  std::vector<std::unique_ptr<Width>> widths;
  std::vector<Button> buttons;
  std::vector<std::unique_ptr<Handler>> column_handlers;
  std::vector<std::unique_ptr<Handler>> entry_handlers;
  std::unique_ptr<Handler> draw;
  std::unique_ptr<Handler> press;
  std::unique_ptr<Handler> order;
  std::unique_ptr<Handler> place;
  bool has_room = false;
  GtkEntry* entry = nullptr;
  bool escaped = false;

  static void OnStarted(GtkCellRenderer*, GtkCellEditable* editable, gchar* path, gpointer data) {
    auto* column = static_cast<Watched*>(data);
    State& state = *column->state;
    if (!GTK_IS_ENTRY(editable)) return;
    state.entry = GTK_ENTRY(editable);
    state.escaped = false;
    auto watch = [&](const char* signal, GCallback callback) {
      state.entry_handlers.push_back(std::make_unique<Handler>(editable, signal, callback, column));
    };
    state.entry_handlers.clear();
    watch("changed", G_CALLBACK(OnChanged));
    watch("key-press-event", G_CALLBACK(OnKey));
    watch("editing-done", G_CALLBACK(OnDone));
    column->editing.on_start(static_cast<std::size_t>(std::atoi(path)));
  }
  static void OnChanged(GtkEditable* editable, gpointer data) {
    static_cast<Watched*>(data)->editing.on_text(gtk_entry_get_text(GTK_ENTRY(editable)));
  }
  static gboolean OnKey(GtkWidget*, GdkEventKey* event, gpointer data) {
    auto* column = static_cast<Watched*>(data);
    if (event->keyval == GDK_KEY_Escape) column->state->escaped = true;
    bool up = event->keyval == GDK_KEY_Up;
    if (!up && event->keyval != GDK_KEY_Down) return FALSE;
    return column->editing.on_arrow && column->editing.on_arrow(up) ? TRUE : FALSE;
  }
  static void OnDone(GtkCellEditable*, gpointer data) {
    auto* column = static_cast<Watched*>(data);
    State& state = *column->state;
    state.entry = nullptr;
    column->editing.on_end(state.escaped);
  }
  static gboolean OnPress(GtkWidget*, GdkEventButton* event, gpointer data) {
    auto& state = *static_cast<State*>(data);
    bool press = event->type == GDK_BUTTON_PRESS || event->type == GDK_2BUTTON_PRESS;
    if (!press || event->button != GDK_BUTTON_PRIMARY || !state.on_press) return FALSE;
    GtkTreePath* path = nullptr;
    GtkTreeViewColumn* column = nullptr;
    int cell_x = 0;
    if (!gtk_tree_view_get_path_at_pos(state.tree, static_cast<int>(event->x),
                                       static_cast<int>(event->y), &path, &column, &cell_x,
                                       nullptr)) {
      return FALSE;
    }
    CellPress cell;
    cell.row = static_cast<std::size_t>(gtk_tree_path_get_indices(path)[0]);
    gtk_tree_path_free(path);
    cell.column = state.NumberOf(column);
    cell.on_button = state.IsOnButton(column, cell_x);
    cell.double_click = event->type == GDK_2BUTTON_PRESS;
    cell.plain = (event->state & gtk_accelerator_get_default_mod_mask()) == 0;
    return state.on_press(cell) ? TRUE : FALSE;
  }
  // Number in the model of a native column.
  std::size_t NumberOf(GtkTreeViewColumn* native) const {
    for (unsigned i = 0; i < list->GetColumnCount(); ++i) {
      wxDataViewColumn* column = list->GetColumn(i);
      if (GTK_TREE_VIEW_COLUMN(column->GetGtkHandle()) == native) return column->GetModelColumn();
    }
    return 0;
  }
  static void OnColumns(GtkTreeView*, gpointer data) {
    auto& state = *static_cast<State*>(data);
    if (state.on_order) state.on_order();
  }
  static void OnHeader(GtkTreeViewColumn* column, gpointer data) {
    auto& state = *static_cast<State*>(data);
    if (state.on_header) state.on_header(state.NumberOf(column));
  }
  static gboolean MayDrop(GtkTreeView*, GtkTreeViewColumn* column, GtkTreeViewColumn* left,
                          GtkTreeViewColumn* right, gpointer data) {
    auto& state = *static_cast<State*>(data);
    const auto number = [&](GtkTreeViewColumn* native) {
      return native ? Neighbour(state.NumberOf(native)) : Neighbour();
    };
    return state.may_stand(state.NumberOf(column), number(left), number(right)) ? TRUE : FALSE;
  }
  bool IsOnButton(GtkTreeViewColumn* column, int cell_x) const {
    for (const Button& button : buttons) {
      if (button.column != column) continue;
      int start = 0;
      gtk_tree_view_column_cell_get_position(column, button.renderer, &start, nullptr);
      return cell_x >= start;
    }
    return false;
  }
  static void OnWidth(GObject* column, GParamSpec*, gpointer data) {
    int width = gtk_tree_view_column_get_fixed_width(GTK_TREE_VIEW_COLUMN(column));
    if (width > 0) static_cast<Width*>(data)->on_width(width);
  }
  // A row that was to be in sight before there was room for one is scrolled to as if it did not
  // fit: the first row would stay hidden above.
  static void OnPlace(GtkWidget*, GdkRectangle* place, gpointer data) {
    auto& state = *static_cast<State*>(data);
    const bool had_room = std::exchange(state.has_room, place->height > kTextMargin);
    if (had_room || !state.has_room) return;
    gtk_adjustment_set_value(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(state.tree)), 0);
    GtkTreePath* path = nullptr;
    gtk_tree_view_get_cursor(state.tree, &path, nullptr);
    if (!path) return;
    gtk_tree_view_scroll_to_cell(state.tree, path, nullptr, FALSE, 0, 0);
    gtk_tree_path_free(path);
  }
  static gboolean OnDraw(GtkWidget* widget, cairo_t* cairo, gpointer data) {
    auto* state = static_cast<State*>(data);
    if (state->empty_text.empty()) return FALSE;
    PangoLayout* layout = gtk_widget_create_pango_layout(widget, state->empty_text.c_str());
    int width = gtk_widget_get_allocated_width(widget);
    pango_layout_set_width(layout, (width - 2 * kTextMargin) * PANGO_SCALE);
    pango_layout_set_alignment(layout, PANGO_ALIGN_CENTER);
    int header = 0;
    gtk_tree_view_convert_bin_window_to_widget_coords(state->tree, 0, 0, nullptr, &header);
    GtkStyleContext* style = gtk_widget_get_style_context(widget);
    gtk_style_context_save(style);
    gtk_style_context_add_class(style, GTK_STYLE_CLASS_DIM_LABEL);
    gtk_render_layout(style, cairo, kTextMargin, header + kTextMargin, layout);
    gtk_style_context_restore(style);
    g_object_unref(layout);
    return FALSE;
  }
};

NativeList::NativeList(wxDataViewCtrl& list) : state_(std::make_unique<State>()) {
  static std::once_flag styled;
  std::call_once(styled, StyleLists);
  state_->list = &list;
  state_->tree = GTK_TREE_VIEW(list.GtkGetTreeView());
  gtk_style_context_add_class(gtk_widget_get_style_context(GTK_WIDGET(state_->tree)), "cells");
  gtk_tree_view_set_enable_search(state_->tree, FALSE);  // typing belongs to the cells
  state_->press = std::make_unique<Handler>(state_->tree, "button-press-event",
                                            G_CALLBACK(State::OnPress), state_.get());
  state_->order = std::make_unique<Handler>(state_->tree, "columns-changed",
                                            G_CALLBACK(State::OnColumns), state_.get());
  state_->place = std::make_unique<Handler>(
      state_->tree, "size-allocate", G_CALLBACK(State::OnPlace), state_.get(), G_CONNECT_AFTER);
  state_->draw = std::make_unique<Handler>(state_->tree, "draw", G_CALLBACK(State::OnDraw),
                                           state_.get(), G_CONNECT_AFTER);
}

NativeList::~NativeList() = default;

void NativeList::WatchEditing(wxDataViewRenderer& renderer, CellEditing editing) {
  state_->watched.push_back(
      std::make_unique<State::Watched>(State::Watched{state_.get(), std::move(editing)}));
  state_->column_handlers.push_back(
      std::make_unique<Handler>(renderer.GetGtkHandle(), "editing-started",
                                G_CALLBACK(State::OnStarted), state_->watched.back().get()));
}

void NativeList::WatchWidth(wxDataViewColumn& column, std::function<void(int)> on_width) {
  state_->widths.push_back(std::make_unique<State::Width>(State::Width{std::move(on_width)}));
  state_->column_handlers.push_back(
      std::make_unique<Handler>(column.GetGtkHandle(), "notify::fixed-width",
                                G_CALLBACK(State::OnWidth), state_->widths.back().get()));
}

void NativeList::WatchOrder(std::function<void()> on_order,
                            std::function<bool(std::size_t, Neighbour, Neighbour)> may_stand) {
  state_->on_order = std::move(on_order);
  state_->may_stand = std::move(may_stand);
  gtk_tree_view_set_column_drag_function(state_->tree, State::MayDrop, state_.get(), nullptr);
}

std::vector<std::size_t> NativeList::Order() const {
  std::vector<std::size_t> order;
  GList* columns = gtk_tree_view_get_columns(state_->tree);
  for (GList* column = columns; column; column = column->next) {
    order.push_back(state_->NumberOf(GTK_TREE_VIEW_COLUMN(column->data)));
  }
  g_list_free(columns);
  return order;
}

void NativeList::WatchHeaders(std::function<void(std::size_t column)> on_header) {
  state_->on_header = std::move(on_header);
  for (unsigned i = 0; i < state_->list->GetColumnCount(); ++i) {
    auto* column = GTK_TREE_VIEW_COLUMN(state_->list->GetColumn(i)->GetGtkHandle());
    gtk_tree_view_column_set_clickable(column, TRUE);
    state_->column_handlers.push_back(
        std::make_unique<Handler>(column, "clicked", G_CALLBACK(State::OnHeader), state_.get()));
  }
}

void NativeList::ShowSort(std::optional<std::size_t> number, bool descending) {
  for (unsigned i = 0; i < state_->list->GetColumnCount(); ++i) {
    wxDataViewColumn* column = state_->list->GetColumn(i);
    auto* native = GTK_TREE_VIEW_COLUMN(column->GetGtkHandle());
    gtk_tree_view_column_set_sort_indicator(native, number == column->GetModelColumn());
    gtk_tree_view_column_set_sort_order(native,
                                        descending ? GTK_SORT_DESCENDING : GTK_SORT_ASCENDING);
  }
}

void NativeList::ForgetColumns() {
  state_->on_header = nullptr;
  state_->on_press = nullptr;
  if (state_->on_order) {
    gtk_tree_view_set_column_drag_function(state_->tree, nullptr, nullptr, nullptr);
    state_->on_order = nullptr;
  }
  state_->column_handlers.clear();
  state_->entry_handlers.clear();
  state_->watched.clear();
  state_->widths.clear();
  state_->buttons.clear();
  state_->entry = nullptr;
}

void NativeList::Edit(const wxDataViewItem& item, wxDataViewColumn& column) {
  state_->list->EditItem(item, &column);
}

void NativeList::SetEntryText(const std::string& text) {
  if (!state_->entry) return;
  gtk_entry_set_text(state_->entry, text.c_str());
  gtk_editable_set_position(GTK_EDITABLE(state_->entry), -1);
}

void NativeList::CompleteEntry(const std::string& text, const std::string& typed) {
  SetEntryText(text);
  if (!state_->entry) return;
  auto start = static_cast<int>(g_utf8_strlen(typed.c_str(), -1));
  gtk_editable_select_region(GTK_EDITABLE(state_->entry), start, -1);
}

void NativeList::CommitEditing() {
  if (!state_->entry) return;
  GtkCellEditable* entry = GTK_CELL_EDITABLE(g_object_ref(state_->entry));
  gtk_cell_editable_editing_done(entry);
  gtk_cell_editable_remove_widget(entry);
  g_object_unref(entry);
}

void NativeList::CancelEditing() {
  if (!state_->entry) return;
  state_->escaped = true;
  g_object_set(state_->entry, "editing-canceled", TRUE, nullptr);
  CommitEditing();
}

bool NativeList::Editing() const { return state_->entry != nullptr; }

wxRect NativeList::EntryRectangle() const {
  if (!state_->entry) return {};
  // The entry itself may not have its place yet; its cell is the one with the keyboard.
  GtkTreePath* path = nullptr;
  GtkTreeViewColumn* column = nullptr;
  gtk_tree_view_get_cursor(state_->tree, &path, &column);
  GdkRectangle place = {};
  gtk_tree_view_get_cell_area(state_->tree, path, column, &place);
  gtk_tree_path_free(path);
  int x = 0, y = 0;
  gdk_window_get_origin(gtk_tree_view_get_bin_window(state_->tree), &x, &y);
  return {x + place.x, y + place.y, place.width, place.height};
}

void NativeList::AddCellButton(wxDataViewColumn& column, const wxBitmapBundle& picture) {
  GtkTreeViewColumn* native = GTK_TREE_VIEW_COLUMN(column.GetGtkHandle());
  GtkCellRenderer* renderer = gtk_cell_renderer_pixbuf_new();
  wxBitmap bitmap = picture.GetBitmap(picture.GetDefaultSize());
  g_object_set(renderer, "pixbuf", bitmap.GetPixbuf(), nullptr);
  gtk_tree_view_column_pack_end(native, renderer, FALSE);
  gtk_cell_layout_reorder(GTK_CELL_LAYOUT(native), renderer, 0);  // the end of the end
  // The keyboard is at the whole cell, not at its picture.
  GtkCellArea* area = gtk_cell_layout_get_area(GTK_CELL_LAYOUT(native));
  GList* renderers = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(native));
  for (GList* other = renderers; other; other = other->next) {
    if (other->data == renderer) continue;
    gtk_cell_area_add_focus_sibling(area, GTK_CELL_RENDERER(other->data), renderer);
  }
  g_list_free(renderers);
  state_->buttons.push_back({native, renderer});
}

void NativeList::WatchPresses(std::function<bool(const CellPress&)> on_press) {
  state_->on_press = std::move(on_press);
}

void NativeList::SetCurrentCell(std::size_t row, std::size_t column) {
  for (unsigned i = 0; i < state_->list->GetColumnCount(); ++i) {
    wxDataViewColumn* native = state_->list->GetColumn(i);
    if (native->GetModelColumn() != column) continue;
    GtkTreePath* path = gtk_tree_path_new_from_indices(static_cast<int>(row), -1);
    gtk_tree_view_set_cursor(state_->tree, path, GTK_TREE_VIEW_COLUMN(native->GetGtkHandle()),
                             FALSE);
    gtk_tree_path_free(path);
  }
}

void NativeList::Redraw() { gtk_widget_queue_draw(GTK_WIDGET(state_->tree)); }

void NativeList::SetEmptyText(const std::string& text) {
  if (state_->empty_text == text) return;
  state_->empty_text = text;
  Redraw();
}

}  // namespace wx
