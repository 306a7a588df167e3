// SPDX-License-Identifier: MIT
// Columns behind those of the studio's grids: what is known of an item. They are read only, and the
// kept orders know nothing of them.
#pragma once

#include <cstddef>

#include "forms/form.h"
#include "forms/grid.h"
#include "settings/init.h"

namespace editor {

void AddArgumentNotes(forms::Grid& arguments, const forms::TextLookup& text);
void AddAliasNotes(forms::Grid& aliases, const forms::TextLookup& text);

// Their widths are settings, too, which the settings file may override.
void AddNoteWidths(const forms::Grid& grid, settings::CInit& inits);

// The number of a grid's own columns, which come first.
std::size_t OwnColumns(const forms::Grid& grid);

}  // namespace editor
