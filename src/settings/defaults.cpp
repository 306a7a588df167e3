// SPDX-License-Identifier: MIT
#include "settings/defaults.h"

#include "platform/text.h"

namespace settings {

namespace {

// Widths and positions are in twips.
constexpr std::string_view kEditorWindow =
    "Me.WindowState=2\r\n"
    "Me.PosLeft=0\r\n"
    "Me.PosTop=0\r\n"
    "Me.Width=6000\r\n"
    "Me.Height=3000\r\n"
    "Me.Font.Name=Arial\r\n"
    "Me.Font.Size=8,25\r\n"
    "Me.Font.Underline=False\r\n"
    "Me.Font.Strikethrough=False\r\n"
    "Me.Font.Italic=False\r\n"
    "Me.Font.Charset=0\r\n"
    "Me.Font.Weight=400\r\n"
    "\r\n"
    "tdbP.Font.Name=Arial\r\n"
    "tdbP.Font.Size=8,25\r\n"
    "tdbP.Font.Underline=False\r\n"
    "tdbP.Font.Strikethrough=False\r\n"
    "tdbP.Font.Italic=False\r\n"
    "tdbP.Font.Charset=0\r\n"
    "tdbP.Font.Weight=400\r\n"
    "\r\n"
    "tdbP.Splits(0).Columns(\"AliasID\").Width=3000,189\r\n"
    "tdbP.Splits(0).Columns(\"AliasID\").AllowSizing=True\r\n"
    "tdbP.Splits(0).Columns(\"AliasID\").Visible=True\r\n"
    "tdbP.Splits(0).Columns(\"AliasID\").Order=1\r\n"
    "tdbP.Splits(1).Columns(\"In\").Width=1995,024\r\n"
    "tdbP.Splits(1).Columns(\"In\").AllowSizing=True\r\n"
    "tdbP.Splits(1).Columns(\"In\").Visible=True\r\n"
    "tdbP.Splits(1).Columns(\"Out\").Width=1995,024\r\n"
    "tdbP.Splits(1).Columns(\"Out\").AllowSizing=True\r\n"
    "tdbP.Splits(1).Columns(\"Out\").Visible=True\r\n"
    "\r\n"
    "tdbA.Font.Name=Arial\r\n"
    "tdbA.Font.Size=8,25\r\n"
    "tdbA.Font.Underline=False\r\n"
    "tdbA.Font.Strikethrough=False\r\n"
    "tdbA.Font.Italic=False\r\n"
    "tdbA.Font.Charset=0\r\n"
    "tdbA.Font.Weight=400\r\n"
    "\r\n"
    "tdbA.Splits(0).Columns(\"ItemID\").Width=1995,024\r\n"
    "tdbA.Splits(0).Columns(\"ItemID\").AllowSizing=True\r\n"
    "tdbA.Splits(0).Columns(\"ItemID\").Visible=True\r\n"
    "tdbA.Splits(1).Columns(\"VBAlias\").Width=1995,024\r\n"
    "tdbA.Splits(1).Columns(\"VBAlias\").AllowSizing=True\r\n"
    "tdbA.Splits(1).Columns(\"VBAlias\").Visible=True\r\n"
    "\r\n"
    "TDBAColOrders=,2,3\r\n"
    "TDBPColOrders=,2,3,4\r\n"
    "sb.Visible=True\r\n"
    "SaveOnExit=True\r\n"
    "RequestOnDelete=True\r\n"
    "LoadOnForeGround=True\r\n";

}  // namespace

std::string_view DefaultSettings(std::string_view name) {
  if (platform::EqualsIgnoringCase(name, "FORMULA.FRMTABGRID")) return kEditorWindow;
  return {};
}

}  // namespace settings
