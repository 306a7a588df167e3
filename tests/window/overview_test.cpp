// SPDX-License-Identifier: MIT
// The overview of all formulas: what is seen, and what keys and mouse do to several of them.
#include <gtest/gtest.h>
#include <wx/choice.h>
#include <wx/srchctrl.h>
#include <wx/stattext.h>

#include "desktop/formula_overview.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"
#include "tests/window/said.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;
using window_tests::Said;
using window_tests::ShownGrid;
using Lines = std::vector<std::string>;

// Five formulas; Fill10 has two arguments, one of which is input and output.
struct PlantWithFiveFormulas : window_tests::PlantWithFormulas {
  PlantWithFiveFormulas() {
    AddFormulas({{"Watch", "PumpServer.CPump", 7, 2500}});
    AddAliases({{"T.One", "One"}, {"T.Two", "Two"}});
    AddArguments(1, {{1, true, true}, {2, true}});
    Replace("CPump", "Public Sub Fill10()\r\n", "Public Sub Fill10()\r\n  Two = One\r\n");
  }
  Lines Formulas() { return Rows("TvbfFormulas", {"Name", "ProgID", "Type", "Enabled"}); }
};

class Overview : public ::testing::Test {
 protected:
  Overview() {
    EXPECT_TRUE(program.Open());
    Input({"key --delay 60 Home Down Down", "key F6"});
  }

  desktop::FormulaOverview& Panel() {
    return *FindChild<desktop::FormulaOverview>(program.window());
  }
  wxDataViewCtrl& Table() { return *ShownGrid(Panel()); }
  // A line for each row, as far as the columns are asked for.
  Lines Shown(const std::vector<unsigned>& columns = {0}) {
    auto& model = dynamic_cast<wxDataViewVirtualListModel&>(*Table().GetModel());
    Lines lines;
    for (unsigned row = 0; row < model.GetCount(); ++row) {
      std::string line;
      for (const unsigned column : columns) {
        wxVariant value;
        model.GetValueByRow(value, row, column);
        line += (line.empty() ? "" : "|") + value.MakeString().utf8_string();
      }
      lines.push_back(line);
    }
    return lines;
  }
  std::string Count() { return FindChild<wxStaticText>(Panel())->GetLabel().utf8_string(); }

  PlantWithFiveFormulas plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(Overview, ShowsWhatFormulasAre) {
  EXPECT_TRUE(Table().HasFocus());
  EXPECT_EQ(Shown({0, 1, 2, 3, 4, 5, 6}),
            (Lines{"Fill10|PumpServer.CPump|before Cycle||1|2|upper tank",
                   "Fill2|PumpServer.CPump|before Cycle||1|0|",
                   "Drain|PumpServer.CTank|asynchronous|500|1|0|night shift",
                   "Alarm|PumpServer.CTank|on Variable Change||0|0|",
                   "Watch|PumpServer.CPump|asynchronous|2500|1|0|"}));
  EXPECT_EQ(Count(), "5 formulas");
  Input({"key --delay 60 Home", "key alt+Up"});
  EXPECT_EQ(Shown(), (Lines{"Alarm", "Drain", "Fill2", "Fill10", "Watch"}));
  Input({"key ctrl+f", "type --delay 40 ill"});
  EXPECT_EQ(Shown(), (Lines{"Fill2", "Fill10"}));
  EXPECT_EQ(Count(), "2 of 5 formulas");
  Input({"key Down", "key Escape"});
  EXPECT_EQ(Shown().size(), 5u) << "from the table, too";
  EXPECT_TRUE(Table().HasFocus());
  Input({"key --delay 60 Home Down", "key Return sleep 0.5"});
  EXPECT_TRUE(program.Title().starts_with("Formula Drain ")) << program.Title();
  EXPECT_FALSE(Panel().IsShown());
}

TEST_F(Overview, NarrowsDownByClassAndCallType) {
  const auto choose = [&](wxChoice& choice, const char* entry) {
    choice.SetStringSelection(entry);
    wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
    choice.GetEventHandler()->ProcessEvent(event);
  };
  wxChoice& classes = *FindChild<wxChoice>(Panel());
  wxChoice& types = *dynamic_cast<wxChoice*>(classes.GetNextSibling());
  choose(classes, "PumpServer.CPump");
  EXPECT_EQ(Shown(), (Lines{"Fill10", "Fill2", "Watch"}));
  choose(types, "asynchronous");
  EXPECT_EQ(Shown(), (Lines{"Watch"}));
  choose(classes, "All classes");
  EXPECT_EQ(Shown(), (Lines{"Drain", "Watch"}));
}

// Each is one operation, which one undo takes back.
TEST_F(Overview, ChangesSeveralAtOnce) {
  const Lines before = plant.Formulas();
  Input({"key --delay 60 Home", "key --delay 60 shift+Down shift+Down", "key space sleep 0.6"});
  EXPECT_EQ(plant.Formulas(),
            (Lines{"Fill10|PumpServer.CPump|2|False", "Fill2|PumpServer.CPump|2|False",
                   "Drain|PumpServer.CTank|7|False", "Alarm|PumpServer.CTank|6|False",
                   "Watch|PumpServer.CPump|7|True"}));
  EXPECT_EQ(program.Status(), "3 formulas changed.");
  EXPECT_EQ(Shown({4}), (Lines{"0", "0", "0", "0", "1"}));
  Input({"key ctrl+z sleep 0.6"});
  EXPECT_EQ(program.Status(), "Undone: Disable 3 formulas");
  EXPECT_EQ(plant.Formulas(), before);
  EXPECT_EQ(Shown({4}), (Lines{"1", "1", "1", "0", "1"}));

  // A call type that one of them cannot have is none of any.
  Said said;
  Input({"key --delay 60 Home", "key --delay 60 shift+Down shift+Down",
         "key shift+F10 sleep 0.4 key t sleep 0.3 key --delay 80 Up Up Return sleep 0.8",
         "key Return"});
  ASSERT_EQ(said.texts.size(), 1u);
  EXPECT_NE(said.texts[0].find("formula Fill10 (PumpServer.CPump)"), std::string::npos)
      << said.texts[0];
  EXPECT_EQ(plant.Formulas(), before);
}

// Only asynchronous formulas take it; the others stay, and one undo takes it back.
TEST_F(Overview, SetsTheScanTimeOfSeveral) {
  const auto times = [&] { return plant.Rows("TvbfFormulas", {"Name", "ScanTime"}); };
  const Lines before = times();
  Said said;
  Input({"key ctrl+a", "key shift+F10 sleep 0.4 key s sleep 0.8", "type 1,5",
         "sleep 0.2 key Return sleep 0.6 key Return sleep 0.4", "key ctrl+a type 250",
         "sleep 0.2 key Return sleep 0.8"});
  ASSERT_EQ(said.texts.size(), 2u) << "no whole number is refused";
  EXPECT_EQ(times(), (Lines{"Fill10|0", "Fill2|0", "Drain|250", "Alarm|0", "Watch|250"}));
  EXPECT_EQ(program.Status(), "2 formulas changed.");
  Input({"key ctrl+z sleep 0.6"});
  EXPECT_EQ(program.Status(), "Undone: Change the scan time of 2 formulas");
  EXPECT_EQ(times(), before);
  Input({"key --delay 60 Home Down", "key shift+F10 sleep 0.4 key s sleep 0.5"});
  EXPECT_EQ(program.Status(), "Only asynchronous formulas have a scan time: 0 of 1 selected.");
}

TEST_F(Overview, MovesSeveralToAClassWithTheirCode) {
  Said said;
  Input({"key --delay 60 Home", "key --delay 60 shift+Down",
         "key shift+F10 sleep 0.4 key m sleep 0.3 key --delay 80 Up Return sleep 0.8",
         "key alt+w sleep 0.6"});
  ASSERT_EQ(said.texts.size(), 1u);
  EXPECT_TRUE(said.texts[0].starts_with("Move 2 formulas to PumpServer.CTank?")) << said.texts[0];
  EXPECT_EQ(Shown({0, 1}),
            (Lines{"Fill10|PumpServer.CTank", "Fill2|PumpServer.CTank", "Drain|PumpServer.CTank",
                   "Alarm|PumpServer.CTank", "Watch|PumpServer.CPump"}));
  EXPECT_NE(plant.Code("CTank").find("Public Sub Fill10()\r\n  Two = One\r\n"), std::string::npos)
      << plant.Code("CTank");
}

TEST_F(Overview, DeletesSeveralAfterOneQuestion) {
  Said said;
  Input({"key --delay 60 Home", "key --delay 60 shift+Down", "key Delete sleep 0.8", "key alt+y"});
  ASSERT_EQ(said.texts.size(), 1u);
  EXPECT_EQ(said.texts[0],
            "Delete 2 formulas with 2 arguments in all?\nFormulas: Fill10, Fill2. Their code stays "
            "in the classes, commented out.");
  EXPECT_EQ(Shown(), (Lines{"Drain", "Alarm", "Watch"}));
  EXPECT_EQ(program.FormulaNodes(), (Lines{"Drain", "Alarm", "Watch"}));
  EXPECT_EQ(program.Status(), "2 formulas deleted.");
  Input({"key ctrl+z sleep 0.6", "key --delay 60 Home"});
  EXPECT_EQ(plant.Formulas().size(), 5u);
}

}  // namespace
