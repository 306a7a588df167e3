// SPDX-License-Identifier: MIT
// The whole main job by keyboard and mouse, and what it leaves in database and code.
#include <gtest/gtest.h>
#include <wx/splitter.h>

#include "tests/window/desktop_program.h"
#include "tests/window/said.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using Lines = std::vector<std::string>;

class MainJobTest : public ::testing::TestWithParam<texts::Language> {
 protected:
  MainJobTest() {
    plant.system.Put("/plant/items.csv",
                     "item,type,comment\nTank1.Level,Double,\nPump1.Run,Boolean,\n");
  }

  bool German() const { return GetParam() == texts::Language::kGerman; }
  void AddAlias(const std::string& item, const std::string& alias) {
    Input({"key F8 sleep 0.8", "type --delay 40 " + item, "key --delay 80 Tab Tab",
           "type --delay 40 " + alias, "key Return"});
  }
  void AddFormula(const std::string& name) {
    Input({"key F8 sleep 0.8", "type --delay 40 " + name, "key --delay 80 Tab Down Return"});
  }
  Lines Aliases() { return plant.Rows("TvbfAlias", {"ID", "ItemID", "VBAlias"}); }
  Lines Formulas() {
    return plant.Rows("TvbfFormulas", {"ID", "Name", "ProgID", "Type", "Enabled", "Comment"});
  }
  Lines Arguments() { return plant.Rows("TvbfParams", {"ID", "ParentID", "AliasID", "In", "Out"}); }

  support::SamplePlant plant;
};

TEST_P(MainJobTest, LeavesRowsAndCode) {
  DesktopProgram program(plant.system, GetParam());
  ASSERT_TRUE(program.Open());
  Input({"key Down"});  // the aliases
  const wxRect grid = program.window().EditorHost()->GetScreenRect();
  Input({"mousemove " + std::to_string(grid.x + grid.width / 2) + " " +
         std::to_string(grid.y + grid.height / 2) + " click 1"});
  AddAlias("Tank1.Level", "Level");
  AddAlias("Pump1.Run", "Run");
  EXPECT_EQ(Aliases(), (Lines{"1|Tank1.Level|Level", "2|Pump1.Run|Run"}));

  Input({"key --delay 80 alt+F6 Down"});  // the formulas
  AddFormula("Fill");
  Input({"key F8 sleep 0.8", "type --delay 40 lev", "key Return"});
  EXPECT_EQ(Arguments(), (Lines{"1|1|1|False|False"}));

  // Another argument by typing in the grid, and a flag by the space bar in the dialog.
  Input({"key F2 sleep 0.3", "type --delay 40 run", "key Return"});
  EXPECT_EQ(Arguments(), (Lines{"1|1|2|False|False"}));
  Input({"key F8 sleep 0.8", "type --delay 40 level", "key --delay 80 Tab space Return"});
  EXPECT_EQ(Arguments(), (Lines{"1|1|2|False|False", "2|1|1|True|False"}));

  // A new name, and another class, to which the code does not go along.
  Input({"key alt+F6 key F9 sleep 0.8", "type --delay 40 FillTank", "key Return"});
  EXPECT_EQ(Formulas(), (Lines{"1|FillTank|PumpServer.CPump|0|True|"}));
  EXPECT_NE(program.Title().find("FillTank"), std::string::npos);
  Input({"key F9 sleep 0.8 key --delay 80 Tab Down Tab space Return"});
  EXPECT_EQ(Formulas(), (Lines{"1|FillTank|PumpServer.CTank|0|True|"}));
  EXPECT_NE(program.Status().find("FillTank"), std::string::npos) << program.Status();

  // A second formula is deleted, but not by the question's default button.
  Input({"key Up"});
  AddFormula("Old");
  Input({"key alt+F6 key ctrl+Delete sleep 0.8 key Return"});
  EXPECT_EQ(Formulas().size(), 2u);
  window_tests::Said said;
  Input({"key ctrl+Delete sleep 0.8 key " + std::string(German() ? "alt+j" : "alt+y")});
  EXPECT_EQ(said.captions,
            Lines{German() ? "OrvanaStudio-Formeleditor" : "OrvanaStudio Formula Editor"})
      << "as the window";
  EXPECT_EQ(Formulas(), (Lines{"1|FillTank|PumpServer.CTank|0|True|"}));
  EXPECT_EQ(Aliases(), (Lines{"1|Tank1.Level|Level", "2|Pump1.Run|Run"}));

  const std::string stars = "'" + std::string(56, '*') + "\r\n";
  const std::string name = German() ? "'OrvanaStudio Formel \"<Name>\"\r\n'Argumente:\r\n"
                                    : "'OrvanaStudio Formula '<Name>'\r\n'Arguments:\r\n";
  const auto header = [&](const std::string& formula, const std::string& arguments) {
    std::string text = name;
    return stars + text.replace(text.find("<Name>"), 6, formula) + arguments + stars;
  };
  EXPECT_EQ(plant.Code("CTank"),
            "Option Explicit\r\nPublic Run as Boolean 'Pump1.Run\r\n"
            "Public Level as Double 'Tank1.Level\r\n\r\n" +
                header("FillTank", "'\tRun\r\n'\tLevel\r\n") +
                "Public Sub FillTank()\r\n\r\nEnd Sub\r\n");
  EXPECT_EQ(plant.Code("CPump"), "Option Explicit\r\n\r\n" +
                                     header("FillTank", "'\tRun\r\n'\tLevel\r\n") +
                                     "'Public Sub FillTank()\r\n'\r\n'End Sub\r\n\r\n" +
                                     header("Old", "") + "'Public Sub Old()\r\n'\r\n'End Sub\r\n");

  std::vector<std::string> lists;  // of the classes that hold formulas
  for (const files::DirectoryEntry& entry : plant.system.List("/home/state")) {
    if (entry.name.starts_with("components-"))
      lists.push_back(plant.system.Get("/home/state/" + entry.name));
  }
  EXPECT_EQ(lists, std::vector<std::string>{"FormulaComponents=PumpServer.CTank\n"});
}

TEST_P(MainJobTest, ComesBackAsItWasLeft) {
  wxRect place;
  int code_height = 0;
  {
    DesktopProgram program(plant.system, GetParam());
    ASSERT_TRUE(program.Open());
    Input({"key --delay 80 Down Down"});
    AddFormula("Fill");
    auto* columns = dynamic_cast<wxSplitterWindow*>(
        window_tests::FindChild<desktop::TreePane>(program.window())->GetParent());
    ASSERT_NE(columns, nullptr);
    const int sash = columns->GetSashPosition();
    display::Drag(*columns, {sash + 2, 300}, {sash + 92, 300});
    auto* rows = dynamic_cast<wxSplitterWindow*>(columns->GetWindow2());
    const int above = rows->GetSashPosition();
    display::Drag(*rows, {200, above + 2}, {200, above - 58});
    EXPECT_NEAR(rows->GetSashPosition(), above - 60, 3);
    program.window().SetSize(wxRect(60, 60, 900, 700));
    window_tests::Wait::For([] { return true; });
    place = program.window().GetRect();
    code_height = program.Code().GetParent()->GetSize().GetHeight();
  }
  DesktopProgram program(plant.system, GetParam());
  EXPECT_EQ(program.state().project, support::kPlantDatabase);
  ASSERT_TRUE(program.Open());
  EXPECT_EQ(program.window().GetRect(), place);
  EXPECT_EQ(program.Code().GetParent()->GetSize().GetHeight(), code_height);
  EXPECT_NEAR(program.state().window.tree_width, 350, 3);
  EXPECT_EQ(program.state().node, "FORF1");
  EXPECT_NE(program.Title().find("Fill"), std::string::npos) << program.Title();
}

// Options and layout of the editor come back, and restarts that change nothing change nothing.
// Of the column at a place; -1 where a slow display shows none yet.
int WidthOf(const wxDataViewCtrl& grid, unsigned place) {
  const wxDataViewColumn* column = grid.GetColumn(place);
  return column ? column->GetWidth() : -1;
}
int ModelColumnOf(const wxDataViewCtrl& grid, unsigned place) {
  const wxDataViewColumn* column = grid.GetColumn(place);
  return column ? static_cast<int>(column->GetModelColumn()) : -1;
}

TEST_P(MainJobTest, OptionsAndColumnsAreKept) {
  const auto settings = [this] { return plant.system.Get("/plant/OVEditors.ini"); };
  int width = 0;
  {
    DesktopProgram program(plant.system, GetParam());
    ASSERT_TRUE(program.Open());
    Input({"key --delay 80 Down Down"});
    AddFormula("Fill");
    const char* asks = GetParam() == texts::Language::kGerman ? "alt+l" : "alt+d";
    Input({std::string("key alt+e sleep 0.3 key --delay 80 Up Return sleep 0.8 key ") + asks +
           " key Return"});
    // Keys that came too late for the dialog may have done anything, to the grid, too.
    ASSERT_NE(settings().find("RequestOnDelete=False"), std::string::npos) << settings();
    wxDataViewCtrl& grid = program.Grid();
    window_tests::Wait::For([&] { return WidthOf(grid, 0) > 0; });
    width = WidthOf(grid, 0);
    EXPECT_GT(width, 210) << "it takes a share of the room that there is";
    display::Drag(grid, {width, 10}, {width + 60, 10});
    width += 60;
    EXPECT_NEAR(WidthOf(grid, 0), width, 4);
    width = WidthOf(grid, 0);
    const int in = width + WidthOf(grid, 1) / 2;
    display::Drag(grid, {in + WidthOf(grid, 1), 10}, {in - 20, 10});
    EXPECT_EQ(ModelColumnOf(grid, 1), 2);
  }
  const std::string kept = settings();
  EXPECT_NE(kept.find("RequestOnDelete=False"), std::string::npos);
  EXPECT_NE(kept.find("sb.Visible=True"), std::string::npos) << "the studio has its own status bar";
  for (int restart = 0; restart < 3; ++restart) {
    DesktopProgram program(plant.system, GetParam());
    ASSERT_TRUE(program.Open());
    EXPECT_EQ(WidthOf(program.Grid(), 0), width) << "restart " << restart;
    EXPECT_EQ(ModelColumnOf(program.Grid(), 1), 2) << "restart " << restart;
    EXPECT_EQ(settings(), kept) << "restart " << restart;
  }
  EXPECT_EQ(settings(), kept);
}

INSTANTIATE_TEST_SUITE_P(Languages, MainJobTest,
                         ::testing::Values(texts::Language::kGerman, texts::Language::kEnglish),
                         [](const auto& test) {
                           return test.param == texts::Language::kGerman ? "German" : "English";
                         });

}  // namespace
