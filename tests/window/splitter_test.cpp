// SPDX-License-Identifier: MIT
// The bar between the splits of a table is dragged: it lies on the line that it moves, wherever it
// was dropped.
#include <gtest/gtest.h>

#include "tests/window/desktop_program.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;

constexpr int kNear = 4;  // pixels

TEST(Splitter, LiesOnItsLineFromOneEndToTheOther) {
  support::SamplePlant plant;
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  Input({"key --delay 80 Home Down Down", "key F8 sleep 0.8", "type --delay 40 Fill",
         "key --delay 80 Tab Down Return"});
  wxWindow* bar = display::FindWindow("pctParamTabSplit");
  ASSERT_NE(bar, nullptr);
  const wxDataViewCtrl& grid = program.Grid();
  const auto line = [&] { return grid.GetScreenPosition().x + grid.GetColumn(0)->GetWidth(); };
  const auto place = [&] { return bar->GetScreenPosition().x; };
  EXPECT_NEAR(place(), line(), kNear);
  const int width = grid.GetSize().GetWidth();
  struct Move {
    int by;
    int least, most;  // of what the line may be from the table's left edge then
  };
  const Move moves[] = {{-60, 200, width}, {-2 * width, 1, 60},           {-100, 1, 60},
                        {150, 150, 220},   {2 * width, width / 2, width}, {-width / 2, 1, width}};
  for (const Move& move : moves) {
    const int before = line();
    display::Drag(*bar, {1, 20}, {1 + move.by, 20});
    SCOPED_TRACE("dragged by " + std::to_string(move.by));
    EXPECT_NEAR(place(), line(), kNear);
    const int from_left = line() - grid.GetScreenPosition().x;
    EXPECT_GE(from_left, move.least);
    EXPECT_LE(from_left, move.most);
    EXPECT_TRUE(bar->IsShownOnScreen());
    EXPECT_GE(place(), grid.GetScreenPosition().x) << "out of sight";
    EXPECT_LE(place(), grid.GetScreenPosition().x + width) << "out of sight";
    if (std::abs(move.by) < 100) {
      EXPECT_NEAR(line() - before, move.by, kNear);
    }
  }
}

}  // namespace
