// SPDX-License-Identifier: MIT
// Tree and code are hidden and come back by keys, as large as they were, also at the next start.
#include <gtest/gtest.h>
#include <wx/menu.h>

#include "desktop/overview_texts.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;

struct PlantWithCode : window_tests::Plant {
  PlantWithCode() { AddFormulas({{"Fill", "PumpServer.CPump", 2}}); }
};

struct Panes {
  explicit Panes(const DesktopProgram& program)
      : tree(*FindChild<desktop::ProjectTree>(program.window())), code(program.Code()) {}
  desktop::ProjectTree& tree;
  desktop::CodeEditor& code;
};

bool Checked(const DesktopProgram& program, messages::TextNumber entry) {
  return program.window().GetMenuBar()->FindItem(ToInt(entry))->IsChecked();
}

TEST(ViewMenu, PanesGoAndComeBack) {
  PlantWithCode plant;
  int width = 0;
  {
    DesktopProgram program{plant.system, texts::Language::kEnglish};
    ASSERT_TRUE(program.Open());
    const Panes panes(program);
    width = panes.tree.GetSize().GetWidth();
    Input({"key --delay 60 Home Down Down Right Down sleep 0.3", "key ctrl+b"});
    EXPECT_FALSE(panes.tree.IsShownOnScreen());
    EXPECT_FALSE(Checked(program, desktop::kTextViewTree));
    EXPECT_TRUE(program.Grid().HasFocus()) << "the keyboard is not lost with the tree";
    Input({"key alt+F6 sleep 0.3"});
    EXPECT_TRUE(panes.tree.IsShownOnScreen()) << "who goes there sees it";
    EXPECT_EQ(panes.tree.GetSize().GetWidth(), width);
    const int height = panes.code.GetSize().GetHeight();
    Input({"key ctrl+j sleep 0.3"});
    EXPECT_FALSE(panes.code.IsShownOnScreen());
    Input({"key ctrl+j sleep 0.3"});
    EXPECT_EQ(panes.code.GetSize().GetHeight(), height);
    Input({"key ctrl+shift+j sleep 0.3"});
    EXPECT_TRUE(Checked(program, desktop::kTextViewCodeBeside));
    EXPECT_GT(panes.code.GetScreenPosition().x, program.Grid().GetScreenRect().GetRight());
    Input({"key ctrl+b sleep 0.3"});
  }
  DesktopProgram program{plant.system, texts::Language::kEnglish};
  ASSERT_TRUE(program.Open());
  const Panes panes(program);
  EXPECT_FALSE(panes.tree.IsShownOnScreen());
  EXPECT_GT(panes.code.GetScreenPosition().x, program.Grid().GetScreenRect().GetRight());
  Input({"key ctrl+b sleep 0.3"});
  EXPECT_EQ(panes.tree.GetSize().GetWidth(), width);
}

}  // namespace
