// SPDX-License-Identifier: MIT
// Rows through the real clipboard, from a spreadsheet and from one table to another; copies of
// formulas.
#include <gtest/gtest.h>

#include "desktop/project_tree.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"
#include "wx/convert.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using Lines = std::vector<std::string>;

class PasteTest : public ::testing::Test {
 protected:
  PasteTest() { plant.AddFormulas({{"Fill", "PumpServer.CPump"}, {"Other", "PumpServer.CPump"}}); }
  Lines Aliases() { return plant.Rows("TvbfAlias", {"ID", "ItemID", "VBAlias"}); }
  Lines Arguments() { return plant.Rows("TvbfParams", {"ID", "ParentID", "AliasID", "In", "Out"}); }

  window_tests::Plant plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(PasteTest, LinesOfASpreadsheetBecomeAliasesAndArguments) {
  ASSERT_TRUE(program.Open());
  wx::ToClipboard("Tank1.Level\tLevel\r\nTank1.Pump\tPump\r\n");
  Input({"key --delay 60 Home Down", "key F6 sleep 0.3", "key ctrl+v sleep 1",
         "key Return sleep 0.8"});
  EXPECT_EQ(Aliases(), (Lines{"1|Tank1.Level|Level", "2|Tank1.Pump|Pump"}));
  EXPECT_EQ(program.Rows(), 2);

  wx::ToClipboard("Level\tx\r\nPump\t\tx\r\nMode\tx\tx\r\n");
  Input({"key alt+F6 key --delay 60 Down Down", "key F6 sleep 0.3", "key ctrl+v sleep 1",
         "key Return sleep 0.8"});
  EXPECT_EQ(Arguments(), (Lines{"1|1|1|True|False", "2|1|2|False|True", "3|1|3|True|True"}));
  EXPECT_EQ(Aliases().back(), "3|Mode|Mode") << "what is missing is created";
  EXPECT_EQ(program.Rows(), 3);
  EXPECT_NE(plant.Code("CPump").find("Public Mode"), std::string::npos);

  // To another formula, all rows at once.
  Input({"key ctrl+a key ctrl+c sleep 0.3", "key alt+F6 key Down", "key F6 sleep 0.3",
         "key ctrl+v sleep 1", "key Return sleep 0.8"});
  EXPECT_EQ(wx::FromClipboard(),
            "Level\tTrue\tFalse\tTank1.Level\nPump\tFalse\tTrue\tTank1.Pump\n"
            "Mode\tTrue\tTrue\tMode\n");
  EXPECT_EQ(Arguments().size(), 6u);
  EXPECT_EQ(Arguments().back(), "6|2|3|True|True");
  Input({"key alt+F6 key ctrl+z sleep 0.5"});
  EXPECT_EQ(Arguments().size(), 3u) << "a paste is one operation";
}

TEST_F(PasteTest, FormulasAreDuplicatedFromTheirMenu) {
  ASSERT_TRUE(program.Open());
  Input({"key --delay 60 Home Down Down Down", "key Menu sleep 0.5 key l sleep 1",
         "type --delay 40 Fill{2..3}", "sleep 0.4 key Return sleep 1"});
  EXPECT_EQ(program.FormulaNodes(), (Lines{"Fill", "Other", "Fill2", "Fill3"}));
  EXPECT_NE(plant.Code("CPump").find("Public Sub Fill3()"), std::string::npos);
}

// With the keys of the tree: a formula, changed as text on its way, comes with arguments and code.
TEST_F(PasteTest, FormulasAreCopiedAndPastedInTheTree) {
  ASSERT_TRUE(program.Open());
  wx::ToClipboard("Tank1.Level\tLevel\n");
  Input({"key --delay 60 Home Down", "key F6 sleep 0.3", "key ctrl+v sleep 1",
         "key Return sleep 0.8"});
  wx::ToClipboard("Level\tx\n\n");
  Input({"key alt+F6 key --delay 60 Down Down", "key F6 sleep 0.3", "key ctrl+v sleep 1",
         "key Return sleep 0.8"});
  Input({"key alt+F6 key ctrl+c sleep 0.5"});
  EXPECT_EQ(wx::FromClipboard(),
            "Name\tProgID\tType\tScanTime\tEnabled\tComment\targuments\n"
            "Fill\tPumpServer.CPump\t0\t0\ttrue\t\"\"\tLevel:in\n")
      << "for a spreadsheet";
  std::string copied = wx::OwnFromClipboard();
  ASSERT_NE(copied.find("Public Sub Fill()"), std::string::npos) << copied;
  for (const auto& [from, to] :
       {std::pair("\"Fill\"", "\"Drain\""), std::pair("PumpServer.CPump", "OtherServer.COther"),
        std::pair("Sub Fill()\\u000d\\u000a", "Sub Drain()\\u000d\\u000a' here")}) {
    ASSERT_NE(copied.find(from), std::string::npos) << copied;
    copied.replace(copied.find(from), std::string(from).size(), to);
  }
  wx::ToClipboard(copied);
  // On the folder. The class is not of this project: the preview asks for it.
  Input({"key Up sleep 0.4", "key ctrl+v sleep 1", "key alt+l key --delay 60 Down Down Down",
         "key alt+m sleep 1"});
  EXPECT_EQ(plant.Rows("TvbfFormulas", {"Name", "ProgID"}).back(), "Drain|PumpServer.CTank");
  EXPECT_EQ(Arguments().back(), "2|3|1|True|False");
  EXPECT_NE(plant.Code("CTank").find("Public Sub Drain()\r\n' here"), std::string::npos)
      << plant.Code("CTank");
}

// A second project with classes of its own.
class PasteElsewhereTest : public PasteTest {
 protected:
  static constexpr const char* kOther = "/other/Other.ovs";

  PasteElsewhereTest() {
    support::SamplePlant empty;
    plant.system.Put(kOther, empty.system.Get(support::kPlantDatabase));
    for (const std::string file : {"PumpServer.vbp", "CHelper.cls", "CPump.cls", "CTank.cls"})
      plant.system.Put("/other/" + file, empty.system.Get("/plant/" + file));
    plant.AddAliases(
        {{"Tank1.Level", "Level"}, {"=1+1;\"A\"", "Quoted"}, {"Tank1.Zufluß", "Zufluss"}});
    plant.AddArguments(2, {{1, true}, {2, false, true}});
  }
  void OpenOther() {
    ASSERT_TRUE(program.Open(kOther));
    window_tests::FindChild<desktop::ProjectTree>(program.window())->SetFocus();
  }
  Lines InOther(const std::string& table, const std::vector<std::string>& fields) {
    support::SamplePlant other;
    other.system.Put(support::kPlantDatabase, plant.system.Get(kOther));
    return other.Rows(table, fields);
  }
};

TEST_F(PasteElsewhereTest, AliasesComeAsTheyWere) {
  ASSERT_TRUE(program.Open());
  Input({"key --delay 60 Home Down", "key F6 sleep 0.3", "key ctrl+a key ctrl+c sleep 0.3"});
  OpenOther();
  Input({"key --delay 60 Home Down", "key F6 sleep 0.3", "key ctrl+v sleep 1",
         "key Return sleep 0.8"});
  EXPECT_EQ(InOther("TvbfAlias", {"ItemID", "VBAlias"}),
            plant.Rows("TvbfAlias", {"ItemID", "VBAlias"}));
  EXPECT_EQ(program.Rows(), 3);
}

TEST_F(PasteElsewhereTest, FormulasOfTheOverviewComeWithArgumentsAndCode) {
  ASSERT_TRUE(program.Open());
  Input({"key --delay 60 Home Down Down", "key F6 sleep 0.3", "key ctrl+a key ctrl+c sleep 0.5"});
  OpenOther();
  Input({"key --delay 60 Home Down Down", "key F6 sleep 0.3", "key ctrl+v sleep 1",
         "key Return sleep 1"});
  EXPECT_EQ(InOther("TvbfFormulas", {"Name", "ProgID"}),
            (Lines{"Fill|PumpServer.CPump", "Other|PumpServer.CPump"}));
  EXPECT_EQ(InOther("TvbfAlias", {"ItemID", "VBAlias"}),
            (Lines{"Tank1.Level|Level", "=1+1;\"A\"|Quoted"}))
      << "those that they use";
  EXPECT_EQ(InOther("TvbfParams", {"ParentID", "AliasID", "In", "Out"}),
            (Lines{"2|1|True|False", "2|2|False|True"}));
  EXPECT_NE(plant.system.Get("/other/CPump.cls").find("Public Sub Other()"), std::string::npos);
  EXPECT_EQ(program.FormulaNodes(), (Lines{"Fill", "Other"}));
}

TEST_F(PasteTest, LeftPreviewChangesNothing) {
  ASSERT_TRUE(program.Open());
  wx::ToClipboard("Tank1.Level\t1Bad\n");
  Input({"key --delay 60 Home Down", "key F6 sleep 0.3", "key ctrl+v sleep 1",
         "key Escape sleep 0.5"});
  EXPECT_EQ(Aliases(), Lines{});
}

}  // namespace
