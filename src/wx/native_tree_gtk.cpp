// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "wx/accessible_tree_gtk.h"
#include "wx/native_tree.h"
#include "wx/pictures.h"
#include "wx/tree_model_gtk.h"

namespace wx {

namespace {

constexpr gint kSpacing = 4;         // between picture and text
constexpr int kDrag = 6;             // pixels that the mouse moves before it drags
constexpr int kBorder = 12;          // pixels at which a drag scrolls on
constexpr guint16 kDimmed = 0xb800;  // of 0xffff: a contrast of 5 on white

struct FreePath {
  void operator()(GtkTreePath* path) const { gtk_tree_path_free(path); }
};
using Path = std::unique_ptr<GtkTreePath, FreePath>;

Path MakePath(const TreeSource& source, TreeSource::Node node) {
  return Path(PathOf(source, node));
}

Path MakePath(const TreeSource& source, TreeSource::Node parent, std::size_t index) {
  Path path = MakePath(source, parent);
  gtk_tree_path_append_index(path.get(), static_cast<gint>(index));
  return path;
}

}  // namespace

struct NativeTree::State {
  const TreeSource* source = nullptr;
  GtkTreeView* tree = GTK_TREE_VIEW(gtk_tree_view_new());
  GtkTreeModel* model = nullptr;
  std::map<std::string, wxBitmap> bitmaps;  // drawn once, for the colours that hold now
  Node pressed = nullptr;                   // by the left button
  wxPoint pressed_at;

  const wxBitmap& BitmapOf(const NativeTree& view, const std::string& picture) {
    const auto [found, added] = bitmaps.try_emplace(picture);
    if (added && !picture.empty()) found->second = Picture(picture).GetBitmapFor(&view);
    return found->second;
  }
  void AddColumn(NativeTree& view);
  // By a place among the rows.
  Node NodeUnder(double x, double y) const {
    GtkTreePath* found = nullptr;
    GtkTreeIter iter;
    if (!model || !gtk_tree_view_get_path_at_pos(tree, static_cast<gint>(x), static_cast<gint>(y),
                                                 &found, nullptr, nullptr, nullptr)) {
      return nullptr;
    }
    const Path path(found);
    return gtk_tree_model_get_iter(model, &iter, path.get()) ? wx::NodeAt(iter) : nullptr;
  }

  // What the tree view reports.
  static NativeTree& View(gpointer data) { return *static_cast<NativeTree*>(data); }

  static void OnSelection(GtkTreeSelection*, gpointer data) {
    if (View(data).on_selection) View(data).on_selection();
  }
  static void OnExpanded(GtkTreeView*, GtkTreeIter* iter, GtkTreePath*, gpointer data) {
    if (View(data).on_expand) View(data).on_expand(wx::NodeAt(*iter));
  }
  static void OnActivated(GtkTreeView*, GtkTreePath* path, GtkTreeViewColumn*, gpointer data) {
    GtkTreeIter iter;
    if (!gtk_tree_model_get_iter(View(data).state_->model, &iter, path)) return;
    if (View(data).on_activate) View(data).on_activate(wx::NodeAt(iter));
  }
  static gboolean OnPress(GtkWidget*, GdkEventButton* event, gpointer data) {
    NativeTree& view = View(data);
    GtkTreeView* tree = view.state_->tree;
    view.state_->pressed = nullptr;
    if (event->button == GDK_BUTTON_PRIMARY && event->type == GDK_BUTTON_PRESS) {
      view.state_->pressed = view.state_->NodeUnder(event->x, event->y);
      view.state_->pressed_at = wxGetMousePosition();
    }
    if (!gdk_event_triggers_context_menu(reinterpret_cast<GdkEvent*>(event))) return FALSE;
    GtkTreePath* found = nullptr;
    if (!gtk_tree_view_get_path_at_pos(tree, static_cast<gint>(event->x),
                                       static_cast<gint>(event->y), &found, nullptr, nullptr,
                                       nullptr)) {
      return FALSE;
    }
    const Path path(found);
    view.SetFocus();
    gtk_tree_view_set_cursor(tree, path.get(), nullptr, FALSE);
    if (view.on_context_menu) view.on_context_menu();
    return TRUE;
  }
  static void SetPicture(GtkTreeViewColumn*, GtkCellRenderer* renderer, GtkTreeModel*,
                         GtkTreeIter* iter, gpointer data) {
    State& state = *View(data).state_;
    const wxBitmap& bitmap = state.BitmapOf(View(data), state.source->PictureOf(wx::NodeAt(*iter)));
    cairo_surface_t* surface =
        bitmap.IsOk() ? gdk_cairo_surface_create_from_pixbuf(
                            bitmap.GetPixbuf(), static_cast<int>(bitmap.GetScaleFactor()), nullptr)
                      : nullptr;
    g_object_set(renderer, "surface", surface, nullptr);
    if (surface) cairo_surface_destroy(surface);
  }
  // Its colour, also that of a selected row, only fainter.
  static void SetDimmed(GtkTreeViewColumn*, GtkCellRenderer* renderer, GtkTreeModel*,
                        GtkTreeIter* iter, gpointer data) {
    PangoAttrList* attributes = nullptr;
    if (View(data).state_->source->Dimmed(wx::NodeAt(*iter))) {
      attributes = pango_attr_list_new();
      pango_attr_list_insert(attributes, pango_attr_foreground_alpha_new(kDimmed));
    }
    g_object_set(renderer, "attributes", attributes, nullptr);
    if (attributes) pango_attr_list_unref(attributes);
  }
};

void NativeTree::State::AddColumn(NativeTree& view) {
  GtkTreeViewColumn* column = gtk_tree_view_column_new();
  gtk_tree_view_column_set_sizing(column, GTK_TREE_VIEW_COLUMN_FIXED);
  gtk_tree_view_column_set_spacing(column, kSpacing);
  GtkCellRenderer* picture = gtk_cell_renderer_pixbuf_new();
  gtk_tree_view_column_pack_start(column, picture, FALSE);
  gtk_tree_view_column_set_cell_data_func(column, picture, SetPicture, &view, nullptr);
  GtkCellRenderer* text = gtk_cell_renderer_text_new();
  g_object_set(text, "ellipsize", PANGO_ELLIPSIZE_END, nullptr);
  gtk_tree_view_column_pack_start(column, text, TRUE);
  gtk_tree_view_column_add_attribute(column, text, "text", 0);
  gtk_tree_view_column_set_cell_data_func(column, text, SetDimmed, &view, nullptr);
  gtk_tree_view_append_column(tree, column);
}

NativeTree::NativeTree(wxWindow* parent, const wxString& name) : state_(std::make_unique<State>()) {
  GtkTreeView* tree = state_->tree;
  state_->AddColumn(*this);
  gtk_tree_view_set_headers_visible(tree, FALSE);
  gtk_tree_view_set_fixed_height_mode(tree, TRUE);
  gtk_tree_view_set_enable_search(tree, FALSE);  // the keys belong to the commands
  SetTreeViewName(tree, name.utf8_str());
  Create(parent);
  GtkTreeSelection* selection = gtk_tree_view_get_selection(tree);
  g_signal_connect(selection, "changed", G_CALLBACK(State::OnSelection), this);
  g_signal_connect(tree, "row-expanded", G_CALLBACK(State::OnExpanded), this);
  g_signal_connect(tree, "row-activated", G_CALLBACK(State::OnActivated), this);
  g_signal_connect(tree, "button-press-event", G_CALLBACK(State::OnPress), this);
  Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    event.Skip(event.HasAnyModifiers() || !MoveSideways(event.GetKeyCode()));
  });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    event.Skip();
    const wxPoint way = wxGetMousePosition() - state_->pressed_at;
    const bool is_drag = event.LeftIsDown() && std::max(std::abs(way.x), std::abs(way.y)) > kDrag;
    if (!state_->pressed || !is_drag) return;
    const Node node = std::exchange(state_->pressed, nullptr);
    if (on_drag) on_drag(node);
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    state_->bitmaps.clear();
    gtk_widget_queue_draw(GTK_WIDGET(state_->tree));
  });
}

NativeTree::~NativeTree() {
  g_signal_handlers_disconnect_by_data(gtk_tree_view_get_selection(state_->tree), this);
  g_signal_handlers_disconnect_by_data(state_->tree, this);
  ShowSource(nullptr);
}

void NativeTree::Create(wxWindow* parent) {
  GtkWidget* pane = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_container_add(GTK_CONTAINER(pane), GTK_WIDGET(state_->tree));
  gtk_widget_show_all(pane);
  m_focusWidget = GTK_WIDGET(state_->tree);
  g_object_ref_sink(pane);
  wxNativeWindow::Create(parent, wxID_ANY, pane);
  Disown();
}

GtkWidget* NativeTree::GetConnectWidget() { return GTK_WIDGET(state_->tree); }

GdkWindow* NativeTree::GTKGetWindow(wxArrayGdkWindows&) const {
  return gtk_tree_view_get_bin_window(state_->tree);
}

void NativeTree::ShowSource(const TreeSource* source) {
  gtk_tree_view_set_model(state_->tree, nullptr);
  if (state_->model) g_object_unref(state_->model);
  state_->source = source;
  state_->model = source ? NewTreeModel(*source) : nullptr;
  gtk_tree_view_set_model(state_->tree, state_->model);
}

// The tree view knows nothing of the nodes below one that is closed.
void NativeTree::NodeAdded(Node parent, std::size_t index) {
  GtkTreeIter iter;
  if (parent && state_->source->ChildCount(parent) == 1) {
    const Path above = MakePath(*state_->source, parent);
    gtk_tree_model_get_iter(state_->model, &iter, above.get());
    gtk_tree_model_row_has_child_toggled(state_->model, above.get(), &iter);
  }
  if (parent && !IsExpanded(parent)) return;
  const Path path = MakePath(*state_->source, parent, index);
  gtk_tree_model_get_iter(state_->model, &iter, path.get());
  gtk_tree_model_row_inserted(state_->model, path.get(), &iter);
}

void NativeTree::NodeRemoved(Node parent, std::size_t index) {
  if (!parent || IsExpanded(parent)) {
    gtk_tree_model_row_deleted(state_->model, MakePath(*state_->source, parent, index).get());
  }
  if (!parent || state_->source->ChildCount(parent) > 0) return;
  const Path above = MakePath(*state_->source, parent);
  GtkTreeIter iter;
  gtk_tree_model_get_iter(state_->model, &iter, above.get());
  gtk_tree_model_row_has_child_toggled(state_->model, above.get(), &iter);
}

void NativeTree::NodeChanged(Node node) {
  const Path path = MakePath(*state_->source, node);
  GtkTreeIter iter;
  gtk_tree_model_get_iter(state_->model, &iter, path.get());
  gtk_tree_model_row_changed(state_->model, path.get(), &iter);
}

void NativeTree::Select(Node node) {
  const Path path = MakePath(*state_->source, node);
  if (const Node parent = state_->source->ParentOf(node)) {
    gtk_tree_view_expand_to_path(state_->tree, MakePath(*state_->source, parent).get());
  }
  gtk_tree_view_set_cursor(state_->tree, path.get(), nullptr, FALSE);
  gtk_tree_view_scroll_to_cell(state_->tree, path.get(), nullptr, FALSE, 0, 0);
}

NativeTree::Node NativeTree::Selected() const {
  GtkTreeIter iter;
  GtkTreeSelection* selection = gtk_tree_view_get_selection(state_->tree);
  return gtk_tree_selection_get_selected(selection, nullptr, &iter) ? wx::NodeAt(iter) : nullptr;
}

void NativeTree::Expand(Node node) {
  gtk_tree_view_expand_row(state_->tree, MakePath(*state_->source, node).get(), FALSE);
}

void NativeTree::Collapse(Node node) {
  gtk_tree_view_collapse_row(state_->tree, MakePath(*state_->source, node).get());
}

bool NativeTree::IsExpanded(Node node) const {
  return gtk_tree_view_row_expanded(state_->tree, MakePath(*state_->source, node).get());
}

bool NativeTree::IsExpanded(Node parent, std::size_t index) const {
  return gtk_tree_view_row_expanded(state_->tree, MakePath(*state_->source, parent, index).get());
}

// The tree view would take what is dropped for a row of its own.
void NativeTree::SetDropTarget(wxDropTarget* target) {
  NativeTreeBase::SetDropTarget(target);
  g_signal_connect(state_->tree, "drag-data-received", G_CALLBACK(+[](GtkWidget* tree) {
                     g_signal_stop_emission_by_name(tree, "drag-data-received");
                   }),
                   this);
}

NativeTree::Node NativeTree::NodeAt(const wxPoint& point) const {
  gint x = 0, y = 0;
  gtk_tree_view_convert_widget_to_bin_window_coords(state_->tree, point.x, point.y, &x, &y);
  return state_->NodeUnder(x, y);
}

void NativeTree::ShowDropPlace(Node node, const wxPoint& point) {
  const Path path = node ? MakePath(*state_->source, node) : nullptr;
  gtk_tree_view_set_drag_dest_row(state_->tree, path.get(), GTK_TREE_VIEW_DROP_INTO_OR_AFTER);
  if (!node) return;
  GtkAdjustment* scrolled = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(state_->tree));
  const double page = gtk_adjustment_get_page_size(scrolled);
  const int way = point.y < kBorder ? -1 : point.y > page - kBorder ? 1 : 0;
  if (way != 0) {
    const double step = gtk_adjustment_get_step_increment(scrolled);
    gtk_adjustment_set_value(scrolled, gtk_adjustment_get_value(scrolled) + way * step / 2);
  }
}

// Right opens a node and goes on to what is below it, Left is the way back.
bool NativeTree::MoveSideways(int key) {
  const Node node = Selected();
  if (!node || (key != WXK_LEFT && key != WXK_RIGHT)) return false;
  const Node parent = state_->source->ParentOf(node);
  const bool open = IsExpanded(node);
  if (key == WXK_RIGHT) {
    open ? Select(state_->source->ChildAt(node, 0)) : Expand(node);
  } else if (open) {
    Collapse(node);
  } else if (parent) {
    Select(parent);
  }
  return true;
}

}  // namespace wx
