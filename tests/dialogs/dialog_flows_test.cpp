// SPDX-License-Identifier: MIT
// Whole flows through the dialogs: what the user does, what he is told, and what stands in the
// database and in the class afterwards, in both languages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/dialogs/dialog_bench.h"

namespace dialogs {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DialogFlows : public testing::TestWithParam<texts::Language> {
 protected:
  DialogBench bench{GetParam()};
  const DialogContext& context = *bench.context;

  bool German() const { return GetParam() == texts::Language::kGerman; }
  std::string In(const char* german, const char* english) const {
    return German() ? german : english;
  }
};

TEST_P(DialogFlows, MainJob) {
  const std::string proposed = In("Formel1", "Formula1");
  bench.In<FFunction>([&](FFunction& dialog) {
    EXPECT_EQ(dialog.Caption(), In("Formeldefinition", "Formula Definition"));
    EXPECT_EQ(dialog.lblScanTime.Caption(), In("Abtastzeit", "Scan Time"));
    EXPECT_EQ(dialog.cmdHelp.Caption(), In("&Hilfe", "&Help"));
    EXPECT_EQ(dialog.txtName.Text(), proposed);
    EXPECT_EQ(dialog.cmbType.ListIndex(), 0);
    EXPECT_EQ(dialog.cmbType.List(6), In("bei Variablenänderung", "on Variable Change"));
    EXPECT_TRUE(dialog.chkEnabled.Checked());
    EXPECT_EQ(dialog.cmbProgID.ListCount(), 2) << "the private class cannot hold formulas";
    EXPECT_EQ(dialog.cmbProgID.ListIndex(), -1);
    EXPECT_FALSE(dialog.cmdOk.Enabled());
    EXPECT_FALSE(dialog.cmdOk.ToolTip().empty()) << "says why OK is grey";
    dialog.ChooseClass("PumpServer.CPump");
    EXPECT_TRUE(dialog.cmdOk.Enabled());
    EXPECT_FALSE(dialog.txtScanTime.Enabled());
    dialog.cmbType.SetListIndex(7);
    EXPECT_TRUE(dialog.txtScanTime.Enabled());
    dialog.txtScanTime.SetText("250ms");
    EXPECT_EQ(dialog.txtScanTime.Text(), "250");
    dialog.cmdOk.Click();
  });
  const AddedFormula formula = AddFormula(context);
  EXPECT_TRUE(formula.added);
  EXPECT_EQ(formula.name, proposed);
  EXPECT_THAT(bench.Formulas(), ElementsAre("1|" + proposed + "|PumpServer.CPump|7|250|True|"));
  EXPECT_EQ(bench.plant.Code("CPump"), "Option Explicit\r\n" + bench.Procedure(proposed, {}));

  bench.studio.chosen_items = {"Tank1.Level"};
  bench.In<FAlias>([&](FAlias& dialog) {
    EXPECT_EQ(dialog.Caption(), "VBAlias");
    EXPECT_EQ(dialog.lblItemName.Caption(), In("Itemname", "Item Name"));
    dialog.cmdChooseItemname.Click();
    EXPECT_EQ(dialog.txtItemname.Text(), "Tank1.Level");
    EXPECT_EQ(dialog.txtVBAlias.Text(), "Tank1_Level");
    EXPECT_THAT(dialog.lblItemHint.Caption(), HasSubstr("Double"));
    dialog.cmdOk.Click();
  });
  EXPECT_EQ(AddAlias(context), 1);
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank1.Level|Tank1_Level"));

  bench.In<FParameter>([&](FParameter& dialog) {
    EXPECT_EQ(dialog.chkIn.Caption(), In("Übergabeparameter", "Input Value"));
    EXPECT_FALSE(dialog.cmdOk.Enabled());
    dialog.cmbVBAlias.SetListIndex(0);
    EXPECT_THAT(dialog.lblVBAliasHint.Caption(), HasSubstr("Tank1.Level"));
    dialog.chkIn.SetChecked(true);
    dialog.cmdOk.Click();
  });
  EXPECT_EQ(AddArgument(context, formula.id), 1);
  EXPECT_THAT(bench.Arguments(), ElementsAre("1|1|1|True|False"));
  EXPECT_EQ(bench.plant.Code("CPump"),
            "Option Explicit\r\nPublic Tank1_Level as Double 'Tank1.Level\r\n" +
                bench.Procedure(proposed, {"Tank1_Level"}));

  bench.In<FFunction>([&](FFunction& dialog) {
    dialog.txtName.SetText("FillTank");
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, formula.id));
  EXPECT_THAT(bench.Formulas(), ElementsAre("1|FillTank|PumpServer.CPump|7|250|True|"));
  EXPECT_EQ(bench.plant.Code("CPump"),
            "Option Explicit\r\nPublic Tank1_Level as Double 'Tank1.Level\r\n" +
                bench.Procedure("FillTank", {"Tank1_Level"}));
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
}

// Everything but OK leaves rows and code alone; the close box is Cancel.
TEST_P(DialogFlows, LeavingADialogChangesNothing) {
  const std::int32_t formula = bench.HaveFormula("FillTank", "PumpServer.CPump");
  const std::int32_t alias = bench.HaveAlias("Tank1.Level", "Level");
  const std::int32_t argument = bench.HaveArgument(formula, alias, true, false);
  const auto before = bench.plant.system.Snapshot();
  const std::vector<std::function<void(DialogForm&)>> exits = {
      [](DialogForm& dialog) {
        static_cast<forms::Button*>(dialog.FindControl("cmdCancel"))->Click();
      },
      [](DialogForm& dialog) { dialog.Close(forms::CloseReason::kUser); },
  };
  const std::vector<std::function<bool()>> starts = {
      [&] { return AddFormula(context).added; },
      [&] { return EditFormula(context, formula); },
      [&] { return AddAlias(context) != 0; },
      [&] { return EditAlias(context, alias); },
      [&] { return AddArgument(context, formula) != 0; },
      [&] { return EditArgument(context, argument); },
      [&] { return ChooseAlias(context, alias).has_value(); },
  };
  for (std::size_t start = 0; start < starts.size(); ++start) {
    for (const auto& exit : exits) {
      bench.In<DialogForm>([&](DialogForm& dialog) {
        if (auto* name = dynamic_cast<forms::TextBox*>(dialog.FindControl("txtName"))) {
          name->SetText("Other");
        }
        exit(dialog);
      });
      EXPECT_FALSE(starts[start]()) << start;
    }
  }
  EXPECT_EQ(bench.plant.system.Snapshot(), before);
}

// Opening and confirming a formula as it is changes neither row nor code.
TEST_P(DialogFlows, ConfirmingADisabledFormulaChangesNothing) {
  const auto added = bench.operations->AddFormula({.name = "FillTank",
                                                   .prog_id = "PumpServer.CPump",
                                                   .type = 7,
                                                   .scan_time = 40,
                                                   .enabled = false,
                                                   .comment = "Füllt"});
  const auto rows = bench.Formulas();
  const auto code = bench.plant.Code("CPump");
  bench.In<FFunction>([&](FFunction& dialog) {
    EXPECT_FALSE(dialog.chkEnabled.Checked());
    EXPECT_EQ(dialog.txtScanTime.Text(), "40");
    EXPECT_EQ(dialog.txtComment.Text(), "Füllt");
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, added.id()));
  EXPECT_EQ(bench.Formulas(), rows);
  EXPECT_EQ(bench.plant.Code("CPump"), code);
}

// A refused formula is shown again with what was entered.
TEST_P(DialogFlows, RefusedFormulaCanBeCorrected) {
  bench.HaveFormula("FillTank", "PumpServer.CPump");
  bench.In<FFunction>([&](FFunction& dialog) {
    dialog.txtName.SetText("FillTank");
    dialog.ChooseClass("PumpServer.CPump");
    dialog.txtComment.SetText("kept");
    dialog.cmdOk.Click();
  });
  bench.In<FFunction>([&](FFunction& dialog) {
    EXPECT_EQ(dialog.txtComment.Text(), "kept");
    EXPECT_TRUE(dialog.Cancelled());
    dialog.txtName.SetText("Next");
    EXPECT_TRUE(dialog.lblNameHint.Visible()) << "a reserved word";
    dialog.cmdOk.Click();
  });
  bench.In<FFunction>([&](FFunction& dialog) {
    dialog.txtName.SetText("DrainTank");
    EXPECT_FALSE(dialog.lblNameHint.Visible());
    dialog.cmdOk.Click();
  });
  EXPECT_EQ(AddFormula(context).name, "DrainTank");
  EXPECT_THAT(bench.toolkit.TakePrompts(), ElementsAre(HasSubstr("FillTank"), HasSubstr("Next")));
  EXPECT_THAT(bench.Formulas(), ElementsAre("1|FillTank|PumpServer.CPump|0|0|True|",
                                            "2|DrainTank|PumpServer.CPump|0|0|True|kept"));
}

TEST_P(DialogFlows, StoredClassThatIsGoneIsNamed) {
  const std::int32_t id = bench.HaveFormula("FillTank", "PumpServer.CPump");
  bench.plant.connection->BeginTrans();
  const auto row = support::MemoryDatabase::Open(*bench.plant.connection, "TvbfFormulas");
  row->Fields("ProgID").SetValue("Gone.CGone");
  row->Update();
  row->Close();
  bench.plant.connection->CommitTrans();
  bench.In<FFunction>([&](FFunction& dialog) {
    EXPECT_THAT(dialog.lblProgIDHint.Caption(), HasSubstr("Gone.CGone"));
    EXPECT_TRUE(dialog.lblProgIDHint.Visible());
    EXPECT_FALSE(dialog.cmdOk.Enabled());
    dialog.cmbProgID.SetListIndex(1);
    EXPECT_FALSE(dialog.lblProgIDHint.Visible());
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, id));
  EXPECT_THAT(bench.Formulas(), ElementsAre("1|FillTank|PumpServer.CTank|0|0|True|"));
}

// What the alias dialog says to what is entered; it stays open until it can be stored.
TEST_P(DialogFlows, AliasIsRefusedUntilItConforms) {
  bench.HaveAlias("Tank1.Level", "Level");
  const std::string empty = In("Itemname und Aliasbezeichnung dürfen nicht leer sein!",
                               "Item Name and Alias Identifier must not be empty!");
  const std::string malformed =
      In("Der Alias ist nicht entsprechend den Visual Basic Namenskonventionen gewählt!!!",
         "The Alias does not meet the Visual Basic naming conventions!!!");
  struct Case {
    const char* item;
    const char* alias;
    std::string prompt;
    const char* detail;  // contained in the detail line
    bool hint;           // beside the field while it is typed
  };
  const Case cases[] = {
      {"", "Level2", empty, "", false},
      {"   ", "Level2", empty, "", false},
      {"Pump.Running", " ", empty, "", false},
      {"Pump.Running", "1st", malformed, "A1st", true},
      {"Pump.Running", "Run ning", malformed, "Run_ning", true},
      {"Pump.Running", "LEVEL", malformed, "Tank1.Level", true},
      {"Pump.Running", "Level", malformed, "Level1", true},
      {"Pump.Running", "Next", malformed, "Next", true},
  };
  bench.In<FAlias>([&](FAlias& dialog) {
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(c.item) + " " + c.alias);
      dialog.txtItemname.SetText(c.item);
      dialog.txtVBAlias.SetText(c.alias);
      EXPECT_EQ(dialog.lblVBAliasHint.Visible(), c.hint);
      dialog.cmdOk.Click();
      EXPECT_TRUE(dialog.Visible());
      EXPECT_EQ(dialog.txtVBAlias.Text(), c.alias) << "the user's text stays";
      ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
      EXPECT_EQ(bench.toolkit.boxes[0].prompt, c.prompt);
      EXPECT_THAT(bench.toolkit.boxes[0].detail, HasSubstr(c.detail));
      EXPECT_EQ(bench.toolkit.boxes[0].buttons, platform::MessageButtons::kOk);
      bench.toolkit.boxes.clear();
    }
    dialog.txtVBAlias.SetText("_Running");
    EXPECT_TRUE(dialog.lblVBAliasHint.Visible()) << "can be stored, but Visual Basic refuses it";
    dialog.txtVBAlias.SetText("Running");
    EXPECT_FALSE(dialog.lblVBAliasHint.Visible());
    dialog.cmdOk.Click();
  });
  EXPECT_EQ(AddAlias(context), 2);
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank1.Level|Level", "2|Pump.Running|Running"));
}

TEST_P(DialogFlows, RenamedAliasReachesEveryClassThatUsesIt) {
  const std::int32_t level = bench.HaveAlias("Tank1.Level", "Level");
  bench.HaveArgument(bench.HaveFormula("FillTank", "PumpServer.CPump"), level, true, false);
  bench.HaveArgument(bench.HaveFormula("Drain", "PumpServer.CTank"), level, false, true);
  bench.In<FAlias>([&](FAlias& dialog) {
    EXPECT_EQ(dialog.txtItemname.Text(), "Tank1.Level");
    EXPECT_FALSE(dialog.lblVBAliasHint.Visible()) << "its own name";
    dialog.txtVBAlias.SetText("Height");
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditAlias(context, level));
  EXPECT_EQ(bench.plant.Code("CPump"),
            "Option Explicit\r\nPublic Height as Double 'Tank1.Level\r\n" +
                bench.Procedure("FillTank", {"Height"}));
  EXPECT_EQ(bench.plant.Code("CTank"),
            "Option Explicit\r\nPublic Height as Double 'Tank1.Level\r\n" +
                bench.Procedure("Drain", {"Height"}));
  EXPECT_FALSE(EditAlias(context, 0)) << "no current alias";
}

TEST_P(DialogFlows, VariableChangeForbidsBothFlags) {
  const std::int32_t alias = bench.HaveAlias("Tank1.Level", "Level");
  const std::int32_t on_change = bench.HaveFormula("OnChange", "PumpServer.CPump", 6);
  const std::int32_t cyclic = bench.HaveFormula("Cyclic", "PumpServer.CPump", 2);
  const std::int32_t argument = bench.HaveArgument(on_change, alias, false, true);
  bench.In<FParameter>([&](FParameter& dialog) {
    EXPECT_EQ(dialog.cmbVBAlias.Text(), "Level");
    EXPECT_TRUE(dialog.chkOut.Checked());
    dialog.chkIn.SetChecked(true);
    EXPECT_FALSE(dialog.chkIn.Checked()) << "the box just clicked is cleared";
    EXPECT_TRUE(dialog.chkOut.Checked());
    dialog.chkOut.SetChecked(false);
    dialog.chkIn.SetChecked(true);
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditArgument(context, argument));
  EXPECT_THAT(bench.toolkit.TakePrompts(),
              ElementsAre(In("Ein Parameter kann bei dem gewählten Funktionstyp (bei "
                             "Variablenänderung) \r\nnicht gleichzeitig Übergabe- und Rückgabewert "
                             "sein",
                             "The Parameter can't be at the same time In- and Output Value \r\nif "
                             "the Function type is 'on Variable Change'")));
  bench.In<FParameter>([&](FParameter& dialog) {
    dialog.cmbVBAlias.SetListIndex(0);
    dialog.chkIn.SetChecked(true);
    dialog.chkOut.SetChecked(true);
    dialog.cmdOk.Click();
  });
  EXPECT_NE(AddArgument(context, cyclic), 0);
  EXPECT_THAT(bench.Arguments(), ElementsAre("1|1|1|True|False", "2|2|1|True|True"));
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
}

TEST_P(DialogFlows, ChoiceOfAliasSearchesNamesAndItems) {
  const std::int32_t level = bench.HaveAlias("Tank1.Level", "Level");
  bench.HaveAlias("Pump.Running", "Running");
  const std::int32_t valve = bench.HaveAlias("Valve.Open", "Abc");
  bench.In<FChooseAlias>([&](FChooseAlias& dialog) {
    EXPECT_EQ(dialog.lvwAlias.CurrentId(), level);
    EXPECT_EQ(dialog.lvwAlias.Cell(0, 0).ToText(), "Abc") << "in the order of names";
    dialog.txtSearch.SetText("valve");
    EXPECT_EQ(dialog.lvwAlias.RowCount(), 1u);
    EXPECT_EQ(dialog.lvwAlias.CurrentId(), valve);
    dialog.txtSearch.SetText("nothing");
    EXPECT_FALSE(dialog.cmdOk.Enabled());
    EXPECT_THAT(dialog.lvwAlias.EmptyText(), HasSubstr("nothing"));
    dialog.txtSearch.SetText("");
    dialog.lvwAlias.SetCurrentId(valve);
    forms::KeyEvent down{forms::kKeyDown, 0};
    dialog.txtSearch.on_key_down(down);
    EXPECT_EQ(dialog.lvwAlias.CurrentId(), level);
    dialog.cmdOk.Click();
  });
  EXPECT_EQ(ChooseAlias(context, level), level);
}

INSTANTIATE_TEST_SUITE_P(BothLanguages, DialogFlows,
                         testing::Values(texts::Language::kGerman, texts::Language::kEnglish),
                         [](const auto& tested) {
                           return tested.param == texts::Language::kGerman ? "German" : "English";
                         });

}  // namespace
}  // namespace dialogs
