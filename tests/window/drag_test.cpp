// SPDX-License-Identifier: MIT
// Rows that are dragged with the real mouse onto nodes of the tree.
#include <gtest/gtest.h>

#include "desktop/formula_overview.h"
#include "desktop/frame_texts.h"
#include "desktop/project_tree.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"
#include "tests/window/said.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using window_tests::Said;
using Lines = std::vector<std::string>;

class DragTest : public ::testing::Test {
 protected:
  DragTest() {
    plant.AddAliases({{"Tank1.Level", "Level"}, {"Tank1.Pump", "Pump"}});
    plant.AddFormulas({{"Fill", "PumpServer.CPump"}, {"Other", "PumpServer.CPump"}});
  }
  Lines Arguments() { return plant.Rows("TvbfParams", {"ID", "ParentID", "AliasID", "In", "Out"}); }

  static std::string At(const wxPoint& point) {
    return "mousemove " + std::to_string(point.x) + " " + std::to_string(point.y) + " ";
  }
  // Where a node of the tree stands on the screen.
  wxPoint PlaceOf(const std::string& text) const {
    const auto& tree = *window_tests::FindChild<desktop::ProjectTree>(program.window());
    for (int y = 0; y < tree.GetClientSize().y; ++y) {
      const wxPoint point(60, y + 4);
      const auto* node = static_cast<const studio::StudioNode*>(tree.NodeAt(point));
      if (node && node->text == text) return tree.ClientToScreen(point);
    }
    ADD_FAILURE() << "no node " << text;
    return {};
  }
  static wxPoint PlaceOfRow(const wxDataViewCtrl& list, unsigned row) {
    const auto* model = dynamic_cast<const wxDataViewVirtualListModel*>(list.GetModel());
    const wxRect cell = list.GetItemRect(model->GetItem(row), list.GetColumn(0));
    return list.ClientToScreen(cell.GetPosition() + cell.GetSize() / 2);
  }
  static std::string Drag(const wxPoint& from, const wxPoint& to) {
    return At(from) + "sleep 0.2 mousedown 1 sleep 0.2 " + At(from + wxPoint(4, 0)) + "sleep 0.1 " +
           At(from + wxPoint(12, 2)) + "sleep 0.2 " + At(to + wxPoint(3, 0)) + "sleep 0.2 " +
           At(to) + "sleep 0.3 mouseup 1 sleep 1";
  }

  window_tests::Plant plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(DragTest, AliasesOntoAFormulaBecomeItsArguments) {
  ASSERT_TRUE(program.Open());
  Input({"key --delay 60 Home Down", "key F6 sleep 0.3", "key ctrl+a sleep 0.3"});
  ASSERT_EQ(program.Rows(), 2);
  Input({Drag(PlaceOfRow(program.Grid(), 1), PlaceOf("Other")), "key Return sleep 0.8"});
  EXPECT_EQ(Arguments(), (Lines{"1|2|1|False|False", "2|2|2|False|False"}));
  EXPECT_NE(plant.Code("CPump").find("Public Level"), std::string::npos);
  // Onto what takes none of them, and with Esc, nothing happens.
  Input({Drag(PlaceOfRow(program.Grid(), 0), PlaceOf("Formula Definition"))});
  EXPECT_EQ(Arguments().size(), 2u);
}

TEST_F(DragTest, FormulasWithCtrlOntoTheirFolderAreDuplicated) {
  ASSERT_TRUE(program.Open());
  Input({"keydown ctrl " + Drag(PlaceOf("Fill"), PlaceOf("Formula Definition")), "keyup ctrl",
         "key Return sleep 1"});
  EXPECT_EQ(program.FormulaNodes(), (Lines{"Fill", "Other", "Fill2"}));
  EXPECT_NE(plant.Code("CPump").find("Public Sub Fill2()"), std::string::npos);
}

// In a tree that is grouped by classes; there are formulas of both.
class DragToClassTest : public DragTest {
 protected:
  DragToClassTest() {
    plant.AddFormulas({{"Drain", "PumpServer.CTank"}});
    plant.AddArguments(1, {{1, true}});
    EXPECT_TRUE(program.Open());
    program.window().ProcessCommand(ToInt(desktop::kTextTreeByClass));
    auto& tree = *window_tests::FindChild<desktop::ProjectTree>(program.window());
    for (const char* formula : {"FORF1", "FORF3"}) {
      tree.SelectKey(formula);  // opens its group
      display::Pump(200);
    }
  }
  Lines Formulas() { return plant.Rows("TvbfFormulas", {"Name", "ProgID"}); }
};

TEST_F(DragToClassTest, AFormulaOfTheTreeMovesAndWithCtrlIsCopied) {
  Said said;
  Input({Drag(PlaceOf("Other"), PlaceOf("PumpServer.CTank")), "key alt+w sleep 1"});
  ASSERT_EQ(said.texts.size(), 1u);
  EXPECT_TRUE(said.texts[0].starts_with("Move one formula to PumpServer.CTank?"));
  const Lines moved = {"Fill|PumpServer.CPump", "Other|PumpServer.CTank", "Drain|PumpServer.CTank"};
  EXPECT_EQ(Formulas(), moved);
  EXPECT_NE(plant.Code("CTank").find("Public Sub Other()"), std::string::npos);

  Input({"keydown ctrl " + Drag(PlaceOf("Fill"), PlaceOf("PumpServer.CTank")), "keyup ctrl",
         "key Return sleep 1"});
  EXPECT_EQ(Formulas().back(), "Fill|PumpServer.CTank");
  EXPECT_EQ(Formulas().front(), "Fill|PumpServer.CPump");
  EXPECT_EQ(Arguments(), (Lines{"1|1|1|True|False", "2|4|1|True|False"}));
  const std::string code = plant.Code("CTank");
  EXPECT_NE(code.find("Public Sub Fill()"), std::string::npos) << code;
  EXPECT_NE(code.find("Public Level"), std::string::npos) << code;

  Input({"key ctrl+z sleep 0.6"});
  EXPECT_EQ(Formulas(), moved) << "a copy is one operation";
  // Its own class does not take it, and no dialog comes.
  Input({Drag(PlaceOf("Drain"), PlaceOf("PumpServer.CTank"))});
  EXPECT_EQ(Formulas(), moved);
  EXPECT_EQ(said.texts.size(), 2u);
}

TEST_F(DragToClassTest, RowsOfTheOverviewMoveTogether) {
  Input({"key --delay 60 Home Down Down", "key F6 sleep 0.3", "key ctrl+a sleep 0.3"});
  const auto& panel = *window_tests::FindChild<desktop::FormulaOverview>(program.window());
  const wxDataViewCtrl& list = *window_tests::ShownGrid(panel);
  Input({Drag(PlaceOfRow(list, 1), PlaceOf("PumpServer.CTank")), "key alt+w sleep 1"});
  EXPECT_EQ(Formulas(),
            (Lines{"Fill|PumpServer.CTank", "Other|PumpServer.CTank", "Drain|PumpServer.CTank"}));
  Input({"key ctrl+z sleep 0.6"});
  EXPECT_EQ(Formulas(),
            (Lines{"Fill|PumpServer.CPump", "Other|PumpServer.CPump", "Drain|PumpServer.CTank"}));
}

}  // namespace
