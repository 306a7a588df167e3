// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
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
  // Puts formulas on the clipboard: as lines for a spreadsheet, and for ourselves with arguments
  // and code. Those that are gone are left out.
  void CopyFormulas(std::span<const std::int32_t> ids);
  // Brings copies of formulas into another class, with a preview.
  void CopyInto(std::span<const std::int32_t> ids, std::string_view prog_id);
  // Makes aliases arguments of a formula, with a preview.
  void AddArguments(std::span<const std::int32_t> alias_ids, std::int32_t formula_id);
  // Puts rows of aliases on the clipboard: the text, and for ourselves items and names whatever
  // columns the text has.
  void CopyAliases(const std::vector<std::int32_t>& ids, std::string_view text);
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
  std::vector<exchange::CopySource> SourcesOf(std::span<const std::int32_t> ids);
  void Show(dialogs::ListChange change);
  exchange::Contents ReadPasted(std::string text);

  EditorContext& context_;
  EditorView& view_;
};

}  // namespace editor
