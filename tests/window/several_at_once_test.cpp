// SPDX-License-Identifier: MIT
// Many arguments and aliases in one go, each one operation; the list of keys.
#include <gtest/gtest.h>
#include <wx/menu.h>

#include <algorithm>

#include "desktop/key_list.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"
#include "tests/window/said.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using Lines = std::vector<std::string>;

struct PlantWithItems : window_tests::Plant {
  PlantWithItems() {
    AddFormulas({{"Fill", "PumpServer.CPump", 2}});
    AddAliases({{"T.One", "One"}, {"T.Two", "Two"}});
    AddArguments(1, {{1, true}});
    system.Put("/plant/items.csv",
               "item,type,comment\nT.One,Double,\nT.Three,Double,third\nT-Three,Long,\n");
  }
};

TEST(SeveralAtOnce, ArgumentsAndAliasesAreOneOperation) {
  PlantWithItems plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
  ASSERT_TRUE(program.Open());
  // Two items get names of their own, the one that has an alias is left out.
  Input({"key --delay 60 Home Down sleep 0.3", "key shift+F8 sleep 0.8",
         "key --delay 60 Tab ctrl+a sleep 0.3", "key Return sleep 0.8"});
  EXPECT_EQ(program.Status(), "2 aliases added.");
  const Lines aliases = plant.Rows("TvbfAlias", {"ItemID", "VBAlias"});
  ASSERT_EQ(aliases.size(), 4u);
  EXPECT_EQ(aliases[2], "T.Three|T_Three");
  EXPECT_EQ(aliases[3], "T-Three|T_Three_2");
  // All aliases but the argument that is there already.
  Input({"key --delay 60 End sleep 0.4", "key shift+F8 sleep 0.8",
         "key --delay 60 Tab ctrl+a sleep 0.3", "key Return sleep 0.8"});
  EXPECT_EQ(program.Status(), "3 arguments added.");
  EXPECT_EQ(program.Rows(), 4);
  Input({"key ctrl+z sleep 0.6"});
  EXPECT_EQ(program.Rows(), 1) << "one undo takes all of them back";
  Input({"key --delay 60 Home sleep 0.3", "key shift+F8 sleep 0.3"});
  EXPECT_EQ(program.Status(), "Select a formula or “Alias Identifier” in the project tree first.");
}

TEST(KeyList, IsWhatTheMenusShow) {
  PlantWithItems plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
  ASSERT_TRUE(program.Open());
  const texts::TextTable texts(texts::Language::kEnglish);
  const auto keys = desktop::KeysOf(*program.window().GetMenuBar(), nullptr, texts);
  const auto has = [&](const desktop::KeyRow& row) { return std::ranges::count(keys, row) == 1; };
  EXPECT_TRUE(has({"Code", "Go To...", "Ctrl+P"}));
  EXPECT_TRUE(has({"View", "Project Tree", "Ctrl+B"}));
  EXPECT_TRUE(has({"Extras", "Refresh View", "F5"}));
}

}  // namespace
