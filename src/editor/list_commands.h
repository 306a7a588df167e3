// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/list_dialogs.h"
#include "editor/editor_context.h"
#include "editor/editor_view.h"

namespace editor {

// Many rows at once: lists that come into the project.
class ListCommands {
 public:
  // Both outlive the commands.
  ListCommands(EditorContext& context, EditorView& view) : context_(context), view_(view) {}

  // Shows what the list would do, does it when the user agrees, and shows the rows.
  void Import(const dialogs::ListToImport& list);

 private:
  EditorContext& context_;
  EditorView& view_;
};

}  // namespace editor
