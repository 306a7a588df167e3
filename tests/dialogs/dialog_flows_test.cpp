// SPDX-License-Identifier: MIT
// Whole flows through the dialogs: what the user does, what he is told, and what stands in the
// database and in the class afterwards, in both languages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "messages/text_number.h"
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

TEST_P(DialogFlows, TitlesOfTheWorkbenchSayWhatIsDone) {
  bench.context->in_workbench = true;
  bench.In<FFunction>([&](FFunction& dialog) {
    EXPECT_EQ(dialog.Caption(), In("Neue Formel", "New formula"));
    dialog.ChooseClass("PumpServer.CPump");
    dialog.cmdOk.Click();
  });
  const AddedFormula formula = AddFormula(context);
  bench.In<FFunction>([&](FFunction& dialog) {
    EXPECT_EQ(dialog.Caption(), In("Formel Formel1", "Formula Formula1"));
    dialog.cmdCancel.Click();
  });
  EditFormula(context, formula.id);

  // An argument of an alias that is made on the way.
  bench.In<FParameter>([&](FParameter& dialog) {
    EXPECT_EQ(dialog.Caption(), In("Neues Argument", "New argument"));
    bench.In<FAlias>([&](FAlias& alias) {
      EXPECT_EQ(alias.Caption(), In("Neuer Alias", "New alias"));
      alias.txtItemname.SetText("Tank1.Level");
      alias.cmdOk.Click();
    });
    ASSERT_TRUE(dialog.cmdNewAlias.Visible());
    dialog.cmdNewAlias.Click();
    EXPECT_EQ(dialog.cmbVBAlias.Text(), "Tank1_Level");
    dialog.cmdOk.Click();
  });
  const std::int32_t argument = AddArgument(context, formula.id);
  EXPECT_THAT(bench.Arguments(), ElementsAre("1|1|1|False|False"));
  bench.In<FParameter>([&](FParameter& dialog) {
    EXPECT_EQ(dialog.Caption(), "Argument Tank1_Level");
    dialog.cmdCancel.Click();
  });
  EditArgument(context, argument);
  bench.In<FAlias>([&](FAlias& dialog) {
    EXPECT_EQ(dialog.Caption(), "Alias Tank1_Level");
    dialog.cmdCancel.Click();
  });
  EditAlias(context, 1);
}

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
    EXPECT_EQ(dialog.lblProgIDHint.Caption(), dialog.cmdOk.ToolTip()) << "says why OK is grey";
    EXPECT_TRUE(dialog.lblProgIDHint.Visible());
    dialog.ChooseClass("PumpServer.CPump");
    EXPECT_FALSE(dialog.lblProgIDHint.Visible());
    EXPECT_TRUE(dialog.cmdOk.Enabled());
    EXPECT_FALSE(dialog.txtScanTime.Enabled());
    dialog.cmbType.SetListIndex(7);
    EXPECT_TRUE(dialog.txtScanTime.Enabled());
    dialog.txtScanTime.SetText("250");
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

TEST_P(DialogFlows, TheOnlyClassIsChosenAlready) {
  support::PutProject(bench.plant.system, {{"COnly", "Option Explicit\r\n"}});
  { const platform::UnitOfWorkScope looked_again(bench.plant.unit); }
  bench.In<FFunction>([&](FFunction& dialog) {
    EXPECT_EQ(dialog.cmbProgID.Text(), "PumpServer.COnly");
    EXPECT_TRUE(dialog.cmdOk.Enabled());
    dialog.cmdCancel.Click();
  });
  EXPECT_FALSE(AddFormula(context).added);
}

// While a dialog is open somebody else changes its row.
TEST_P(DialogFlows, RowThatSomebodyElseChanged) {
  using platform::MessageResult;
  const std::int32_t alias = bench.HaveAlias("Tank1.Level", "Level");
  const std::int32_t formula = bench.HaveFormula("Fill", "PumpServer.CPump");
  const auto elsewhere = [&](const char* alias_name) {
    bench.plant.ChangeElsewhere("TvbfAlias", alias, "VBAlias", alias_name);
  };
  const std::string asked = "Theirs" + In(" wurde inzwischen auch von jemand anderem geändert.",
                                          " was changed by somebody else meanwhile, too.");
  // The same member: what is stored comes into the dialog, is looked at, and is left so.
  bench.In<FAlias>([&](FAlias& dialog) {
    elsewhere("Theirs");
    dialog.txtVBAlias.SetText("Mine");
    dialog.cmdOk.Click();
  });
  bench.toolkit.Answer(MessageResult::kCancel);
  bench.In<FAlias>([&](FAlias& dialog) {
    EXPECT_EQ(dialog.txtVBAlias.Text(), "Mine") << "nothing is decided";
    dialog.cmdOk.Click();
  });
  bench.toolkit.Answer(MessageResult::kYes);
  bench.In<FAlias>([&](FAlias& dialog) {
    EXPECT_EQ(dialog.txtVBAlias.Text(), "Theirs");
    dialog.cmdCancel.Click();
  });
  EXPECT_FALSE(EditAlias(context, alias));
  const std::string shown = bench.toolkit.boxes.front().detail;
  EXPECT_THAT(shown, HasSubstr("Theirs"));
  EXPECT_THAT(shown, HasSubstr("Mine"));
  EXPECT_THAT(bench.toolkit.TakePrompts(), ElementsAre(asked, asked));
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank1.Level|Theirs"));
  // The user's own is to stand.
  bench.In<FAlias>([&](FAlias& dialog) {
    elsewhere("Again");
    dialog.txtVBAlias.SetText("Mine");
    dialog.cmdOk.Click();
  });
  bench.toolkit.Answer(MessageResult::kNo);
  EXPECT_TRUE(EditAlias(context, alias));
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank1.Level|Mine"));
  bench.toolkit.TakePrompts();
  // Another member: both stand, without a question.
  bench.In<FFunction>([&](FFunction& dialog) {
    bench.plant.ChangeElsewhere("TvbfFormulas", formula, "Comment", "theirs");
    dialog.chkEnabled.SetChecked(false);
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, formula));
  EXPECT_THAT(bench.Formulas(), ElementsAre("1|Fill|PumpServer.CPump|0|0|False|theirs"));
  const std::int32_t argument = bench.HaveArgument(formula, alias, true, false);
  bench.In<FParameter>([&](FParameter& dialog) {
    bench.plant.ChangeElsewhere("TvbfParams", argument, "Out", true);
    dialog.chkIn.SetChecked(false);
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditArgument(context, argument));
  EXPECT_THAT(bench.Arguments(), ElementsAre("1|1|1|False|True"));
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
  const std::string taken =
      context.texts.Text(messages::TextNumber{1010},
                         {{"<Name>", "LEVEL"}, {"<Item>", "Tank1.Level"}, {"<Free>", "LEVEL1"}});
  const std::string lines = context.texts.Text(messages::TextNumber{1651});
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
      {"Pump.Running", "LEVEL", taken, "", true},
      {"Pump.Running", "Next", malformed, "Next", true},
      {"Pump.\nRunning", "Running", lines, "", false},
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
      EXPECT_TRUE(dialog.txtItemname.Invalid() || dialog.txtVBAlias.Invalid()) << "is marked";
      EXPECT_EQ(bench.toolkit.boxes[0].buttons, platform::MessageButtons::kOk);
      bench.toolkit.boxes.clear();
    }
    dialog.txtItemname.SetText("Pump.Running");
    dialog.txtVBAlias.SetText("_Running");
    EXPECT_TRUE(dialog.lblVBAliasHint.Visible()) << "can be stored, but Visual Basic refuses it";
    dialog.txtVBAlias.SetText("Running");
    EXPECT_FALSE(dialog.lblVBAliasHint.Visible());
    dialog.cmdOk.Click();
  });
  EXPECT_EQ(AddAlias(context), 2);
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank1.Level|Level", "2|Pump.Running|Running"));
}

// An alias is proposed from the item that is typed until the user writes one; an alias that is
// stored stays.
TEST_P(DialogFlows, TypedItemProposesAnAlias) {
  const std::int32_t level = bench.HaveAlias("Tank1.Level", "Tank1_Level");
  bench.In<FAlias>([&](FAlias& dialog) {
    dialog.txtItemname.SetText("Tank1.Lev");
    EXPECT_EQ(dialog.txtVBAlias.Text(), "Tank1_Lev");
    dialog.txtItemname.SetText("Tank1.Level");
    EXPECT_EQ(dialog.txtVBAlias.Text(), "Tank1_Level1") << "free";
    dialog.txtItemname.SetText(" ");
    EXPECT_EQ(dialog.txtVBAlias.Text(), "");
    dialog.txtItemname.SetText("Pump.Running");
    dialog.txtVBAlias.SetText("Running");
    dialog.txtItemname.SetText("Pump2.Running");
    EXPECT_EQ(dialog.txtVBAlias.Text(), "Running");
    dialog.cmdOk.Click();
  });
  EXPECT_NE(AddAlias(context), 0);
  bench.In<FAlias>([&](FAlias& dialog) {
    dialog.txtItemname.SetText("Tank2.Level");
    EXPECT_EQ(dialog.txtVBAlias.Text(), "Tank1_Level");
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditAlias(context, level));
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank2.Level|Tank1_Level", "2|Pump2.Running|Running"));
}

// The offer shows while the name is another one and has uses, with their number.
TEST_P(DialogFlows, ARenameOffersToChangeTheUses) {
  const std::int32_t formula = bench.HaveFormula("FillTank", "PumpServer.CPump");
  const std::int32_t level = bench.HaveAlias("Tank1.Level", "Level");
  bench.HaveArgument(formula, level, true, false);
  std::string code = bench.plant.system.Get(support::ClassPath("CPump"));
  const std::string head = "Public Sub FillTank()\r\n";
  code.insert(code.find(head) + head.size(), "  Level = Level + 1\r\n");
  bench.plant.system.Put(support::ClassPath("CPump"), code);
  bench.In<FAlias>([&](FAlias& dialog) {
    dialog.txtVBAlias.SetText("Height");
    EXPECT_FALSE(dialog.chkWithUses.Visible()) << "not in the studio";
    dialog.cmdCancel.Click();
  });
  EXPECT_FALSE(EditAlias(context, level));
  bench.context->offers_uses = true;
  bench.In<FAlias>([&](FAlias& dialog) {
    EXPECT_FALSE(dialog.chkWithUses.Visible());
    dialog.txtVBAlias.SetText("Height");
    EXPECT_TRUE(dialog.chkWithUses.Visible());
    EXPECT_TRUE(dialog.chkWithUses.Checked());
    EXPECT_THAT(dialog.chkWithUses.Caption(), testing::EndsWith(": 2"));
    dialog.txtVBAlias.SetText("Level");
    EXPECT_FALSE(dialog.chkWithUses.Visible());
    dialog.txtVBAlias.SetText("Height");
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditAlias(context, level));
  EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("  Height = Height + 1\r\n"));
}

// A formula's name is changed where it is called; an argument's alias in its own formula alone.
TEST_P(DialogFlows, FormulaAndArgumentOfferTheUsesThatConcernThem) {
  const std::int32_t fill = bench.HaveFormula("FillTank", "PumpServer.CPump");
  const std::int32_t drain = bench.HaveFormula("Drain", "PumpServer.CPump");
  const std::int32_t level = bench.HaveAlias("Tank1.Level", "Level");
  bench.HaveAlias("Pump.Running", "Running");
  const std::int32_t argument = bench.HaveArgument(fill, level, true, false);
  bench.HaveArgument(drain, level, true, false);
  std::string code = bench.plant.system.Get(support::ClassPath("CPump"));
  for (const auto& [head, body] :
       {std::pair<std::string, std::string>("Public Sub FillTank()\r\n", "  Level = Level + 1\r\n"),
        {"Public Sub Drain()\r\n", "  FillTank\r\n  Level = 0\r\n"}})
    code.insert(code.find(head) + head.size(), body);
  bench.plant.system.Put(support::ClassPath("CPump"), code);
  bench.context->offers_uses = true;

  bench.In<FFunction>([&](FFunction& dialog) {
    EXPECT_FALSE(dialog.chkWithUses.Visible());
    dialog.txtName.SetText("Refill");
    EXPECT_TRUE(dialog.chkWithUses.Visible() && dialog.chkWithUses.Checked());
    EXPECT_THAT(dialog.chkWithUses.Caption(), testing::EndsWith(": 1"));
    dialog.txtName.SetText("FillTank");
    EXPECT_FALSE(dialog.chkWithUses.Visible());
    dialog.txtName.SetText("Refill");
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, fill));
  EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("  Refill\r\n  Level = 0\r\n"));

  bench.In<FParameter>([&](FParameter& dialog) {
    EXPECT_FALSE(dialog.chkWithUses.Visible());
    dialog.cmbVBAlias.SetListIndex(1);
    EXPECT_TRUE(dialog.chkWithUses.Visible() && dialog.chkWithUses.Checked());
    EXPECT_THAT(dialog.chkWithUses.Caption(), testing::EndsWith(": 2")) << "not those of Drain";
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditArgument(context, argument));
  EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("  Running = Running + 1\r\n"));
  EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("  Refill\r\n  Level = 0\r\n"));

  // Who does not want it gets the name alone.
  bench.In<FFunction>([&](FFunction& dialog) {
    dialog.txtName.SetText("Again");
    dialog.chkWithUses.SetChecked(false);
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, fill));
  EXPECT_THAT(bench.plant.Code("CPump"), HasSubstr("  Refill\r\n  Level = 0\r\n"));
}

// What did not change is not judged: an alias that breaks the rules may get another item.
TEST_P(DialogFlows, StoredAliasIsNotJudged) {
  const std::int32_t alias = bench.HaveAlias("Tank1.Level", "Level");
  bench.plant.connection->BeginTrans();
  const auto row = support::MemoryDatabase::Open(*bench.plant.connection, "TvbfAlias");
  row->Fields("VBAlias").SetValue("1st level");
  row->Update();
  row->Close();
  bench.plant.connection->CommitTrans();
  context.aliases->Requery();
  bench.In<FAlias>([&](FAlias& dialog) {
    EXPECT_FALSE(dialog.lblVBAliasHint.Visible());
    dialog.txtItemname.SetText("Tank2.Level");
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditAlias(context, alias));
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank2.Level|1st level"));
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
}

// A scan time that is used and was changed must be one; the field says so before OK does.
TEST_P(DialogFlows, ScanTimeIsANumberOfMilliseconds) {
  const auto added = bench.operations->AddFormula(
      {.name = "FillTank", .prog_id = "PumpServer.CPump", .type = 7, .scan_time = 40});
  bench.In<FFunction>([&](FFunction& dialog) {
    for (const char* text : {"", "  ", "-1", "250ms", "2.5", "99999999999", "2147483648"}) {
      SCOPED_TRACE(text);
      dialog.txtScanTime.SetText(text);
      EXPECT_EQ(dialog.lblScanTimeHint.Visible(), *text != 0);
      dialog.cmdOk.Click();
      EXPECT_TRUE(dialog.Visible());
      EXPECT_TRUE(dialog.txtScanTime.Invalid());
    }
    EXPECT_THAT(bench.toolkit.TakePrompts(),
                testing::Each(context.texts.Text(messages::TextNumber{1650})));
    dialog.cmbType.SetListIndex(0);
    EXPECT_FALSE(dialog.txtScanTime.Invalid()) << "is not used";
    dialog.cmbType.SetListIndex(7);
    dialog.txtScanTime.SetText(" 2147483647 ");
    EXPECT_FALSE(dialog.txtScanTime.Invalid());
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, added.id()));
  bench.In<FFunction>([&](FFunction& dialog) {
    dialog.txtScanTime.SetText("soon");
    dialog.cmbType.SetListIndex(0);
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, added.id()));
  EXPECT_THAT(bench.Formulas(), ElementsAre("1|FillTank|PumpServer.CPump|0|2147483647|True|"));
}

// Another class brings up the question whether the code follows; the answer is kept.
TEST_P(DialogFlows, MovedFormulaTakesItsCodeAlongIfWanted) {
  const std::int32_t id = bench.HaveFormula("FillTank", "PumpServer.CPump");
  const std::string body = "    Beep\r\n";
  const std::string head = "Public Sub FillTank()\r\n";
  std::string code = bench.plant.Code("CPump");
  code.insert(code.find(head) + head.size(), body);
  bench.plant.system.Put(support::ClassPath("CPump"), support::ClassHeader("CPump", true) + code);
  context.choices->move_with_code = true;
  bench.In<FFunction>([&](FFunction& dialog) {
    EXPECT_FALSE(dialog.chkWithCode.Visible());
    dialog.cmbProgID.SetListIndex(1);
    EXPECT_TRUE(dialog.chkWithCode.Visible());
    EXPECT_TRUE(dialog.chkWithCode.Checked());
    EXPECT_THAT(dialog.lblWithCodeHint.Caption(), HasSubstr("PumpServer.CPump"));
    dialog.cmbProgID.SetListIndex(0);
    EXPECT_FALSE(dialog.chkWithCode.Visible());
    dialog.cmbProgID.SetListIndex(1);
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, id));
  EXPECT_THAT(bench.plant.Code("CTank"), HasSubstr(head + body));
  bench.In<FFunction>([&](FFunction& dialog) {
    dialog.cmbProgID.SetListIndex(0);
    dialog.chkWithCode.SetChecked(false);
    dialog.cmdOk.Click();
  });
  EXPECT_TRUE(EditFormula(context, id));
  EXPECT_THAT(bench.plant.Code("CPump"), testing::Not(HasSubstr(head + body)));
  EXPECT_FALSE(context.choices->move_with_code);
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

// A series is shown while it is typed, refused as a whole, and one operation.
TEST_P(DialogFlows, SeriesMakeAliasesAndArguments) {
  bench.HaveAlias("Other", "Tank_2");
  bench.In<FAlias>([&](FAlias& dialog) {
    dialog.txtItemname.SetText("Tank{1..3}");
    EXPECT_EQ(dialog.txtVBAlias.Text(), "") << "what was proposed before was no name for all";
    EXPECT_EQ(dialog.lblItemHint.Caption(),
              In("3 Aliase: Tank1 (Tank1), Tank2 (Tank2), Tank3 (Tank3)",
                 "3 aliases: Tank1 (Tank1), Tank2 (Tank2), Tank3 (Tank3)"));
    dialog.txtVBAlias.SetText("Tank_{1..3}");
    EXPECT_THAT(dialog.lblVBAliasHint.Caption(), HasSubstr("Tank_2"));
    dialog.cmdOk.Click();
    EXPECT_TRUE(dialog.Visible()) << "one of them is taken";
    dialog.txtVBAlias.SetText("Level{1..2}");
    EXPECT_TRUE(dialog.lblVBAliasHint.Visible()) << "of another length";
    dialog.txtVBAlias.SetText("Level{1..3}");
    EXPECT_FALSE(dialog.lblVBAliasHint.Visible());
    dialog.cmdOk.Click();
  });
  EXPECT_EQ(AddAlias(context), 2);
  EXPECT_THAT(bench.Aliases(),
              ElementsAre("1|Other|Tank_2", "2|Tank1|Level1", "3|Tank2|Level2", "4|Tank3|Level3"));
  EXPECT_EQ(bench.toolkit.TakePrompts().size(), 1u) << "why the first OK did nothing";

  const std::int32_t formula = bench.HaveFormula("FillTank", "PumpServer.CPump");
  bench.In<FParameter>([&](FParameter& dialog) {
    dialog.txtSeries.SetText("Level{1..4}");
    EXPECT_FALSE(dialog.cmdOk.Enabled());
    EXPECT_THAT(dialog.lblSeriesHint.Caption(), HasSubstr("Level4"));
    dialog.txtSeries.SetText("Level{1..3}");
    EXPECT_THAT(dialog.lblSeriesHint.Caption(), HasSubstr("Level1, Level2, Level3"));
    dialog.chkIn.SetChecked(true);
    dialog.cmdOk.Click();
  });
  EXPECT_EQ(AddArgument(context, formula), 1);
  EXPECT_THAT(bench.Arguments(),
              ElementsAre("1|1|2|True|False", "2|1|3|True|False", "3|1|4|True|False"));
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

// The database goes away before a dialog is filled, and while it is open.
TEST_P(DialogFlows, DialogsSayWhenTheDatabaseFails) {
  const std::int32_t formula = bench.HaveFormula("FillTank", "PumpServer.CPump");
  const std::int32_t argument =
      bench.HaveArgument(formula, bench.HaveAlias("Tank1.Level", "Level"), true, false);
  bench.In<FParameter>([&](FParameter& dialog) {
    dialog.chkOut.SetChecked(true);
    bench.plant.connection->Close();
    dialog.cmdOk.Click();
  });
  bench.In<FParameter>([](FParameter& dialog) { dialog.cmdCancel.Click(); });
  EXPECT_FALSE(EditArgument(context, argument));
  EXPECT_FALSE(AddFormula(context).added);
  EXPECT_FALSE(EditFormula(context, formula));
  EXPECT_EQ(AddArgument(context, formula), 0);
  EXPECT_FALSE(EditArgument(context, argument));
  EXPECT_THAT(
      bench.toolkit.TakePrompts(),
      ElementsAre(context.Text(messages::TextNumber{551}), context.Text(messages::TextNumber{340}),
                  context.Text(messages::TextNumber{340}), context.Text(messages::TextNumber{550}),
                  context.Text(messages::TextNumber{550})));
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
