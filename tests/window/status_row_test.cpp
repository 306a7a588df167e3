// SPDX-License-Identifier: MIT
// The lower edge of the window and the list of messages; a window without a project.
#include <gtest/gtest.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>

#include "desktop/message_pane.h"
#include "desktop/project_tree.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;

struct PlantWithAliases : window_tests::Plant {
  PlantWithAliases() {
    AddFormulas({{"Fill", "PumpServer.CPump", 2}});
    AddAliases({{"T.One", "One"}, {"T.Two", "Two"}});
  }
};

TEST(StatusRow, CountsAndRemembersWhatWasSaid) {
  PlantWithAliases plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
  auto& tree = *FindChild<desktop::ProjectTree>(program.window());
  EXPECT_FALSE(tree.IsShownOnScreen()) << "there is nothing to show yet";
  EXPECT_FALSE(program.Code().IsShownOnScreen());
  ASSERT_TRUE(program.Open());
  EXPECT_TRUE(tree.IsShownOnScreen());
  EXPECT_TRUE(program.Code().IsShownOnScreen());
  const auto counts = [&] {
    return program.window().GetStatusBar()->GetStatusText(1).utf8_string();
  };
  Input({"sleep 1"});
  EXPECT_EQ(counts(), "1 formula  ·  0 arguments  ·  2 aliases");
  program.Choose("Statistics");
  Input({"sleep 0.5"});
  EXPECT_EQ(program.Status(), counts());
  Input({"key --delay 60 Home Down sleep 0.3", "key alt+F6 sleep 0.3", "key ctrl+a",
         "key ctrl+Delete sleep 0.6", "key alt+y sleep 1.2"});
  EXPECT_EQ(counts(), "1 formula  ·  0 arguments  ·  0 aliases");
  EXPECT_EQ(program.Status(), "2 aliases deleted.");

  auto& pane = *FindChild<desktop::MessagePane>(program.window());
  Input({"key ctrl+shift+l sleep 0.4"});
  EXPECT_TRUE(pane.IsShownOnScreen());
  EXPECT_EQ(FindChild<wxTextCtrl>(pane)->GetValue(), "2 aliases deleted.");
  Input({"key --delay 60 Down Down sleep 0.3"});
  EXPECT_TRUE(FindChild<wxTextCtrl>(pane)->GetValue().StartsWith("Opened: "));
  Input({"key Escape sleep 0.3"});
  EXPECT_FALSE(pane.IsShown());
  EXPECT_TRUE(tree.HasFocus());
}

}  // namespace
