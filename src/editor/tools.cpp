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
using Text = messages::TextNumber;

constexpr Text kNone = messages::kNoText;
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
    {"mnuFunctionDescriptor", Text{140}, ToolKind::kLabel},
    {"mnuFunctionNew", Text{141}, kCommand, kNewKey, "new", Text{1640}, kFunction, kNew},
    {"mnuFunctionEdit", Text{142}, kCommand, kEditKey, "edit", Text{1641}, kFunction, kEdit},
    {"mnuFunctionDelete", Text{143}, kCommand, kDeleteKey, "delete", Text{1642}, kFunction,
     kDelete},
    {"mnuFunctionShowCode", Text{144}, kCommand, kNoKey, "code", Text{1643}, kFunction, kShowCode},
    {"mnuFunctionDuplicate", Text{4160}, kCommand, kNoKey, "", Text{4161}, kFunction, kDuplicate},
    {"mnuFunctionCopy", Text{1661}, kCommand, kCopyKey, "", kNone, kFunction, kCopy},
    {"mnuFunctionPaste", Text{1662}, kCommand, kPasteKey, "", kNone, kFunction, kPaste},
    {"mnuShowEditorSep", kNone, ToolKind::kSeparator},
    {kShowEditorTool, Text{170}, kCommand, kEditorKey},
    {"mnuParameterDescriptor", Text{150}, ToolKind::kLabel},
    {"mnuParameterNew", Text{151}, kCommand, kNewKey, "new", Text{1644}, kParameter, kNew},
    {"mnuParameterEdit", Text{152}, kCommand, kEditKey, "edit", Text{1645}, kParameter, kEdit},
    {"mnuParameterDelete", Text{153}, kCommand, kDeleteKey, "delete", Text{1646}, kParameter,
     kDelete},
    {"mnuAliasDescriptor", Text{131}, ToolKind::kLabel},
    {"mnuAliasNew", Text{132}, kCommand, kNewKey, "new", Text{1647}, kAlias, kNew},
    {"mnuAliasEdit", Text{133}, kCommand, kEditKey, "edit", Text{1648}, kAlias, kEdit},
    {"mnuAliasDelete", Text{134}, kCommand, kDeleteKey, "delete", Text{1649}, kAlias, kDelete},
    {"mnuGridSep", kNone, ToolKind::kSeparator},
    {"Edit", Text{1660}, kCommand, kCellKey, "", kNone, kGrid, kEditCell},
    {"Copy", Text{1661}, kCommand, kCopyKey, "", kNone, kGrid, kCopyRows},
    {"Paste", Text{1662}, kCommand, kPasteKey, "", kNone, kGrid, kPasteCell},
    {"mnuOptionActualize", Text{162}, kCommand, kNoKey, "refresh", kNone, kExtra, kRefresh},
    {"mnuOptionsSep0", kNone, ToolKind::kSeparator},
    {"mnuOptionStatistik", Text{161}, kCommand, kNoKey, "statistics", kNone, kExtra, kStatistics},
    {"mnuOptionReport", Text{165}, kCommand, kNoKey, "report", kNone, kExtra, kReport},
    {"mnuOptionSep1", kNone, ToolKind::kSeparator},
    {"mnuOptionOption", Text{163}, kCommand, kNoKey, "options", kNone, kExtra, kOptions},
    {kUndoTool, Text{3801}, kCommand, kUndoKey, "", kNone, kEdits, kUndo},
    {kRedoTool, Text{3802}, kCommand, kRedoKey, "", kNone, kEdits, kRedo},
    {kEditTool, Text{3800}, ToolKind::kSubmenu, kNoKey, "", kNone, nullptr, 0, kEditBand},
    {"mnuFunctions", Text{121}, ToolKind::kSubmenu, kNoKey, "", kNone, nullptr, 0, kFunctionBand},
    {"mnuParameters", Text{150}, ToolKind::kSubmenu, kNoKey, "", kNone, nullptr, 0, kParameterBand},
    {"mnuAliases", Text{131}, ToolKind::kSubmenu, kNoKey, "", kNone, nullptr, 0, kAliasBand},
    {"mnuOptions", Text{160}, ToolKind::kSubmenu, kNoKey, "", kNone, nullptr, 0, kOptionBand},
    {"mnuShowEditorHelper", Text{170}, ToolKind::kLabel},
    {"tbrSep0", kNone, ToolKind::kSeparator},
    {"tbrSep1", kNone, ToolKind::kSeparator},
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
      if (row.caption != kNone) tool.SetTag(std::to_string(ToInt(row.caption)));
      if (row.tip != kNone) tool.SetToolTip(text(row.tip));
    }
  }
  ShowUndoTools(menu, false);
  menu.SetMenuBar(kMainBand);
}

}  // namespace editor
