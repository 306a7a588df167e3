// SPDX-License-Identifier: MIT
// The tree under real keys, while its model changes below open and closed nodes.
#include "desktop/project_tree.h"

#include <gtest/gtest.h>
#include <wx/frame.h>

#include "tests/wx/display.h"
#include "wx/native.h"

namespace {

using display::Press;
using Keys = std::vector<std::string>;

class ProjectTreeTest : public ::testing::Test {
 protected:
  ProjectTreeTest()
      : frame(new wxFrame(nullptr, wxID_ANY, "Tree")),
        tree(new desktop::ProjectTree(frame, texts)) {
    Add("", "root");
    Add("root", "aliases");
    Add("root", "formulas");
    for (int i = 0; i < 300; ++i) Add("formulas", "f" + std::to_string(i));
    tree->on_select_node = [this](const auto& node) { selected.push_back(node.key); };
    tree->ShowTree(&model);
    wx::LayOutBeforeShow(*frame);
    frame->Show();
    EXPECT_TRUE(display::WaitFor([this] { return frame->IsActive(); }));
    tree->SetFocus();
    display::Pump(100);
  }
  ~ProjectTreeTest() override {
    tree->ShowTree(nullptr);
    frame->Destroy();
    display::Pump(100);
  }

  void Add(const std::string& parent, const std::string& key) {
    studio::StudioNode node;
    node.key = node.text = key;
    ASSERT_TRUE(model.Add(parent, std::move(node)));
  }
  std::string After(int key, int modifiers = wxMOD_NONE) {
    Press(key, modifiers);
    return tree->SelectedKey();
  }

  const texts::TextTable texts{texts::Language::kEnglish};
  studio::StudioTree model;
  wxFrame* frame;
  desktop::ProjectTree* tree;
  Keys selected;
};

TEST_F(ProjectTreeTest, KeysOpenCloseAndWalk) {
  tree->SelectKey("root");
  EXPECT_EQ(After(WXK_END), "root") << "nothing is open";
  EXPECT_EQ(After(WXK_RIGHT), "root");
  EXPECT_EQ(After(WXK_RIGHT), "aliases");
  EXPECT_EQ(After(WXK_RIGHT), "aliases") << "has nothing below it";
  EXPECT_EQ(After(WXK_DOWN), "formulas");
  EXPECT_EQ(After(WXK_DOWN), "formulas");
  Press(WXK_RIGHT);
  EXPECT_EQ(After(WXK_END), "f299");
  EXPECT_EQ(After(WXK_UP), "f298");
  EXPECT_EQ(After(WXK_LEFT), "formulas");
  Press(WXK_LEFT);
  EXPECT_EQ(After(WXK_END), "formulas") << "closed";
  EXPECT_EQ(selected, (Keys{"root", "aliases", "formulas", "f299", "f298", "formulas"}));
}

TEST_F(ProjectTreeTest, ShowsANodeBelowNodesThatWereNeverOpen) {
  tree->SelectKey("f250");
  EXPECT_EQ(tree->SelectedKey(), "f250");
  EXPECT_EQ(selected.back(), "f250");
  EXPECT_EQ(After(WXK_DOWN), "f251");
  EXPECT_EQ(After(WXK_HOME), "root");
}

TEST_F(ProjectTreeTest, FollowsTheModel) {
  Add("aliases", "a0");  // below closed nodes: the first child, and one more
  Add("formulas", "f300");
  tree->SelectKey("aliases");
  Press(WXK_RIGHT);
  EXPECT_EQ(After(WXK_RIGHT), "a0");
  tree->SelectKey("f298");
  Press(WXK_DOWN);
  EXPECT_EQ(After(WXK_DOWN), "f300");
  Add("formulas", "f301");  // below an open node
  EXPECT_EQ(After(WXK_DOWN), "f301");

  model.Remove("f299");
  EXPECT_EQ(After(WXK_UP), "f300");
  EXPECT_EQ(After(WXK_UP), "f298");
  model.Remove("f298");  // selected
  model.Remove("a0");    // the only child of an open node
  EXPECT_NE(tree->SelectedKey(), "f298");
  tree->SelectKey("aliases");
  EXPECT_EQ(After(WXK_RIGHT), "aliases");
  EXPECT_EQ(After(WXK_DOWN), "formulas");
  tree->SelectKey("formulas");
  Press(WXK_LEFT);
  model.Remove("f0");  // below a node that was open and is closed
  Press(WXK_RIGHT);
  EXPECT_EQ(After(WXK_RIGHT), "f1");
  model.SetText("f1", "renamed");
  EXPECT_EQ(tree->SelectedKey(), "f1");
}

TEST_F(ProjectTreeTest, OpensAgainWhatComesBack) {
  tree->SelectKey("f7");
  model.Remove("aliases");
  model.Remove("formulas");
  Add("root", "aliases");
  Add("root", "formulas");
  for (int i = 0; i < 20; ++i) Add("formulas", "f" + std::to_string(i));
  display::Pump(100);
  tree->SelectKey("root");
  EXPECT_EQ(After(WXK_END), "f19");
  tree->SelectKey("f7");
  EXPECT_EQ(After(WXK_UP), "f6");
}

TEST_F(ProjectTreeTest, ReportsKeysMouseAndMenus) {
  std::string told;
  tree->on_menu = [&](const auto& node) { told = "menu " + node.key; };
  tree->on_activate_node = [&](const auto& node) { told = "activate " + node.key; };
  tree->on_key = [&](const auto& node, forms::KeyEvent& event) {
    if (event.key_code == forms::kKeyF8) told = "F8 " + node.key, event.handled = true;
  };
  tree->SelectKey("f1");
  Press(WXK_F8);
  EXPECT_EQ(told, "F8 f1");
  Press(WXK_RETURN);
  EXPECT_EQ(told, "activate f1");
  Press(WXK_F10, wxMOD_SHIFT);
  EXPECT_EQ(told, "menu f1");
  display::Click(*tree, {80, 8}, wxMOUSE_BTN_RIGHT);
  EXPECT_EQ(told, "menu root");
  EXPECT_EQ(tree->SelectedKey(), "root");
}

}  // namespace
