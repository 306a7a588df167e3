// SPDX-License-Identifier: MIT
// What the tables of the workbench show beside the studio's columns: type and comment of items,
// uses, and what the catalogue lacks.
#include <gtest/gtest.h>

#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using Lines = std::vector<std::string>;

struct PlantWithItems : window_tests::Plant {
  PlantWithItems() {
    system.Put("/plant/items.csv",
               "item,type,comment\nPlant.One,Double,upper level\nPlant.Two,Boolean,\n");
    AddFormulas({{"Fill", "PumpServer.CPump", 2}, {"Drain", "PumpServer.CPump", 2}});
    AddAliases({{"Plant.One", "One"}, {"Plant.Two", "Two"}, {"Plant.Gone", "Gone"}});
    AddArguments(1, {{1, true}, {3, false, true}});
    AddArguments(2, {{1, true}});
  }
};

class ItemNotes : public ::testing::Test {
 protected:
  ItemNotes() { EXPECT_TRUE(program.Open()); }
  Lines Shown() {
    auto& model = dynamic_cast<wxDataViewVirtualListModel&>(*program.Grid().GetModel());
    Lines lines;
    for (unsigned row = 0; row < model.GetCount(); ++row) {
      std::string line;
      for (unsigned column = 0; column < program.Grid().GetColumnCount(); ++column) {
        wxVariant value;
        model.GetValueByRow(value, row, column);
        line += (column == 0 ? "" : "|") + value.MakeString().utf8_string();
      }
      lines.push_back(line);
    }
    return lines;
  }

  PlantWithItems plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(ItemNotes, StandBesideAliasesAndArguments) {
  Input({"key --delay 60 Home Down", "key F6"});
  EXPECT_EQ(Shown(), (Lines{"Plant.One|One|Double|2||upper level", "Plant.Two|Two|Boolean|0||",
                            "Plant.Gone|Gone||1|missing|"}));
  Input({"key alt+F6 key --delay 60 Down Right sleep 0.4"});
  EXPECT_EQ(Shown(), (Lines{"One|1|0|Plant.One|Double|upper level", "Gone|0|1|Plant.Gone||"}));
}

TEST(NoteColumns, KeepTheirWidths) {
  PlantWithItems plant;
  const auto width = [](DesktopProgram& program) {
    EXPECT_TRUE(program.Open());
    Input({"key --delay 60 Home Down sleep 0.3"});
    window_tests::Wait::For([&] { return program.Grid().GetColumn(2)->GetWidth() > 0; });
    return program.Grid().GetColumn(2)->GetWidth();
  };
  int wanted = 0;
  {
    DesktopProgram program{plant.system, texts::Language::kEnglish};
    wanted = width(program) + 50;
    int right = 0;
    for (unsigned column = 0; column < 3; ++column)
      right += program.Grid().GetColumn(column)->GetWidth();
    display::Drag(program.Grid(), {right, 10}, {right + 50, 10});
    EXPECT_NEAR(program.Grid().GetColumn(2)->GetWidth(), wanted, 4);
    wanted = program.Grid().GetColumn(2)->GetWidth();
  }
  DesktopProgram program{plant.system, texts::Language::kEnglish};
  EXPECT_EQ(width(program), wanted);
}

}  // namespace
