// SPDX-License-Identifier: MIT
#include "editor/tools.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "editor/commands.h"
#include "forms/keys.h"

namespace editor {

namespace {

using forms::ToolKind;

constexpr ToolKey kNoKey;
constexpr ToolKey kNewKey{"F8", forms::kKeyF8, 0};
constexpr ToolKey kEditKey{"F9", forms::kKeyF9, 0};
constexpr ToolKey kDeleteKey{"Ctrl+Del", forms::kKeyDelete, forms::kControl};
constexpr ToolKey kEditorKey{"Alt+F6", forms::kKeyF6, forms::kAlt};
// The toolkit's lists know this key themselves.
constexpr ToolKey kCellKey{"F2"};
constexpr ToolKey kCopyKey{"Ctrl+C", 'C', forms::kControl};
constexpr ToolKey kPasteKey{"Ctrl+V", 'V', forms::kControl};
constexpr ToolKey kUndoKey{"Ctrl+Z", 'Z', forms::kControl};
constexpr ToolKey kRedoKey{"Ctrl+Y", 'Y', forms::kControl};

constexpr auto kCommand = ToolKind::kCommand;
constexpr auto kFunction = &Commands::mnuFunction;
constexpr auto kParameter = &Commands::mnuParameter;
constexpr auto kAlias = &Commands::mnuAlias;
constexpr auto kGrid = &Commands::mnuGrid;
constexpr auto kExtra = &Commands::mnuExtra;
constexpr auto kEdits = &Commands::mnuEdit;

// Every tool once.
constexpr ToolRow kTools[] = {
    {"mnuFunctionDescriptor", 140, ToolKind::kLabel},
    {"mnuFunctionNew", 141, kCommand, kNewKey, "new", 1640, kFunction, kNew},
    {"mnuFunctionEdit", 142, kCommand, kEditKey, "edit", 1641, kFunction, kEdit},
    {"mnuFunctionDelete", 143, kCommand, kDeleteKey, "delete", 1642, kFunction, kDelete},
    {"mnuFunctionShowCode", 144, kCommand, kNoKey, "code", 1643, kFunction, kShowCode},
    {"mnuFunctionDuplicate", 4160, kCommand, kNoKey, "", 4161, kFunction, kDuplicate},
    {"mnuFunctionCopy", 1661, kCommand, kCopyKey, "", 0, kFunction, kCopy},
    {"mnuFunctionPaste", 1662, kCommand, kPasteKey, "", 0, kFunction, kPaste},
    {"mnuShowEditorSep", 0, ToolKind::kSeparator},
    {kShowEditorTool, 170, kCommand, kEditorKey},
    {"mnuParameterDescriptor", 150, ToolKind::kLabel},
    {"mnuParameterNew", 151, kCommand, kNewKey, "new", 1644, kParameter, kNew},
    {"mnuParameterEdit", 152, kCommand, kEditKey, "edit", 1645, kParameter, kEdit},
    {"mnuParameterDelete", 153, kCommand, kDeleteKey, "delete", 1646, kParameter, kDelete},
    {"mnuAliasDescriptor", 131, ToolKind::kLabel},
    {"mnuAliasNew", 132, kCommand, kNewKey, "new", 1647, kAlias, kNew},
    {"mnuAliasEdit", 133, kCommand, kEditKey, "edit", 1648, kAlias, kEdit},
    {"mnuAliasDelete", 134, kCommand, kDeleteKey, "delete", 1649, kAlias, kDelete},
    {"mnuGridSep", 0, ToolKind::kSeparator},
    {"Edit", 1660, kCommand, kCellKey, "", 0, kGrid, kEditCell},
    {"Copy", 1661, kCommand, kCopyKey, "", 0, kGrid, kCopyRows},
    {"Paste", 1662, kCommand, kPasteKey, "", 0, kGrid, kPasteCell},
    {"mnuOptionActualize", 162, kCommand, kNoKey, "refresh", 0, kExtra, kRefresh},
    {"mnuOptionsSep0", 0, ToolKind::kSeparator},
    {"mnuOptionStatistik", 161, kCommand, kNoKey, "statistics", 0, kExtra, kStatistics},
    {"mnuOptionReport", 165, kCommand, kNoKey, "report", 0, kExtra, kReport},
    {"mnuOptionSep1", 0, ToolKind::kSeparator},
    {"mnuOptionOption", 163, kCommand, kNoKey, "options", 0, kExtra, kOptions},
    {kUndoTool, 3801, kCommand, kUndoKey, "", 0, kEdits, kUndo},
    {kRedoTool, 3802, kCommand, kRedoKey, "", 0, kEdits, kRedo},
    {kEditTool, 3800, ToolKind::kSubmenu, kNoKey, "", 0, nullptr, 0, kEditBand},
    {"mnuFunctions", 121, ToolKind::kSubmenu, kNoKey, "", 0, nullptr, 0, kFunctionBand},
    {"mnuParameters", 150, ToolKind::kSubmenu, kNoKey, "", 0, nullptr, 0, kParameterBand},
    {"mnuAliases", 131, ToolKind::kSubmenu, kNoKey, "", 0, nullptr, 0, kAliasBand},
    {"mnuOptions", 160, ToolKind::kSubmenu, kNoKey, "", 0, nullptr, 0, kOptionBand},
    {"mnuShowEditorHelper", 170, ToolKind::kLabel},
    {"tbrSep0", 0, ToolKind::kSeparator},
    {"tbrSep1", 0, ToolKind::kSeparator},
};

struct BandRow {
  const char* name;
  std::initializer_list<const char*> tools;
};

const BandRow kBands[] = {
    {kFunctionBand,
     {"mnuFunctionDescriptor", "mnuFunctionNew", "mnuFunctionEdit", "mnuFunctionDelete",
      "mnuFunctionShowCode", "mnuFunctionDuplicate", "mnuFunctionCopy", "mnuFunctionPaste",
      "mnuShowEditorSep", kShowEditorTool}},
    {kParameterBand,
     {"mnuParameterDescriptor", "mnuParameterNew", "mnuParameterEdit", "mnuParameterDelete",
      "mnuGridSep", "Edit", "Copy", "Paste"}},
    {kAliasBand,
     {"mnuAliasDescriptor", "mnuAliasNew", "mnuAliasEdit", "mnuAliasDelete", "mnuGridSep", "Edit",
      "Copy", "Paste"}},
    {kOptionBand,
     {"mnuOptionActualize", "mnuOptionsSep0", "mnuOptionStatistik", "mnuOptionReport",
      "mnuOptionSep1", "mnuOptionOption"}},
    {kEditBand, {kUndoTool, kRedoTool}},
    {kMainBand, {kEditTool, "mnuFunctions", "mnuParameters", "mnuAliases", "mnuOptions"}},
    {kShowEditorBand, {"mnuShowEditorHelper", kShowEditorTool}},
    {kArgumentToolbar,
     {"mnuFunctionNew", "mnuFunctionShowCode", "tbrSep0", "mnuParameterNew", "mnuParameterEdit",
      "mnuParameterDelete", "tbrSep1", "mnuOptionActualize"}},
    {kAliasToolbar,
     {"mnuAliasNew", "mnuAliasEdit", "mnuAliasDelete", "tbrSep1", "mnuOptionActualize"}},
};

}  // namespace

const ToolRow* FindToolRow(std::string_view name) {
  const auto row = std::ranges::find(kTools, name, &ToolRow::name);
  return row == std::end(kTools) ? nullptr : row;
}

const ToolRow* FindToolOfKey(std::string_view band, std::int16_t code, std::int16_t shift) {
  const auto found = std::ranges::find(kBands, band, &BandRow::name);
  if (code == 0 || found == std::end(kBands)) return nullptr;
  for (const char* name : found->tools) {
    const ToolRow* row = FindToolRow(name);
    if (row && row->command && row->key.code == code && row->key.shift == shift) return row;
  }
  return nullptr;
}

void ShowUndoTools(forms::MenuControl& menu, bool shown) {
  for (const char* name : {kEditTool, kUndoTool, kRedoTool}) menu.FindTool(name)->SetVisible(shown);
}

void BuildBands(forms::MenuControl& menu, const forms::TextLookup& text) {
  for (const BandRow& band_row : kBands) {
    forms::Band& band = menu.AddBand(band_row.name);
    for (const char* name : band_row.tools) {
      const ToolRow& row = *FindToolRow(name);
      const bool shown_again = menu.FindTool(name) != nullptr;
      forms::Tool& tool = band.AddTool(name, row.kind);
      if (shown_again) continue;
      tool.SetShortcut(row.key.text).SetIcon(row.icon).SetSubBand(row.sub_band);
      if (row.caption != 0) tool.SetTag(std::to_string(row.caption));
      if (row.tip != 0) tool.SetToolTip(text(row.tip));
    }
  }
  ShowUndoTools(menu, false);
  menu.SetMenuBar(kMainBand);
}

}  // namespace editor
