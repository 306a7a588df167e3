// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <memory>

#include "wx/accessible_tree_gtk.h"
#include "wx/native_tree.h"
#include "wx/pictures.h"
#include "wx/tree_model_gtk.h"

namespace wx {

namespace {

constexpr gint kSpacing = 4;  // between picture and text

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

// What the tree view reports.
struct NativeTree::Signals {
  static NativeTree& Tree(gpointer data) { return *static_cast<NativeTree*>(data); }

  static void OnSelection(GtkTreeSelection*, gpointer data) {
    if (Tree(data).on_selection) Tree(data).on_selection();
  }
  static void OnExpanded(GtkTreeView*, GtkTreeIter* iter, GtkTreePath*, gpointer data) {
    if (Tree(data).on_expand) Tree(data).on_expand(NodeAt(*iter));
  }
  static void OnActivated(GtkTreeView*, GtkTreePath* path, GtkTreeViewColumn*, gpointer data) {
    GtkTreeIter iter;
    if (!gtk_tree_model_get_iter(Tree(data).model_, &iter, path)) return;
    if (Tree(data).on_activate) Tree(data).on_activate(NodeAt(iter));
  }
  static gboolean OnPress(GtkWidget*, GdkEventButton* event, gpointer data) {
    NativeTree& tree = Tree(data);
    if (!gdk_event_triggers_context_menu(reinterpret_cast<GdkEvent*>(event))) return FALSE;
    GtkTreePath* found = nullptr;
    if (!gtk_tree_view_get_path_at_pos(tree.tree_, static_cast<gint>(event->x),
                                       static_cast<gint>(event->y), &found, nullptr, nullptr,
                                       nullptr)) {
      return FALSE;
    }
    const Path path(found);
    tree.SetFocus();
    gtk_tree_view_set_cursor(tree.tree_, path.get(), nullptr, FALSE);
    if (tree.on_context_menu) tree.on_context_menu();
    return TRUE;
  }
  static void SetPicture(GtkTreeViewColumn*, GtkCellRenderer* renderer, GtkTreeModel*,
                         GtkTreeIter* iter, gpointer data) {
    NativeTree& tree = Tree(data);
    const wxBitmap& bitmap = tree.BitmapOf(tree.source_->PictureOf(NodeAt(*iter)));
    cairo_surface_t* surface =
        bitmap.IsOk() ? gdk_cairo_surface_create_from_pixbuf(
                            bitmap.GetPixbuf(), static_cast<int>(bitmap.GetScaleFactor()), nullptr)
                      : nullptr;
    g_object_set(renderer, "surface", surface, nullptr);
    if (surface) cairo_surface_destroy(surface);
  }
};

NativeTree::NativeTree(wxWindow* parent, const wxString& name) {
  tree_ = GTK_TREE_VIEW(gtk_tree_view_new());
  AddColumn();
  gtk_tree_view_set_headers_visible(tree_, FALSE);
  gtk_tree_view_set_fixed_height_mode(tree_, TRUE);
  gtk_tree_view_set_enable_search(tree_, FALSE);  // the keys belong to the commands
  SetTreeViewName(tree_, name.utf8_str());
  Create(parent);
  GtkTreeSelection* selection = gtk_tree_view_get_selection(tree_);
  g_signal_connect(selection, "changed", G_CALLBACK(Signals::OnSelection), this);
  g_signal_connect(tree_, "row-expanded", G_CALLBACK(Signals::OnExpanded), this);
  g_signal_connect(tree_, "row-activated", G_CALLBACK(Signals::OnActivated), this);
  g_signal_connect(tree_, "button-press-event", G_CALLBACK(Signals::OnPress), this);
  Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    event.Skip(event.HasAnyModifiers() || !MoveSideways(event.GetKeyCode()));
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    bitmaps_.clear();
    gtk_widget_queue_draw(GTK_WIDGET(tree_));
  });
}

NativeTree::~NativeTree() {
  g_signal_handlers_disconnect_by_data(gtk_tree_view_get_selection(tree_), this);
  g_signal_handlers_disconnect_by_data(tree_, this);
  ShowSource(nullptr);
}

void NativeTree::Create(wxWindow* parent) {
  GtkWidget* pane = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_container_add(GTK_CONTAINER(pane), GTK_WIDGET(tree_));
  gtk_widget_show_all(pane);
  m_focusWidget = GTK_WIDGET(tree_);
  g_object_ref_sink(pane);
  wxNativeWindow::Create(parent, wxID_ANY, pane);
  Disown();
}

void NativeTree::AddColumn() {
  GtkTreeViewColumn* column = gtk_tree_view_column_new();
  gtk_tree_view_column_set_sizing(column, GTK_TREE_VIEW_COLUMN_FIXED);
  gtk_tree_view_column_set_spacing(column, kSpacing);
  GtkCellRenderer* picture = gtk_cell_renderer_pixbuf_new();
  gtk_tree_view_column_pack_start(column, picture, FALSE);
  gtk_tree_view_column_set_cell_data_func(column, picture, Signals::SetPicture, this, nullptr);
  GtkCellRenderer* text = gtk_cell_renderer_text_new();
  g_object_set(text, "ellipsize", PANGO_ELLIPSIZE_END, nullptr);
  gtk_tree_view_column_pack_start(column, text, TRUE);
  gtk_tree_view_column_add_attribute(column, text, "text", 0);
  gtk_tree_view_append_column(tree_, column);
}

GtkWidget* NativeTree::GetConnectWidget() { return GTK_WIDGET(tree_); }

GdkWindow* NativeTree::GTKGetWindow(wxArrayGdkWindows&) const {
  return gtk_tree_view_get_bin_window(tree_);
}

const wxBitmap& NativeTree::BitmapOf(const std::string& picture) {
  const auto [found, added] = bitmaps_.try_emplace(picture);
  if (added && !picture.empty()) found->second = Picture(picture).GetBitmapFor(this);
  return found->second;
}

void NativeTree::ShowSource(const TreeSource* source) {
  gtk_tree_view_set_model(tree_, nullptr);
  if (model_) g_object_unref(model_);
  source_ = source;
  model_ = source ? NewTreeModel(*source) : nullptr;
  gtk_tree_view_set_model(tree_, model_);
}

// The tree view knows nothing of the nodes below one that is closed.
void NativeTree::NodeAdded(Node parent, std::size_t index) {
  GtkTreeIter iter;
  if (parent && source_->ChildCount(parent) == 1) {
    const Path above = MakePath(*source_, parent);
    gtk_tree_model_get_iter(model_, &iter, above.get());
    gtk_tree_model_row_has_child_toggled(model_, above.get(), &iter);
  }
  if (parent && !IsExpanded(parent)) return;
  const Path path = MakePath(*source_, parent, index);
  gtk_tree_model_get_iter(model_, &iter, path.get());
  gtk_tree_model_row_inserted(model_, path.get(), &iter);
}

void NativeTree::NodeRemoved(Node parent, std::size_t index) {
  if (!parent || IsExpanded(parent)) {
    gtk_tree_model_row_deleted(model_, MakePath(*source_, parent, index).get());
  }
  if (!parent || source_->ChildCount(parent) > 0) return;
  const Path above = MakePath(*source_, parent);
  GtkTreeIter iter;
  gtk_tree_model_get_iter(model_, &iter, above.get());
  gtk_tree_model_row_has_child_toggled(model_, above.get(), &iter);
}

void NativeTree::NodeChanged(Node node) {
  const Path path = MakePath(*source_, node);
  GtkTreeIter iter;
  gtk_tree_model_get_iter(model_, &iter, path.get());
  gtk_tree_model_row_changed(model_, path.get(), &iter);
}

void NativeTree::Select(Node node) {
  const Path path = MakePath(*source_, node);
  if (const Node parent = source_->ParentOf(node)) {
    gtk_tree_view_expand_to_path(tree_, MakePath(*source_, parent).get());
  }
  gtk_tree_view_set_cursor(tree_, path.get(), nullptr, FALSE);
  gtk_tree_view_scroll_to_cell(tree_, path.get(), nullptr, FALSE, 0, 0);
}

NativeTree::Node NativeTree::Selected() const {
  GtkTreeIter iter;
  GtkTreeSelection* selection = gtk_tree_view_get_selection(tree_);
  return gtk_tree_selection_get_selected(selection, nullptr, &iter) ? NodeAt(iter) : nullptr;
}

void NativeTree::Expand(Node node) {
  gtk_tree_view_expand_row(tree_, MakePath(*source_, node).get(), FALSE);
}

void NativeTree::Collapse(Node node) {
  gtk_tree_view_collapse_row(tree_, MakePath(*source_, node).get());
}

bool NativeTree::IsExpanded(Node node) const {
  return gtk_tree_view_row_expanded(tree_, MakePath(*source_, node).get());
}

bool NativeTree::IsExpanded(Node parent, std::size_t index) const {
  return gtk_tree_view_row_expanded(tree_, MakePath(*source_, parent, index).get());
}

// Right opens a node and goes on to what is below it, Left is the way back.
bool NativeTree::MoveSideways(int key) {
  const Node node = Selected();
  if (!node || (key != WXK_LEFT && key != WXK_RIGHT)) return false;
  const Node parent = source_->ParentOf(node);
  const bool open = IsExpanded(node);
  if (key == WXK_RIGHT) {
    open ? Select(source_->ChildAt(node, 0)) : Expand(node);
  } else if (open) {
    Collapse(node);
  } else if (parent) {
    Select(parent);
  }
  return true;
}

}  // namespace wx
