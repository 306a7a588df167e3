// SPDX-License-Identifier: MIT
// Names and texts in all code: found from the tables, the tree and the code, gone to by keys and
// mouse, and replaced.
#include <gtest/gtest.h>

#include "desktop/search_pane.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"
#include "tests/window/rows_of.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;

constexpr const char* kLevelLine = "    Level = Level + 1 'the tank's level";

// Formula Fill of CPump, which writes its argument Level and calls Helper of CTank.
struct PlantWithBodies : window_tests::Plant {
  PlantWithBodies() {
    AddFormulas({{"Fill", "PumpServer.CPump"}});
    AddAliases({{"Tank1.Level", "Level"}, {"Tank1.Limit", "Limit"}});
    AddArguments(1, {{1}, {2}});
    Replace("CPump", "Public Sub Fill()\r\n\r\n",
            "Public Sub Fill()\r\n" + std::string(kLevelLine) + "\r\n    Drain 3\r\n");
    Replace("CPump", "End Sub\r\n",
            "End Sub\r\n\r\nPrivate Sub Drain(ByVal Amount)\r\n    Level = Level - Amount\r\n"
            "End Sub\r\n");
    system.Put(support::ClassPath("CTank"),
               system.Get(support::ClassPath("CTank")) + "'a level of its own\r\n");
  }
};

class CodeSearchTest : public ::testing::Test {
 protected:
  CodeSearchTest() {
    EXPECT_TRUE(program.Open());
    Input({"key --delay 60 Home Down Down Down"});
  }

  desktop::SearchPane& Pane() { return *FindChild<desktop::SearchPane>(program.window()); }
  // The rows that the list shows; none while the pane is hidden.
  std::vector<std::string> Places() {
    if (!Pane().IsShown()) return {};
    return window_tests::RowsOf(*FindChild<desktop::PlaceTable>(Pane()));
  }
  // The line with the caret, and what is selected on it.
  std::string CaretLine() { return program.Code().GetCurLine().utf8_string(); }
  std::string Selected() { return program.Code().GetSelectedText().utf8_string(); }

  PlantWithBodies plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(CodeSearchTest, ShowsUsesOfWhatIsSelectedAndGoesThere) {
  Input({"key shift+F12 sleep 0.3"});  // the formula in the tree: nothing calls it
  EXPECT_TRUE(Places().empty());
  EXPECT_NE(program.Status().find("Fill"), std::string::npos) << program.Status();

  Input({"key F6 sleep 0.2 key Home key shift+F12 sleep 0.3"});  // its first argument
  ASSERT_EQ(Places().size(), 2u);
  EXPECT_TRUE(Places()[0].starts_with("Fill|CPump.cls|"));
  EXPECT_TRUE(Places()[0].ends_with("|writes|Level = Level + 1 'the tank's level")) << Places()[0];
  Input({"key --delay 60 Down Return"});
  EXPECT_TRUE(program.Code().HasFocus());
  EXPECT_EQ(Selected(), "Level");
  EXPECT_EQ(CaretLine(), std::string(kLevelLine) + "\n");

  // The menu of the table, and so its context menu, has the same.
  Input({"key Escape key F6 sleep 0.2 key --delay 60 Home End",
         "key alt+r sleep 0.4 key u sleep 0.4"});
  EXPECT_TRUE(Places().empty()) << "nothing uses the second argument";
  EXPECT_NE(program.Status().find("Limit"), std::string::npos) << program.Status();
  Input({"key alt+F6"});

  // The aliases' table counts the uses of all procedures.
  Input({"key Escape key --delay 60 Home Down key F6 sleep 0.2 key Home key shift+F12 sleep 0.3"});
  EXPECT_EQ(Places().size(), 4u);
  EXPECT_TRUE(Places().back().starts_with("Drain|"));
  Input({"key --delay 60 End Return"});
  EXPECT_EQ(CaretLine(), "    Level = Level - Amount\n");
}

// The pane has room for what it shows, and goes by Escape from the table above it, too.
TEST_F(CodeSearchTest, ThePaneComesWithRoomAndGoesByEscape) {
  Input({"key F6 sleep 0.2 key Home key shift+F12 sleep 0.3"});
  const auto room = [&] { return FindChild<desktop::PlaceTable>(Pane())->GetSize().GetHeight(); };
  const int alone = room();
  Input({"key ctrl+shift+f sleep 0.3"});
  EXPECT_GE(room(), alone) << "the fields took it";
  Input({"key F6 sleep 0.2 key ctrl+f sleep 0.2", "type --delay 40 Le", "key Escape"});
  EXPECT_TRUE(Pane().IsShown()) << "the key was the filter's";
  Input({"key F2 sleep 0.3 key Escape"});
  EXPECT_TRUE(Pane().IsShown()) << "the key was the cell's";
  Input({"key Escape"});
  EXPECT_FALSE(Pane().IsShown());
  EXPECT_TRUE(program.Grid().HasFocus());
}

TEST_F(CodeSearchTest, TheNameAtTheCaretHasUsesAndADefinition) {
  program.GoToCode();
  program.Code().GotoPos(program.Code().FindText(0, 10000, "Amount\n"));
  Input({"key F12 sleep 0.3"});
  EXPECT_EQ(Selected(), "Amount");
  EXPECT_EQ(CaretLine(), "Private Sub Drain(ByVal Amount)\n");
  Input({"key shift+F12 sleep 0.3"});
  ASSERT_EQ(Places().size(), 2u);
  EXPECT_NE(Places()[0].find("|declaration|Private Sub Drain"), std::string::npos) << Places()[0];
  EXPECT_NE(Places()[1].find("|reads|Level = Level - Amount"), std::string::npos) << Places()[1];
  Input({"key Escape"});
  EXPECT_FALSE(Pane().IsShown());
  EXPECT_TRUE(program.Code().HasFocus());

  // Unsaved lines above move the place; a line that is unsaved itself cannot be asked about.
  Input({"key ctrl+Home", "type --delay 40 \"'new\"", "key Return"});
  program.Code().GotoPos(program.Code().FindText(0, 10000, "Amount\n"));
  Input({"key F12 sleep 0.3"});
  EXPECT_EQ(Selected(), "Amount");
  Input({"key ctrl+Home key F12 sleep 0.3"});
  EXPECT_NE(program.Status().find("Ctrl+S"), std::string::npos) << program.Status();
  Input({"key ctrl+z"});
  program.Code().Undo();
}

// From the list, where the keyboard stays, and from the code, as long as its own search is closed.
TEST_F(CodeSearchTest, GoesOnFromPlaceToPlace) {
  Input({"key ctrl+shift+f sleep 0.3", "type --delay 40 amount", "key Return sleep 0.3"});
  ASSERT_EQ(Places().size(), 2u);
  Input({"key F3 sleep 0.3"});
  EXPECT_EQ(CaretLine(), "Private Sub Drain(ByVal Amount)\n");
  EXPECT_EQ(program.Status(), "Place 1 of 2");
  EXPECT_FALSE(program.Code().HasFocus());
  Input({"key shift+F3 sleep 0.3"});
  EXPECT_EQ(program.Status(), "Place 2 of 2");
  Input({"key Return sleep 0.4"});
  EXPECT_EQ(CaretLine(), "    Level = Level - Amount\n");
  Input({"key F3 sleep 0.3"});
  EXPECT_EQ(program.Status(), "Place 1 of 2");
  EXPECT_EQ(CaretLine(), "Private Sub Drain(ByVal Amount)\n") << "round";
  EXPECT_TRUE(program.Code().HasFocus());
  Input({"key ctrl+f", "type --delay 40 level", "key F3 sleep 0.3"});
  EXPECT_EQ(wxString(Selected()).Lower(), "level") << "the module's own search";
}

TEST_F(CodeSearchTest, FindsAndReplacesInAllCode) {
  Input({"key ctrl+shift+f sleep 0.3", "type --delay 40 level", "key Return sleep 0.3"});
  EXPECT_EQ(Places().back(), "|CTank.cls|2|text|'a level of its own");
  const std::size_t all = Places().size();
  EXPECT_GT(all, 5u);
  Input({"key Return sleep 0.4"});
  EXPECT_TRUE(program.Code().HasFocus());
  EXPECT_EQ(wxString(Selected()).Lower(), "level");

  // Whole words in this letter case only.
  Input({"key ctrl+shift+f sleep 0.3", "type --delay 40 level",
         "key --delay 60 Tab Tab space Tab space Return sleep 0.3"});
  EXPECT_EQ(Places().size(), 2u);
  const std::string pump = plant.Code("CPump"), tank = plant.Code("CTank");
  const std::string replace = "key --delay 60 ctrl+shift+f sleep 0.3 key Tab sleep 0.2 key ctrl+a";
  Input({replace, "type --delay 40 height", "key Return sleep 0.8 key Escape"});
  EXPECT_EQ(plant.Code("CPump"), pump) << "looked at, but not confirmed";
  EXPECT_EQ(plant.Code("CTank"), tank);
  Input({replace, "type --delay 40 height", "key Return sleep 0.8 key Return sleep 0.4"});
  EXPECT_EQ(plant.Code("CTank"), "Option Explicit\r\n'a height of its own\r\n");
  EXPECT_NE(plant.Code("CPump").find("Level = Level + 1 'the tank's height"), std::string::npos);
  EXPECT_EQ(plant.Code("CPump").find("Height"), std::string::npos);
  EXPECT_TRUE(Places().empty());
}

}  // namespace
