// SPDX-License-Identifier: MIT
#include "editor/alias_note_rows.h"

#include <utility>

#include "editor/grid_columns.h"
#include "platform/error.h"

namespace editor {

AliasNoteRows::AliasNoteRows(std::shared_ptr<dialogs::AliasTable> table,
                             store::Operations& operations, dialogs::ItemNotes& notes,
                             std::string missing)
    : aliases_(std::move(table), dialogs::AliasRows::Columns::kItemAlias),
      operations_(operations),
      notes_(notes),
      missing_(std::move(missing)) {}

std::vector<forms::Row> AliasNoteRows::Rows(std::size_t first, std::size_t count) {
  std::vector<forms::Row> rows = aliases_.Rows(first, count);
  for (forms::Row& row : rows) {
    dialogs::ItemNote note = notes_.NoteOf(row.cells[kItemIdColumn].ToText());
    row.cells.emplace_back(std::move(note.type));
    row.cells.emplace_back(UsesOf(row.id));
    row.cells.emplace_back(note.missing ? missing_ : std::string());
    row.cells.emplace_back(std::move(note.comment));
  }
  return rows;
}

std::int32_t AliasNoteRows::UsesOf(std::int64_t alias_id) {
  if (!uses_) {
    uses_.emplace();
    try {
      operations_.ForEachArgument(
          [this](const store::ArgumentRecord& argument) { ++(*uses_)[argument.alias_id]; });
    } catch (const platform::Error&) {
      uses_->clear();  // what cannot be read has been said by those whose table it is
    }
  }
  const auto found = uses_->find(alias_id);
  return found == uses_->end() ? 0 : found->second;
}

}  // namespace editor
