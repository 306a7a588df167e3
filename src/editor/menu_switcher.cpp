// SPDX-License-Identifier: MIT
#include "editor/menu_switcher.h"

#include <string>

#include "editor/node_key.h"
#include "editor/tools.h"
#include "messages/text_number.h"

namespace editor {

namespace {

constexpr messages::TextNumber kNoReason = messages::kNoText;
constexpr messages::TextNumber kSelectArguments{1630};
constexpr messages::TextNumber kSelectAliases{1631};
constexpr messages::TextNumber kNoCurrentAlias{1632};

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
      {"mnuFunctions", formulas},
      {"mnuParameters", formula},
      {"mnuAliases", aliases},
      {"mnuOptions", true},
      {"mnuFunctionDescriptor", context.toolbar_flag && formulas},
      {"mnuFunctionNew", formulas && !formula},
      {"mnuFunctionEdit", formula},
      {"mnuFunctionDelete", formula},
      {"mnuFunctionShowCode", formula},
      {"mnuFunctionDuplicate", formula},
      {"mnuFunctionCopy", formula},
      {"mnuFunctionPaste", formulas},
      {"mnuParameterDescriptor", context.toolbar_flag && formulas},
      {"mnuParameterNew", formula},
      {"mnuParameterEdit", formula},
      {"mnuParameterDelete", formula && arguments_selected, formula ? kSelectArguments : kNoReason},
      {"mnuAliasDescriptor", context.toolbar_flag && aliases},
      {"mnuAliasNew", aliases},
      {"mnuAliasEdit", aliases && context.current_alias, aliases ? kNoCurrentAlias : kNoReason},
      {"mnuAliasDelete", aliases && aliases_selected, aliases ? kSelectAliases : kNoReason},
      {"mnuOptionActualize", true},
      {"mnuOptionStatistik", true},
      {"mnuOptionOption", true},
      {"mnuOptionReport", true},
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
    tool->SetDisabledReason(state.shown || state.reason == kNoReason ? std::string()
                                                                     : text(state.reason));
  }
}

void ShowEditorTools(forms::MenuControl& menu, bool shown) {
  for (const char* name : {"mnuShowEditorHelper", "mnuShowEditorSep", kShowEditorTool}) {
    if (forms::Tool* tool = menu.FindTool(name)) tool->SetVisible(shown).SetEnabled(shown);
  }
}

}  // namespace editor
