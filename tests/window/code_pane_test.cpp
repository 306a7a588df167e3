// SPDX-License-Identifier: MIT
// Code typed in the window: when it is written, and what becomes of it when others change or remove
// the class meanwhile.
#include <gtest/gtest.h>

#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"
#include "tests/window/said.h"
#include "wx/convert.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using window_tests::Wait;

// The sample project with the formulas Drain of CTank and Fill of CPump.
struct PlantWithTwoFormulas : window_tests::Plant {
  PlantWithTwoFormulas() {
    AddFormulas({{"Drain", "PumpServer.CTank"}, {"Fill", "PumpServer.CPump"}});
  }
};

// The window shows Fill.
class CodePaneTest : public ::testing::Test {
 protected:
  CodePaneTest() {
    EXPECT_TRUE(program.Open());
    Input({"key --delay 60 Home Down Down Down Down"});
    EXPECT_TRUE(Shown("Sub Fill"));
  }
  // Types a comment at the end of the code.
  void Write(const std::string& text) {
    program.GoToCode();
    Input({"key ctrl+End", "type --delay 40 \"'" + text + "\""});
    ASSERT_TRUE(Shown(text)) << program.Code().Text();
  }
  bool Shown(const std::string& text) const {
    return program.Code().Text().find(text) != std::string::npos;
  }
  bool Saved(const std::string& text) {
    return plant.Code("CPump").find(text) != std::string::npos;
  }

  PlantWithTwoFormulas plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(CodePaneTest, IsWrittenWhenTheUserSaysSo) {
  Write("one");
  Input({"key Escape"});
  EXPECT_FALSE(program.Code().HasFocus());
  Input({"key Up sleep 0.6 key Escape"});  // Drain is in another class: stay
  EXPECT_TRUE(program.Code().HasFocus());
  EXPECT_TRUE(Shown("Sub Fill"));
  Input({"key ctrl+q sleep 0.6 key Escape"});
  EXPECT_TRUE(Shown("'one"));
  EXPECT_FALSE(Saved("'one")) << "asked, but not answered";

  Input({"key ctrl+s"});
  EXPECT_TRUE(Saved("'one"));
  Input({"key ctrl+z"});
  EXPECT_FALSE(Shown("'one")) << "saving can be taken back";
  EXPECT_TRUE(Saved("'one"));
  Input({"key ctrl+y key Escape"});
  Input({"key Down sleep 0.3 key Up sleep 0.3"});
  EXPECT_TRUE(Shown("Sub Drain")) << "nothing to ask";

  Input({"key Down"});
  Write("two");
  Input({"key Escape sleep 0.2 key Up sleep 0.6 key alt+s"});
  EXPECT_TRUE(Saved("'two"));
  EXPECT_TRUE(Shown("Sub Drain"));
  Input({"key Down"});
  Write("three");
  Input({"key Escape sleep 0.2 key Up sleep 0.6 key alt+d"});
  EXPECT_FALSE(Saved("'three"));
  EXPECT_TRUE(Shown("Sub Drain"));

  program.state().save_when_leaving = true;
  Input({"key Down"});
  Write("four");
  Input({"key Escape sleep 0.2 key Up sleep 0.6"});
  EXPECT_TRUE(Saved("'four")) << "as the user wants it, without a question";
  EXPECT_TRUE(Shown("Sub Drain"));
}

TEST_F(CodePaneTest, TabPassesIt) {
  const std::string code = program.Code().Text();
  const wxWindow* first = wxWindow::FindFocus();
  int windows = 0;
  do {
    Input({"key Tab"});
    ASSERT_FALSE(program.Code().HasFocus()) << "after " << windows + 1;
  } while (wxWindow::FindFocus() != first && ++windows < 10);
  EXPECT_EQ(program.Code().Text(), code);

  const wxRect place = program.Code().GetScreenRect();
  Input({"mousemove " + std::to_string(place.x + place.width / 2) + " " +
             std::to_string(place.y + place.height / 2) + " click 1",
         "key ctrl+Home key Tab"});
  EXPECT_TRUE(program.Code().HasFocus());
  EXPECT_TRUE(program.Code().Text().starts_with("    Option")) << program.Code().Text();
  Input({"key ctrl+z"});
}

TEST_F(CodePaneTest, FindsInTheCode) {
  const std::string code = program.Code().Text();
  program.GoToCode();
  Input({"key ctrl+Home key ctrl+f sleep 0.3", "type --delay 40 FILL", "key Return"});
  EXPECT_EQ(program.Code().GetSelectedText(), "Fill");
  const int second = program.Code().GetSelectionStart();
  Input({"key shift+F3"});
  EXPECT_LT(program.Code().GetSelectionStart(), second);
  Input({"key ctrl+a", "type --delay 40 xyzzy"});
  EXPECT_NE(program.Status().find("xyzzy"), std::string::npos);
  Input({"key Escape"});
  EXPECT_TRUE(program.Code().HasFocus());
  EXPECT_EQ(program.Code().Text(), code) << "nothing of it was typed into the code";
}

// Rows and code stay in step: what an operation wrote is not undone in the editor alone.
TEST_F(CodePaneTest, UndoesWhatWasTypedAndNothingElse) {
  program.GoToCode();
  Input({"type --delay 40 \"'body\"", "key ctrl+s"});
  EXPECT_TRUE(Shown("Public Sub Fill()\n'body\nEnd Sub")) << program.Code().Text();
  Write("mine");
  Input({"key Escape key F9 sleep 0.8", "type --delay 40 FillTank", "key Return"});
  Wait::For([&] { return Shown("Sub FillTank()"); });
  const std::string with_mine = program.Code().Text();
  program.GoToCode();
  Input({"key --delay 60 ctrl+z ctrl+z ctrl+z sleep 0.2"});
  EXPECT_TRUE(Shown("Public Sub FillTank()\n'body\nEnd Sub")) << program.Code().Text();
  EXPECT_FALSE(Shown("'mine") || program.Code().GetModify()) << program.Code().Text();
  Input({"key ctrl+y sleep 0.2"});
  EXPECT_EQ(program.Code().Text(), with_mine);
  EXPECT_TRUE(program.Code().GetModify());
  Input({"key ctrl+s"});
  EXPECT_TRUE(Saved("'mine") && Saved("Sub FillTank()"));
}

TEST_F(CodePaneTest, KeepsWhatOperationsAndOthersDoBesideIt) {
  Write("mine");
  Input({"key Escape key F9 sleep 0.8", "type --delay 40 FillTank", "key Return"});
  Wait::For([&] { return Shown("Sub FillTank()"); });
  EXPECT_TRUE(Shown("'mine"));
  EXPECT_FALSE(Saved("'mine"));
  const std::string path = support::ClassPath("CPump");
  std::string theirs = plant.system.Get(path);
  theirs.insert(theirs.find("Option"), "'theirs\r\n");
  plant.system.Put(path, theirs);
  Wait::For([&] { return Shown("'theirs"); });
  Input({"key ctrl+s"});
  EXPECT_TRUE(Saved("'theirs") && Saved("Sub FillTank()") && Saved("'mine"));

  // The same line: the user decides.
  program.GoToCode();
  Input({"key ctrl+Home", "type --delay 40 \"'a \""});
  theirs = plant.system.Get(path);
  theirs.insert(theirs.find("'theirs"), "'b ");
  plant.system.Put(path, theirs);
  Input({"sleep 1 key ctrl+s sleep 0.6 key Escape"});
  EXPECT_TRUE(Shown("'a 'theirs") && Saved("'b 'theirs"));
  Input({"key ctrl+s sleep 0.6 key alt+l"});
  EXPECT_TRUE(Shown("'b 'theirs"));
  Input({"key ctrl+Home", "type --delay 40 \"'c \""});
  theirs = plant.system.Get(path);
  theirs.insert(theirs.find("'b "), "'d ");
  plant.system.Put(path, theirs);
  Input({"sleep 1 key ctrl+s sleep 0.6 key alt+o"});
  EXPECT_TRUE(Saved("'c 'b 'theirs")) << "theirs is in the clipboard";
  EXPECT_EQ(wx::FromClipboard().find("'d 'b"), 0u);
}

// Both versions are shown, and the user's may be kept beside the file's.
TEST_F(CodePaneTest, AConflictShowsBothVersionsAndKeepsACopy) {
  const std::string path = support::ClassPath("CPump");
  program.GoToCode();
  Input({"key ctrl+Home", "type --delay 40 \"'mine \""});
  std::string theirs = plant.system.Get(path);
  theirs.insert(theirs.find("Option"), "'theirs ");
  plant.system.Put(path, theirs);
  window_tests::Said said;
  Input({"sleep 1 key ctrl+s sleep 0.8 key Escape"});
  EXPECT_EQ(said.fields, std::vector<std::string>{"Line 1:\n- 'theirs Option Explicit\n"
                                                  "+ 'mine Option Explicit\n"});
  const std::string mine = program.Code().Text();

  plant.system.Put("/tmp/taken.txt", "somebody's");
  Input({"key ctrl+s sleep 0.8 key alt+k sleep 1 key ctrl+a", "type --delay 40 /tmp/taken.txt",
         "key Return sleep 0.8 key Return"});
  EXPECT_EQ(plant.system.Get("/tmp/taken.txt"), "somebody's");
  EXPECT_EQ(program.Code().Text(), mine) << "nothing was decided";
  Input({"key ctrl+s sleep 0.8 key alt+k sleep 1 key ctrl+a", "type --delay 40 /tmp/mine.txt",
         "key Return"});
  EXPECT_EQ(plant.system.Get("/tmp/mine.txt"), mine);
  EXPECT_TRUE(Shown("'theirs Option")) << program.Code().Text();
  EXPECT_EQ(plant.system.Get(path), theirs);
}

TEST_F(CodePaneTest, OutlivesTheRemovalOfItsClass) {
  const std::string path = support::ClassPath("CPump"), class_text = plant.system.Get(path);
  plant.system.Remove(path);
  Input({"sleep 2"});  // a dialog would be reported as still open
  EXPECT_FALSE(Shown("Sub Fill"));
  plant.system.Put(path, class_text);
  Wait::For([&] { return Shown("Sub Fill"); });

  Write("mine");
  plant.system.Remove(path);
  Input({"sleep 2"});
  EXPECT_TRUE(Shown("'mine"));
  Input({"key ctrl+s sleep 0.6 key Return"});
  EXPECT_TRUE(Shown("'mine"));
  plant.system.Put(path, class_text);
  Input({"key ctrl+s"});
  EXPECT_TRUE(Saved("'mine"));
}

}  // namespace
