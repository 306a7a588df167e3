// SPDX-License-Identifier: MIT
// The project tree as its user arranges it: grouped, sorted and filtered, with what formulas are.
#include <gtest/gtest.h>
#include <wx/menu.h>
#include <wx/srchctrl.h>
#include <wx/stattext.h>

#include "desktop/formula_overview.h"
#include "desktop/frame_texts.h"
#include "desktop/tree_pane.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"
#include "tests/window/said.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;
using window_tests::Said;
using Lines = std::vector<std::string>;

// Level is an argument of Fill2.
struct PlantWithLevel : window_tests::PlantWithFormulas {
  PlantWithLevel() {
    AddAliases({{"Plant.Level", "Level"}});
    AddArguments(2, {{1, true}});
  }
};

class TreeLookTest : public ::testing::Test {
 protected:
  TreeLookTest() { EXPECT_TRUE(program.Open()); }

  desktop::ProjectTree& Tree() { return *FindChild<desktop::ProjectTree>(program.window()); }
  wxSearchCtrl& Filter() {
    return *FindChild<wxSearchCtrl>(*FindChild<desktop::TreePane>(program.window()));
  }
  // The names of the formulas as they stand in the tree, from top to bottom.
  Lines Shown() {
    Lines names;
    std::vector<std::string> keys = Tree().KeysBelow("FORF0");
    keys.resize(Tree().FormulasShown());
    for (const std::string& key : keys) names.push_back(Tree().Tree()->Find(key)->text);
    return names;
  }
  void Choose(messages::TextNumber entry) {
    program.window().ProcessCommand(ToInt(entry));
    display::Pump(100);
  }
  // Rows of the table of formulas.
  unsigned TableRows() {
    auto& panel = *FindChild<desktop::FormulaOverview>(program.window());
    auto* list = window_tests::ShownGrid(panel);
    return dynamic_cast<wxDataViewVirtualListModel&>(*list->GetModel()).GetCount();
  }
  std::string Selected() { return Tree().Tree()->Find(Tree().SelectedKey())->text; }

  PlantWithLevel plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(TreeLookTest, GroupsAndSortsAndKeepsIt) {
  EXPECT_EQ(Shown(), (Lines{"Fill10", "Fill2", "Drain", "Alarm"}));
  Choose(desktop::kTextTreeByName);
  EXPECT_EQ(Shown(), (Lines{"Alarm", "Drain", "Fill2", "Fill10"}));
  Input({"key --delay 60 Home Down Down Down Down", "key F2 sleep 0.5", "key Escape sleep 0.3"});
  EXPECT_EQ(Selected(), "Drain") << "the keys walk what is shown";
  Choose(desktop::kTextTreeByClass);
  EXPECT_EQ(Shown(), (Lines{"Fill2", "Fill10", "Alarm", "Drain"}));
  EXPECT_EQ(Selected(), "Drain");
  // The group stands for its formulas, also in the table beside it.
  Input({"key --delay 60 Left sleep 0.4"});
  EXPECT_EQ(Tree().SelectedGroup(), "PumpServer.CTank");
  EXPECT_EQ(TableRows(), 2u);
  Input({"key --delay 60 Home Down Down sleep 0.4"});
  EXPECT_EQ(TableRows(), 4u) << "the folder shows all of them again";
  Choose(desktop::kTextTreeByCallType);
  EXPECT_EQ(Shown(), (Lines{"Fill2", "Fill10", "Alarm", "Drain"}));
  EXPECT_EQ(program.state().window.tree_grouping, 2);
  EXPECT_EQ(program.state().window.tree_order, 1);
}

TEST_F(TreeLookTest, FollowsWhatChanges) {
  Choose(desktop::kTextTreeByClass);
  Tree().SelectKey("FORF1");
  Said said;
  Input({"key Delete sleep 0.8", "key alt+y"});
  ASSERT_EQ(said.texts.size(), 1u) << "Delete asks";
  EXPECT_EQ(Selected(), "Fill2") << "the neighbour that is seen";
  Input({"key Delete sleep 0.8", "key alt+y"});
  EXPECT_EQ(Shown(), (Lines{"Drain", "Alarm"}));
  EXPECT_EQ(Selected(), "Drain");
  Input({"key ctrl+z sleep 0.6"});
  EXPECT_EQ(Shown(), (Lines{"Fill2", "Drain", "Alarm"})) << "its group is back with it";
  Input({"key F5 sleep 0.8"});
  EXPECT_EQ(Shown(), (Lines{"Fill2", "Drain", "Alarm"}));
}

TEST_F(TreeLookTest, FindsByNameCommentAndAlias) {
  Tree().SelectKey("FORF3");
  Input({"key ctrl+f", "type --delay 40 level", "sleep 0.3"});
  EXPECT_EQ(Shown(), (Lines{"Fill2"})) << "by the alias of an argument";
  EXPECT_TRUE(program.Title().starts_with("Formula Drain ")) << "until one is chosen";
  Input({"key ctrl+a", "type --delay 40 tank", "sleep 0.3"});
  EXPECT_EQ(Shown(), (Lines{"Fill10"})) << "by its comment";
  Input({"key Return sleep 0.3"});
  EXPECT_EQ(Selected(), "Fill10");
  EXPECT_TRUE(Tree().HasFocus());
  Input({"key Escape sleep 0.3"});
  EXPECT_EQ(Shown().size(), 4u) << "from the tree, too";
  EXPECT_EQ(Selected(), "Fill10");
  // What goes there elsewhere is seen there.
  Tree().SelectKey("FORF4");
  EXPECT_EQ(Selected(), "Alarm");
  EXPECT_TRUE(Filter().IsEmpty());
  EXPECT_EQ(Shown().size(), 4u);
  Input({"key ctrl+f", "type --delay 40 zzz", "sleep 0.3"});
  EXPECT_TRUE(Shown().empty());
  EXPECT_EQ(FindChild<wxStaticText>(*FindChild<desktop::TreePane>(program.window()))->GetLabel(),
            "No formula matches the filter.");
  Input({"key Escape sleep 0.3"});
  EXPECT_EQ(Selected(), "Alarm") << "it is still there";
  EXPECT_TRUE(Tree().HasFocus());
}

}  // namespace
