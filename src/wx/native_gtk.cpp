// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <wx/accel.h>
#include <wx/init.h>
#include <wx/platinfo.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "wx/accessible_tree_gtk.h"
#include "wx/native.h"

namespace wx {

namespace {

// The widget inside a control that takes the keyboard. A pane that scrolls may take it too, but
// means what it holds.
GtkWidget* FocusWidget(GtkWidget* widget) {
  if (!widget || !GTK_IS_CONTAINER(widget)) return widget;
  if (gtk_widget_get_can_focus(widget) && !GTK_IS_SCROLLED_WINDOW(widget)) return widget;
  GList* children = gtk_container_get_children(GTK_CONTAINER(widget));
  GtkWidget* found = nullptr;
  for (GList* child = children; child && !found; child = child->next) {
    GtkWidget* inner = FocusWidget(GTK_WIDGET(child->data));
    if (inner && gtk_widget_get_can_focus(inner)) found = inner;
  }
  g_list_free(children);
  return found ? found : widget;
}

// The label of a menu entry that can show a shortcut, somewhere inside the entry.
GtkAccelLabel* FindAccelLabel(GtkWidget* widget) {
  if (GTK_IS_ACCEL_LABEL(widget)) return GTK_ACCEL_LABEL(widget);
  if (!GTK_IS_CONTAINER(widget)) return nullptr;
  GList* children = gtk_container_get_children(GTK_CONTAINER(widget));
  GtkAccelLabel* found = nullptr;
  for (GList* child = children; child && !found; child = child->next) {
    found = FindAccelLabel(GTK_WIDGET(child->data));
  }
  g_list_free(children);
  return found;
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

class HintLabel : public wxStaticText {
 public:
  explicit HintLabel(wxWindow* parent) : wxStaticText(parent, wxID_ANY, wxEmptyString) {}
  void GTKWidgetDoSetMnemonic(GtkWidget*) override {}
};

gboolean OnKeyOfChoice(GtkWidget*, GdkEventKey* event, gpointer button) {
  const bool enter = event->keyval == GDK_KEY_Return || event->keyval == GDK_KEY_KP_Enter;
  const bool plain = (event->state & gtk_accelerator_get_default_mod_mask()) == 0;
  if (!enter || !plain) return FALSE;
  GtkWidget* widget = static_cast<wxButton*>(button)->GetHandle();
  return gtk_widget_is_sensitive(widget) ? gtk_widget_activate(widget) : FALSE;
}

}  // namespace

int RunApp(int argc, char** argv) { return wxEntry(argc, argv); }

wxString NativeParts() {
  const wxPlatformInfo& platform = wxPlatformInfo::Get();
  return wxString::Format("GTK %d.%d.%d, GLib, Pango, Cairo: GNU LGPL 2.1 or later",
                          platform.GetToolkitMajorVersion(), platform.GetToolkitMinorVersion(),
                          platform.GetToolkitMicroVersion());
}

void OnDiagnostic(std::function<void(const std::string& report)> handler) {
  static std::function<void(const std::string&)> report;
  report = std::move(handler);
  g_log_set_writer_func(
      [](GLogLevelFlags level, const GLogField* fields, gsize count, gpointer data) {
        constexpr int kReports = G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING | G_LOG_LEVEL_MESSAGE;
        if ((level & G_LOG_FLAG_FATAL) != 0 || (level & kReports) == 0)
          return g_log_writer_default(level, fields, count, data);
        gchar* text = g_log_writer_format_fields(level, fields, count, FALSE);
        report(text);
        g_free(text);
        return G_LOG_WRITER_HANDLED;
      },
      nullptr, nullptr);
}

void LayOutBeforeShow(wxTopLevelWindow& window) {
  window.SendSizeEvent();
  const wxSize size = window.GetSize();
  GtkAllocation whole{0, 0, size.GetWidth(), size.GetHeight()};
  gtk_widget_size_allocate(window.GetHandle(), &whole);
}

wxStaticText* NewLabel(wxWindow* parent) { return new FieldLabel(parent); }

bool HasLooks() { return true; }

void SetLook(Look look) {
  if (look == Look::kSystem) return;
  GObject* settings = G_OBJECT(gtk_settings_get_default());
  g_object_set(settings, "gtk-application-prefer-dark-theme", look == Look::kDark, nullptr);
  gchar* name = nullptr;
  g_object_get(settings, "gtk-theme-name", &name, nullptr);
  wxString theme = wxString::FromUTF8(name);
  g_free(name);
  if (look == Look::kLight && theme.EndsWith("-dark", &theme))
    g_object_set(settings, "gtk-theme-name", theme.utf8_str().data(), nullptr);
}

wxStaticText* NewHint(wxWindow* parent) { return new HintLabel(parent); }

int NativeHeight(const wxWindow& window) {
  int least = 0, natural = 0;
  gtk_widget_get_preferred_height(window.GetHandle(), &least, &natural);
  return natural;
}

int NativeWidth(const wxWindow& window) {
  int least = 0, natural = 0;
  gtk_widget_get_preferred_width(window.GetHandle(), &least, &natural);
  return natural;
}

void RaiseControl(wxWindow& control) { control.Raise(); }

void CallWhenIdle(std::function<void()> task) {
  using Task = std::function<void()>;
  auto run = [](gpointer data) -> gboolean {
    (*static_cast<Task*>(data))();
    return G_SOURCE_REMOVE;
  };
  auto destroy = [](gpointer data) { delete static_cast<Task*>(data); };
  g_idle_add_full(G_PRIORITY_LOW, run, new Task(std::move(task)), destroy);
}

namespace {

struct Accelerator {
  guint key = 0;
  GdkModifierType modifiers = GdkModifierType{};
};

// Without a key for a text that names none.
Accelerator AcceleratorOf(const wxString& shortcut) {
  const std::unique_ptr<wxAcceleratorEntry> entry(wxAcceleratorEntry::Create("\t" + shortcut));
  if (!entry) return {};
  const int key = entry->GetKeyCode(), flags = entry->GetFlags();
  const guint native = key >= WXK_F1 && key <= WXK_F12
                           ? GDK_KEY_F1 + static_cast<guint>(key - WXK_F1)
                       : key == WXK_DELETE ? GDK_KEY_Delete
                                           : gdk_unicode_to_keyval(static_cast<guint>(key));
  const int modifiers = (flags & wxACCEL_CTRL ? GDK_CONTROL_MASK : 0) |
                        (flags & wxACCEL_SHIFT ? GDK_SHIFT_MASK : 0) |
                        (flags & wxACCEL_ALT ? GDK_MOD1_MASK : 0);
  return {native, static_cast<GdkModifierType>(modifiers)};
}

wxString TextOf(const Accelerator& keys) {
  if (keys.key == 0) return {};
  gchar* label = gtk_accelerator_get_label(keys.key, keys.modifiers);
  const wxString text = wxString::FromUTF8(label);
  g_free(label);
  return text;
}

}  // namespace

void NameKey(const wxString&, const wxString&) {}

void ShowShortcut(wxMenuItem& item, const wxString& shortcut) {
  const Accelerator keys = AcceleratorOf(shortcut);
  GtkAccelLabel* label = FindAccelLabel(item.GetMenuItem());
  if (keys.key != 0 && label) gtk_accel_label_set_accel(label, keys.key, keys.modifiers);
}

wxString ShownShortcut(const wxMenuItem& item) {
  Accelerator keys;
  GtkAccelLabel* label = FindAccelLabel(item.GetMenuItem());
  if (label) gtk_accel_label_get_accel(label, &keys.key, &keys.modifiers);
  return TextOf(keys);
}

wxString KeyText(const wxString& shortcut) { return TextOf(AcceleratorOf(shortcut)); }

void MarkInvalid(wxWindow& window, bool invalid) {
  GtkStyleContext* style = gtk_widget_get_style_context(FocusWidget(window.GetHandle()));
  (invalid ? gtk_style_context_add_class : gtk_style_context_remove_class)(style,
                                                                           GTK_STYLE_CLASS_ERROR);
}

bool TextHasKeyboard(const wxTopLevelWindow& window) {
  GtkWidget* focus = gtk_window_get_focus(GTK_WINDOW(window.GetHandle()));
  return focus && (GTK_IS_EDITABLE(focus) || GTK_IS_TEXT_VIEW(focus));
}

void SetAccessibleName(wxWindow& window, const wxString& name) {
  GtkWidget* widget = FocusWidget(window.GetHandle());
  if (GTK_IS_TREE_VIEW(widget)) return SetTreeViewName(GTK_TREE_VIEW(widget), name.utf8_str());
  AtkObject* object = gtk_widget_get_accessible(widget);
  if (object) atk_object_set_name(object, name.utf8_str());
}

void SetAccessibleDescription(wxWindow& window, const wxString& description) {
  GtkWidget* widget = FocusWidget(window.GetHandle());
  if (GTK_IS_TREE_VIEW(widget)) {
    return SetTreeViewDescription(GTK_TREE_VIEW(widget), description.utf8_str());
  }
  AtkObject* object = gtk_widget_get_accessible(widget);
  if (object) atk_object_set_description(object, description.utf8_str());
}

wxPoint PopupPlace(wxWindow& window) {
  GdkEvent* event = gtk_get_current_event();
  const bool by_key = event && event->type == GDK_KEY_PRESS;
  if (event) gdk_event_free(event);
  GtkWidget* widget = FocusWidget(window.GetHandle());
  if (!by_key || !GTK_IS_TREE_VIEW(widget)) return wxDefaultPosition;
  GtkTreeView* tree = GTK_TREE_VIEW(widget);
  GtkTreePath* path = nullptr;
  gtk_tree_view_get_cursor(tree, &path, nullptr);
  GdkRectangle row = {};
  gtk_tree_view_get_background_area(tree, path, nullptr, &row);
  gtk_tree_path_free(path);
  wxPoint place;
  gtk_tree_view_convert_bin_window_to_widget_coords(tree, row.x, row.y + row.height, &place.x,
                                                    &place.y);
  const wxSize area = window.GetClientSize();
  return {std::clamp(place.x, 0, area.GetWidth()), std::clamp(place.y, 0, area.GetHeight())};
}

void KeepScrollbarsBeside(wxWindow& window) {
  if (!GTK_IS_SCROLLED_WINDOW(window.GetHandle())) return;
  GtkScrolledWindow* native = GTK_SCROLLED_WINDOW(window.GetHandle());
  gtk_scrolled_window_set_overlay_scrolling(native, FALSE);
  gtk_scrolled_window_set_kinetic_scrolling(native, FALSE);
}

void LeaveOutScrollbarWithoutRoom(wxWindow& list) {
  constexpr int kLeastHeight = 100;  // at 100 %: header, slider, and the other scrollbar
  list.Bind(wxEVT_SIZE, [&list](wxSizeEvent& event) {
    event.Skip();
    GtkScrolledWindow* native = GTK_SCROLLED_WINDOW(list.GetHandle());
    const bool room = event.GetSize().GetHeight() >= list.FromDIP(kLeastHeight);
    GtkPolicyType across = GTK_POLICY_AUTOMATIC;
    gtk_scrolled_window_get_policy(native, &across, nullptr);
    gtk_scrolled_window_set_policy(native, across,
                                   room ? GTK_POLICY_AUTOMATIC : GTK_POLICY_EXTERNAL);
  });
}

void PressByEnter(wxChoice& field, wxButton& button) {
  g_signal_connect(FocusWidget(field.GetHandle()), "key-press-event", G_CALLBACK(OnKeyOfChoice),
                   &button);
}

// A dialog grabs the input of its own group of windows only.
void KeepUsableDuringDialogs(wxTopLevelWindow& window) {
  GtkWindowGroup* group = gtk_window_group_new();
  gtk_window_group_add_window(group, GTK_WINDOW(window.GetHandle()));
  g_object_unref(group);  // the window holds it
}

}  // namespace wx
