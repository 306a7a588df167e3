// SPDX-License-Identifier: MIT
#include "wx/tree_model_gtk.h"

namespace wx {

namespace {

using Node = TreeSource::Node;

struct Model {
  GObject object;
  const TreeSource* source;
};

struct ModelClass {
  GObjectClass object_class;
};

const TreeSource& SourceOf(GtkTreeModel* model) { return *reinterpret_cast<Model*>(model)->source; }

std::size_t IndexOf(const GtkTreeIter& iter) { return GPOINTER_TO_SIZE(iter.user_data2); }

gboolean Unset(GtkTreeIter* iter) {
  *iter = {};
  return FALSE;
}

// Points at a child, when there is one at that place.
gboolean SetChild(const TreeSource& source, Node parent, std::size_t index, GtkTreeIter* iter) {
  if (index >= source.ChildCount(parent)) return Unset(iter);
  iter->stamp = 1;
  iter->user_data = const_cast<void*>(source.ChildAt(parent, index));
  iter->user_data2 = GSIZE_TO_POINTER(index);
  return TRUE;
}

Node ParentAt(GtkTreeIter* parent) { return parent ? NodeAt(*parent) : nullptr; }

GtkTreeModelFlags GetFlags(GtkTreeModel*) { return GtkTreeModelFlags{}; }

gint CountColumns(GtkTreeModel*) { return 1; }

GType GetColumnType(GtkTreeModel*, gint) { return G_TYPE_STRING; }

gboolean GetIter(GtkTreeModel* model, GtkTreeIter* iter, GtkTreePath* path) {
  const TreeSource& source = SourceOf(model);
  const int depth = gtk_tree_path_get_depth(path);
  Node parent = nullptr;
  for (int level = 0; level < depth; ++level) {
    const int index = gtk_tree_path_get_indices(path)[level];
    if (index < 0 || !SetChild(source, parent, static_cast<std::size_t>(index), iter)) {
      return Unset(iter);
    }
    parent = NodeAt(*iter);
  }
  return depth > 0;
}

GtkTreePath* GetPath(GtkTreeModel* model, GtkTreeIter* iter) {
  const TreeSource& source = SourceOf(model);
  const Node parent = source.ParentOf(NodeAt(*iter));
  GtkTreePath* path = parent ? PathOf(source, parent) : gtk_tree_path_new();
  gtk_tree_path_append_index(path, static_cast<gint>(IndexOf(*iter)));
  return path;
}

void GetValue(GtkTreeModel* model, GtkTreeIter* iter, gint, GValue* value) {
  g_value_init(value, G_TYPE_STRING);
  g_value_set_string(value, SourceOf(model).TextOf(NodeAt(*iter)).c_str());
}

gboolean Next(GtkTreeModel* model, GtkTreeIter* iter) {
  const TreeSource& source = SourceOf(model);
  return SetChild(source, source.ParentOf(NodeAt(*iter)), IndexOf(*iter) + 1, iter);
}

gboolean Previous(GtkTreeModel* model, GtkTreeIter* iter) {
  const TreeSource& source = SourceOf(model);
  if (IndexOf(*iter) == 0) return Unset(iter);
  return SetChild(source, source.ParentOf(NodeAt(*iter)), IndexOf(*iter) - 1, iter);
}

gboolean Children(GtkTreeModel* model, GtkTreeIter* iter, GtkTreeIter* parent) {
  return SetChild(SourceOf(model), ParentAt(parent), 0, iter);
}

gboolean HasChild(GtkTreeModel* model, GtkTreeIter* iter) {
  return SourceOf(model).ChildCount(NodeAt(*iter)) > 0;
}

gint CountChildren(GtkTreeModel* model, GtkTreeIter* parent) {
  return static_cast<gint>(SourceOf(model).ChildCount(ParentAt(parent)));
}

gboolean NthChild(GtkTreeModel* model, GtkTreeIter* iter, GtkTreeIter* parent, gint n) {
  if (n < 0) return Unset(iter);
  return SetChild(SourceOf(model), ParentAt(parent), static_cast<std::size_t>(n), iter);
}

gboolean Parent(GtkTreeModel* model, GtkTreeIter* iter, GtkTreeIter* child) {
  const TreeSource& source = SourceOf(model);
  const Node parent = source.ParentOf(NodeAt(*child));
  if (!parent) return Unset(iter);
  return SetChild(source, source.ParentOf(parent), source.IndexOf(parent), iter);
}

void InitializeInterface(gpointer interface, gpointer) {
  auto* model = static_cast<GtkTreeModelIface*>(interface);
  model->get_flags = GetFlags;
  model->get_n_columns = CountColumns;
  model->get_column_type = GetColumnType;
  model->get_iter = GetIter;
  model->get_path = GetPath;
  model->get_value = GetValue;
  model->iter_next = Next;
  model->iter_previous = Previous;
  model->iter_children = Children;
  model->iter_has_child = HasChild;
  model->iter_n_children = CountChildren;
  model->iter_nth_child = NthChild;
  model->iter_parent = Parent;
}

GType ModelType() {
  static const GType type = [] {
    const GType made =
        g_type_register_static_simple(G_TYPE_OBJECT, "OvTreeModel", sizeof(ModelClass), nullptr,
                                      sizeof(Model), nullptr, GTypeFlags{});
    const GInterfaceInfo interface = {InitializeInterface, nullptr, nullptr};
    g_type_add_interface_static(made, GTK_TYPE_TREE_MODEL, &interface);
    return made;
  }();
  return type;
}

}  // namespace

GtkTreeModel* NewTreeModel(const TreeSource& source) {
  auto* model = static_cast<Model*>(g_object_new(ModelType(), nullptr));
  model->source = &source;
  return GTK_TREE_MODEL(model);
}

TreeSource::Node NodeAt(const GtkTreeIter& iter) { return iter.user_data; }

GtkTreePath* PathOf(const TreeSource& source, TreeSource::Node node) {
  GtkTreePath* path = gtk_tree_path_new();
  for (; node; node = source.ParentOf(node)) {
    gtk_tree_path_prepend_index(path, static_cast<gint>(source.IndexOf(node)));
  }
  return path;
}

}  // namespace wx
