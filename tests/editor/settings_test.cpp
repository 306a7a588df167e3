// SPDX-License-Identifier: MIT
// What the editor window keeps from one start to the next.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "editor/fconfig_editor.h"
#include "tests/support/editor_bench.h"

namespace editor {
namespace {

using support::EditorBench;
using testing::ElementsAre;

struct Opened : EditorBench {
  Opened() : EditorBench("FORF0") {}
  void Reopen() {
    Restart();
    Click("FORF0");
  }
};

TEST(EditorSettings, LayoutSurvivesThreeRestarts) {
  Opened bench;
  EXPECT_EQ(bench.Window().tdbP.ColumnAt(0).Width(), 3000.189);
  EXPECT_EQ(bench.Window().GetWindowState(), forms::WindowState::kMaximized);
  for (int restart = 0; restart < 3; ++restart) {
    EXPECT_THAT(bench.Window().tdbP.DisplayOrder(), ElementsAre(0, 1, 2)) << restart;
    EXPECT_THAT(bench.Window().tdbA.DisplayOrder(), ElementsAre(0, 1)) << restart;
    bench.Reopen();
  }
  EXPECT_EQ(bench.Setting("tdbPColOrders"), ",0,1,2");
  bench.Window().tdbP.SetDisplayOrder({0, 2, 1});
  bench.Window().tdbP.ColumnAt(1).SetWidth(1234.5);
  bench.Window().tdbA.ColumnAt(0).SetWidth(2222);
  bench.Window().SetWindowState(forms::WindowState::kNormal);
  for (int restart = 0; restart < 3; ++restart) {
    bench.Reopen();
    EXPECT_THAT(bench.Window().tdbP.DisplayOrder(), ElementsAre(0, 2, 1)) << restart;
    EXPECT_EQ(bench.Window().tdbP.ColumnAt(1).Width(), 1234.5);
    EXPECT_EQ(bench.Window().tdbA.SplitAt(0).Width(), 2222) << "the split is as wide as its column";
    EXPECT_EQ(bench.Window().GetWindowState(), forms::WindowState::kNormal);
  }
}

TEST(EditorSettings, StaleFileDoesNotStopTheWindow) {
  EditorBench bench;
  const auto set = [&](const char* key, const char* value) {
    bench.settings.SetIni("/plant/OVEditors.ini", "Formula.frmtabGrid", key, value);
  };
  set("Me.WindowState", "17");
  set("tdbP.Splits(0).Columns(\"AliasID\").Width", "-5");
  set("tdbA.Splits(1).Columns(\"VBAlias\").Visible", "yes");
  set("tdbPColOrders", ",x,,9");
  set("sb.Visible", "False");
  bench.Start();
  bench.Click("FORF0");
  EXPECT_TRUE(bench.add_in->Initialised());
  EXPECT_FALSE(bench.Window().sb.Visible());
  EXPECT_EQ(bench.Window().tdbP.ColumnAt(0).Width(), 3000);
}

TEST(EditorSettings, PositionIsRelativeToTheStudio) {
  Opened bench;
  bench.Window().SetWindowState(forms::WindowState::kNormal);
  bench.window_system.windows[100].place = {100, 50, 1100, 850};
  bench.window_system.windows[bench.toolkit.Handle(bench.Window())].place = {120, 90, 520, 390};
  EXPECT_EQ(bench.Window().PosLeft(), 20);
  EXPECT_EQ(bench.Window().PosTop(), 40);
  bench.Window().SetPosLeft(-7);
  const auto& place = bench.window_system.windows[bench.toolkit.Handle(bench.Window())].place;
  EXPECT_EQ(place.left, 93);
  EXPECT_EQ(place.right, 493);
  EXPECT_EQ(place.top, 90);
  EXPECT_EQ(place.bottom, 390);
  bench.Reopen();
  EXPECT_EQ(bench.Window().PosLeft(), -7);
  EXPECT_EQ(bench.Window().PosTop(), 40);
}

TEST(EditorSettings, CloseBoxHidesAndSaves) {
  for (const char* type : {"Window", "MDIEdit", "Other"}) {
    SCOPED_TRACE(type);
    Opened bench;
    bench.host_window.type_name = type;
    bench.toolkit.ShowModeless(bench.Window());
    bench.Window().tdbP.ColumnAt(1).SetWidth(777);
    EXPECT_FALSE(bench.Window().Close(forms::CloseReason::kUser));
    EXPECT_TRUE(bench.Window().Loaded());
    EXPECT_FALSE(bench.Window().Visible());
    const std::vector<std::string> expected =
        std::string(type) == "Window"    ? std::vector<std::string>{"Visible"}
        : std::string(type) == "MDIEdit" ? std::vector<std::string>{"Show"}
                                         : std::vector<std::string>{};
    EXPECT_EQ(bench.host_window.calls, expected);
    EXPECT_EQ(bench.Setting("tdbP.Splits(1).Columns(\"In\").Width"), "777");
    // What is changed afterwards is saved when the window really goes.
    bench.Window().tdbP.ColumnAt(1).SetWidth(888);
    bench.add_in->Terminate();
    EXPECT_EQ(bench.Setting("tdbP.Splits(1).Columns(\"In\").Width"), "888");
  }
}

// A host window that fails keeps nothing from being saved.
TEST(EditorSettings, FailingHostWindowDoesNotMatter) {
  Opened bench;
  bench.host_window.fails = true;
  bench.toolkit.ShowModeless(bench.Window());
  bench.Window().tdbP.ColumnAt(1).SetWidth(777);
  EXPECT_FALSE(bench.Window().Close(forms::CloseReason::kUser));
  EXPECT_FALSE(bench.Window().Visible());
  EXPECT_EQ(bench.Setting("tdbP.Splits(1).Columns(\"In\").Width"), "777");
}

TEST(EditorSettings, UnwritableFileIsSaid) {
  Opened bench;
  bench.settings.writable = false;
  bench.add_in->Terminate();
  ASSERT_EQ(bench.studio->warnings.size(), 1u);
  EXPECT_THAT(bench.studio->warnings[0], testing::HasSubstr("/plant/OVEditors.ini"));
}

TEST(Options, OkKeepsTheSwitchesAtOnce) {
  Opened bench;
  forms::Font font;
  font.name = "Courier";
  font.size = 10;
  font.weight = 700;
  bench.toolkit.fonts = {std::nullopt, font};
  bench.In<FConfigEditor>([](FConfigEditor& dialog) {
    EXPECT_EQ(dialog.Caption(), "Options");
    EXPECT_EQ(dialog.chkDelQuestion.Caption(), "Ask before &Deleting");
    EXPECT_EQ(dialog.txtEditorFont.Text(), "Arial");
    EXPECT_TRUE(dialog.chkDelQuestion.Checked());
    EXPECT_TRUE(dialog.chkShowStatusBar.Checked());
    EXPECT_TRUE(dialog.chkSaveOnExit.Checked());
    dialog.cmdEditorFont.Click();
    EXPECT_EQ(dialog.txtEditorFont.Text(), "Arial") << "the choice was cancelled";
    dialog.cmdEditorFont.Click();
    EXPECT_EQ(dialog.txtEditorFont.Text(), "Courier");
    dialog.chkDelQuestion.SetChecked(false);
    dialog.chkShowStatusBar.SetChecked(false);
    dialog.chkSaveOnExit.SetChecked(false);
    dialog.cmdOk.Click();
  });
  bench.Window().tdbP.ColumnAt(1).SetWidth(777);
  bench.Choose("mnuOptionOption");
  EXPECT_EQ(bench.Setting("SaveOnExit"), "False");
  EXPECT_EQ(bench.Setting("sb.Visible"), "False");
  EXPECT_EQ(bench.Setting("tdbA.Font.Name"), "Courier");
  EXPECT_EQ(bench.Setting("tdbP.Splits(1).Columns(\"In\").Width"), "(missing)")
      << "the layout is kept on closing";
  bench.toolkit.RunLater();  // the views are rebuilt
  EXPECT_EQ(bench.Window().tdbP.GetFont(), font);
  EXPECT_EQ(bench.Window().GetFont(), font);
  EXPECT_FALSE(bench.Window().sb.Visible());
  EXPECT_FALSE(bench.Window().SettingIsOn("RequestOnDelete"));

  // A switched-off "save on exit" sticks, and nothing else is written.
  bench.Window().tdbP.ColumnAt(1).SetWidth(555);
  bench.Reopen();
  EXPECT_EQ(bench.Window().tdbP.ColumnAt(1).Width(), 1995.024);
  EXPECT_FALSE(bench.Window().SettingIsOn("SaveOnExit"));
}

TEST(Options, CancelAndFailure) {
  Opened bench;
  bench.In<FConfigEditor>([](FConfigEditor& dialog) {
    dialog.chkSaveOnExit.SetChecked(false);
    dialog.cmdCancel.Click();
  });
  bench.Choose("mnuOptionOption");
  EXPECT_TRUE(bench.Window().SettingIsOn("SaveOnExit"));
  EXPECT_EQ(bench.settings.ini_replacements, 0);

  bench.settings.writable = false;
  bench.In<FConfigEditor>([](FConfigEditor& dialog) { dialog.cmdOk.Click(); });
  bench.Choose("mnuOptionOption");
  EXPECT_THAT(bench.toolkit.TakePrompts(),
              ElementsAre("Zurückschreiben von Konfigurationsdialog fehlgegangen"));

  // Anything but true leaves a box unchecked.
  bench.Window().inits.WriteAValueToCInits("SaveOnExit", "tRUE");
  bench.Window().inits.DeleteAValueInCInits("RequestOnDelete");
  bench.In<FConfigEditor>([](FConfigEditor& dialog) {
    EXPECT_FALSE(dialog.chkSaveOnExit.Checked());
    EXPECT_FALSE(dialog.chkDelQuestion.Checked());
    dialog.cmdCancel.Click();
  });
  bench.Choose("mnuOptionOption");
}

TEST(Options, TellWhichStepFailed) {
  Opened bench;
  EXPECT_FALSE(OpenOptions(bench.Window(), {.load = [](const frmtabgrid&, FConfigEditor&) {
                             throw std::runtime_error("no font");
                           }}));
  EXPECT_THAT(bench.toolkit.TakePrompts(),
              ElementsAre("Initialisierung Konfigurationsdialog fehlgegangen"));
  bench.In<FConfigEditor>([](FConfigEditor& dialog) { dialog.cmdOk.Click(); });
  EXPECT_FALSE(OpenOptions(bench.Window(), {.store = [](frmtabgrid&, const FConfigEditor&) -> bool {
                             throw std::runtime_error("no store");
                           }}));
  EXPECT_THAT(bench.toolkit.TakePrompts(),
              ElementsAre("Zurückschreiben von Konfigurationsdialog fehlgegangen"));
}

}  // namespace
}  // namespace editor
