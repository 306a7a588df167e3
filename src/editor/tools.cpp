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
  const char* tip = "";  // number of the explanation's text
};

struct BandRow {
  const char* name;
  std::initializer_list<ToolRow> tools;
};

const BandRow kBands[] = {
    {kFunctionBand,
     {{"mnuFunctionDescriptor", "140", ToolKind::kLabel},
      {"mnuFunctionNew", "141", ToolKind::kCommand, "F8", "new", "", "1640"},
      {"mnuFunctionEdit", "142", ToolKind::kCommand, "F9", "edit", "", "1641"},
      {"mnuFunctionDelete", "143", ToolKind::kCommand, "Ctrl+Del", "delete", "", "1642"},
      {"mnuFunctionShowCode", "144", ToolKind::kCommand, "", "code", "", "1643"},
      {"mnuShowEditorSep", "", ToolKind::kSeparator},
      {"mnuShowEditor", "170", ToolKind::kCommand, "Alt+F6"}}},
    {kParameterBand,
     {{"mnuParameterDescriptor", "150", ToolKind::kLabel},
      {"mnuParameterNew", "151", ToolKind::kCommand, "F8", "new", "", "1644"},
      {"mnuParameterEdit", "152", ToolKind::kCommand, "F9", "edit", "", "1645"},
      {"mnuParameterDelete", "153", ToolKind::kCommand, "Ctrl+Del", "delete", "", "1646"}}},
    {kAliasBand,
     {{"mnuAliasDescriptor", "131", ToolKind::kLabel},
      {"mnuAliasNew", "132", ToolKind::kCommand, "F8", "new", "", "1647"},
      {"mnuAliasEdit", "133", ToolKind::kCommand, "F9", "edit", "", "1648"},
      {"mnuAliasDelete", "134", ToolKind::kCommand, "Ctrl+Del", "delete", "", "1649"}}},
    {kOptionBand,
     {{"mnuOptionActualize", "162", ToolKind::kCommand, "", "refresh"},
      {"mnuOptionsSep0", "", ToolKind::kSeparator},
      {"mnuOptionStatistik", "161", ToolKind::kCommand, "", "statistics"},
      {"mnuOptionReport", "165", ToolKind::kCommand, "", "report"},
      {"mnuOptionSep1", "", ToolKind::kSeparator},
      {"mnuOptionOption", "163", ToolKind::kCommand, "", "options"}}},
    {kMainBand,
     {{"mnuFunctions", "121", ToolKind::kSubmenu, "", "", kFunctionBand},
      {"mnuParameters", "150", ToolKind::kSubmenu, "", "", kParameterBand},
      {"mnuAliases", "131", ToolKind::kSubmenu, "", "", kAliasBand},
      {"mnuOptions", "160", ToolKind::kSubmenu, "", "", kOptionBand}}},
    {kShowEditorBand, {{"mnuShowEditorHelper", "170", ToolKind::kLabel}, {"mnuShowEditor", ""}}},
    {kArgumentToolbar,
     {{"mnuFunctionNew", ""},
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

void BuildBands(forms::MenuControl& menu, const forms::TextLookup& text) {
  for (const BandRow& band_row : kBands) {
    forms::Band& band = menu.AddBand(band_row.name);
    for (const ToolRow& row : band_row.tools) {
      const bool shown_again = menu.FindTool(row.name) != nullptr;
      forms::Tool& tool = band.AddTool(row.name, row.kind);
      if (shown_again) continue;
      tool.SetTag(row.tag).SetShortcut(row.shortcut).SetIcon(row.icon).SetSubBand(row.sub_band);
      if (*row.tip) tool.SetToolTip(text(platform::Variant(row.tip).ToLong()));
    }
  }
  menu.SetMenuBar(kMainBand);
}

}  // namespace editor
