// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <string>

#include "wx/convert.h"
#include "wx/link_colour.h"

namespace wx {

void SetLinkColour(const wxColour& colour) {
  const std::string css =
      "button.link, button.link label { color: " + FromWx(colour.GetAsString(wxC2S_HTML_SYNTAX)) +
      "; }";
  GtkCssProvider* provider = gtk_css_provider_new();
  gtk_css_provider_load_from_data(provider, css.c_str(), -1, nullptr);
  gtk_style_context_add_provider_for_screen(gdk_screen_get_default(), GTK_STYLE_PROVIDER(provider),
                                            GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  g_object_unref(provider);
}

}  // namespace wx
