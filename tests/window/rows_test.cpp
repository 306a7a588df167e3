// SPDX-License-Identifier: MIT
// Mouse and keys in the tables: what is done is done to the row that was meant.
#include <gtest/gtest.h>

#include "messages/text_number.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"
#include "tests/window/said.h"
#include "wx/convert.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using Lines = std::vector<std::string>;

// Four aliases, the first three of which are arguments of the formula Fill.
struct PlantWithRows : window_tests::Plant {
  PlantWithRows() {
    AddFormulas({{"Fill", "PumpServer.CPump"}, {"Drain", "PumpServer.CPump"}});
    AddAliases({{"Plant.One", "One"},
                {"Plant.Two", "Two"},
                {"Plant.Three", "Three"},
                {"Plant.Four", "Four"}});
    AddArguments(1, {{1}, {2}, {3}});
  }
  Lines Aliases() { return Rows("TvbfAlias", {"ID", "VBAlias"}); }
  // An argument, by somebody else.
  void Delete(std::int32_t argument) {
    const std::vector<std::int32_t> ids = {argument};
    Change([&](store::Operations& operations) {
      EXPECT_TRUE(operations.DeleteArguments(ids).success());
    });
  }
  Lines Arguments() { return Rows("TvbfParams", {"ID", "AliasID", "In"}); }
};

class RowsTest : public ::testing::Test {
 protected:
  RowsTest() { EXPECT_TRUE(program.Open()); }
  // Middle of a cell on the screen, as xdotool's command.
  std::string MoveTo(unsigned row, unsigned column = 0) {
    auto* model = dynamic_cast<wxDataViewVirtualListModel*>(program.Grid().GetModel());
    const wxRect cell =
        program.Grid().GetItemRect(model->GetItem(row), program.Grid().GetColumn(column));
    const wxPoint place = program.Grid().ClientToScreen(cell.GetPosition() + cell.GetSize() / 2);
    return "mousemove " + std::to_string(place.x) + " " + std::to_string(place.y) + " ";
  }

  const texts::TextTable texts{texts::Language::kEnglish};
  PlantWithRows plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(RowsTest, EditIsAboutTheRowUnderTheMouse) {
  Input({"key --delay 60 Home Down"});
  const std::string edit_alias = "key --delay 80 Tab Tab ctrl+a";
  Input({MoveTo(2) + "click 3", "sleep 0.3 key --delay 80 Down Down Return sleep 0.8", edit_alias,
         "type --delay 40 Third", "key Return"});
  EXPECT_EQ(plant.Aliases(), (Lines{"1|One", "2|Two", "3|Third", "4|Four"}));
  Input({MoveTo(3) + "click 3", "sleep 0.3 key Escape", "key F9 sleep 0.8", edit_alias,
         "type --delay 40 Fourth", "key Return"});
  EXPECT_EQ(plant.Aliases(), (Lines{"1|One", "2|Two", "3|Third", "4|Fourth"}));
  Input({MoveTo(1, 1) + "click 3", "sleep 0.3 key Escape", "key F2 sleep 0.4 key ctrl+a",
         "type --delay 40 Second", "key Return"});
  EXPECT_EQ(plant.Aliases(), (Lines{"1|One", "2|Second", "3|Third", "4|Fourth"}));

  Input({"key alt+F6 key --delay 60 Down Down"});
  Input({MoveTo(2) + "click 3", "sleep 0.3 key --delay 80 Down Down Return sleep 0.8",
         "key --delay 80 Tab space Return"});
  EXPECT_EQ(plant.Arguments(), (Lines{"1|1|False", "2|2|False", "3|3|True"}));
}

// Its rows are there before it has room for one, at the start of the program, too.
TEST(RowsInSight, BeginWithTheFirst) {
  window_tests::Plant plant;
  std::vector<store::AliasValues> aliases;
  for (int i = 0; i < 60; ++i) {
    const std::string number = std::to_string(i);
    aliases.push_back({"Plant." + number, "Plant_" + number});
  }
  plant.AddAliases(aliases);
  for (const bool again : {false, true}) {
    DesktopProgram program(plant.system, texts::Language::kEnglish);
    ASSERT_TRUE(program.Open());
    if (!again) Input({"key --delay 60 Home Down"});
    auto* model = dynamic_cast<wxDataViewVirtualListModel*>(program.Grid().GetModel());
    EXPECT_EQ(program.Rows(), 60);
    EXPECT_EQ(model->GetRow(program.Grid().GetTopItem()), 0u) << (again ? "again" : "at first");
  }
}

// The row that the first table scrolls to is gone when the program is idle.
TEST_F(RowsTest, TablesWithoutRowsComeRightAfterOthers) {
  auto* tree = window_tests::FindChild<desktop::ProjectTree>(program.window());
  for (const char* node : {"FORF1", "FORF2"}) tree->SelectKey(node);
  window_tests::Wait::For([] { return true; });
  EXPECT_EQ(program.Rows(), 0);
}

// What is edited comes first; then the search goes, and the row stays.
TEST_F(RowsTest, EscapeEndsTheSearchFromTheTable) {
  Input({"key --delay 60 Home Down key F6 sleep 0.2 key ctrl+f", "type --delay 40 o",
         "key --delay 60 Down Down"});
  ASSERT_EQ(program.Rows(), 3);
  const int found = program.CurrentRow();
  Input({"key F2 sleep 0.4", "type --delay 40 zzz", "key Escape sleep 0.3"});
  EXPECT_EQ(program.Rows(), 3) << "the key was the cell's";
  Input({"key Escape sleep 0.3"});
  EXPECT_EQ(program.Rows(), 4);
  EXPECT_EQ(found, 1);
  EXPECT_EQ(program.CurrentRow(), 1) << "Two, as before";
  EXPECT_TRUE(program.Grid().HasFocus());
  EXPECT_EQ(plant.Aliases(), (Lines{"1|One", "2|Two", "3|Three", "4|Four"}));
}

// What the context menu offers for cells and rows.
TEST_F(RowsTest, CellsAreCopiedPastedAndEdited) {
  Input({"key --delay 60 Home Down"});
  Input({MoveTo(2, 1) + "click 3", "sleep 0.3 key --delay 80 Down Down Down Down Return sleep 0.4",
         "key ctrl+a", "type --delay 40 Third", "key Return"});
  EXPECT_EQ(plant.Aliases(), (Lines{"1|One", "2|Two", "3|Third", "4|Four"}));
  Input({MoveTo(0, 1) + "click 1", "key ctrl+c"});
  EXPECT_EQ(wx::FromClipboard(), "Plant.One\tOne\n");
  wx::ToClipboard("Second\n");
  Input({MoveTo(1, 1) + "click 1", "key ctrl+v"});
  EXPECT_EQ(plant.Aliases(), (Lines{"1|One", "2|Second", "3|Third", "4|Four"}));
}

// Used aliases are told in one message, with what became of the rest.
TEST_F(RowsTest, DeletingTellsOnceWhatIsUsed) {
  Input({"key --delay 60 Home Down"});
  Input({MoveTo(3) + "click 1", "key ctrl+a",
         "key ctrl+Delete sleep 0.8 key alt+y sleep 0.8 key Return"});
  EXPECT_EQ(plant.Aliases(), (Lines{"1|One", "2|Two", "3|Three"}));
  plant.Delete(3);
  Input({MoveTo(2) + "click 1", "key Delete sleep 0.8 key alt+y"});
  EXPECT_EQ(plant.Aliases(), (Lines{"1|One", "2|Two"}));
  EXPECT_EQ(program.Status(), texts.Text(messages::TextNumber{1655}));
}

// What comes next is about the new row, not about the one that was selected before.
TEST_F(RowsTest, ANewRowIsTheOneThatIsSelected) {
  Input({"key --delay 60 Home Down Down Down sleep 0.3", "key alt+F6 key Home sleep 0.3",
         "key F8 sleep 1", "type --delay 40 Four", "key Return sleep 0.8", "key Delete sleep 0.8",
         "key alt+y sleep 0.8"});
  EXPECT_EQ(plant.Rows("TvbfParams", {"AliasID"}), (Lines{"1", "2", "3"}));
}

// A key that has nothing to act on says so.
TEST_F(RowsTest, NothingIsDoneWithoutAWord) {
  Input({"key --delay 60 Home Down Down", "key F9"});
  EXPECT_EQ(program.Status(), texts.Text(messages::TextNumber{3851}));
  Input({"key alt+F6"});
  plant.Delete(1);
  plant.Delete(2);
  plant.Delete(3);
  Input({"key alt+F6 key --delay 60 Home Down Down Down sleep 0.3", "key alt+F6 key F9"});
  EXPECT_EQ(program.Status(), texts.Text(messages::TextNumber{1620}));
  // The table says that F8 adds one: from the tree, too.
  Input({"key alt+F6 key F8 sleep 0.8", "type --delay 40 Two", "key Return"});
  EXPECT_EQ(plant.Rows("TvbfParams", {"AliasID"}), Lines{"2"});
}

// Letters typed in the list of "Choose alias" open no search beside its own, which Ctrl+F is for.
TEST_F(RowsTest, TheListOfAliasesHasOneSearch) {
  Input({"key --delay 60 Home Down Down Down"});
  window_tests::Said said;
  Input({"key F6 sleep 0.3 key Home key ctrl+o sleep 0.8 key --delay 80 Tab Down",
         "type --delay 60 one", "key ctrl+f", "type --delay 60 fou", "key Return"});
  EXPECT_EQ(said.fields, Lines{"fou"});
  EXPECT_EQ(plant.Rows("TvbfParams", {"AliasID"}), (Lines{"4", "2", "3"}));
}

// The bar between the parts of a table.
TEST_F(RowsTest, TheBarBetweenColumnsIsDragged) {
  Input({"key --delay 60 Home Down"});
  wxWindow* bar = display::FindWindow("pctAliasTabSplit");
  ASSERT_NE(bar, nullptr);
  const int before = bar->GetPosition().x;
  const int width = program.Grid().GetColumn(0)->GetWidth();
  display::Drag(*bar, {1, 40}, {61, 40});
  EXPECT_NEAR(bar->GetPosition().x, before + 60, 3);
  EXPECT_NEAR(program.Grid().GetColumn(0)->GetWidth(), width + 60, 3);
}

TEST_F(RowsTest, ClicksAndLettersChangeNoAlias) {
  const Lines before = plant.Aliases();
  Input({"key --delay 60 Home Down"});
  Input({MoveTo(1) + "click 1", "sleep 0.6 click 1", "sleep 0.8", "key --delay 60 Down Up x",
         MoveTo(3) + "click 1"});
  EXPECT_EQ(plant.Aliases(), before);
  EXPECT_EQ(program.CurrentRow(), 3);
}

}  // namespace
