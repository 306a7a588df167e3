// SPDX-License-Identifier: MIT
#pragma once

#include <gtk/gtk.h>

#include "wx/tree_source.h"

namespace wx {

// A source as the native tree's model of one column, the text. Neither the number of a node's
// siblings nor that of the nodes out of sight makes a step of the tree view longer. The source must
// outlive the model; the caller owns a reference.
GtkTreeModel* NewTreeModel(const TreeSource& source);

TreeSource::Node NodeAt(const GtkTreeIter& iter);
// Places from the top; the caller frees the path.
GtkTreePath* PathOf(const TreeSource& source, TreeSource::Node node);

}  // namespace wx
