// SPDX-License-Identifier: MIT
#include "editor/tools.h"

#include <initializer_list>

namespace editor {

namespace {

using forms::ToolKind;

struct ToolRow {
  const char* name;
  const char* tag;  // number of the caption's text
  ToolKind kind = ToolKind::kCommand;
  const char* shortcut = "";
  const char* icon = "";
  const char* sub_band = "";
};

struct BandRow {
  const char* name;
  std::initializer_list<ToolRow> tools;
};

const BandRow kBands[] = {
    {kFunctionBand,
     {{"mnuFunctionDescriptor", "140", ToolKind::kLabel},
      {"mnuFunctionNew", "141", ToolKind::kCommand, "F8", "PICNEW"},
      {"mnuFunctionEdit", "142", ToolKind::kCommand, "F9", "PICEDIT"},
      {"mnuFunctionDelete", "143", ToolKind::kCommand, "Ctrl+Del", "PICDELETE"},
      {"mnuFunctionShowCode", "144", ToolKind::kCommand, "", "PICCODE"},
      {"mnuShowEditorSep", "", ToolKind::kSeparator},
      {"mnuShowEditor", "170", ToolKind::kCommand, "Alt+F6"}}},
    {kParameterBand,
     {{"mnuParameterDescriptor", "150", ToolKind::kLabel},
      {"mnuParameterNew", "151", ToolKind::kCommand, "F8", "PICNEW"},
      {"mnuParameterEdit", "152", ToolKind::kCommand, "F9", "PICEDIT"},
      {"mnuParameterDelete", "153", ToolKind::kCommand, "Ctrl+Del", "PICDELETE"}}},
    {kAliasBand,
     {{"mnuAliasDescriptor", "131", ToolKind::kLabel},
      {"mnuAliasNew", "132", ToolKind::kCommand, "F8", "PICNEW"},
      {"mnuAliasEdit", "133", ToolKind::kCommand, "F9", "PICEDIT"},
      {"mnuAliasDelete", "134", ToolKind::kCommand, "Ctrl+Del", "PICDELETE"}}},
    {kOptionBand,
     {{"mnuOptionActualize", "162", ToolKind::kCommand, "", "PICREFRESH"},
      {"mnuOptionsSep0", "", ToolKind::kSeparator},
      {"mnuOptionStatistik", "161"},
      {"mnuOptionReport", "165"},
      {"mnuOptionSep1", "", ToolKind::kSeparator},
      {"mnuOptionOption", "163"}}},
    {kMainBand,
     {{"mnuFunctions", "121", ToolKind::kSubmenu, "", "", kFunctionBand},
      {"mnuParameters", "150", ToolKind::kSubmenu, "", "", kParameterBand},
      {"mnuAliases", "131", ToolKind::kSubmenu, "", "", kAliasBand},
      {"mnuOptions", "160", ToolKind::kSubmenu, "", "", kOptionBand}}},
    {kShowEditorBand, {{"mnuShowEditorHelper", "170", ToolKind::kLabel}, {"mnuShowEditor", ""}}},
    {kArgumentToolbar,
     {{"mnuFunctionNew", ""},
      {"mnuFunctionEdit", ""},
      {"mnuFunctionDelete", ""},
      {"mnuFunctionShowCode", ""},
      {"tbrSep0", "", ToolKind::kSeparator},
      {"mnuParameterNew", ""},
      {"mnuParameterEdit", ""},
      {"mnuParameterDelete", ""},
      {"tbrSep1", "", ToolKind::kSeparator},
      {"mnuOptionActualize", ""}}},
    {kAliasToolbar,
     {{"mnuAliasNew", ""},
      {"mnuAliasEdit", ""},
      {"mnuAliasDelete", ""},
      {"tbrSep1", ""},
      {"mnuOptionActualize", ""}}},
};

}  // namespace

void BuildBands(forms::MenuControl& menu) {
  for (const BandRow& band_row : kBands) {
    forms::Band& band = menu.AddBand(band_row.name);
    for (const ToolRow& row : band_row.tools) {
      const bool shown_again = menu.FindTool(row.name) != nullptr;
      forms::Tool& tool = band.AddTool(row.name, row.kind);
      if (shown_again) continue;
      tool.SetTag(row.tag).SetShortcut(row.shortcut).SetIcon(row.icon).SetSubBand(row.sub_band);
    }
  }
  menu.SetMenuBar(kMainBand);
}

}  // namespace editor
