// SPDX-License-Identifier: MIT
// Rows that are dragged with the real mouse onto nodes of the tree.
#include <gtest/gtest.h>

#include "desktop/project_tree.h"
#include "project/project.h"
#include "tests/window/desktop_program.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using Lines = std::vector<std::string>;

class DragTest : public ::testing::Test {
 protected:
  DragTest() {
    const texts::TextTable texts(texts::Language::kEnglish);
    project::Project project(plant.system, support::kPlantDatabase, {}, texts);
    const store::AliasValues aliases[] = {{"Tank1.Level", "Level"}, {"Tank1.Pump", "Pump"}};
    EXPECT_TRUE(project.operations().AddAliases(aliases).success());
    for (const char* name : {"Fill", "Other"}) {
      EXPECT_TRUE(
          project.operations().AddFormula({name, "PumpServer.CPump", 0, 0, true, ""}).success());
    }
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
  wxPoint PlaceOfRow(unsigned row) {
    const auto* model = dynamic_cast<wxDataViewVirtualListModel*>(program.Grid().GetModel());
    const wxRect cell =
        program.Grid().GetItemRect(model->GetItem(row), program.Grid().GetColumn(0));
    return program.Grid().ClientToScreen(cell.GetPosition() + cell.GetSize() / 2);
  }
  static std::string Drag(const wxPoint& from, const wxPoint& to) {
    return At(from) + "sleep 0.2 mousedown 1 sleep 0.2 " + At(from + wxPoint(4, 0)) + "sleep 0.1 " +
           At(from + wxPoint(12, 2)) + "sleep 0.2 " + At(to + wxPoint(3, 0)) + "sleep 0.2 " +
           At(to) + "sleep 0.3 mouseup 1 sleep 1";
  }

  support::SamplePlant plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(DragTest, AliasesOntoAFormulaBecomeItsArguments) {
  ASSERT_TRUE(program.Open());
  Input({"key --delay 60 Home Down", "key F6 sleep 0.3", "key ctrl+a sleep 0.3"});
  ASSERT_EQ(program.Rows(), 2);
  Input({Drag(PlaceOfRow(1), PlaceOf("Other")), "key Return sleep 0.8"});
  EXPECT_EQ(Arguments(), (Lines{"1|2|1|False|False", "2|2|2|False|False"}));
  EXPECT_NE(plant.Code("CPump").find("Public Level"), std::string::npos);
  // Onto what takes none of them, and with Esc, nothing happens.
  Input({Drag(PlaceOfRow(0), PlaceOf("Formula Definition"))});
  EXPECT_EQ(Arguments().size(), 2u);
}

TEST_F(DragTest, FormulasWithCtrlOntoTheirFolderAreDuplicated) {
  ASSERT_TRUE(program.Open());
  Input({"keydown ctrl " + Drag(PlaceOf("Fill"), PlaceOf("Formula Definition")), "keyup ctrl",
         "key Return sleep 1"});
  EXPECT_EQ(program.FormulaNodes(), (Lines{"Fill", "Other", "Fill2"}));
  EXPECT_NE(plant.Code("CPump").find("Public Sub Fill2()"), std::string::npos);
}

}  // namespace
