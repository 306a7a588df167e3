// SPDX-License-Identifier: MIT
#include "wx/accessible_tree_gtk.h"

#include <gtk/gtk-a11y.h>

namespace wx {

namespace {

// Data of the tree view.
constexpr const char* kName = "accessible-name";
constexpr const char* kDescription = "accessible-description";
constexpr const char* kObject = "accessible-object";  // once there is one

AtkObjectClass* base_class = nullptr;

void ApplyTexts(AtkObject* object, GObject* tree) {
  auto text = [tree](const char* key) {
    return static_cast<const char*>(g_object_get_data(tree, key));
  };
  if (text(kName)) atk_object_set_name(object, text(kName));
  if (text(kDescription)) atk_object_set_description(object, text(kDescription));
}

void Initialize(AtkObject* object, gpointer tree) {
  base_class->initialize(object, tree);
  g_object_set_data(G_OBJECT(tree), kObject, object);
  ApplyTexts(object, G_OBJECT(tree));
}

void InitializeClass(gpointer own, gpointer) {
  base_class = ATK_OBJECT_CLASS(g_type_class_peek_parent(own));
  ATK_OBJECT_CLASS(own)->initialize = Initialize;
}

// The accessible objects of all tree views from now on take the texts along.
void UseOwnAccessibleType() {
  static const bool used = [] {
    GTypeQuery base;
    g_type_query(GTK_TYPE_TREE_VIEW_ACCESSIBLE, &base);
    const GType type = g_type_register_static_simple(
        GTK_TYPE_TREE_VIEW_ACCESSIBLE, "OvTreeViewAccessible", base.class_size, InitializeClass,
        base.instance_size, nullptr, GTypeFlags{});
    auto* tree_class = GTK_WIDGET_CLASS(g_type_class_ref(GTK_TYPE_TREE_VIEW));
    gtk_widget_class_set_accessible_type(tree_class, type);
    g_type_class_unref(tree_class);
    return true;
  }();
  static_cast<void>(used);
}

void SetText(GtkTreeView* tree, const char* key, const char* text) {
  UseOwnAccessibleType();
  GObject* object = G_OBJECT(tree);
  g_object_set_data_full(object, key, g_strdup(text), g_free);
  if (gpointer accessible = g_object_get_data(object, kObject)) {
    ApplyTexts(ATK_OBJECT(accessible), object);
  }
}

}  // namespace

void SetTreeViewName(GtkTreeView* tree, const char* name) { SetText(tree, kName, name); }

void SetTreeViewDescription(GtkTreeView* tree, const char* description) {
  SetText(tree, kDescription, description);
}

}  // namespace wx
