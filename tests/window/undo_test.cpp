// SPDX-License-Identifier: MIT
// Operations taken back and done again by the keys and the menu of the window.
#include <gtest/gtest.h>
#include <wx/hyperlink.h>
#include <wx/menu.h>

#include <map>
#include <vector>

#include "desktop/history_pane.h"
#include "project/project.h"
#include "studio/undo_texts.h"
#include "tests/window/desktop_program.h"
#include "tests/window/rows_of.h"
#include "tests/window/said.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;
using window_tests::Said;
using Lines = std::vector<std::string>;

// The formula Fill with the argument Level, which its procedure uses.
struct PlantWithFormula : support::SamplePlant {
  PlantWithFormula() {
    Change([](store::Operations& operations) {
      EXPECT_TRUE(operations.AddFormula({"Fill", "PumpServer.CPump", 0, 0, true, ""}).success());
      const std::vector<store::AliasValues> aliases = {{"Plant.Level", "Level"}};
      EXPECT_TRUE(operations.AddAliases(aliases).success());
      const std::vector<store::ArgumentValues> arguments = {{1, true}};
      EXPECT_TRUE(operations.AddArguments(1, arguments).success());
    });
  }
  void Change(const std::function<void(store::Operations&)>& steps, bool with_history = false) {
    const texts::TextTable texts(texts::Language::kEnglish);
    project::ProjectOptions options;
    options.with_history = with_history;
    project::Project project(system, support::kPlantDatabase, options, texts);
    steps(project.operations());
  }
  Lines Aliases() { return Rows("TvbfAlias", {"ID", "VBAlias"}); }
};

// In the list of aliases, from the tree and back to it.
void RenameAlias(const std::string& name) {
  Input({"key --delay 60 Home Down", "key F6 sleep 0.2", "key F9 sleep 0.8",
         "key --delay 80 Tab Tab ctrl+a", "type --delay 40 " + name, "key Return sleep 0.9"});
  Input({"key --delay 60 alt+F6"});
}

class Undo : public ::testing::Test {
 protected:
  Undo() { EXPECT_TRUE(program.Open()); }

  wxMenuItem& Entry(messages::TextNumber number) {
    return *program.window().GetMenuBar()->FindItem(ToInt(number));
  }
  std::string UndoEntry() { return Label(studio::kTextUndoLast); }
  std::string RedoEntry() { return Label(studio::kTextRedoLast); }
  std::string Label(messages::TextNumber number) {
    const wxMenuItem& item = Entry(number);
    return (item.IsEnabled() ? "" : "(" + item.GetHelp().utf8_string() + ") ") +
           item.GetItemLabelText().utf8_string();
  }

  PlantWithFormula plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(Undo, GoesBackAndForthWithRowsAndCode) {
  EXPECT_EQ(UndoEntry(), "(There is nothing to undo.) Undo");
  Input({"key ctrl+z"});
  EXPECT_EQ(program.Status(), "There is nothing to undo.");

  const std::string code = plant.Code("CPump");
  RenameAlias("TankLevel");
  const std::string renamed = plant.Code("CPump");
  EXPECT_NE(renamed, code);
  Input({"sleep 0.8"});
  EXPECT_EQ(UndoEntry(), "Undo: Rename alias Level to TankLevel");

  Input({"key ctrl+z sleep 0.3"});
  EXPECT_EQ(program.Status(), "Undone: Rename alias Level to TankLevel");
  EXPECT_EQ(plant.Aliases(), Lines{"1|Level"});
  EXPECT_EQ(plant.Code("CPump"), code);
  EXPECT_EQ(RedoEntry(), "Redo: Rename alias Level to TankLevel");
  EXPECT_EQ(UndoEntry(), "(There is nothing to undo.) Undo");

  Input({"key ctrl+y sleep 0.3"});
  EXPECT_EQ(program.Status(), "Redone: Rename alias Level to TankLevel");
  EXPECT_EQ(plant.Code("CPump"), renamed);
  Input({"key ctrl+z sleep 0.3", "key ctrl+shift+z sleep 0.3"});
  EXPECT_EQ(plant.Aliases(), Lines{"1|TankLevel"});
  Input({"key alt+d sleep 0.4 key Return sleep 0.4"});
  EXPECT_EQ(plant.Aliases(), Lines{"1|Level"}) << "by the menu";
}

// One rename over forty classes: not one byte of them differs.
TEST(UndoOfManyClasses, IsOneStepBackAndOneForth) {
  constexpr int kClasses = 40;
  files::MemoryFileSystem system;
  std::map<std::string, std::string> classes;
  for (int i = 1; i <= kClasses; ++i)
    classes["C" + std::to_string(i)] = "Option Explicit\r\n' class " + std::to_string(i) + "\r\n";
  support::PutProject(system, classes);
  support::PutDatabase(system);
  const texts::TextTable texts(texts::Language::kEnglish);
  project::ProjectOptions options;
  options.with_history = false;
  {
    project::Project project(system, support::kPlantDatabase, options, texts);
    store::Operations& operations = project.operations();
    ASSERT_TRUE(
        operations.AddAliases(std::vector<store::AliasValues>{{"Plant.Level", "Level"}}).success());
    for (int i = 1; i <= kClasses; ++i) {
      const std::string number = std::to_string(i);
      ASSERT_TRUE(operations.AddFormula({"Fill" + number, "PumpServer.C" + number}).success());
      ASSERT_TRUE(
          operations.AddArguments(i, std::vector<store::ArgumentValues>{{1, true}}).success());
    }
  }
  const auto code = [&] {
    std::map<std::string, std::string> files = system.Snapshot();
    std::erase_if(files, [](const auto& file) { return !file.first.ends_with(".cls"); });
    return files;
  };
  const auto before = code();
  DesktopProgram program(system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  RenameAlias("TankLevel");
  const auto renamed = code();
  ASSERT_EQ(renamed.size(), std::size_t{kClasses});
  for (const auto& [path, text] : renamed)
    EXPECT_NE(text.find("Public TankLevel as "), std::string::npos) << path;
  Input({"key ctrl+z sleep 0.6"});
  EXPECT_EQ(program.Status(), "Undone: Rename alias Level to TankLevel");
  EXPECT_TRUE(code() == before);
  Input({"key ctrl+y sleep 0.6"});
  EXPECT_EQ(program.Status(), "Redone: Rename alias Level to TankLevel");
  EXPECT_TRUE(code() == renamed);
}

TEST_F(Undo, FormulasComeBackIntoTheTree) {
  const std::string code = plant.Code("CPump");
  Input({"key --delay 80 End", "key ctrl+Delete sleep 0.5", "key alt+y sleep 0.6"});
  ASSERT_EQ(program.FormulaNodes(), Lines{});
  Input({"key ctrl+z sleep 0.4"});
  EXPECT_EQ(program.FormulaNodes(), Lines{"Fill"});
  EXPECT_EQ(plant.Code("CPump"), code);
  EXPECT_NE(program.Title().find("Fill"), std::string::npos) << program.Title();
  EXPECT_EQ(program.Rows(), 1) << "its arguments are shown";
  Input({"key ctrl+y sleep 0.4"});
  EXPECT_EQ(program.FormulaNodes(), Lines{});
}

TEST_F(Undo, KeysKeepTheirMeaningWhereTextIsTyped) {
  RenameAlias("TankLevel");
  const Lines renamed = plant.Aliases();
  Input({"key --delay 80 End"});
  program.GoToCode();
  const std::string shown = program.Code().Text();
  Input({"key --delay 60 x y", "key --delay 60 ctrl+z ctrl+z ctrl+z sleep 0.2"});
  EXPECT_EQ(program.Code().Text(), shown);
  Input({"key Escape key --delay 60 Home Down F6", "key ctrl+f sleep 0.3 type --delay 40 Ta",
         "key ctrl+z sleep 0.3"});
  EXPECT_EQ(plant.Aliases(), renamed) << "while searching";
  Input({"key --delay 60 Escape F2 sleep 0.3", "key ctrl+z sleep 0.3 key Escape"});
  EXPECT_EQ(plant.Aliases(), renamed) << "in a cell";
  Input({"key ctrl+z sleep 0.3"});
  EXPECT_EQ(plant.Aliases(), Lines{"1|Level"});
}

TEST_F(Undo, IsRefusedWhereSomebodyElseChangedTheRow) {
  RenameAlias("TankLevel");
  plant.Change([](store::Operations& operations) {
    EXPECT_TRUE(operations.EditAlias(1, {"Plant.Level", "Height"}).success());
  });
  const std::string code = plant.Code("CPump");
  Said said;
  Input({"key ctrl+z sleep 0.8 key Return"});
  ASSERT_EQ(said.texts.size(), 1u);
  EXPECT_NE(said.texts[0].find("This cannot be undone: Rename alias Level to TankLevel"),
            std::string::npos)
      << said.texts[0];
  for (const char* version : {"TankLevel", "Height"})
    EXPECT_NE(said.texts[0].find(version), std::string::npos) << said.texts[0];
  EXPECT_EQ(plant.Aliases(), Lines{"1|Height"});
  EXPECT_EQ(plant.Code("CPump"), code);
}

TEST_F(Undo, TheStatusLineTellsWhatWasDoneAndTakesItBack) {
  const auto link = [&] {
    auto* found = FindChild<wxGenericHyperlinkCtrl>(*program.window().GetStatusBar());
    return found && found->IsShown() ? found : nullptr;
  };
  EXPECT_FALSE(link());
  RenameAlias("TankLevel");
  EXPECT_EQ(program.Status(), "Done: Rename alias Level to TankLevel");
  ASSERT_TRUE(link());
  const wxPoint middle = link()->ClientToScreen(wxPoint(4, link()->GetSize().GetHeight() / 2));
  Input({"mousemove " + std::to_string(middle.x) + " " + std::to_string(middle.y),
         "click 1 sleep 0.4"});
  EXPECT_EQ(plant.Aliases(), Lines{"1|Level"});
  EXPECT_EQ(program.Status(), "Undone: Rename alias Level to TankLevel");
  EXPECT_FALSE(link());

  // What an operation says of itself stands.
  Input({"key --delay 80 End F6", "key --delay 60 Home ctrl+Delete sleep 0.5",
         "key alt+y sleep 0.6"});
  EXPECT_EQ(program.Status(), "One argument deleted.");
  ASSERT_TRUE(link());
  program.window().SetStatusText("something else");
  Input({"sleep 0.2"});
  EXPECT_FALSE(link());
}

TEST_F(Undo, TheHistoryShowsAndTakesBackOlderOperations) {
  auto& pane = *FindChild<desktop::HistoryPane>(program.window());
  const auto shown = [&] {
    std::string text;
    for (const std::string& row : window_tests::RowsOf(*FindChild<desktop::PlaceTable>(pane)))
      text += row.substr(17, row.find('|', 17) - 17) +
              (row.find("|undone|") != std::string::npos ? " (undone)\n" : "\n");
    return text;
  };
  RenameAlias("TankLevel");
  RenameAlias("Height");
  Input({"key alt+e sleep 0.4 key h sleep 0.5"});
  EXPECT_EQ(shown(), "Rename alias TankLevel to Height\nRename alias Level to TankLevel\n");
  const auto change = [&] {
    return FindChild<desktop::ChangeView>(pane)->GetValue().utf8_string();
  };
  EXPECT_NE(change().find("+\tTvbfAlias\t1\tPlant.Level\tHeight\n"), std::string::npos) << change();
  EXPECT_NE(change().find("\n-Public TankLevel as "), std::string::npos) << change();

  // The older one is refused while the newer rests on it; both go from the top.
  Input({"key Down sleep 0.2"});
  EXPECT_NE(change().find("-\tTvbfAlias\t1\tPlant.Level\tLevel\n"), std::string::npos) << change();
  {
    Said said;
    Input({"key alt+u sleep 0.8 key Return sleep 0.3"});
    ASSERT_EQ(said.texts.size(), 1u);
    EXPECT_NE(said.texts[0].find("Rename alias TankLevel to Height"), std::string::npos)
        << said.texts[0];
  }
  EXPECT_EQ(plant.Aliases(), Lines{"1|Height"});
  Input({"key Up sleep 0.2 key alt+u sleep 0.5"});
  EXPECT_EQ(plant.Aliases(), Lines{"1|TankLevel"});
  EXPECT_EQ(shown(),
            "Undo: Rename alias TankLevel to Height\nRename alias TankLevel to Height (undone)\n"
            "Rename alias Level to TankLevel\n");
  Input({"key Down sleep 0.2 key alt+t sleep 0.5"});
  EXPECT_EQ(plant.Aliases(), Lines{"1|Height"}) << "done again";

  // Somebody else's operations come into the open list.
  plant.Change(
      [](store::Operations& operations) {
        EXPECT_TRUE(operations.EditAlias(1, {"Plant.Level", "Depth"}).success());
      },
      true);
  Input({"sleep 0.9"});
  EXPECT_TRUE(shown().starts_with("Rename alias Height to Depth\n")) << shown();
  Input({"key Escape sleep 0.2"});
  EXPECT_FALSE(pane.IsShown());
}

}  // namespace
