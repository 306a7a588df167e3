// SPDX-License-Identifier: MIT
// Which commands apply: decided by the key of the selected tree node and the grids' selections.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "forms/menu_control.h"
#include "messages/text_number.h"

namespace editor {

struct MenuContext {
  std::string_view key;                // of the tree node
  bool toolbar_flag = false;           // labels are shown, as in a menu of the tree
  std::size_t selected_arguments = 0;  // rows
  std::size_t selected_aliases = 0;
  bool current_alias = false;
};

// A tool, whether it applies, and the number of the text that says why not (0: it is hidden
// because it belongs to another node).
struct ToolState {
  const char* name;
  bool shown;
  messages::TextNumber reason{};
};

// The states of all tools but those that show the editor.
std::vector<ToolState> ToolStates(const MenuContext& context);

// Sets Enabled and Visible of each tool to its state; menu-bar tools get Visible only, and the
// option commands, which always apply, likewise.
void ApplyToolStates(forms::MenuControl& menu, const std::vector<ToolState>& states,
                     const forms::TextLookup& text);

// The three tools that show the editor follow the toolbar flag.
void ShowEditorTools(forms::MenuControl& menu, bool shown);

}  // namespace editor
