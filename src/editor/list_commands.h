// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "dialogs/list_dialogs.h"
#include "editor/editor_context.h"
#include "editor/editor_view.h"
#include "exchange/contents.h"
#include "exchange/formula_copy.h"

namespace editor {

// Many rows at once: lists that come into the project, rows that are copied and pasted.
class ListCommands {
 public:
  // Both outlive the commands.
  ListCommands(EditorContext& context, EditorView& view) : context_(context), view_(view) {}

  // Shows what the list would do, does it when the user agrees, and shows the rows.
  void Import(const dialogs::ListToImport& list);
  // Makes copies of a formula as the user says.
  void Duplicate(std::int32_t formula_id);
  // Puts a formula with arguments and code on the clipboard.
  void CopyFormula(std::int32_t formula_id);
  // Takes what the clipboard has as a list with formulas, with a preview.
  void PasteFormulas();
  // The rows as lines for a spreadsheet, which also say all that a paste into any project needs.
  std::string ArgumentLines(const std::vector<std::int32_t>& ids);
  // Takes lines of the clipboard as rows for the table of the node that is shown, with a preview.
  // False, doing nothing, when they are none but one value for a cell. `has_cell`: there is one.
  bool Paste(bool has_cell);

 private:
  // The formula must be there.
  exchange::CopySource SourceOf(std::int32_t formula_id);
  void Show(const store::OperationResult& result);
  exchange::Contents ReadPasted(std::string text);

  EditorContext& context_;
  EditorView& view_;
};

}  // namespace editor
