// SPDX-License-Identifier: MIT
// The editor window's commands on a whole project: what the user does and is told, the tree, the
// rows and the code afterwards.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/falias.h"
#include "dialogs/ffunction.h"
#include "dialogs/fparameter.h"
#include "editor/grid_columns.h"
#include "tests/support/editor_bench.h"

namespace editor {
namespace {

using platform::MessageResult;
using support::EditorBench;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(Commands, MainJobByKeys) {
  EditorBench bench("FORF0");
  EXPECT_EQ(bench.Window().Caption(), "OrvanaStudio Formula Editor  Formula Definition: ");
  EXPECT_THAT(bench.Window().tdbP.EmptyText(), HasSubstr("F8"));
  bench.In<dialogs::FFunction>([](dialogs::FFunction& dialog) {
    dialog.ChooseClass("PumpServer.CPump");
    dialog.cmdOk.Click();
  });
  bench.Key("FORF0", forms::kKeyF8);
  ASSERT_NE(bench.studio->Find("FORF1"), nullptr);
  EXPECT_EQ(bench.studio->Find("FORF1")->text, "Formula1");
  EXPECT_EQ(bench.Window().CurrentKey(), "FORF1");
  EXPECT_EQ(bench.Window().Caption(), "OrvanaStudio Formula Editor  Formula Definition: Formula1");
  EXPECT_EQ(bench.Window().tdbP.RowCount(), 0u);

  bench.Click("FORA0");
  EXPECT_EQ(bench.Window().Caption(), "OrvanaStudio Formula Editor  Alias Identifier");
  for (const char* item : {"Tank1.Level", "Pump.Running"}) {
    bench.studio->chosen_items = {item};
    bench.In<dialogs::FAlias>([](dialogs::FAlias& dialog) {
      dialog.cmdChooseItemname.Click();
      dialog.cmdOk.Click();
    });
    EXPECT_TRUE(bench.PressIn(bench.Window().tdbA, forms::kKeyF8));
  }
  EXPECT_EQ(bench.Window().tdbA.RowCount(), 2u);
  EXPECT_EQ(bench.Window().tdbA.CurrentId(), 2) << "the new alias";

  bench.Click("FORF1");
  forms::Grid& grid = bench.Window().tdbP;
  bench.In<dialogs::FParameter>([](dialogs::FParameter& dialog) {
    dialog.cmbVBAlias.SetListIndex(dialog.cmbVBAlias.FindText("Tank1_Level"));
    dialog.chkIn.SetChecked(true);
    dialog.cmdOk.Click();
  });
  bench.PressIn(grid, forms::kKeyF8);
  EXPECT_EQ(grid.RowCount(), 1u);
  EXPECT_EQ(grid.Cell(0, kAliasIdColumn).ToText(), "Tank1_Level");
  EXPECT_TRUE(grid.Cell(0, kInColumn).ToBool());

  // Typed in the grid: another alias, and a return value.
  grid.EditCell(kAliasIdColumn, "Pump_Running");
  grid.EditCell(kOutColumn, true);
  EXPECT_THAT(bench.Arguments(), ElementsAre("1|1|2|True|True"));
  EXPECT_EQ(grid.Cell(0, kAliasIdColumn).ToText(), "Pump_Running");
  EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("'\tPump_Running\r\n"));
  EXPECT_THAT(bench.plant.Code("CPump"), Not(HasSubstr("Tank1_Level")));

  bench.In<dialogs::FFunction>([](dialogs::FFunction& dialog) {
    dialog.txtName.SetText("FillTank");
    dialog.cmdOk.Click();
  });
  bench.Choose("mnuFunctionEdit");
  EXPECT_EQ(bench.studio->Find("FORF1")->text, "FillTank");
  EXPECT_EQ(bench.Window().Caption(), "OrvanaStudio Formula Editor  Formula Definition: FillTank");
  EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("Public Sub FillTank()"));
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
}

TEST(Commands, DeletingAFormulaAsksAndShowsTheNext) {
  struct Case {
    std::int32_t lcid;
    const char* question;
    const char* detail;
  };
  const Case cases[] = {
      {support::kGermanLcid, "Soll die selektierte Formel wirklich gelöscht werden ?",
       "Formel B (PumpServer.CPump) mit 2 Argumenten löschen? Ihr Code bleibt auskommentiert in "
       "der Klasse."},
      {support::kEnglishLcid, "",
       "Delete formula B (PumpServer.CPump) with 2 arguments? Its code stays in the class, "
       "commented out."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.lcid);
    EditorBench bench("FORF0", c.lcid);
    for (const char* name : {"A", "B", "C"}) bench.HaveFormula(name, "PumpServer.CPump");
    bench.HaveArgument(2, bench.HaveAlias("Tank1.Level", "Level"), true, false);
    bench.HaveArgument(2, bench.HaveAlias("Pump.Running", "Running"), true, false);
    bench.Click("FORF2");
    bench.toolkit.Answer(MessageResult::kNo);
    bench.Choose("mnuFunctionDelete");
    EXPECT_EQ(bench.Formulas().size(), 3u);
    ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
    EXPECT_EQ(bench.toolkit.boxes[0].prompt, c.question);
    EXPECT_EQ(bench.toolkit.boxes[0].detail, c.detail);
    EXPECT_EQ(bench.toolkit.boxes[0].default_button, MessageResult::kNo);
    EXPECT_EQ(bench.toolkit.boxes[0].buttons, platform::MessageButtons::kYesNo);

    // The next sibling takes its place, then the previous one, then the folder.
    for (const char* next : {"FORF3", "FORF1", "FORF0"}) {
      bench.toolkit.Answer(MessageResult::kYes);
      bench.studio->calls.clear();
      bench.Choose("mnuFunctionDelete");
      EXPECT_EQ(bench.Window().CurrentKey(), next);
      EXPECT_EQ(bench.studio->selected.key, next);
    }
    EXPECT_THAT(bench.Formulas(), IsEmpty());
    EXPECT_THAT(bench.Arguments(), IsEmpty());
    EXPECT_EQ(bench.Aliases().size(), 2u);
    EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("'Public Sub B()"));
    EXPECT_THAT(bench.plant.Code("CPump"), Not(HasSubstr("\nPublic Sub")));
  }
}

TEST(Commands, AliasesInUseAreKept) {
  EditorBench bench("FORF0");
  const std::int32_t formula = bench.HaveFormula("Fill", "PumpServer.CPump");
  const std::int32_t used = bench.HaveAlias("Tank1.Level", "Level");
  const std::int32_t free = bench.HaveAlias("Pump.Running", "Running");
  const std::int32_t argument = bench.HaveArgument(formula, used, true, false);
  bench.Click("FORA0");
  forms::Grid& grid = bench.Window().tdbA;
  bench.PressIn(grid, forms::kKeyDelete, forms::kControl);
  EXPECT_EQ(bench.toolkit.beeps, 1) << "nothing is selected";
  grid.SetSelection({free, used});
  bench.toolkit.Answer(MessageResult::kYes);
  bench.PressIn(grid, forms::kKeyDelete, forms::kControl);
  ASSERT_EQ(bench.toolkit.boxes.size(), 2u);
  EXPECT_EQ(bench.toolkit.boxes[0].prompt, "You really want to delete the selected Alias?");
  EXPECT_EQ(bench.toolkit.boxes[1].prompt,
            "Der zu löschende Alias wird in einer Funktion benutzt. Er kann nicht gelöscht werden");
  EXPECT_THAT(bench.toolkit.boxes[1].detail, HasSubstr("PumpServer.CPump.Fill"));
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank1.Level|Level"));
  EXPECT_EQ(grid.RowCount(), 1u);

  // Without the question, and once the argument is gone, the other goes too.
  bench.Window().inits.WriteAValueToCInits("RequestOnDelete", false);
  bench.Click("FORF1");
  bench.Window().tdbP.SetSelection({argument});
  bench.PressIn(bench.Window().tdbP, forms::kKeyDelete, forms::kControl);
  bench.Click("FORA0");
  grid.SetSelection({used});
  bench.PressIn(grid, forms::kKeyDelete, forms::kControl);
  EXPECT_THAT(bench.Arguments(), IsEmpty());
  EXPECT_THAT(bench.Aliases(), IsEmpty());
  EXPECT_EQ(bench.toolkit.boxes.size(), 2u);
  EXPECT_THAT(bench.plant.Code("CPump"), Not(HasSubstr("Public Level")));
}

// Look and deletion show how far they are, and each can be stopped.
TEST(Commands, StoppedDeletionChangesNothing) {
  EditorBench bench("FORA0");
  std::vector<std::int64_t> all;
  for (const char* name : {"Level", "Run", "Speed"})
    all.push_back(bench.HaveAlias(std::string("Tank1.") + name, name));
  bench.Window().inits.WriteAValueToCInits("RequestOnDelete", false);
  const auto before = bench.plant.system.Snapshot();
  for (const std::size_t stop_at : {2u, 5u}) {
    bench.Click("FOR0");
    bench.Click("FORA0");
    bench.toolkit.progress.clear();
    bench.toolkit.on_progress = [&](std::size_t, std::size_t) {
      return bench.toolkit.progress.size() < stop_at;
    };
    bench.Window().tdbA.SetSelection(all);
    bench.PressIn(bench.Window().tdbA, forms::kKeyDelete, forms::kControl);
    EXPECT_EQ(bench.toolkit.progress.size(), stop_at);
    EXPECT_EQ(bench.plant.system.Snapshot(), before) << stop_at;
    EXPECT_EQ(bench.Window().tdbA.RowCount(), 3u) << stop_at;
  }
  EXPECT_THAT(bench.studio->warnings, ElementsAre(HasSubstr("Nothing was changed")));
  EXPECT_THAT(bench.toolkit.boxes, IsEmpty());
  bench.toolkit.on_progress = nullptr;
  bench.PressIn(bench.Window().tdbA, forms::kKeyDelete, forms::kControl);
  EXPECT_THAT(bench.Aliases(), IsEmpty());
}

// One message names the aliases in use, ten of them with their uses, and tells of the rest.
TEST(Commands, AliasesInUseAreToldAtOnce) {
  for (const auto& [count, last] : {std::pair{10, "A9 – in PumpServer.CPump.Fill"},
                                    std::pair{12, "… and 2 more; the report lists them."}}) {
    EditorBench bench("FORA0");
    bench.HaveFormula("Fill", "PumpServer.CPump");
    std::vector<std::int64_t> all;
    for (int i = 0; i < count; ++i) {
      const std::string name = "A" + std::to_string(i);
      all.push_back(bench.HaveAlias("Tank." + name, name));
      bench.HaveArgument(1, static_cast<std::int32_t>(all.back()), true, false);
    }
    all.push_back(bench.HaveAlias("Tank.Unused", "Unused"));
    bench.Window().inits.WriteAValueToCInits("RequestOnDelete", false);
    bench.Window().tdbA.SetSelection(all);
    bench.PressIn(bench.Window().tdbA, forms::kKeyDelete, forms::kControl);
    ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
    EXPECT_THAT(bench.toolkit.boxes[0].detail, HasSubstr(last));
    EXPECT_THAT(bench.toolkit.boxes[0].detail, testing::EndsWith("One alias deleted."));
    EXPECT_EQ(bench.Aliases().size(), static_cast<std::size_t>(count));
  }
}

TEST(Commands, NotFindingTheFormulaAbandonsTheCommand) {
  EditorBench bench;
  bench.Start();
  for (const char* key : {"FORF77", "FORF"}) {
    bench.Click(key);
    for (const char* tool : {"mnuFunctionEdit", "mnuFunctionDelete", "mnuFunctionShowCode"}) {
      EXPECT_TRUE(bench.Shown(tool)) << key;
      bench.Choose(tool);
    }
  }
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
}

TEST(Commands, StatisticsCountWhatIsThere) {
  EditorBench bench("FOR0", support::kGermanLcid);
  const auto panels = [&] {
    std::vector<std::string> texts;
    for (const forms::Panel& panel : bench.Window().sb.Panels()) texts.push_back(panel.text);
    return texts;
  };
  EXPECT_THAT(panels(), ElementsAre("Funktion:", "Formeldefinitionen:", "Argumente:", "VBAlias:"));
  bench.HaveArgument(bench.HaveFormula("Fill", "PumpServer.CPump"),
                     bench.HaveAlias("Tank1.Level", "Level"), true, false);
  bench.HaveAlias("Pump.Running", "Running");
  EXPECT_THAT(panels(), ElementsAre("Funktion:", "Formeldefinitionen:", "Argumente:", "VBAlias:"));
  bench.Choose("mnuOptionStatistik");
  EXPECT_THAT(panels(),
              ElementsAre("Funktion:", "Formeldefinitionen:1", "Argumente:1", "VBAlias:2"));
}

TEST(Commands, ReportAddIn) {
  EditorBench bench("FOR0");
  bench.Choose("mnuOptionReport");
  ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
  EXPECT_EQ(bench.toolkit.boxes[0].prompt, "429\r\nActiveX component can't create object");
  EXPECT_FALSE(bench.toolkit.boxes[0].detail.empty());
  bench.reports.report = std::make_shared<support::RecordingReport>();
  bench.Choose("mnuOptionReport");
  EXPECT_THAT(bench.reports.report->reports, ElementsAre("OVFormula"));
}

// A failing commit puts rows and code back, and the user reads what to do.
TEST(Commands, FileThatCannotBeWrittenLeavesEverythingAsItWas) {
  EditorBench bench("FORF0");
  bench.HaveFormula("Fill", "PumpServer.CPump");
  bench.Click("FORF1");
  bench.plant.system.SetReadOnly("/plant/CPump.cls", true);
  const auto before = bench.plant.system.Snapshot();
  bench.In<dialogs::FFunction>([](dialogs::FFunction& dialog) {
    dialog.txtName.SetText("Other");
    dialog.cmdOk.Click();
  });
  bench.In<dialogs::FFunction>([](dialogs::FFunction& dialog) {
    EXPECT_EQ(dialog.txtName.Text(), "Other") << "what was entered is not lost";
    dialog.cmdCancel.Click();
  });
  bench.Choose("mnuFunctionEdit");
  EXPECT_EQ(bench.plant.system.Snapshot(), before);
  ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
  EXPECT_EQ(bench.toolkit.boxes[0].prompt, "Data Storage of Formula Definition Dialog failed");
  EXPECT_THAT(bench.toolkit.boxes[0].detail, HasSubstr("CPump.cls"));
  EXPECT_EQ(bench.studio->Find("FORF1")->text, "Fill");
}

}  // namespace
}  // namespace editor
