// SPDX-License-Identifier: MIT
#pragma once

#include <gtk/gtk.h>

namespace wx {

// Name and description of a tree view for screen readers. It gets an accessible object only when
// something asks for one: a tree view that has one tells it of every cell of every row that comes,
// which takes longer than the row itself.
void SetTreeViewName(GtkTreeView* tree, const char* name);
void SetTreeViewDescription(GtkTreeView* tree, const char* description);

}  // namespace wx
