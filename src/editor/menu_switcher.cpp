// SPDX-License-Identifier: MIT
#include "editor/menu_switcher.h"

#include <string>

#include "editor/node_key.h"
#include "editor/tools.h"

namespace editor {

namespace {

constexpr int kSelectArguments = 1630;
constexpr int kSelectAliases = 1631;
constexpr int kNoCurrentAlias = 1632;

bool IsMenuBarTool(const forms::MenuControl& menu, const forms::Tool& tool) {
  for (const forms::Tool* in_bar : menu.FindBand(kMainBand)->Tools()) {
    if (in_bar == &tool) return true;
  }
  return false;
}

}  // namespace

std::vector<ToolState> ToolStates(const MenuContext& context) {
  const bool formulas = KeyKind(context.key) == kFormulaKind;
  const bool aliases = KeyKind(context.key) == kAliasKind;
  const bool formula = IsFormulaKey(context.key);
  const bool arguments_selected = context.selected_arguments > 0;
  const bool aliases_selected = context.selected_aliases > 0;
  return {
      {"mnuFunctions", formulas, 0},
      {"mnuParameters", formula, 0},
      {"mnuAliases", aliases, 0},
      {"mnuOptions", true, 0},
      {"mnuFunctionDescriptor", context.toolbar_flag && formulas, 0},
      {"mnuFunctionNew", formulas && !formula, 0},
      {"mnuFunctionEdit", formula, 0},
      {"mnuFunctionDelete", formula, 0},
      {"mnuFunctionShowCode", formula, 0},
      {"mnuFunctionDuplicate", formula, 0},
      {"mnuFunctionCopy", formula, 0},
      {"mnuFunctionPaste", formulas, 0},
      {"mnuParameterDescriptor", context.toolbar_flag && formulas, 0},
      {"mnuParameterNew", formula, 0},
      {"mnuParameterEdit", formula, 0},
      {"mnuParameterDelete", formula && arguments_selected, formula ? kSelectArguments : 0},
      {"mnuAliasDescriptor", context.toolbar_flag && aliases, 0},
      {"mnuAliasNew", aliases, 0},
      {"mnuAliasEdit", aliases && context.current_alias, aliases ? kNoCurrentAlias : 0},
      {"mnuAliasDelete", aliases && aliases_selected, aliases ? kSelectAliases : 0},
      {"mnuOptionActualize", true, 0},
      {"mnuOptionStatistik", true, 0},
      {"mnuOptionOption", true, 0},
      {"mnuOptionReport", true, 0},
  };
}

void ApplyToolStates(forms::MenuControl& menu, const std::vector<ToolState>& states,
                     const forms::TextLookup& text) {
  for (const ToolState& state : states) {
    forms::Tool* tool = menu.FindTool(state.name);
    if (!tool) continue;
    tool->SetVisible(state.shown);
    if (IsMenuBarTool(menu, *tool)) continue;
    tool->SetEnabled(state.shown);
    tool->SetDisabledReason(state.shown || state.reason == 0 ? std::string() : text(state.reason));
  }
}

void ShowEditorTools(forms::MenuControl& menu, bool shown) {
  for (const char* name : {"mnuShowEditorHelper", "mnuShowEditorSep", kShowEditorTool}) {
    if (forms::Tool* tool = menu.FindTool(name)) tool->SetVisible(shown).SetEnabled(shown);
  }
}

}  // namespace editor
