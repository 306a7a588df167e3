// SPDX-License-Identifier: MIT
// The check in the window: findings gone to by keys, and repaired after a look at what changes.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "desktop/change_view.h"
#include "desktop/check_pane.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"
#include "tests/window/rows_of.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;

// The formula Fill with the argument Level, whose declaration is gone and whose header lists
// another name; below it an unused alias of the same item.
struct DamagedPlant : window_tests::Plant {
  DamagedPlant() {
    AddFormulas({{"Fill", "PumpServer.CPump"}});
    AddAliases({{"Tank1.Level", "Level"}, {"Tank1.Level", "Height"}});
    AddArguments(1, {{1, true}});
    Replace("CPump", "Public Level as Variant 'Tank1.Level\r\n", "");
    Replace("CPump", "'\tLevel\r\n", "'\tOther\r\n");
    Replace("CPump", "Public Sub Fill()\r\n", "Public Sub Fill()\r\n  Level = 1\r\n");
  }
};

class CheckTest : public ::testing::Test {
 protected:
  CheckTest() { EXPECT_TRUE(program.Open()); }

  desktop::CheckPane& Pane() { return *FindChild<desktop::CheckPane>(program.window()); }
  // The codes of the findings that the list shows.
  std::vector<std::string> Codes() {
    std::vector<std::string> codes;
    for (const std::string& row : window_tests::RowsOf(*FindChild<desktop::PlaceTable>(Pane()))) {
      const std::size_t begin = row.find('|') + 1;
      codes.push_back(row.substr(begin, row.find('|', begin) - begin));
    }
    return codes;
  }
  // Selects the first finding of the code.
  void Select(const std::string& code) {
    const auto codes = Codes();
    const auto found = std::ranges::find(codes, code);
    ASSERT_NE(found, codes.end()) << code;
    std::string keys = "key --delay 60 Home";
    for (auto each = codes.begin(); each != found; ++each) keys += " Down";
    Input({keys});
  }

  DamagedPlant plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(CheckTest, GoesToRowsAndLines) {
  Input({"key alt+e sleep 0.4 key c sleep 0.8"});
  ASSERT_TRUE(Pane().IsShown());
  Select("HDR002");
  Input({"key Return sleep 0.3"});
  EXPECT_TRUE(program.Code().HasFocus());
  EXPECT_EQ(program.Code().GetCurLine(), "Public Sub Fill()\n");

  FindChild<desktop::PlaceTable>(Pane())->SetFocus();
  Select("ALI005");  // two aliases of one item
  Input({"key Return sleep 0.4"});
  EXPECT_EQ(FindChild<desktop::ProjectTree>(program.window())->SelectedKey(), "FORA0");
  EXPECT_EQ(program.Rows(), 2);
  EXPECT_GE(program.CurrentRow(), 0);
}

// The pane has its size only when the list has its rows.
TEST(ManyFindings, BeginWithTheFirst) {
  window_tests::Plant plant;
  std::vector<store::AliasValues> aliases;
  aliases.reserve(30);
  for (int i = 0; i < 30; ++i) aliases.push_back({"Tank1.Level", "Level" + std::to_string(i)});
  plant.AddAliases(aliases);
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  Input({"key alt+e sleep 0.4 key c sleep 0.8"});
  auto& table = *FindChild<desktop::PlaceTable>(*FindChild<desktop::CheckPane>(program.window()));
  ASSERT_GE(table.Count(), 20u);
  auto& model = dynamic_cast<wxDataViewVirtualListModel&>(*table.GetModel());
  EXPECT_EQ(model.GetRow(table.GetTopItem()), 0u);
}

TEST_F(CheckTest, RepairsWhatIsSelectedAfterAPreview) {
  const std::string damaged = plant.Code("CPump");
  Input({"key alt+e sleep 0.4 key c sleep 0.8"});
  const std::size_t all = Codes().size();
  Input({"key ctrl+a sleep 0.2", "key alt+i sleep 0.8 key Escape sleep 0.3"});
  EXPECT_EQ(plant.Code("CPump"), damaged) << "looked at, but not confirmed";
  Select("HDR002");
  Input({"key alt+i sleep 0.8 key Return sleep 0.5"});
  EXPECT_NE(plant.Code("CPump").find("'\tLevel\r\n"), std::string::npos) << plant.Code("CPump");
  EXPECT_EQ(Codes().size(), all - 1);
  Input({"key ctrl+a sleep 0.2", "key alt+i sleep 0.8 key Return sleep 0.5"});
  EXPECT_NE(plant.Code("CPump").find("Public Level as Variant 'Tank1.Level\r\n"),
            std::string::npos);
  Input({"key Escape sleep 0.2 key ctrl+z sleep 0.4 key ctrl+z sleep 0.4"});
  EXPECT_EQ(plant.Code("CPump"), damaged) << "both repairs were taken back";
}

}  // namespace
