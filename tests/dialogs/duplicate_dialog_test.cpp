// SPDX-License-Identifier: MIT
// Copies of a formula: what is shown while it is typed is what is made.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/fduplicate.h"
#include "dialogs/list_dialogs.h"
#include "tests/dialogs/dialog_bench.h"

namespace dialogs {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DuplicateDialog : public testing::Test {
 protected:
  DuplicateDialog() {
    bench.HaveFormula("FillTank1", "PumpServer.CPump");
    bench.HaveArgument(1, bench.HaveAlias("Tank1.Level", "Level1"), true, false);
    source.formula = *bench.operations->FindFormula(1);
    source.arguments = bench.operations->ArgumentsOf(1);
    source.code = "Public Sub FillTank1()\r\n  Level1 = 1\r\nEnd Sub\r\n";
  }

  DialogBench bench{texts::Language::kEnglish};
  exchange::CopySource source;
};

TEST_F(DuplicateDialog, ShowsCopiesAndTheirCodeWhileItIsTyped) {
  bench.In<FDuplicate>([](FDuplicate& dialog) {
    EXPECT_EQ(dialog.cmbClass.Text(), "PumpServer.CPump");
    EXPECT_THAT(dialog.txtPreview.Text(), HasSubstr("FillTank2")) << "the next free number";
    dialog.txtPairs.SetText("Level1=Level{2..3}");
    EXPECT_THAT(dialog.txtPreview.Text(), HasSubstr("FillTank3")) << "of the second copy";
    dialog.txtPairs.SetText("Tank1");
    EXPECT_THAT(dialog.lblState.Caption(), HasSubstr("OLD=NEW"));
    EXPECT_FALSE(dialog.cmdOk.Enabled());
    EXPECT_EQ(dialog.txtPreview.Text(), "");
    dialog.txtName.SetText("1x");
    dialog.txtPairs.SetText("");
    EXPECT_THAT(dialog.lblState.Caption(), HasSubstr("1x"));
    dialog.txtName.SetText("");
    dialog.txtPairs.SetText("Tank1=Tank{2..3}\r\nLevel1=Level{2..3}\r\n");
    EXPECT_THAT(dialog.txtPreview.Text(), HasSubstr("new  PumpServer.CPump.FillTank3"));
    EXPECT_THAT(dialog.txtPreview.Text(), HasSubstr("Public Sub FillTank2()\n  Level2 = 1\n"));
    EXPECT_TRUE(dialog.cmdOk.Enabled());
    dialog.cmdOk.Click();
  });
  ASSERT_EQ(DuplicateFormula(*bench.context, source), ListChange::kFormulas);
  EXPECT_THAT(bench.Aliases(),
              ElementsAre("1|Tank1.Level|Level1", "2|Tank2.Level|Level2", "3|Tank3.Level|Level3"));
  EXPECT_THAT(bench.Arguments(),
              ElementsAre("1|1|1|True|False", "2|2|2|True|False", "3|3|3|True|False"));
  EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("Public Sub FillTank3()\r\n  Level3 = 1\r\n"));
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
}

}  // namespace
}  // namespace dialogs
