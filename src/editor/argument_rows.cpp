// SPDX-License-Identifier: MIT
#include "editor/argument_rows.h"

#include <string>
#include <utility>

namespace editor {

void ArgumentRows::Read(store::Operations& operations, std::int32_t formula_id,
                        dialogs::ItemNotes* notes) {
  All().clear();
  if (formula_id == 0) return;
  for (const store::ArgumentRecord& argument : operations.ArgumentsOf(formula_id)) {
    All().push_back({argument.id, {argument.vb_alias, argument.in, argument.out}});
    if (!notes) continue;
    dialogs::ItemNote note = notes->NoteOf(argument.item_id);
    for (std::string text : {argument.item_id, std::move(note.type), std::move(note.comment)})
      All().back().cells.emplace_back(std::move(text));
  }
}

}  // namespace editor
