// SPDX-License-Identifier: MIT
// Columns behind those of the studio's grids: what is known of an item. They are read only, and the
// kept orders and widths know nothing of them.
#pragma once

#include <cstddef>

#include "forms/form.h"
#include "forms/grid.h"

namespace editor {

void AddArgumentNotes(forms::Grid& arguments, const forms::TextLookup& text);
void AddAliasNotes(forms::Grid& aliases, const forms::TextLookup& text);

// The number of a grid's own columns, which come first.
std::size_t OwnColumns(const forms::Grid& grid);

}  // namespace editor
