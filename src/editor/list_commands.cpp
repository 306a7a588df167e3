// SPDX-License-Identifier: MIT
#include "editor/list_commands.h"

#include <algorithm>

#include "store/project_rows.h"

namespace editor {

void ListCommands::Import(const dialogs::ListToImport& list) {
  view_.VerifyAdds(view_.CurrentKey());
  const auto result = dialogs::ImportList(context_.dialog_context, list);
  if (!result) return;
  // The tree has the formulas.
  const bool has_formulas = std::ranges::any_of(
      result->rows, [](const auto& row) { return row.table == store::kFormulasTable; });
  if (has_formulas) {
    context_.host.RebuildViews();
  } else {
    view_.Reload();
  }
}

}  // namespace editor
