// SPDX-License-Identifier: MIT
// Mouse and keys in the tables: what is done is done to the row that was meant.
#include <gtest/gtest.h>

#include "project/project.h"
#include "tests/window/desktop_program.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using Lines = std::vector<std::string>;

// Four aliases, the first three of which are arguments of the formula Fill.
struct PlantWithRows : support::SamplePlant {
  PlantWithRows() {
    const texts::TextTable texts(texts::Language::kEnglish);
    project::Project project(system, support::kPlantDatabase, {}, texts);
    auto& operations = project.operations();
    EXPECT_TRUE(operations.AddFormula({"Fill", "PumpServer.CPump", 0, 0, true, ""}).success());
    const std::vector<store::AliasValues> aliases = {{"Plant.One", "One"},
                                                     {"Plant.Two", "Two"},
                                                     {"Plant.Three", "Three"},
                                                     {"Plant.Four", "Four"}};
    EXPECT_TRUE(operations.AddAliases(aliases).success());
    const std::vector<store::ArgumentValues> arguments = {{1}, {2}, {3}};
    EXPECT_TRUE(operations.AddArguments(1, arguments).success());
  }
  Lines Aliases() { return Rows("TvbfAlias", {"ID", "VBAlias"}); }
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

TEST_F(RowsTest, ClicksAndLettersChangeNoAlias) {
  const Lines before = plant.Aliases();
  Input({"key --delay 60 Home Down"});
  Input({MoveTo(1) + "click 1", "sleep 0.6 click 1", "sleep 0.8", "key --delay 60 Down Up x",
         MoveTo(3) + "click 1"});
  EXPECT_EQ(plant.Aliases(), before);
  EXPECT_EQ(program.CurrentRow(), 3);
}

}  // namespace
