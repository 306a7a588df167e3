// SPDX-License-Identifier: MIT
#include "editor/grid_layout.h"

#include <gtest/gtest.h>

#include "forms/form.h"

namespace editor {
namespace {

// A grid with the splits of the argument grid, and its splitter.
struct Window : forms::Form {
  forms::Grid grid{this, "tdbP"};
  forms::Splitter splitter{this, "pctParamTabSplit"};

  explicit Window(std::size_t columns = 3) : Form("window") {
    grid.AddSplit(3000).AddColumn("AliasID", 3000);
    forms::Split& rest = grid.AddSplit(0);
    for (std::size_t i = 1; i < columns; ++i) rest.AddColumn("Flag" + std::to_string(i), 2000);
    grid.SetBounds({100, 500, 8000, 4000});
  }
};

TEST(ColumnOrder, RanksInsideTheSplit) {
  struct Case {
    const char* text;
    std::vector<std::size_t> order;
  };
  const Case cases[] = {
      {"", {0, 1, 2}},           {",2,3,4", {0, 1, 2}},   {",0,1,2", {0, 1, 2}},
      {",0,2,1", {0, 2, 1}},     {"9,0,2,1", {0, 2, 1}},  {",2,1,0", {0, 2, 1}},
      {",0,2", {0, 1, 2}},       {",0,2,x", {0, 2, 1}},   {",,,", {0, 1, 2}},
      {",0,1,1,7,7", {0, 1, 2}}, {",1,-1,-2", {0, 2, 1}}, {",99999999999,0,0", {0, 1, 2}},
  };
  for (const Case& c : cases) {
    Window window;
    window.grid.ColumnAt(1).SetOrder(7);  // left over from other settings
    ApplyColumnOrder(window.grid, c.text);
    EXPECT_EQ(window.grid.DisplayOrder(), c.order) << c.text;
  }
}

TEST(ShareWidth, ColumnsThatFillTakeWhatIsLeft) {
  Window window(2);  // 3000 and 2000 of 8000
  SplitterDrag drag(window.splitter, window.grid);
  forms::Column& first = window.grid.ColumnAt(0);
  forms::Column& second = window.grid.ColumnAt(1);
  const auto shown = [](const forms::Column& column) { return column.Width() + column.Extra(); };
  first.SetFills(true);
  second.SetFills(true);
  const double rest = 8000 - shown(first) - shown(second);
  EXPECT_GE(rest, 0);
  EXPECT_LT(rest, 400) << "for a scroll bar";
  EXPECT_EQ(first.Extra(), second.Extra());
  EXPECT_EQ(window.splitter.Left(), 100 + shown(first) + kSplitterOffset);
  EXPECT_EQ(first.Width(), 3000) << "what is kept does not change";

  window.splitter.on_mouse_down({forms::kLeftButton, 0, 5, 0});  // a click moves nothing
  window.splitter.on_mouse_up({forms::kLeftButton, 0, 5, 0});
  EXPECT_TRUE(first.Fills());

  first.Resize(3500);  // the user drags the border
  EXPECT_EQ(shown(first), 3500);
  EXPECT_EQ(window.grid.SplitAt(0).Width(), 3500);
  EXPECT_EQ(shown(second), 8000 - rest - 3500);

  window.grid.SetBounds({100, 500, 4000, 4000});
  EXPECT_EQ(second.Extra(), 0) << "there is no room";
  EXPECT_EQ(second.Width(), 2000);
}

TEST(Splitter, DragSetsTheWidthWithinTheGrid) {
  constexpr double kShownWidth = 300;
  struct Case {
    const char* what;
    double moved;
    double width;
  };
  const Case cases[] = {
      {"to the right", 500, 3500},
      {"left of the grid", -9000, 0},
      {"past the right edge", 9000, 7940},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Window window;
    SplitterDrag drag(window.splitter, window.grid);
    drag.Place();
    EXPECT_EQ(window.splitter.Left(), 3130);
    window.splitter.on_mouse_move({forms::kLeftButton, 0, 40, 0});  // no drag yet
    window.splitter.on_mouse_down({forms::kRightButton, 0, 0, 0});
    window.splitter.on_mouse_move({forms::kLeftButton, 0, 40, 0});
    window.splitter.on_mouse_up({forms::kLeftButton, 0, 0, 0});
    EXPECT_EQ(window.splitter.Left(), 3130);

    window.splitter.on_mouse_down({forms::kLeftButton, 0, 5, 0});
    window.splitter.on_mouse_move({forms::kLeftButton, 0, c.moved / 2, 0});
    window.splitter.on_mouse_move({0, 0, 77, 0});  // the button is up
    window.splitter.on_mouse_move({forms::kLeftButton, 0, c.moved / 2, 0});
    window.splitter.on_mouse_up({forms::kLeftButton, 0, 0, 0});
    EXPECT_EQ(window.grid.SplitAt(0).Width(), c.width);
    EXPECT_EQ(window.grid.ColumnAt(0).Width(), c.width);
    // A column that is made narrower than it can be shown is no wider for that.
    const double line = 100 + std::max(c.width, kShownWidth) + 30;
    EXPECT_EQ(window.splitter.Left(), line);
    window.splitter.on_mouse_move({forms::kLeftButton, 0, 40, 0});
    EXPECT_EQ(window.splitter.Left(), line) << "the drag has ended";
  }
}

}  // namespace
}  // namespace editor
