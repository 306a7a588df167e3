// SPDX-License-Identifier: MIT
#include "editor/note_columns.h"

#include <span>
#include <string>

#include "messages/text_number.h"

namespace editor {

namespace {

using Text = messages::TextNumber;

struct NoteColumn {
  const char* field;
  Text caption;
  double width;  // twips
  forms::ColumnKind kind = forms::ColumnKind::kText;
};

// In the order of the cells that ArgumentRows appends.
constexpr NoteColumn kArgumentNotes[] = {{"ArgumentItem", Text{4380}, 2100},
                                         {"ItemType", Text{4381}, 1050},
                                         {"ItemComment", Text{4382}, 1500}};
// In the order of the cells that AliasNoteRows appends.
constexpr NoteColumn kAliasNotes[] = {{"ItemType", Text{4381}, 1200},
                                      {"Uses", Text{4383}, 1800, forms::ColumnKind::kNumber},
                                      {"Catalogue", Text{4384}, 1350},
                                      {"ItemComment", Text{4382}, 2700}};

// The last one takes what room is left.
void Add(forms::Grid& grid, std::span<const NoteColumn> notes, const forms::TextLookup& text) {
  forms::Split& split = grid.AddSplit(0);
  for (const NoteColumn& note : notes) {
    forms::Column& column = split.AddColumn(note.field, note.width);
    column.SetCaption(text(note.caption));
    column.SetKind(note.kind);
    column.SetLocked(true);
    column.SetFills(&note == &notes.back());
  }
}

}  // namespace

void AddArgumentNotes(forms::Grid& arguments, const forms::TextLookup& text) {
  Add(arguments, kArgumentNotes, text);
}

void AddAliasNotes(forms::Grid& aliases, const forms::TextLookup& text) {
  Add(aliases, kAliasNotes, text);
}

void AddNoteWidths(const forms::Grid& grid, settings::CInit& inits) {
  const std::string split = std::to_string(grid.SplitCount() - 1);
  for (std::size_t i = OwnColumns(grid); i < grid.ColumnCount(); ++i) {
    const forms::Column& column = grid.ColumnAt(i);
    inits.WriteAValueToCInits(
        grid.Name() + ".Splits(" + split + ").Columns(\"" + column.DataField() + "\").Width",
        column.Width());
  }
}

std::size_t OwnColumns(const forms::Grid& grid) {
  std::size_t own = 0;
  while (own < grid.ColumnCount() && !grid.ColumnAt(own).Locked()) ++own;
  return own;
}

}  // namespace editor
