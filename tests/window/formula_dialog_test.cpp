// SPDX-License-Identifier: MIT
// The formula dialog in the whole window: what it asks, and what it refuses.
#include <gtest/gtest.h>

#include "desktop/search_pane.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;
using Lines = std::vector<std::string>;

// The formula Fill of CPump, whose code uses its argument One.
struct PlantWithCode : window_tests::Plant {
  PlantWithCode() {
    AddFormulas({{"Fill", "PumpServer.CPump"}});
    AddAliases({{"Plant.One", "One"}});
    AddArguments(1, {{1, false, true}});
    Replace("CPump", kHead, kHead + std::string(kBody));
  }
  bool Has(const char* module, const std::string& text) {
    return Code(module).find(text) != std::string::npos;
  }

  static constexpr const char* kHead = "Public Sub Fill()\r\n";
  static constexpr const char* kBody = "    One = 1\r\n";
};

// The window shows Fill.
class FormulaDialogTest : public ::testing::Test {
 protected:
  FormulaDialogTest() {
    EXPECT_TRUE(program.Open());
    Input({"key --delay 60 Home Down Down Down"});
  }

  PlantWithCode plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

// The code goes along as long as the user does not say otherwise, which is kept.
TEST_F(FormulaDialogTest, AsksWhetherTheCodeMovesToo) {
  Input({"key F9 sleep 0.8", "key --delay 80 Tab Down Return"});
  EXPECT_TRUE(plant.Has("CTank", std::string(plant.kHead) + plant.kBody)) << plant.Code("CTank");
  Input({"key F9 sleep 0.8", "key --delay 80 Tab Up Tab space Return"});
  EXPECT_TRUE(plant.Has("CPump", plant.kHead)) << plant.Code("CPump");
  EXPECT_FALSE(plant.Has("CPump", std::string(plant.kHead) + plant.kBody));
  EXPECT_NE(plant.system.Get("/plant/OVEditors.ini").find("MoveWithCode=False"), std::string::npos);
}

TEST_F(FormulaDialogTest, RefusesAScanTimeThatIsNone) {
  Input({"key F9 sleep 0.8", "key --delay 80 Tab Tab End Tab ctrl+a", "type --delay 40 99999999999",
         "key Return sleep 0.6 key Return sleep 0.4", "key ctrl+a", "type --delay 40 250",
         "key Return"});
  EXPECT_EQ(plant.Rows("TvbfFormulas", {"Name", "Type", "ScanTime"}), Lines{"Fill|7|250"});
}

// A new name of the alias changes its uses, too, unless the user says otherwise; undo takes all of
// it back.
TEST_F(FormulaDialogTest, ARenameTakesTheUsesAlong) {
  const std::string code = plant.Code("CPump");
  Input({"key --delay 60 Home Down sleep 0.3", "key F6 key F9 sleep 0.8",
         "key --delay 80 Tab Tab ctrl+a", "type --delay 40 First", "key Return sleep 0.5"});
  EXPECT_TRUE(plant.Has("CPump", "    First = 1\r\n")) << plant.Code("CPump");
  EXPECT_FALSE(plant.Has("CPump", "One = "));
  Input({"key alt+F6 key ctrl+z sleep 0.5"});
  EXPECT_EQ(plant.Code("CPump"), code);
}

// Uses that a rename leaves behind are a list to go through.
TEST_F(FormulaDialogTest, ListsTheUsesThatARenameLeaves) {
  Input({"key --delay 60 Home Down sleep 0.3", "key alt+F6 key F9 sleep 0.8",
         "key --delay 80 Tab Tab ctrl+a", "type --delay 40 First", "key alt+u key Return"});
  auto* places = FindChild<desktop::SearchPane>(program.window());
  ASSERT_TRUE(places && places->IsShown());
  auto* list = FindChild<desktop::PlaceTable>(*places);
  ASSERT_EQ(list->Count(), 1u);
  EXPECT_FALSE(list->HasFocus()) << "the user goes on where he is";
  Input({"key F6 key F6 key ctrl+Home"});
  const wxDataViewItem first =
      dynamic_cast<wxDataViewVirtualListModel*>(list->GetModel())->GetItem(0);
  const wxRect row = list->GetItemRect(first, list->GetColumn(0));
  const wxPoint place = list->ClientToScreen(row.GetPosition() + row.GetSize() / 2);
  const std::string move =
      "mousemove " + std::to_string(place.x) + " " + std::to_string(place.y) + " ";
  Input({move + "click 1 key Return"});
  EXPECT_EQ(program.Code().GetCurLine().Trim().Trim(false), "One = 1");
  EXPECT_TRUE(program.Code().HasFocus());
  Input({move + "click 1", "key Escape"});
  EXPECT_FALSE(places->IsShown());
}

}  // namespace
