// SPDX-License-Identifier: MIT
// What helps to write code in the window: completion, what a name is, unknown names, folding,
// replacing.
#include <gtest/gtest.h>

#include "desktop/find_bar.h"
#include "tests/window/desktop_program.h"
#include "tests/window/plant.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;
using window_tests::Wait;

constexpr int kUnknown = 8;  // the indicator

// The formula Fill with the argument Level and a body; a procedure of the class's own behind it.
struct PlantWithBody : window_tests::Plant {
  PlantWithBody() {
    system.Put("/plant/items.csv", "item,type,comment\nTank1.Level,Double,Level in m\n");
    AddFormulas({{"Fill", "PumpServer.CPump"}});
    AddAliases({{"Tank1.Level", "Level"}});
    AddArguments(1, {{1, true}});
    Replace("CPump", "Public Sub Fill()\r\n", "Public Sub Fill()\r\n  Levle = Level + 1\r\n");
    const std::string path = support::ClassPath("CPump");
    system.Put(path, system.Get(path) + "Private Sub Helper()\r\n  Level = 2\r\nEnd Sub\r\n");
  }
};

class CodeHelpTest : public ::testing::Test {
 protected:
  CodeHelpTest() {
    EXPECT_TRUE(program.Open());
    Input({"key --delay 60 Home Down Down Down"});
    program.GoToCode();
    Wait::For([&] { return Unknown("Levle"); });
  }
  desktop::CodeEditor& code() { return program.Code(); }
  std::string Line(int number) { return code().GetLine(number).Trim().utf8_string(); }
  int LineOf(const std::string& text) {
    return code().LineFromPosition(code().FindText(0, code().GetLength(), text));
  }
  // Whether the text is underlined.
  bool Unknown(const std::string& text) {
    const int place = code().FindText(0, code().GetLength(), text, wxSTC_FIND_MATCHCASE);
    return place >= 0 && code().IndicatorValueAt(kUnknown, place) != 0;
  }

  PlantWithBody plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(CodeHelpTest, MarksAndCompletesNames) {
  EXPECT_TRUE(Unknown("Levle"));
  EXPECT_FALSE(Unknown("Level"));
  const int body = LineOf("Levle");
  code().GotoPos(code().PositionFromLine(body) + 2);
  Input({"key ctrl+Delete", "type --delay 40 Lev", "key ctrl+space sleep 0.4"});
  EXPECT_EQ(Line(body), "  Level= Level + 1") << "the only one is taken";
  Wait::For([&] { return !Unknown("Levle"); });

  code().GotoPos(code().GetLineEndPosition(body));
  Input({"key Return", "type --delay 40 Me.", "key ctrl+space sleep 0.4"});
  EXPECT_TRUE(code().AutoCompActive());
  Input({"type --delay 40 he", "key Return"});
  EXPECT_EQ(Line(body + 1), "Me.Helper");
  Input({"type --delay 40 \": xyz\"", "key ctrl+space sleep 0.3"});
  EXPECT_FALSE(code().AutoCompActive());
  EXPECT_NE(program.Status().find("nothing to complete"), std::string::npos);
  EXPECT_EQ(plant.Code("CPump").find("Helper:"), std::string::npos) << "nothing is written";
  Input(
      {"key --delay 40 ctrl+z ctrl+z ctrl+z ctrl+z ctrl+z ctrl+z ctrl+z ctrl+z ctrl+z ctrl+z "
       "ctrl+z ctrl+z ctrl+z ctrl+z"});
  EXPECT_FALSE(code().GetModify()) << "all of it is taken back";
}

TEST_F(CodeHelpTest, SaysWhatANameIs) {
  const int level = code().FindText(0, code().GetLength(), "Level +");
  EXPECT_EQ(code().on_describe(level), "Tank1.Level, Double\nLevel in m\nFill: input value");
  const int helper = code().FindText(0, code().GetLength(), "Helper");
  EXPECT_EQ(code().on_describe(helper), "");
  EXPECT_EQ(code().on_describe(level - 6), "Levle is not declared anywhere.");
  code().GotoPos(level);
  Input({"key ctrl+i sleep 0.3"});
  EXPECT_TRUE(code().CallTipActive());
  Input({"key Escape"});
  EXPECT_FALSE(code().CallTipActive());
  EXPECT_TRUE(code().HasFocus()) << "the tip is what goes first";
}

TEST_F(CodeHelpTest, FoldsProceduresAndShowsWhatIsGoneTo) {
  const int helper = LineOf("Private Sub Helper");
  code().GotoPos(code().PositionFromLine(helper + 1));
  Input({"key ctrl+m sleep 0.3"});
  EXPECT_FALSE(code().GetLineVisible(helper + 1));
  EXPECT_EQ(code().GetCurrentLine(), helper);
  EXPECT_TRUE(code().GetLineVisible(helper - 1));
  Input({"key ctrl+f sleep 0.3", "type --delay 40 \"Level = 2\"", "key Escape"});
  EXPECT_TRUE(code().GetLineVisible(helper + 1));
  Input({"key ctrl+shift+m sleep 0.3"});
  EXPECT_FALSE(code().GetLineVisible(LineOf("Levle")));
  Input({"key ctrl+shift+m sleep 0.3"});
  EXPECT_TRUE(code().GetLineVisible(LineOf("Levle")));
}

TEST_F(CodeHelpTest, ReplacesInTheModule) {
  const std::string before = code().Text();
  Input({"key ctrl+Home key ctrl+h sleep 0.3", "type --delay 40 level", "key Tab Tab Tab Tab",
         "type --delay 40 Height", "key Return sleep 0.3"});
  EXPECT_EQ(code().GetSelectedText().Lower(), "level") << "one is replaced, the next is selected";
  EXPECT_EQ(code().Text().size(), before.size() + 1);
  auto& bar = *FindChild<desktop::FindBar>(program.window());
  EXPECT_TRUE(bar.IsShown());
  Input({"key Tab Tab space sleep 0.3"});
  EXPECT_EQ(code().Text().find("Level"), std::string::npos);
  EXPECT_NE(program.Status().find("Replaced: "), std::string::npos);
  Input({"key Escape sleep 0.2 key ctrl+z"});
  EXPECT_EQ(code().Text().size(), before.size() + 1) << "all as one";
  Input({"key ctrl+z"});
  EXPECT_EQ(code().Text(), before);
}

}  // namespace
