// SPDX-License-Identifier: MIT
// Going to formulas, classes, aliases and items by a part of their names, and the strip that says
// what a formula is.
#include <gtest/gtest.h>
#include <wx/hyperlink.h>

#include "desktop/formula_overview.h"
#include "desktop/formula_strip.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;
using Lines = std::vector<std::string>;

struct PlantWithNames : window_tests::Plant {
  PlantWithNames() {
    AddFormulas({{"Fill", "PumpServer.CPump", 2},
                 {"Drain", "PumpServer.CTank", 7, 500, false, "at night"}});
    AddAliases({{"Plant.One", "One"}, {"Plant.Two", "Two"}, {"Plant.Three", "Three"}});
    system.Put("/plant/items.csv",
               "item,type,comment\nPlant.Two,Double,\nPlant.Valve,Boolean,inlet\n");
  }
};

class GoToName : public ::testing::Test {
 protected:
  GoToName() { EXPECT_TRUE(program.Open()); }
  void Go(const std::string& text) {
    Input({"key ctrl+p sleep 0.6", "type --delay 40 " + text, "sleep 0.3 key Return sleep 0.6"});
  }
  Lines Strip() {
    Lines lines;
    for (const wxWindow* child : FindChild<desktop::FormulaStrip>(program.window())->GetChildren())
      lines.push_back(wxStripMenuCodes(child->GetLabel()).utf8_string());
    return lines;
  }

  PlantWithNames plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(GoToName, FromAnywhereToAnything) {
  Go("dra");
  EXPECT_EQ(program.Title(), "Formula Drain – Plant.ovs – OrvanaStudio Formula Editor");
  EXPECT_EQ(Strip(), (Lines{"Class: PumpServer.CTank", "Call: asynchronous, every 500 ms",
                            "Not enabled", "Comment: at night"}));
  Go("plant.thr");
  EXPECT_EQ(program.CurrentRow(), 2) << "the alias, by its item";
  Input({"key Home"});
  Go("two");
  EXPECT_EQ(program.CurrentRow(), 1);
  Go("valve");
  EXPECT_EQ(program.Status(), "The item Plant.Valve has no alias yet. F8 creates one.");
  Go("CPump");  // a class, before the formula that only has it
  auto& overview = *FindChild<desktop::FormulaOverview>(program.window());
  EXPECT_TRUE(overview.IsShown());
  ASSERT_TRUE(overview.Current());
  EXPECT_EQ(overview.Current()->record.name, "Fill");
  Input({"key ctrl+p sleep 0.6", "type --delay 40 nothing", "sleep 0.3 key Return key Escape"});
  EXPECT_TRUE(overview.IsShown());
}

TEST_F(GoToName, LinksOfTheStripLeadToTheirFields) {
  Go("drain");
  const wxWindow& strip = *FindChild<desktop::FormulaStrip>(program.window());
  const wxRect link = strip.GetChildren().back()->GetScreenRect();
  Input({"mousemove " + std::to_string(link.x + 20) + " " +
             std::to_string(link.y + link.height / 2) + " click 1",
         "sleep 0.8 key ctrl+a", "type --delay 40 by-day", "key Return sleep 0.6"});
  EXPECT_EQ(plant.Rows("TvbfFormulas", {"Name", "Comment"}), (Lines{"Fill|", "Drain|by-day"}));
  EXPECT_EQ(Strip().back(), "Comment: by-day");
}

}  // namespace
