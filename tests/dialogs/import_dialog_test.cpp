// SPDX-License-Identifier: MIT
// Lists that come in through the preview: what is shown, what the choices change, what is stored.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/fimport.h"
#include "dialogs/list_dialogs.h"
#include "tests/dialogs/dialog_bench.h"

namespace dialogs {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ImportDialog : public testing::Test {
 protected:
  DialogBench bench{texts::Language::kEnglish};
  std::vector<std::string> kept;  // lines that were left out

  ListChange Import(std::string text) {
    ListToImport list;
    list.name = "signals.csv";
    list.contents = exchange::ReadList(std::move(text));
    list.title = messages::Message::Verbatim("Signals");
    list.keep_refused = [this](const std::vector<exchange::ImportPlan::Line>& refused) {
      for (const auto& line : refused) kept.push_back(std::to_string(line.place.line) + line.name);
      return true;
    };
    return ImportList(*bench.context, list);
  }
  // A line of the preview, without its reason.
  static std::string Line(const FImport& dialog, std::size_t row) {
    std::string text;
    for (std::size_t column = 0; column < 4; ++column) {
      text += (column == 0 ? "" : "|") + dialog.lvwPlan.Cell(row, column).ToText();
    }
    return text;
  }
};

TEST_F(ImportDialog, RefusedLinesAreShownAndLeftOutOnRequest) {
  bench.HaveAlias("Pump.Running", "Running");
  bench.In<FImport>([](FImport& dialog) {
    EXPECT_EQ(dialog.Caption(), "Import: signals.csv");
    EXPECT_EQ(dialog.lblCounts.Caption(), "1 new, 0 changed, 1 unchanged, 1 refused");
    EXPECT_EQ(dialog.cmbShow.Text(), "refused (1)") << "what needs a look";
    ASSERT_EQ(dialog.lvwPlan.RowCount(), 1u);
    EXPECT_EQ(Line(dialog, 0), "refused|4|1Bad|Valve.Open");
    EXPECT_THAT(dialog.lblReason.Caption(), HasSubstr("1Bad"));
    EXPECT_FALSE(dialog.cmdOk.Enabled());
    EXPECT_EQ(dialog.lblState.Caption(), dialog.cmdOk.ToolTip()) << "says why Import is grey";
    EXPECT_THAT(dialog.lblIgnored.Caption(), HasSubstr("Colour"));
    EXPECT_FALSE(dialog.chkCreate.Visible()) << "no argument asks for an alias";
    dialog.cmbShow.SetListIndex(0);
    ASSERT_EQ(dialog.lvwPlan.RowCount(), 3u);
    EXPECT_EQ(Line(dialog, 0), "new|2|Level|Tank1.Level");
    EXPECT_EQ(Line(dialog, 1), "unchanged|3|Running|Pump.Running");
    dialog.cmdOk.Click();
    EXPECT_TRUE(dialog.Visible()) << "not while a line is refused";
    dialog.chkSkip.SetChecked(true);
    dialog.cmdOk.Click();
  });
  EXPECT_EQ(
      Import("Item;Alias;Colour\nTank1.Level;Level;\nPump.Running;Running;\nValve.Open;1Bad;red\n"),
      ListChange::kRows);
  EXPECT_THAT(kept, ElementsAre("41Bad"));
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Pump.Running|Running", "2|Tank1.Level|Level"));
  ASSERT_FALSE(bench.studio.warnings.empty());
  EXPECT_THAT(bench.studio.warnings.back(), HasSubstr("1 new"));
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
}

// Each choice plans anew, and what is shown is what is done.
TEST_F(ImportDialog, ChoicesPlanAnew) {
  bench.HaveAlias("Pump.Running", "Running");
  bench.HaveFormula("Fill", "PumpServer.CPump");
  bench.In<FImport>([](FImport& dialog) {
    EXPECT_EQ(dialog.lblCounts.Caption(), "0 new, 0 changed, 0 unchanged, 1 refused");
    EXPECT_TRUE(dialog.cmbClass.Visible());
    dialog.cmbClass.SetListIndex(dialog.cmbClass.FindText("PumpServer.CTank"));
    dialog.chkCreate.SetChecked(true);
    EXPECT_EQ(dialog.lblCounts.Caption(), "2 new, 0 changed, 0 unchanged, 0 refused");
    EXPECT_TRUE(dialog.cmdOk.Enabled());
    dialog.cmbClass.SetListIndex(dialog.cmbClass.FindText("PumpServer.CPump"));
    EXPECT_FALSE(dialog.cmdOk.Enabled()) << "Fill is there with other values";
    dialog.cmbExisting.SetListIndex(2);
    EXPECT_EQ(dialog.lblCounts.Caption(), "1 new, 1 changed, 0 unchanged, 0 refused");
    dialog.cmdOk.Click();
  });
  ASSERT_EQ(Import("Name;Type;Arguments\nFill;2;Running:in, Valve:out\n"), ListChange::kFormulas);
  EXPECT_THAT(bench.Formulas(), ElementsAre("1|Fill|PumpServer.CPump|2|0|True|"));
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Pump.Running|Running", "2|Valve|Valve"));
  EXPECT_THAT(bench.Arguments(), ElementsAre("1|1|1|True|False", "2|1|2|False|True"));
}

TEST_F(ImportDialog, StoppedOrLeftItChangesNothing) {
  std::string list = "Item;Alias\n";
  for (int i = 0; i < 3000; ++i) list += "I" + std::to_string(i) + ";A" + std::to_string(i) + "\n";
  // Stopped while it is planned: there is no preview.
  bench.toolkit.on_progress = [](std::size_t, std::size_t) { return false; };
  EXPECT_EQ(Import(list), ListChange::kNothing);
  // Stopped while it runs: the preview comes again.
  bench.toolkit.on_progress = [this](std::size_t, std::size_t) {
    return bench.toolkit.tasks.back() != "Importing the list";
  };
  bench.In<FImport>([](FImport& dialog) { dialog.cmdOk.Click(); });
  bench.In<FImport>([](FImport& dialog) {
    EXPECT_EQ(dialog.lblCounts.Caption(), "3000 new, 0 changed, 0 unchanged, 0 refused");
    dialog.cmdCancel.Click();
  });
  EXPECT_EQ(Import(list), ListChange::kNothing);
  EXPECT_THAT(bench.studio.warnings, ElementsAre(HasSubstr("ancel")));
  EXPECT_THAT(bench.Aliases(), IsEmpty());
}

}  // namespace
}  // namespace dialogs
