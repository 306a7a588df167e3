// SPDX-License-Identifier: MIT
// What the generator reads out of lines of source, and what it writes into them.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "codegen/comment_text.h"
#include "codegen/declaration.h"
#include "codegen/name_uses.h"
#include "codegen/source_line.h"
#include "codegen/sub_lines.h"
#include "codegen/templates.h"
#include "files/memory_file_system.h"
#include "platform/text.h"
#include "texts/text_table.h"
#include "vbfiles/environment.h"

namespace codegen {
namespace {

using Lines = std::vector<std::string>;

TEST(SourceLineTest, RecognisesLines) {
  const struct {
    const char* line;
    bool comment, commented_end, end, continued;
  } kCases[] = {
      {"", false, false, false, false},
      {"  ' note", true, false, false, false},
      {"'End Sub", true, true, false, false},
      {"'    End Sub 'done", true, true, false, false},
      {"''end  function", true, true, false, false},
      {"Rem End Property", true, true, false, false},
      {"'Done: End Sub", true, true, false, false},
      {"'Public Sub A(): End Sub", true, true, false, false},
      {"'at the Weekend Sub", true, false, false, false},
      {"'EndSub", true, false, false, false},
      {"'End Sub is missing", true, false, false, false},
      {"Remark = 1", false, false, false, false},
      {"\tEnd Sub", false, false, true, false},
      {"Done: End Sub 'x", false, false, true, false},
      {"10 Rem End Sub", false, false, false, false},
      {"x = \"End Sub", false, false, false, false},
      {"x = \"' End Sub\"", false, false, false, false},
      {"x = 1 _", false, false, false, true},
      {"x = a_", false, false, false, false},
      {"' y _", true, false, false, true},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(IsCommentLine(c.line), c.comment) << c.line;
    EXPECT_EQ(IsCommentedProcedureEnd(c.line), c.commented_end) << c.line;
    EXPECT_EQ(IsProcedureEnd(c.line), c.end) << c.line;
    EXPECT_EQ(IsContinued(c.line), c.continued) << c.line;
  }
}

TEST(SourceLineTest, ComparesAsTheEnvironmentRewrites) {
  EXPECT_TRUE(
      SameLine("Public Level as Double 'Tank1.Level", "Public Level As  Double 'Tank1.Level"));
  EXPECT_TRUE(SameLine("'\tLevel", "'    Level"));
  EXPECT_TRUE(SameLine("x = 1 'a", "x=1 ' a "));
  EXPECT_FALSE(SameLine("x = 1 'Tank 1", "x = 1 'Tank1"));
  EXPECT_FALSE(SameLine("x = 1 'a", "x = 1 'a b"));
  EXPECT_FALSE(SameLine("'\tLevel", "'\tlevel"));
  EXPECT_FALSE(SameLine("Public Level as Double 'A", "Public Level as Double 'a"));
  EXPECT_FALSE(SameLine("x = \"a\"", "x = \"b\""));
}

TEST(SourceLineTest, SplitsAndJoins) {
  for (const char* text : {"a", "a\r\nb", "\r\n", "a\r\n\r\n"}) {
    EXPECT_EQ(JoinLines(SplitLines(text)), text);
  }
  EXPECT_EQ(SplitLines(""), Lines());
  EXPECT_EQ(SplitLines("a\nb\rc\r\n"), Lines({"a", "b", "c", ""}));
}

// What a text becomes in a comment, and that it is found there again.
TEST(CommentTextTest, StaysInItsCommentAndIsFoundAgain) {
  const std::pair<std::string, std::string> kCases[] = {{"Tank1.Level", "Tank1.Level"},
                                                        {"a\r\nEnd Sub", "a  End Sub"},
                                                        {"a\nb\rc", "a b c"},
                                                        {std::string("a\0b\x1a\x7f", 5), "a?b??"},
                                                        {"a\tb\xC2\x85\xE2\x80\xA8", "a b  "},
                                                        {"a _", "a _'"},
                                                        {"a\t_  ", "a _  '"},
                                                        {"a\n_", "a _'"},
                                                        {" _", " _'"},
                                                        {"_", "_"},
                                                        {"a_", "a_"},
                                                        {" #1 ", " #1 "},
                                                        {"'x' 'y", "'x' 'y"},
                                                        {"'End Sub", "'End Sub"},
                                                        {"Rem \"x: y", "Rem \"x: y"},
                                                        {"\xFF", "\xFF"},
                                                        {"", ""}};
  for (const auto& [text, shown] : kCases) {
    EXPECT_EQ(WithCommentText("'", text), "'" + shown);
    EXPECT_TRUE(ShowsText("'" + shown, text)) << shown;
    // As the environment writes it: no tabs, nothing behind the line.
    EXPECT_TRUE(ShowsText("'" + shown.substr(0, shown.find_last_not_of(' ') + 1), text)) << shown;
    EXPECT_FALSE(ShowsText("'" + shown + "x", text)) << shown;
    const auto line = ParseVariableLine(Templates::Declaration("A", "Long", text));
    ASSERT_TRUE(line) << shown;
    EXPECT_TRUE(ShowsText(line->comment, text)) << shown;
  }
  EXPECT_EQ(WithCommentText("'\t", "_"), "'\t_'");
  EXPECT_TRUE(ShowsText("'a  b?", "a\tb\xE6\xB8\xA9"));
  EXPECT_FALSE(ShowsText("'ab", "a b"));
  EXPECT_FALSE(ShowsText("", "a"));
}

TEST(DeclarationTest, ReadsSubsOnly) {
  const struct {
    Lines lines;
    Lines renamed;  // none: no sub
  } kCases[] = {
      {{"Public Sub A()"}, {"Public Sub B()"}},
      {{"sub A"}, {"Public Sub B()"}},
      {{"Private Sub [A]() ' why"}, {"Public Sub B() ' why"}},
      {{"Private Static Sub [A]() ' why"}, {"Private Static Sub B() ' why"}},
      {{"Public Sub A(): x = 1: End Sub"}, {"Public Sub B(): x = 1: End Sub"}},
      {{"Public Sub A(ByVal x As Long): y = \"a:'b\": End Sub 'c"},
       {"Public Sub B(ByVal x As Long): y = \"a:'b\": End Sub 'c"}},
      {{"Public Sub A(ByVal x As Long, _", "    y() As Long)"},
       {"Public Sub B(ByVal x As Long, _", "    y() As Long)"}},
      {{"Public Sub A _", "    ()"}, {"Public Sub B()", "'    ()"}},
      {{"Public Function A()"}, {}},
      {{"Property Get A()"}, {}},
      {{"Public Subs As Long"}, {}},
      {{"'Public Sub A()"}, {}},
      {{""}, {}},
  };
  for (const auto& c : kCases) {
    const auto sub = ParseSub(c.lines);
    EXPECT_EQ(sub ? RenamedSub(c.lines, *sub, "B") : Lines(), c.renamed) << c.lines[0];
    EXPECT_EQ(sub ? sub->name : "A", "A");
  }
}

TEST(DeclarationTest, DeletesOnlyWhatDeclaresOneVariableAlone) {
  const struct {
    const char* line;
    bool alone;
  } kCases[] = {
      {"Public Level as Double 'Tank1.Level", true},
      {"  public LEVEL As Double", true},
      {"Global Level", true},
      {"Public Level&", true},
      {"Public Level As New VBA.Collection", true},
      {"Public Level As Double, Limit As Double", false},
      {"Public Limit As Double, Level As Double", false},
      {"Public Level As Double: Public Limit As Long", false},
      {"Public Level As _", false},
      {"Public Level As Double ' to be _", false},
      {"Private Level As Double", false},
      {"Dim Level As Double", false},
      {"Public WithEvents Level As CPort", false},
      {"Public Sub Level()", false},
      {"Public Const Level = 1", false},
      {"Public Level(1 To 3) As Double", false},
      {"Public Levels As Double", false},
  };
  for (const auto& c : kCases) {
    const auto line = ParseVariableLine(c.line);
    EXPECT_EQ(line && platform::EqualsIgnoringCase(line->name, "Level"), c.alone) << c.line;
  }
  const std::pair<const char*, const char*> kTypes[] = {
      {"Public A", ""},
      {"Public A#", "Double"},
      {"Public A as double 'x", "double"},
      {"Public A As New VBA . Collection", "New VBA.Collection"}};
  for (const auto& [line, type] : kTypes) EXPECT_EQ(ParseVariableLine(line)->type, type) << line;
}

TEST(DeclarationTest, KnowsTheNamesOfTypes) {
  const Lines lines = {"Public Enum EState 'Fake: Enum Comment",
                       "  Running = 1 + _",
                       "    Offset: Stopped: [End Now]",
                       "End Enum",
                       "Private Type TRec",
                       "  Level As Long",
                       "End Type",
                       "' Enum Old _",
                       "Enum Older",
                       "Private Const kText = \"Enum Text\"",
                       "Public Enumeration As Long"};
  EXPECT_EQ(TypeNames(lines), (std::unordered_set<std::string>{"estate", "running", "trec"}));
  EXPECT_EQ(TypeNames({"Enum E: A: [B c]: End Enum: Enum F"}),
            (std::unordered_set<std::string>{"e", "a", "b c", "f"}));
}

TEST(NameUsesTest, FindsLinesThatUseANameOfNobody) {
  files::MemoryFileSystem system;
  system.Put("/p/P.vbp", "Type=OleDll\r\nModule=MCode; MCode.bas\r\nName=\"P\"\r\n");
  system.Put("/p/MCode.bas",
             "Attribute VB_Name = \"MCode\"\r\n"
             "Sub A(): x = LEVEL + level: y = Limit: End Sub\r\n"
             "Sub B(Level): x = Level: End Sub\r\n"
             "Sub C()\r\n"
             "  s = \"Level\" & \"a\"\"Level\"\r\n"
             "  ' Note _\r\n"
             "  Level = 1\r\n"
             "  x = 1 + _\r\n"
             "    Level\r\n"
             "  Pump.Level = 1: .Level = 2: Pump!Level = 3\r\n"
             "  Me.Level = Levels + [Level]\r\n"
             "Rem Level\r\n"
             "  y = Limit\r\n");
  vbfiles::Environment environment(system);
  environment.Open("/p/P.vbp");
  platform::CodeModule& module = *environment.FindProject("P")->FindComponent("MCode")->Module();
  const std::vector<NameUse> uses = {
      {1, "Level"}, {8, "Level"}, {10, "Level"}, {1, "Limit"}, {12, "Limit"}};
  std::vector<std::string> names = {"Level", "Limit"};
  EXPECT_EQ(FindNameUses(module, names), uses);
  while (names.size() < 100) names.push_back("Other" + std::to_string(names.size()));
  EXPECT_EQ(FindNameUses(module, names), uses) << "many names";
  EXPECT_TRUE(FindNameUses(module, {"Other"}).empty());
  module.DeleteLines(1, module.CountOfLines());
  EXPECT_TRUE(FindNameUses(module, names).empty()) << "no line left";
}

class HeaderTest : public testing::Test {
 protected:
  Lines Rebuilt(const Lines& region) const {
    return WithHeader(region, templates_.Header("A", {"Level"}), templates_);
  }

  const Templates templates_{texts::TextTable(texts::Language::kEnglish)};
  const Lines header_ = templates_.Header("A", {"Level"});
};

TEST_F(HeaderTest, ReplacesOnlyWhatItWrote) {
  const std::string rule = "'" + std::string(56, '*');
  const auto with = [&](Lines lines) {
    lines.insert(lines.end(), header_.begin(), header_.end());
    return lines;
  };
  const Lines german = {"", rule, "'OrvanaStudio Formel \"Old\"", "'Argumente:", "'    Pump", rule};
  EXPECT_EQ(Rebuilt({}), header_);
  EXPECT_EQ(Rebuilt({"", "  ", ""}), header_);
  EXPECT_EQ(Rebuilt(header_), header_);
  EXPECT_EQ(Rebuilt(german), header_);
  EXPECT_EQ(Rebuilt({"", "' note", "'second"}), with({"", "' note", "'second"}));
  // A note between header and declaration, one inside the header, a box of the engineer's own.
  EXPECT_EQ(Rebuilt(with({})), header_);
  Lines noted = header_;
  noted.push_back("' below");
  EXPECT_EQ(Rebuilt(noted), with({"", "' below"}));
  noted = header_;
  noted.insert(noted.begin() + 4, "' pump must be off");
  EXPECT_EQ(Rebuilt(noted), with({"", "' pump must be off"}));
  EXPECT_EQ(Rebuilt({rule, "' my box", rule}), with({rule, "' my box", rule}));
  // A header that lost its sub stays.
  EXPECT_EQ(Rebuilt(with(german)), with(german));
  // A note that would take the next line into its comment.
  EXPECT_EQ(Rebuilt({"' goes on _"}), with({"' goes on _", ""}));
}

// Rows of others may hold anything.
TEST_F(HeaderTest, KnowsItsArgumentsAgain) {
  for (const char* alias : {"_", "_x", "a b", "a\tb\r\nc", "", " ", "\xC3\x84", "'"}) {
    const Lines header = templates_.Header("A", {alias, "Level"});
    ASSERT_EQ(header.size(), 7u);
    EXPECT_TRUE(Templates::IsArgument(header[4])) << header[4];
    EXPECT_FALSE(IsContinued(header[4])) << header[4];
    EXPECT_EQ(Rebuilt(header), header_) << header[4];
  }
}

TEST_F(HeaderTest, RebuildingTwiceChangesNothing) {
  const std::string rule = header_.back();
  for (const Lines& region : {Lines{"'a", "", "'b", ""}, Lines{"", "' goes on _", "", "'x"},
                              Lines{rule, "'x", "", rule}, Lines{"'a _", "'b _"}}) {
    const Lines once = Rebuilt(region);
    EXPECT_EQ(Rebuilt(once), once) << JoinLines(region);
  }
}

}  // namespace
}  // namespace codegen
