// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include "wx/row_drag.h"

namespace wx {

// A drag of the toolkit begins only after a press that it saw, which the list may have kept to
// itself.
void RunDrag(wxWindow&) {
  GdkEvent* event = gtk_get_current_event();
  GtkWidget* widget = event ? gtk_get_event_widget(event) : nullptr;
  if (!widget) return;
  bool is_over = false;
  const gulong data =
      g_signal_connect(widget, "drag-data-get",
                       G_CALLBACK(+[](GtkWidget*, GdkDragContext*, GtkSelectionData* selection) {
                         gtk_selection_data_set(selection, gtk_selection_data_get_target(selection),
                                                8, reinterpret_cast<const guchar*>(""), 1);
                       }),
                       nullptr);
  const gulong end = g_signal_connect(widget, "drag-end",
                                      G_CALLBACK(+[](GtkWidget*, GdkDragContext*, gpointer over) {
                                        *static_cast<bool*>(over) = true;
                                      }),
                                      &is_over);
  GtkTargetList* targets = gtk_target_list_new(nullptr, 0);
  gtk_target_list_add(targets, gdk_atom_intern_static_string(kRowFormat), 0, 0);
  const auto actions = static_cast<GdkDragAction>(GDK_ACTION_COPY | GDK_ACTION_MOVE);
  if (gtk_drag_begin_with_coordinates(widget, targets, actions, 1, event, -1, -1)) {
    while (!is_over) gtk_main_iteration();
  }
  gtk_target_list_unref(targets);
  gdk_event_free(event);
  g_signal_handler_disconnect(widget, data);
  g_signal_handler_disconnect(widget, end);
}

}  // namespace wx
