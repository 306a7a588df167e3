// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include "wx/native.h"

namespace wx {

namespace {

// The widget inside a control that takes the keyboard.
GtkWidget* FocusWidget(GtkWidget* widget) {
  if (!widget || gtk_widget_get_can_focus(widget) || !GTK_IS_CONTAINER(widget)) return widget;
  GList* children = gtk_container_get_children(GTK_CONTAINER(widget));
  GtkWidget* found = nullptr;
  for (GList* child = children; child && !found; child = child->next) {
    GtkWidget* inner = FocusWidget(GTK_WIDGET(child->data));
    if (inner && gtk_widget_get_can_focus(inner)) found = inner;
  }
  g_list_free(children);
  return found ? found : widget;
}

// wxWidgets links a label to the control after it whenever the tab order changes, but to its outer
// widget, which takes no keyboard in composite controls.
class FieldLabel : public wxStaticText {
 public:
  explicit FieldLabel(wxWindow* parent) : wxStaticText(parent, wxID_ANY, wxEmptyString) {}
  void GTKWidgetDoSetMnemonic(GtkWidget* widget) override {
    wxStaticText::GTKWidgetDoSetMnemonic(FocusWidget(widget));
  }
};

}  // namespace

wxStaticText* NewLabel(wxWindow* parent) { return new FieldLabel(parent); }

int NativeHeight(const wxWindow& window) {
  int least = 0, natural = 0;
  gtk_widget_get_preferred_height(window.GetHandle(), &least, &natural);
  return natural;
}

void SetAccessibleName(wxWindow& window, const wxString& name) {
  AtkObject* object = gtk_widget_get_accessible(FocusWidget(window.GetHandle()));
  if (object) atk_object_set_name(object, name.utf8_str());
}

void SetAccessibleDescription(wxWindow& window, const wxString& description) {
  AtkObject* object = gtk_widget_get_accessible(FocusWidget(window.GetHandle()));
  if (object) atk_object_set_description(object, description.utf8_str());
}

}  // namespace wx
