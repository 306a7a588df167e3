// SPDX-License-Identifier: MIT
// The bands and tools of the editor window's menu and toolbar control.
#pragma once

#include <cstdint>
#include <string_view>

#include "forms/menu_control.h"
#include "messages/text_number.h"

namespace editor {

// Names of the bands.
inline constexpr const char* kMainBand = "mnuMain";
inline constexpr const char* kFunctionBand = "mnuFunction";
inline constexpr const char* kParameterBand = "mnuParameter";
inline constexpr const char* kAliasBand = "mnuAlias";
inline constexpr const char* kOptionBand = "mnuOption";
inline constexpr const char* kEditBand = "mnuEdit";
inline constexpr const char* kShowEditorBand = "mnuShowEditorHelper";
// What the function toolbar shows in the two views.
inline constexpr const char* kArgumentToolbar = "tbrArguments";
inline constexpr const char* kAliasToolbar = "tbrAliases";

// Shows the editor from the tree's menus; it is no command of the window.
inline constexpr const char* kShowEditorTool = "mnuShowEditor";

// In the menu bar, where the editor takes operations back itself.
inline constexpr const char* kEditTool = "mnuEdits";
inline constexpr const char* kUndoTool = "mnuUndo";
inline constexpr const char* kRedoTool = "mnuRedo";

class Commands;

// A key as the menu names it and as it is pressed.
struct ToolKey {
  const char* text = "";
  std::int16_t code = 0;
  std::int16_t shift = 0;
};

// Everything that is known of a tool. kNoText stands for none.
struct ToolRow {
  const char* name;
  messages::TextNumber caption{};
  forms::ToolKind kind = forms::ToolKind::kCommand;
  ToolKey key{};
  const char* icon = "";
  messages::TextNumber tip{};
  void (Commands::*command)(std::int16_t) = nullptr;
  std::int16_t action = 0;
  const char* sub_band = "";
};

// Null when there is no tool of that name.
const ToolRow* FindToolRow(std::string_view name);
// The command of a band that a key stands for; null when there is none.
const ToolRow* FindToolOfKey(std::string_view band, std::int16_t code, std::int16_t shift);

// Builds all bands. Captions are the tools' tags, which LocaliseTools turns into texts. Undo and
// redo are not shown.
void BuildBands(forms::MenuControl& menu, const forms::TextLookup& text);

// For an editor that takes operations back itself.
void ShowUndoTools(forms::MenuControl& menu, bool shown);

}  // namespace editor
