// SPDX-License-Identifier: MIT
// A project of 100,000 aliases under the hands of its user.
#include <gtest/gtest.h>

#include "bench/make_project.h"
#include "tests/window/desktop_program.h"

namespace {

using window_tests::Input;

constexpr const char* kDatabase = "/big/Plant.ovs";
constexpr int kAliases = 100000;

TEST(LargeProject, IsScrolledAndFiltered) {
  files::MemoryFileSystem system;
  bench::ProjectSize size;
  size.formulas = 20;
  size.aliases = kAliases;
  size.arguments = 60;
  system.CreateDirectories("/big");
  bench::MakeLargeProject(system, kDatabase, size);
  window_tests::DesktopProgram program(system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open(kDatabase));
  const auto shows = [&](int row, const std::string& text) {
    wxVariant value;
    auto* model = dynamic_cast<wxDataViewVirtualListModel*>(program.Grid().GetModel());
    model->GetValueByRow(value, static_cast<unsigned>(row), 1);
    return value.GetString().utf8_string() == text;
  };

  Input({"key --delay 80 Home Down", "key alt+F6"});  // into the table of the aliases
  ASSERT_EQ(program.Rows(), kAliases);
  Input({"key End"});
  EXPECT_EQ(program.CurrentRow(), kAliases - 1);
  EXPECT_TRUE(shows(kAliases - 1, bench::AliasName(kAliases - 1)));
  const wxDataViewItem last = program.Grid().GetCurrentItem();
  EXPECT_FALSE(program.Grid().GetItemRect(last).IsEmpty()) << "the last row is not in sight";
  Input({"key --delay 80 Prior Up"});
  EXPECT_LT(program.CurrentRow(), kAliases - 2);
  Input({"key Home"});
  EXPECT_EQ(program.CurrentRow(), 0);

  Input({"key ctrl+f", "type --delay 60 tank4711"});
  EXPECT_EQ(program.Rows(), 11) << "Tank4711 and Tank47110 to Tank47119";
  EXPECT_TRUE(shows(1, bench::AliasName(47110)));
  Input({"type xyz"});
  EXPECT_EQ(program.Rows(), 0);
  Input({"key --delay 80 BackSpace BackSpace BackSpace", "key --delay 80 Return Down Down"});
  EXPECT_EQ(program.CurrentRow(), 2);
  Input({"key ctrl+f", "key Escape"});
  EXPECT_EQ(program.Rows(), kAliases);
  EXPECT_EQ(program.CurrentRow(), 47111) << "the row keeps the keyboard when the filter goes";
}

}  // namespace
