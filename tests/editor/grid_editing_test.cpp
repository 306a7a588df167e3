// SPDX-License-Identifier: MIT
// Typing in the grids, their keys and their mouse.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/fchoose_alias.h"
#include "dialogs/fparameter.h"
#include "editor/grid_columns.h"
#include "tests/support/editor_bench.h"

namespace editor {
namespace {

using support::EditorBench;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kMalformed = "The Alias does not meet the Visual Basic naming conventions!!!";
constexpr const char* kEmpty = "Item Name and Alias Identifier must not be empty!";

// Aliases Level and Running, a formula on variable change with both as arguments, Level in and
// Running out.
struct Plant : EditorBench {
  Plant() : EditorBench("FORF0") {
    HaveFormula("OnChange", "PumpServer.CPump", 6);
    HaveArgument(1, HaveAlias("Tank1.Level", "Level"), true, false);
    HaveArgument(1, HaveAlias("Pump.Running", "Running"), false, true);
    HaveAlias("Valve.Open", "Valve");
  }
};

TEST(GridEditing, RefusedValuesReturnToTheOldOnes) {
  struct Case {
    const char* what;
    const char* key;
    std::size_t column;
    platform::Variant value;
    const char* prompt;
    const char* detail;
  };
  const Case cases[] = {
      {"a name that another row has", "FORA0", kVBAliasColumn, "Running", "Doppelter Name",
       "Pump.Running"},
      {"the same in other letters", "FORA0", kVBAliasColumn, "RUNNING", "Doppelter Name", ""},
      {"a malformed name", "FORA0", kVBAliasColumn, "1 2", kMalformed, "_"},
      {"a reserved word", "FORA0", kVBAliasColumn, "Next", kMalformed, "Next"},
      {"no name", "FORA0", kVBAliasColumn, "", kEmpty, ""},
      {"a blank item", "FORA0", kItemIdColumn, "  ", kEmpty, ""},
      {"an alias that is an argument already", "FORF1", kAliasIdColumn, "Running", "Doppelter Name",
       "Running"},
      {"an alias that does not exist", "FORF1", kAliasIdColumn, "Nobody",
       "There is no alias Nobody. Choose one from the list or create it first (\"Alias "
       "Identifier\", F8).",
       ""},
      {"both flags on variable change", "FORF1", kOutColumn, true,
       "The Parameter can't be at the same time In- and Output Value \r\nif the Function type is "
       "'on Variable Change'",
       ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Plant bench;
    bench.Click(c.key);
    forms::Grid& grid = bench.Window().CurrentGrid();
    ASSERT_TRUE(grid.SetCurrentId(1));
    const auto before = bench.plant.system.Snapshot();
    const platform::Variant old_value = grid.Cell(0, c.column);
    grid.EditCell(c.column, c.value);
    EXPECT_EQ(grid.ShownCell(0, c.column), old_value);
    EXPECT_FALSE(grid.DataChanged());
    EXPECT_EQ(grid.CurrentId(), 1);
    EXPECT_EQ(bench.toolkit.beeps, 1);
    ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
    EXPECT_EQ(bench.toolkit.boxes[0].prompt, c.prompt);
    EXPECT_THAT(bench.toolkit.boxes[0].detail, HasSubstr(c.detail));
    EXPECT_EQ(bench.plant.system.Snapshot(), before);
  }
}

TEST(GridEditing, TakenValuesReachRowsAndCode) {
  Plant bench;
  bench.Click("FORA0");
  forms::Grid& aliases = bench.Window().tdbA;
  ASSERT_TRUE(aliases.SetCurrentId(1));
  aliases.EditCell(kVBAliasColumn, "Height");
  EXPECT_EQ(aliases.Cell(0, kVBAliasColumn).ToText(), "Height");
  bench.studio->chosen_items = {"Tank2.Level"};
  aliases.on_button_click(kItemIdColumn);
  EXPECT_EQ(bench.Aliases().front(), "1|Tank2.Level|Height");
  EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("Public Height as Double 'Tank2.Level\r\n"));
  bench.studio->chosen_items = {"  "};
  aliases.on_button_click(kItemIdColumn);
  EXPECT_EQ(bench.Aliases().front(), "1|Tank2.Level|Height");

  bench.Click("FORF1");
  forms::Grid& arguments = bench.Window().tdbP;
  EXPECT_EQ(arguments.Cell(0, kAliasIdColumn).ToText(), "Height") << "the other grid follows";
  ASSERT_TRUE(arguments.SetCurrentId(1));
  const std::string code = bench.plant.Code("CPump");
  arguments.EditCell(kInColumn, false);
  arguments.EditCell(kOutColumn, true);
  EXPECT_EQ(bench.Arguments().front(), "1|1|1|False|True");
  EXPECT_EQ(bench.plant.Code("CPump"), code) << "flags are no part of the code";
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
}

// The cell that is edited shows what somebody else has changed since; other cells do not matter.
TEST(GridEditing, RowThatSomebodyElseChanged) {
  using platform::MessageResult;
  Plant bench;
  bench.Click("FORA0");
  forms::Grid& grid = bench.Window().tdbA;
  ASSERT_TRUE(grid.SetCurrentId(1));
  const auto elsewhere = [&](const char* field, const char* value) {
    EXPECT_NE(grid.Cell(0, kVBAliasColumn).ToText(), value) << "the row is read";
    bench.plant.ChangeElsewhere("TvbfAlias", 1, field, value);
  };
  elsewhere("ItemID", "Tank9.Level");
  grid.EditCell(kVBAliasColumn, "Height");
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
  EXPECT_EQ(bench.Aliases().front(), "1|Tank9.Level|Height");
  elsewhere("VBAlias", "Theirs");
  bench.toolkit.Answer(MessageResult::kYes);
  grid.EditCell(kVBAliasColumn, "Mine");
  EXPECT_EQ(bench.Aliases().front(), "1|Tank9.Level|Theirs");
  EXPECT_EQ(grid.Cell(0, kVBAliasColumn).ToText(), "Theirs");
  EXPECT_FALSE(grid.DataChanged());
  elsewhere("VBAlias", "Again");
  bench.toolkit.Answer(MessageResult::kNo);
  grid.EditCell(kVBAliasColumn, "Mine");
  EXPECT_EQ(bench.Aliases().front(), "1|Tank9.Level|Mine");
  EXPECT_EQ(bench.toolkit.boxes.size(), 2u);
  EXPECT_THAT(bench.toolkit.boxes.front().detail, HasSubstr("\"Theirs\""));
}

// What cannot be written because of a file: text 407, and the first row.
TEST(GridEditing, DataErrorReturnsToTheFirstRow) {
  Plant bench;
  bench.Click("FORA0");
  forms::Grid& grid = bench.Window().tdbA;
  ASSERT_TRUE(grid.SetCurrentId(2));
  bench.plant.system.SetReadOnly("/plant/CPump.cls", true);
  const auto before = bench.plant.system.Snapshot();
  grid.EditCell(kVBAliasColumn, "Turning");
  ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
  EXPECT_EQ(bench.toolkit.boxes[0].prompt, "Resource 407 not found");
  EXPECT_THAT(bench.toolkit.boxes[0].detail, HasSubstr("CPump.cls"));
  EXPECT_EQ(grid.CurrentId(), 1);
  EXPECT_EQ(bench.plant.system.Snapshot(), before);
}

TEST(GridEditing, PendingEditThatFailsOnLeavingIsShownByTheStudio) {
  Plant bench;
  bench.Click("FORA0");
  forms::Grid& grid = bench.Window().tdbA;
  ASSERT_TRUE(grid.SetCurrentId(1));
  grid.BeginEdit(kVBAliasColumn);
  grid.SetEditValue("Running");
  bench.Click("FORF1");
  EXPECT_THAT(bench.studio->errors,
              ElementsAre(testing::AllOf(HasSubstr("Doppelter Name"), HasSubstr("Pump.Running"))));
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
  EXPECT_EQ(bench.Aliases().front(), "1|Tank1.Level|Level");
  EXPECT_EQ(bench.Window().CurrentKey(), "FORF1");
}

TEST(GridEditing, ChoiceOfAliasFromTheCell) {
  Plant bench;
  bench.Click("FORF1");
  forms::Grid& grid = bench.Window().tdbP;
  ASSERT_TRUE(grid.SetCurrentId(2));
  bench.In<dialogs::FChooseAlias>([](dialogs::FChooseAlias& dialog) {
    EXPECT_EQ(dialog.lvwAlias.CurrentId(), 2);
    dialog.txtSearch.SetText("valve");
    dialog.cmdOk.Click();
  });
  grid.SetCurrentColumn(kAliasIdColumn);
  EXPECT_TRUE(bench.PressIn(grid, 'O', forms::kControl));
  EXPECT_EQ(bench.Arguments().back(), "2|1|3|False|True");
  grid.SetCurrentColumn(kInColumn);
  bench.PressIn(grid, 'O', forms::kControl);
  EXPECT_EQ(bench.toolkit.beeps, 1) << "nothing to choose there";
}

TEST(GridEditing, ShiftAndArrowsExtendTheSelection) {
  Plant bench;
  bench.Click("FORA0");
  forms::Grid& grid = bench.Window().tdbA;
  const auto press = [&](std::int16_t key) { return bench.PressIn(grid, key, forms::kShift); };
  ASSERT_TRUE(grid.SetCurrentId(2));
  EXPECT_TRUE(press(forms::kKeyDown));
  EXPECT_THAT(grid.SelectedIds(), ElementsAre(2, 3));
  press(forms::kKeyDown);
  EXPECT_THAT(grid.SelectedIds(), ElementsAre(2, 3)) << "the last row";
  press(forms::kKeyUp);
  EXPECT_THAT(grid.SelectedIds(), ElementsAre(2)) << "going back takes the row out again";
  press(forms::kKeyUp);
  EXPECT_THAT(grid.SelectedIds(), ElementsAre(1, 2));
  EXPECT_EQ(grid.CurrentId(), 1);
  EXPECT_FALSE(bench.PressIn(grid, forms::kKeyDown)) << "the grid's own key";
}

TEST(GridEditing, MenusDoubleClickAndFocus) {
  Plant bench;
  bench.Click("FORF1");
  forms::Grid& grid = bench.Window().tdbP;
  bool delete_shown = true;
  bench.toolkit.on_popup = [&](forms::Band&) { delete_shown = bench.Shown("mnuParameterDelete"); };
  grid.on_mouse_up({forms::kRightButton, 0, 0, 0});
  EXPECT_FALSE(delete_shown);
  grid.SetSelection({1});
  grid.on_mouse_up({forms::kRightButton, 0, 0, 0});
  EXPECT_TRUE(delete_shown) << "as things stand when the menu opens";
  grid.on_mouse_up({forms::kLeftButton, 0, 0, 0});
  EXPECT_THAT(bench.toolkit.popups, ElementsAre("mnuParameter", "mnuParameter"));
  bench.In<dialogs::FParameter>([](dialogs::FParameter& dialog) {
    EXPECT_EQ(dialog.cmbVBAlias.Text(), "Level");
    dialog.cmdCancel.Click();
  });
  ASSERT_TRUE(grid.SetCurrentId(1));
  grid.on_double_click();
  bench.studio->calls.clear();
  EXPECT_TRUE(bench.PressIn(grid, forms::kKeyF6, forms::kAlt));
  EXPECT_THAT(bench.studio->calls, ElementsAre("ActivateTree"));
}

TEST(GridEditing, FindKeepsTheRowsThatContainTheText) {
  Plant bench;
  bench.Click("FORA0");
  forms::Grid& grid = bench.Window().tdbA;
  EXPECT_TRUE(bench.PressIn(grid, 'F', forms::kControl));
  EXPECT_TRUE(bench.Window().txtFind.Visible());
  bench.Window().txtFind.SetText("VALVE");
  EXPECT_EQ(grid.RowCount(), 1u);
  EXPECT_EQ(grid.Cell(0, kVBAliasColumn).ToText(), "Valve");
  EXPECT_TRUE(bench.Window().lblFound.Visible());
  EXPECT_EQ(bench.Window().lblFound.Caption(), "1 of 3");
  bench.Window().txtFind.SetText("nothing");
  EXPECT_THAT(grid.EmptyText(), HasSubstr("nothing"));
  forms::KeyEvent escape{forms::kKeyEscape, 0};
  bench.Window().txtFind.on_key_down(escape);
  EXPECT_FALSE(bench.Window().txtFind.Visible());
  EXPECT_EQ(grid.RowCount(), 3u);
  EXPECT_THAT(grid.EmptyText(), HasSubstr("F8"));
}

}  // namespace
}  // namespace editor
