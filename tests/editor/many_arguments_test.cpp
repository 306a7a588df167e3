// SPDX-License-Identifier: MIT
// In and Out of all arguments that are selected, at once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/farguments.h"
#include "editor/grid_columns.h"
#include "tests/support/editor_bench.h"

namespace editor {
namespace {

using dialogs::FArguments;
using support::EditorBench;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(ManyArguments, AreEditedAsOne) {
  EditorBench bench("FORF0");
  bench.HaveFormula("Fill", "PumpServer.CPump");
  std::vector<std::int64_t> all;
  for (const char* name : {"Level", "Pump", "Mode"}) {
    all.push_back(bench.HaveArgument(1, bench.HaveAlias("Tank1." + std::string(name), name),
                                     name == std::string("Pump"), false));
  }
  bench.Click("FORF1");
  forms::Grid& grid = bench.Window().tdbP;
  grid.SetSelection({all[0], all[1]});
  bench.In<FArguments>([](FArguments& dialog) {
    EXPECT_EQ(dialog.Caption(), "Edit 2 arguments");
    EXPECT_EQ(dialog.lblNames.Caption(), "Level, Pump");
    dialog.cmbOut.SetListIndex(1);
    dialog.cmdOk.Click();
  });
  bench.PressIn(grid, forms::kKeyF9);
  EXPECT_THAT(bench.Arguments(),
              ElementsAre("1|1|1|False|True", "2|1|2|True|True", "3|1|3|False|False"));
  EXPECT_TRUE(grid.Cell(1, kOutColumn).ToBool());

  // The one that has it loses it, the other stays as it is.
  bench.In<FArguments>([](FArguments& dialog) {
    dialog.cmbIn.SetListIndex(2);
    dialog.cmdOk.Click();
  });
  bench.PressIn(grid, forms::kKeyF9);
  EXPECT_THAT(bench.Arguments(),
              ElementsAre("1|1|1|False|True", "2|1|2|False|True", "3|1|3|False|False"));
}

// An argument of a formula that runs on change is one of both: the refusal puts all back.
TEST(ManyArguments, RefusalChangesNone) {
  EditorBench bench("FORF0");
  bench.HaveFormula("Fill", "PumpServer.CPump", store::kOnVariableChange);
  const std::int64_t level =
      bench.HaveArgument(1, bench.HaveAlias("T.Level", "Level"), false, false);
  const std::int64_t pump = bench.HaveArgument(1, bench.HaveAlias("T.Pump", "Pump"), true, false);
  bench.Click("FORF1");
  bench.Window().tdbP.SetSelection({level, pump});
  bench.In<FArguments>([](FArguments& dialog) {
    dialog.cmbOut.SetListIndex(1);
    dialog.cmdOk.Click();
  });
  bench.In<FArguments>([](FArguments& dialog) { dialog.cmdCancel.Click(); });
  bench.PressIn(bench.Window().tdbP, forms::kKeyF9);
  EXPECT_THAT(bench.Arguments(), ElementsAre("1|1|1|False|False", "2|1|2|True|False"));
  ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
  EXPECT_THAT(bench.toolkit.boxes[0].detail, HasSubstr("Pump"));
}

}  // namespace
}  // namespace editor
