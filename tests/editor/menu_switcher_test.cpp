// SPDX-License-Identifier: MIT
#include "editor/menu_switcher.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "editor/tools.h"

namespace editor {
namespace {

std::string NumberAsText(messages::TextNumber number) { return std::to_string(ToInt(number)); }

struct Menu : forms::Form {
  forms::MenuControl abr{this, "abr"};
  Menu() : Form("window") { BuildBands(abr, NumberAsText); }
};

// The tools that are both visible and enabled, those that always are left out.
std::string ShownTools(const forms::MenuControl& menu) {
  const std::set<std::string> always = {"mnuOptions",
                                        "mnuOptionActualize",
                                        "mnuOptionsSep0",
                                        "mnuOptionStatistik",
                                        "mnuOptionReport",
                                        "mnuOptionSep1",
                                        "mnuOptionOption",
                                        "tbrSep0",
                                        "tbrSep1",
                                        "mnuGridSep",
                                        "Edit",
                                        "Copy",
                                        "Paste"};
  std::string shown;
  for (const auto& tool : menu.Tools()) {
    EXPECT_TRUE(tool->Enabled() || !tool->Visible()) << tool->Name() << " is greyed out";
    if (always.contains(tool->Name())) {
      EXPECT_TRUE(tool->Visible() && tool->Enabled()) << tool->Name();
    } else if (tool->Visible()) {
      shown += (shown.empty() ? "" : " ") + tool->Name().substr(3);
    }
  }
  return shown;
}

TEST(MenuSwitcher, ShowsWhatAppliesToTheNode) {
  struct Case {
    MenuContext context;
    const char* shown;
  };
  const Case cases[] = {
      {{"FOR0", false, 1, 1, true}, ""},
      {{"FOR0", true, 1, 1, true}, "ShowEditorSep ShowEditor ShowEditorHelper"},
      {{"VARS7", false, 1, 1, true}, ""},
      {{"FORF0", false, 0, 0, false}, "FunctionNew FunctionPaste Functions"},
      {{"FORF0", true, 1, 0, false},
       "FunctionDescriptor FunctionNew FunctionPaste ShowEditorSep ShowEditor ParameterDescriptor "
       "Functions "
       "ShowEditorHelper"},
      {{"FORF12", false, 0, 3, true},
       "FunctionEdit FunctionDelete FunctionShowCode FunctionDuplicate FunctionCopy FunctionPaste "
       "ParameterNew ParameterEdit "
       "Functions "
       "Parameters"},
      {{"FORF12", false, 2, 0, false},
       "FunctionEdit FunctionDelete FunctionShowCode FunctionDuplicate FunctionCopy FunctionPaste "
       "ParameterNew ParameterEdit "
       "ParameterDelete "
       "Functions Parameters"},
      {{"FORF", false, 0, 0, false},
       "FunctionEdit FunctionDelete FunctionShowCode FunctionDuplicate FunctionCopy FunctionPaste "
       "ParameterNew ParameterEdit "
       "Functions "
       "Parameters"},
      {{"FORA0", false, 2, 0, false}, "AliasNew Aliases"},
      {{"FORA0", false, 0, 0, true}, "AliasNew AliasEdit Aliases"},
      {{"FORA0", true, 0, 5, true},
       "ShowEditorSep ShowEditor AliasDescriptor AliasNew AliasEdit AliasDelete Aliases "
       "ShowEditorHelper"},
  };
  Menu menu;
  for (const Case& c : cases) {
    ApplyToolStates(menu.abr, ToolStates(c.context), NumberAsText);
    ShowEditorTools(menu.abr, c.context.toolbar_flag);
    EXPECT_EQ(ShownTools(menu.abr), c.shown) << c.context.key << " " << c.context.toolbar_flag;
  }
}

TEST(MenuSwitcher, SaysWhyACommandDoesNotApply) {
  Menu menu;
  const auto reason = [&](const MenuContext& context, const char* tool) {
    ApplyToolStates(menu.abr, ToolStates(context), NumberAsText);
    return menu.abr.FindTool(tool)->DisabledReason();
  };
  EXPECT_EQ(reason({"FORF12", false, 0, 0, false}, "mnuParameterDelete"), "1630");
  EXPECT_EQ(reason({"FORF12", false, 1, 0, false}, "mnuParameterDelete"), "");
  EXPECT_EQ(reason({"FORF0", false, 0, 0, false}, "mnuParameterDelete"), "");
  EXPECT_EQ(reason({"FORA0", false, 0, 0, true}, "mnuAliasDelete"), "1631");
  EXPECT_EQ(reason({"FORA0", false, 0, 0, false}, "mnuAliasEdit"), "1632");
}

}  // namespace
}  // namespace editor
