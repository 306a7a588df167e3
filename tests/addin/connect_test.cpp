// SPDX-License-Identifier: MIT
// The add-in's life under a studio's events.
#include "addin/connect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/ffunction.h"
#include "forms/keys.h"
#include "tests/support/editor_bench.h"

namespace addin {
namespace {

using support::EditorBench;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(Connect, StartResolvesTheDatabase) {
  struct Case {
    const char* name;
    const char* path;
    bool root;
  };
  const Case cases[] = {
      {"", "", false},
      {"/plant/Plant.ovs", "/plant/Plant.ovs", true},
      {"/plant/PLANT.OVS  ", "/plant/PLANT.OVS", true},
      {"Plant", "D:\\Projects\\Plant\\Plant.ovs", true},
      {"Unknown", "\\Unknown.ovs", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EditorBench bench;
    bench.settings.SetRegistry("SOFTWARE\\Meridax GmbH\\Orvana\\4.0\\Projects\\Plant", "Path",
                               "D:\\Projects\\Plant");
    bench.settings.SetRegistry("SOFTWARE\\Meridax GmbH", "Common", "C:\\Common");
    bench.Start(c.name);
    EXPECT_EQ(Connect::DatabasePathOf(bench.settings, c.name), c.path);
    EXPECT_EQ(bench.add_in->StudioProjectName(), c.name);
    EXPECT_EQ(bench.studio->Find("FOR0") != nullptr, c.root);
    EXPECT_EQ(bench.add_in->HostWindow(), c.root ? 100 : 0);
    EXPECT_EQ(bench.help.help_file,
              c.root ? "C:\\Common\\helpfiles\\Formelsystem.chm" : std::string());
    EXPECT_TRUE(bench.toolkit.loaded.empty()) << "nothing is opened yet";
    EXPECT_FALSE(store::ADOFRO::Exists());
  }
}

TEST(Connect, EventsFromInsideTheOpeningNeitherOpenTwiceNorEndItHalfway) {
  EditorBench bench;
  bench.Start();
  bench.studio->TakeCalls();
  bench.studio->on_add = [&] { bench.add_in->NodeClick("Plant", "FOR0", "Formulas"); };
  bench.add_in->NodeClick("Plant", "FOR0", "Formulas");
  EXPECT_TRUE(bench.add_in->Initialised());
  EXPECT_EQ(bench.toolkit.loaded.size(), 1u);
  bench.studio->on_add = nullptr;
  bench.add_in->Terminate();

  bench.Start();
  bench.studio->on_add = [&] { bench.add_in->Terminate(); };
  bench.add_in->NodeClick("Plant", "FOR0", "Formulas");
  EXPECT_FALSE(bench.add_in->Initialised());
  EXPECT_EQ(bench.add_in->EditorWindow(), nullptr);
  EXPECT_EQ(bench.studio->Find("FOR0"), nullptr);
  EXPECT_FALSE(store::ADOFRO::Exists());
}

TEST(Connect, FirstEventOpensAndTheSecondAddsNothing) {
  EditorBench bench(support::kGermanLcid);
  bench.Start();
  EXPECT_THAT(bench.studio->TakeCalls(),
              ElementsAre("RegisterPicture icoForEditor", "RegisterPicture icoForFunction",
                          "RegisterPicture icoForAlias", "AddNode  FOR0 Formeln"));
  const auto* root = bench.studio->Find("FOR0");
  EXPECT_EQ(root->info, "0");
  EXPECT_EQ(root->icon, "icoForEditor");
  EXPECT_EQ(root->flags, (platform::NodeFlags{-1, -1, -1, 0}));

  bench.add_in->NodeExpand("Plant", "FOR0", "Formeln");
  EXPECT_THAT(
      bench.studio->TakeCalls(),
      ElementsAre("AddNode FOR0 FORA0 Aliasbezeichner", "AddNode FOR0 FORF0 Formeldefinitionen",
                  "RegisterEditor OVFormulaEditor", "HandOverEditor 1"));
  EXPECT_TRUE(bench.add_in->Initialised());
  const auto& native = bench.window_system.windows[bench.toolkit.Handle(bench.Window())];
  EXPECT_EQ(native.style & 0x80880000u, 0x80880000u);
  EXPECT_EQ(native.parent, 100);
  EXPECT_TRUE(native.hook);
  EXPECT_THAT(bench.window_system.registered_messages, ElementsAre("OV_EDITORS"));

  const editor::frmtabgrid* before = &bench.Window();
  bench.Click("FORA0");
  bench.Click("FOR0");
  EXPECT_EQ(&bench.Window(), before);
  EXPECT_THAT(bench.studio->TakeCalls(), IsEmpty());
  EXPECT_EQ(bench.toolkit.pointers.back(), platform::Pointer::kDefault);
}

TEST(Connect, OnlyTheCompiledModuleIsHooked) {
  EditorBench bench;
  bench.window_system.module_file_name = "C:\\Studio\\Development.exe";
  bench.Start();
  bench.Click("FOR0");
  const auto& native = bench.window_system.windows[bench.toolkit.Handle(bench.Window())];
  EXPECT_FALSE(native.hook);
  EXPECT_EQ(native.parent, 100);
}

// The window system refuses the window: the editor works on, and goes as always.
TEST(Connect, FailingWindowSystemStopsNothing) {
  EditorBench bench;
  bench.window_system.fails = true;
  bench.Start();
  bench.Click("FOR0");
  EXPECT_TRUE(bench.add_in->Initialised());
  bench.add_in->Terminate();
  EXPECT_EQ(bench.add_in->EditorWindow(), nullptr);
  EXPECT_EQ(bench.studio->Find("FOR0"), nullptr);
  EXPECT_THAT(bench.toolkit.boxes, IsEmpty());
}

TEST(Connect, BranchesLookAsTheStudioWantsThem) {
  EditorBench bench("FOR0");
  for (const auto& [key, icon] :
       {std::pair("FORA0", "icoForAlias"), std::pair("FORF0", "icoForFunction")}) {
    const auto* node = bench.studio->Find(key);
    ASSERT_NE(node, nullptr) << key;
    EXPECT_EQ(node->parent, "FOR0");
    EXPECT_EQ(node->icon, icon);
    EXPECT_EQ(node->info, "");
    EXPECT_EQ(node->flags, (platform::NodeFlags{-1, 0, 0, 0}));
  }
}

// Help is there before there is an editor window; the studio's window owns it then.
TEST(Connect, HelpNeedsNoEditor) {
  EditorBench bench;
  bench.Start();
  bench.Key("FOR0", forms::kKeyF1);
  ASSERT_EQ(bench.help.topics.size(), 1u);
  EXPECT_EQ(bench.help.topics[0], (support::RecordingHelp::Topic{100, 90002}));
  EXPECT_EQ(bench.add_in->EditorWindow(), nullptr);
}

TEST(Connect, HourglassStandsWhileTheDatabaseWorks) {
  EditorBench bench("FORF0");
  for (const char* tool : {"mnuOptionStatistik", "mnuOptionReport"}) {
    bench.toolkit.pointers.clear();
    bench.reports.report = std::make_shared<support::RecordingReport>();
    bench.Choose(tool);
    EXPECT_THAT(bench.toolkit.pointers,
                ElementsAre(platform::Pointer::kHourglass, platform::Pointer::kDefault))
        << tool;
  }
}

TEST(Connect, FormulasBecomeNodes) {
  EditorBench bench("FOR0");
  bench.HaveFormula("FillTank", "PumpServer.CPump");
  bench.HaveFormula("Drain", "PumpServer.CTank");
  bench.Restart();
  bench.Click("FORF0");
  const auto* node = bench.studio->Find("FORF2");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->text, "Drain");
  EXPECT_EQ(node->parent, "FORF0");
  EXPECT_EQ(node->icon, "icoForFunction");
  EXPECT_EQ(node->flags, platform::NodeFlags{});
  // Somebody else renamed the formula meanwhile: the click brings the node up to date.
  bench.studio->SetNodeText("FORF2", "Old");
  bench.Click("FORF2");
  EXPECT_EQ(bench.studio->Find("FORF2")->text, "Drain");
  EXPECT_THAT(bench.add_in->EditorCaption(), HasSubstr("Drain"));
}

TEST(Connect, TerminateTakesEverythingDown) {
  EditorBench bench("FORF0");
  const platform::WindowHandle window = bench.toolkit.Handle(bench.Window());
  bench.studio->TakeCalls();
  EXPECT_EQ(bench.add_in->Terminate(), 0);
  EXPECT_THAT(bench.studio->TakeCalls(), ElementsAre("RemoveNode FOR0"));
  EXPECT_EQ(bench.window_system.windows[window].parent, -1);
  EXPECT_FALSE(bench.window_system.windows[window].hook);
  EXPECT_TRUE(bench.toolkit.loaded.empty());
  EXPECT_FALSE(store::ADOFRO::Exists());
  EXPECT_EQ(bench.plant.connection->State(), platform::ObjectState::kClosed);
  EXPECT_EQ(bench.Setting("Me.Width"), "6000") << "settings are saved";
  // A studio that goes on sending events gets nothing but zeros.
  bench.Click("FORF0");
  bench.Key("FORF0", forms::kKeyF8);
  bench.RightClick("FORF0");
  EXPECT_EQ(bench.add_in->NodeDblClick("Plant", "FOR0", ""), 0);
  EXPECT_EQ(bench.add_in->Terminate(), 0);
  EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
}

TEST(Connect, TerminateWritesWhatIsBeingTyped) {
  EditorBench bench("FORA0");
  const std::int32_t alias = bench.HaveAlias("Tank1.Level", "Level");
  bench.Window().Reload();
  ASSERT_TRUE(bench.Window().tdbA.SetCurrentId(alias));
  bench.Window().tdbA.BeginEdit(1);
  bench.Window().tdbA.SetEditValue("Height");
  bench.add_in->Terminate();
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank1.Level|Height"));
}

TEST(Connect, TerminateBeforeOpenRemovesTheRootOnly) {
  EditorBench bench;
  bench.Start();
  bench.studio->TakeCalls();
  bench.add_in->Terminate();
  EXPECT_THAT(bench.studio->TakeCalls(), ElementsAre("RemoveNode FOR0"));
  EditorBench never_started;
  EXPECT_EQ(never_started.add_in->Terminate(), 0);
}

// The studio may end while a command's dialog is open.
TEST(Connect, TerminateDuringACommand) {
  EditorBench bench("FORF0");
  bench.In<dialogs::FFunction>([&](dialogs::FFunction& dialog) {
    bench.add_in->Terminate();
    dialog.ChooseClass("PumpServer.CPump");
    dialog.cmdOk.Click();
  });
  bench.In<dialogs::FFunction>([](dialogs::FFunction& dialog) { dialog.cmdCancel.Click(); });
  bench.Choose("mnuFunctionNew");
  EXPECT_EQ(bench.add_in->EditorWindow(), nullptr);
  EXPECT_THAT(bench.Formulas(), IsEmpty());
  EXPECT_EQ(bench.toolkit.TakePrompts().size(), 1u) << "the user hears that nothing was stored";
}

TEST(Connect, FailingDatabaseIsSaidAndTriedAgain) {
  EditorBench bench;
  const std::string database = bench.plant.system.Get(support::kPlantDatabase);
  bench.plant.system.Remove(support::kPlantDatabase);
  bench.Start();
  bench.Click("FOR0");
  ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
  EXPECT_EQ(bench.toolkit.boxes[0].title, "ConnectToDataBase");
  EXPECT_THAT(bench.toolkit.boxes[0].detail, HasSubstr("   "));
  EXPECT_THAT(bench.toolkit.boxes[0].prompt, HasSubstr("Plant.ovs"));
  EXPECT_FALSE(bench.add_in->Initialised());
  EXPECT_EQ(bench.add_in->EditorWindow(), nullptr);
  EXPECT_EQ(bench.studio->Find("FORF0"), nullptr);
  EXPECT_EQ(bench.toolkit.pointers.back(), platform::Pointer::kDefault);

  bench.plant.system.Put(support::kPlantDatabase, database);
  bench.Click("FOR0");
  EXPECT_TRUE(bench.add_in->Initialised());
  EXPECT_EQ(bench.toolkit.boxes.size(), 1u);
}

// Whatever fails while the editor is made: nothing of it stays, and the next event makes all of it.
TEST(Connect, HalfAnEditorIsTakenDownAndMadeAgain) {
  for (const char* call : {"AddNode", "RegisterEditor", "HandOverEditor"}) {
    SCOPED_TRACE(call);
    EditorBench bench;
    bench.Start();
    bench.studio->failing_call = call;
    bench.Click("FOR0");
    EXPECT_EQ(bench.toolkit.TakePrompts().size(), 1u);
    EXPECT_FALSE(bench.add_in->Initialised());
    EXPECT_EQ(bench.add_in->EditorWindow(), nullptr);
    EXPECT_TRUE(bench.toolkit.loaded.empty());
    EXPECT_EQ(bench.studio->Find("FORA0"), nullptr);
    EXPECT_EQ(bench.plant.connection->State(), platform::ObjectState::kClosed);
    EXPECT_EQ(bench.toolkit.pointers.back(), platform::Pointer::kDefault);

    bench.studio->failing_call.clear();
    bench.Click("FOR0");
    EXPECT_TRUE(bench.add_in->Initialised());
    EXPECT_NE(bench.studio->Find("FORF0"), nullptr);
    EXPECT_THAT(bench.toolkit.TakePrompts(), IsEmpty());
  }
}

// The generator works for the studio's project, whose node names the formula that it asks for.
TEST(Connect, GeneratorKnowsProjectAndFormula) {
  EditorBench bench("FORF0");
  const std::int32_t fill = bench.HaveFormula("Fill", "PumpServer.CPump");
  bench.HaveFormula("Drain", "PumpServer.CPump");
  ASSERT_FALSE(bench.components.calls.empty());
  EXPECT_EQ(bench.components.calls.front(), "Open " + bench.add_in->StudioProjectName());

  codegen::CVBFormulaCode& code = bench.Window().cVBF;
  const auto header = [&](const char* name) {
    return code.GetFunctionCommentHeader(name, "PumpServer.CPump");
  };
  const std::string drain = header("Drain");
  bench.Click("FORF" + std::to_string(fill));
  const std::int32_t alias = bench.HaveAlias("Tank1.Level", "Level");
  bench.HaveArgument(fill, alias, true, false);
  const std::string full = header("Fill");
  code.ReplaceFunctionCommentHeader("Fill", "PumpServer.CPump", "'Mine");
  code.AddParameter("PumpServer.CPump", "Level", "Tank1.Level");
  EXPECT_EQ(header("Fill"), full) << "built anew";
  EXPECT_EQ(header("Drain"), drain);
}

TEST(Connect, DatabaseWithoutTheTablesIsRefused) {
  EditorBench bench;
  bench.plant.system.Remove(support::kPlantDatabase);
  recordset::JetConnection created(bench.plant.system);
  created.Create(store::ProjectConnectionString(support::kPlantDatabase));
  created.Close();
  bench.Start();
  bench.Click("FOR0");
  ASSERT_EQ(bench.toolkit.boxes.size(), 1u);
  EXPECT_THAT(bench.toolkit.boxes[0].detail, HasSubstr("TvbfAlias"));
  EXPECT_FALSE(bench.add_in->Initialised());
  EXPECT_EQ(bench.plant.connection->State(), platform::ObjectState::kClosed);
}

TEST(Connect, ResetRebuildsOnTheSameNode) {
  EditorBench bench("FORF0");
  const std::string key = "FORF" + std::to_string(bench.HaveFormula("Fill", "PumpServer.CPump"));
  bench.Click(key);
  bench.toolkit.ShowModeless(bench.Window());
  bench.studio->TakeCalls();
  bench.Choose("mnuOptionActualize");
  EXPECT_THAT(bench.studio->TakeCalls(), IsEmpty()) << "put off until the command has returned";
  bench.toolkit.RunLater();
  EXPECT_THAT(
      bench.studio->TakeCalls(),
      ElementsAre("ChildKeys FOR0", "RemoveNode FORA0", "RemoveNode FORF0", "UpdateNode FOR0 10 11",
                  "AddNode FOR0 FORA0 Alias Identifier", "AddNode FOR0 FORF0 Formula Definition",
                  "AddNode FORF0 " + key + " Fill", "RegisterEditor OVFormulaEditor",
                  "HandOverEditor 1", "SelectNode " + key));
  EXPECT_EQ(bench.Window().CurrentKey(), key);
  EXPECT_TRUE(bench.Window().Visible());
  EXPECT_EQ(bench.toolkit.loaded.size(), 1u) << "the old window is gone";

  bench.Choose("mnuOptionActualize");
  bench.add_in->Terminate();
  bench.toolkit.RunLater();
  bench.add_in->Reset();
  EXPECT_FALSE(bench.add_in->Initialised()) << "what was put off does not bring it back";
}

TEST(Connect, KeysOfTheTree) {
  struct Case {
    const char* what;
    const char* node;
    std::int16_t code;
    std::int16_t shift;
    const char* dialog;  // that opens
    std::int16_t left;   // key code afterwards
  };
  const Case cases[] = {
      {"new on the folder", "FORF0", 119, 0, "FFunction", 119},
      {"new on a formula", "FORF1", 119, 0, "", 119},
      {"new with a modifier", "FORF0", 119, 1, "", 119},
      {"edit on the folder", "FORF0", 120, 0, "", 120},
      {"edit a formula", "FORF1", 120, 0, "FFunction", 120},
      {"edit with a modifier", "FORF1", 120, 2, "", 120},
      {"edit elsewhere", "FORA0", 120, 0, "", 120},
      {"a key of another add-in", "VARX1", 120, 0, "", 120},
      {"a short key", "FO", 120, 0, "", 120},
      {"delete on the folder", "FORF0", 46, 2, "", 46},
      {"delete without Ctrl", "FORF1", 46, 0, "", 46},
      {"F6 alone", "FOR0", 117, 0, "", 117},
  };
  EditorBench bench("FORF0");
  bench.HaveFormula("FillTank", "PumpServer.CPump");
  bench.Click("FORA0");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    std::string dialog;
    if (*c.dialog) {
      bench.toolkit.OnModal([&](forms::Form& form) {
        dialog = form.Name();
        form.Close(forms::CloseReason::kUser);
      });
    }
    EXPECT_EQ(bench.Key(c.node, c.code, c.shift), c.left);
    EXPECT_EQ(dialog, c.dialog);
    EXPECT_EQ(bench.Window().CurrentKey(), "FORA0") << "the shown node stays";
    EXPECT_EQ(bench.Window().ContextKey(), "FORA0");
    EXPECT_TRUE(bench.Shown("mnuAliasNew"));
  }
  bench.toolkit.Answer(platform::MessageResult::kNo);
  bench.Key("FORF1", forms::kKeyDelete, forms::kControl);
  EXPECT_EQ(bench.Formulas().size(), 1u);
  EXPECT_FALSE(bench.Window().Visible());
  EXPECT_EQ(bench.Key("FOR0", forms::kKeyF6, forms::kAlt), 0) << "the key is used up";
  EXPECT_TRUE(bench.Window().Visible());
}

TEST(Connect, HelpOfTheNodes) {
  EditorBench bench("FOR0");
  const platform::WindowHandle window = bench.toolkit.Handle(bench.Window());
  for (const char* key : {"FOR0", "FORF0", "FORF7", "FORA0", "VARX1"}) {
    bench.Key(key, forms::kKeyF1);
  }
  std::vector<std::int32_t> topics;
  for (const auto& topic : bench.help.topics) {
    EXPECT_EQ(topic.owner, window);
    topics.push_back(topic.number);
  }
  EXPECT_THAT(topics, ElementsAre(90002, 90023, 90023, 90029, 0));
}

TEST(Connect, MenusOfTheTree) {
  struct Case {
    const char* node;
    const char* band;  // "": no menu
    std::vector<std::string> shown;
  };
  const Case cases[] = {
      {"FORF0",
       "mnuFunction",
       {"mnuFunctionDescriptor", "mnuFunctionNew", "mnuFunctionPaste", "mnuShowEditorSep",
        "mnuShowEditor"}},
      {"FORF1",
       "mnuFunction",
       {"mnuFunctionDescriptor", "mnuFunctionEdit", "mnuFunctionDelete", "mnuFunctionShowCode",
        "mnuFunctionDuplicate", "mnuFunctionCopy", "mnuFunctionPaste", "mnuShowEditorSep",
        "mnuShowEditor"}},
      {"FORA0", "mnuShowEditorHelper", {"mnuShowEditorHelper", "mnuShowEditor"}},
      {"FOR0", "mnuShowEditorHelper", {"mnuShowEditorHelper", "mnuShowEditor"}},
      {"VARX1", "", {}},
  };
  EditorBench bench("FORA0");
  bench.HaveFormula("FillTank", "PumpServer.CPump");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.node);
    std::vector<std::string> shown;
    bench.toolkit.popups.clear();
    bench.toolkit.on_popup = [&](forms::Band& band) {
      band.Menu().Open(band);
      for (const forms::Tool* tool : band.Tools()) {
        if (tool->Visible()) shown.push_back(tool->Name());
      }
    };
    bench.RightClick(c.node);
    EXPECT_EQ(bench.toolkit.popups,
              *c.band ? std::vector<std::string>{c.band} : std::vector<std::string>{});
    EXPECT_EQ(shown, c.shown);
    EXPECT_TRUE(bench.Shown("mnuAliasNew")) << "the window's own node again";
    EXPECT_FALSE(bench.Shown("mnuShowEditor"));
    bench.toolkit.RunLater();
  }
  bench.toolkit.popups.clear();
  bench.add_in->NodeMouseUp("Plant", "FORF0", "", 1, 0, 0, 0);
  bench.add_in->NodeMouseUp("Plant", "FORF0", "", 4, 0, 0, 0);
  EXPECT_TRUE(bench.toolkit.popups.empty());
}

TEST(Connect, MenuCommandConcernsTheClickedNode) {
  EditorBench bench("FORF0");
  bench.HaveFormula("FillTank", "PumpServer.CPump");
  bench.HaveFormula("Drain", "PumpServer.CTank");
  bench.Click("FORF1");
  bench.toolkit.on_popup = [&](forms::Band& band) {
    band.Menu().Click(*band.Menu().FindTool("mnuFunctionEdit"));
  };
  bench.In<dialogs::FFunction>([](dialogs::FFunction& dialog) {
    EXPECT_EQ(dialog.txtName.Text(), "Drain");
    dialog.txtName.SetText("DrainTank");
    dialog.cmdOk.Click();
  });
  bench.RightClick("FORF2");
  EXPECT_EQ(bench.studio->Find("FORF2")->text, "DrainTank");
  EXPECT_EQ(bench.Window().CurrentKey(), "FORF1");
  EXPECT_THAT(bench.Window().Caption(), HasSubstr("FillTank"));
}

TEST(Connect, ActivatingTheEditorShowsTheSelectedNode) {
  EditorBench bench("FORF0");
  bench.Window().SetWindowState(forms::WindowState::kMinimized);
  bench.studio->selected = {"Plant", "VARX1", ""};
  bench.add_in->NodeDblClick("Plant", "VARX1", "");
  EXPECT_FALSE(bench.Window().Visible());
  bench.studio->selected = {"Plant", "FORA0", "Alias Identifier"};
  bench.add_in->NodeDblClick("Plant", "FORA0", "Alias Identifier");
  EXPECT_TRUE(bench.Window().Visible());
  EXPECT_EQ(bench.Window().GetWindowState(), forms::WindowState::kNormal);
  EXPECT_EQ(bench.Window().CurrentKey(), "FORA0");
}

TEST(Connect, ActivationSavesAndReloadsUnlessAMessageBoxIsOpen) {
  EditorBench bench("FORA0");
  const std::int32_t alias = bench.HaveAlias("Tank1.Level", "Level");
  bench.Window().Reload();
  const platform::WindowHandle window = bench.toolkit.Handle(bench.Window());
  forms::Grid& grid = bench.Window().tdbA;
  const auto activate = [&](std::intptr_t how) { bench.window_system.Send(window, 6, how); };
  const auto have_alias_elsewhere = [&](const std::string& name) {
    const std::vector<store::AliasValues> values = {{"Item" + name, name}};
    EXPECT_TRUE(bench.Window().operations().AddAliases(values).success());
  };

  // Leaving the window writes what is being typed.
  ASSERT_TRUE(grid.SetCurrentId(alias));
  grid.BeginEdit(1);
  grid.SetEditValue("Height");
  activate(0);
  EXPECT_THAT(bench.Aliases(), ElementsAre("1|Tank1.Level|Height"));

  // Coming back, by whatever means, shows what others did meanwhile.
  std::size_t rows = 1;
  for (const std::intptr_t how : {1, 2}) {
    have_alias_elsewhere("Other" + std::to_string(how));
    activate(how);
    EXPECT_EQ(grid.RowCount(), ++rows);
    EXPECT_EQ(grid.CurrentId(), alias) << "the row stays";
  }

  // Neither happens around a message box, nor for the events that it leaves in the queue.
  have_alias_elsewhere("Another");
  bench.Window().messages().Warn("a message");
  grid.BeginEdit(1);
  grid.SetEditValue("Typing");
  activate(0);
  activate(1);
  EXPECT_TRUE(grid.EditActive());
  EXPECT_EQ(bench.Aliases().front(), "1|Tank1.Level|Height");
  grid.CancelEdit();
  bench.toolkit.RunLater();
  activate(1);
  EXPECT_EQ(grid.RowCount(), rows + 1);
}

}  // namespace
}  // namespace addin
