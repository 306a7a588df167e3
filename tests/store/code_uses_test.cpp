// SPDX-License-Identifier: MIT
// Names in procedure bodies: where they are used, and how they follow a new name.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "store/operations.h"
#include "tests/support/code_model_wrappers.h"
#include "tests/support/formula_project.h"

namespace store {
namespace {

constexpr const char* kPump = "PumpServer.CPump";
constexpr const char* kTank = "PumpServer.CTank";

std::string Replaced(std::string text, const std::string& old_text, const std::string& new_text) {
  for (std::size_t at = 0; (at = text.find(old_text, at)) != std::string::npos;
       at += new_text.size()) {
    text.replace(at, old_text.size(), new_text);
  }
  return text;
}

std::string ListPlaces(const codegen::FoundPlaces& found) {
  std::string list;
  for (const codegen::CodePlace& place : found.places) {
    list += place.module.substr(place.module.find('.') + 1) + ':' + std::to_string(place.line) +
            ':' + std::to_string(place.column) + ' ' +
            std::string(codegen::NameOfKind(place.kind)) + (place.is_sure ? "" : "?") + ' ' +
            place.procedure + '\n';
  }
  return list;
}

// Aliases Level (1) and Flow (2); formulas Fill (1) in CPump with Level, Drain (2) in CTank with
// Level. The classes hold what `Write` puts in place of the procedures' empty lines.
class CodeUsesTest : public testing::Test {
 protected:
  CodeUsesTest() {
    project_.AddAlias("Tank1.Level", "Level");
    project_.AddAlias("Tank1.Flow", "Flow");
    Do(operations().AddFormula({"Fill", kPump}));
    Do(operations().AddFormula({"Drain", kTank}));
    const ArgumentValues level[] = {{1, true, false}};
    Do(operations().AddArguments(1, level));
    Do(operations().AddArguments(2, level));
  }

  Operations& operations() { return project_.operations(); }
  static OperationResult Do(OperationResult result) {
    EXPECT_TRUE(result.success()) << support::ToText(result);
    return result;
  }
  // Gives the sub that body.
  void Write(const std::string& name, const std::string& sub, const std::string& body) {
    const std::string head = "Public Sub " + sub + "()\r\n";
    project_.PutCode(name, Replaced(project_.Code(name), head + "\r\n", head + body));
  }
  static RenameOptions WithUses() {
    RenameOptions options;
    options.with_uses = true;
    return options;
  }

  support::FormulaProject project_{{{"CPump", ""}, {"CTank", ""}}};
};

TEST_F(CodeUsesTest, ListsEveryPlaceByKindAndProcedure) {
  Write("CPump", "Fill", "    If Level > 1 Then Level = 0 'Level\r\n    Drained.Level = 1\r\n");
  Write("CTank", "Drain",
        "    Dim p As New CPump, x As Object\r\n    p.Level = 2: x.Level = 3\r\n    p.Fill\r\n");
  EXPECT_EQ(ListPlaces(operations().CodeUsesOfAlias(1)),
            "CPump:9:8 read Fill\n"
            "CPump:9:23 write Fill\n"
            "CPump:10:13 unknown? Fill\n"
            "CTank:10:7 write Drain\n"
            "CTank:10:20 unknown? Drain\n");
  EXPECT_EQ(ListPlaces(operations().CodeUsesOfFormula(1)), "CTank:11:7 call Drain\n");
  EXPECT_EQ(ListPlaces(operations().CodeUsesOfArgument(1)),
            "CPump:9:8 read Fill\nCPump:9:23 write Fill\nCPump:10:13 unknown? Fill\n");
  EXPECT_EQ(ListPlaces(operations().CodeUsesOfAlias(2)), "");
  EXPECT_EQ(ListPlaces(operations().CodeUsesOfAlias(9)), "");
}

TEST_F(CodeUsesTest, RenamesAnAliasInAllBodiesAndBack) {
  std::string body;
  for (int i = 0; i < 20; ++i) {
    const std::string number = std::to_string(i);
    Do(operations().AddFormula({"Step" + number, i % 2 ? kPump : kTank}));
    const ArgumentValues level[] = {{1, true, false}};
    Do(operations().AddArguments(3 + i, level));
    Write(i % 2 ? "CPump" : "CTank", "Step" + number,
          "  Me.Level = LEVEL + Level(" + number + ") 'Level\r\n  Print \"Level\"; [Level]\r\n");
  }
  // The one letter case that comes back.
  project_.PutCode("CPump", Replaced(project_.Code("CPump"), "LEVEL", "Level"));
  project_.PutCode("CTank", Replaced(project_.Code("CTank"), "LEVEL", "Level"));
  const std::string pump = project_.Code("CPump");
  const std::string tank = project_.Code("CTank");
  EXPECT_EQ(operations().CodeUsesOfAlias(1).places.size(), 80u);
  EXPECT_EQ(support::ToText(operations().EditAlias(1, {"Tank1.Level", "Height"}, WithUses())),
            "done");
  EXPECT_NE(project_.Code("CTank").find(
                "  Me.Height = Height + Height(4) 'Level\r\n  Print \"Level\"; [Height]\r\n"),
            std::string::npos)
      << project_.Code("CTank");
  EXPECT_EQ(operations().CodeUsesOfAlias(1).places.size(), 80u);
  EXPECT_EQ(support::ToText(operations().EditAlias(1, {"Tank1.Level", "Level"}, WithUses())),
            "done");
  EXPECT_EQ(project_.Code("CPump"), pump);
  EXPECT_EQ(project_.Code("CTank"), tank);
}

TEST_F(CodeUsesTest, RenamesInCommentsAndLiteralsOnRequest) {
  Write("CPump", "Fill", "  Level = 1 'Level, Levels\r\n  Print \"Level\"\r\n");
  RenameOptions options = WithUses();
  options.in_comments = true;
  Do(operations().EditAlias(1, {"Tank1.Level", "Height"}, options));
  EXPECT_NE(project_.Code("CPump").find("  Height = 1 'Height, Levels\r\n  Print \"Level\"\r\n"),
            std::string::npos)
      << project_.Code("CPump");
  options.in_comments = false;
  options.in_literals = true;
  Write("CTank", "Drain", "  Print \"Height\" 'Height\r\n");
  Do(operations().EditAlias(1, {"Tank1.Level", "Depth"}, options));
  EXPECT_NE(project_.Code("CTank").find("  Print \"Depth\" 'Height\r\n"), std::string::npos)
      << project_.Code("CTank");
}

TEST_F(CodeUsesTest, RefusesWhatWouldMeanSomethingElse) {
  const struct {
    const char* body;
    std::int32_t text;
    const char* place;
  } kCases[] = {
      {"  Dim Height As Long\r\n  Level = 1\r\n", 3607, "CPump.cls:9"},
      {"  Level = 1\r\nHeight:\r\n", 3608, "CPump.cls:10"},
      {"  Level = Height\r\n", 3609, "CPump.cls:9"},
  };
  const std::string empty = project_.Code("CPump");
  for (const auto& test : kCases) {
    project_.PutCode("CPump", empty);
    Write("CPump", "Fill", test.body);
    const std::string before = project_.Code("CPump") + project_.Code("CTank");
    const OperationResult result = operations().EditAlias(1, {"Tank1.Level", "Height"}, WithUses());
    EXPECT_EQ(result.outcome, Outcome::kRefused) << test.body;
    EXPECT_EQ(ToInt(result.message.number()), test.text) << support::ToText(result);
    EXPECT_EQ(support::Sentence(result.message).find(test.place), 0u) << support::ToText(result);
    EXPECT_EQ(project_.Code("CPump") + project_.Code("CTank"), before);
    EXPECT_EQ(operations().FindAlias(1)->vb_alias, "Level");
  }
}

TEST_F(CodeUsesTest, RefusesANameThatTheClassDeclares) {
  Write("CPump", "Fill", "  Level = 1\r\n");
  project_.PutCode("CPump", "Public Height As Long\r\n" + project_.Code("CPump"));
  const OperationResult result = operations().EditAlias(1, {"Tank1.Level", "Height"}, WithUses());
  EXPECT_EQ(ToInt(result.message.number()), 3606) << support::ToText(result);
  EXPECT_EQ(support::Sentence(result.message).find("CPump.cls:1 "), 0u) << support::ToText(result);
}

TEST_F(CodeUsesTest, LeavesAndNamesWhatIsNotCertain) {
  Write("CTank", "Drain", "  Dim x As Object\r\n  Level = 1\r\n  x.Level = 2\r\n");
  const OperationResult result = operations().EditAlias(1, {"Tank1.Level", "Height"}, WithUses());
  EXPECT_EQ(support::ToText(result),
            "done\n! CTank.cls:11 may use Level; the line was left as it was. Check it.");
  EXPECT_NE(project_.Code("CTank").find("  Height = 1\r\n  x.Level = 2\r\n"), std::string::npos);
  // Without its uses, the warnings say what remains to be done.
  EXPECT_EQ(support::ToText(operations().EditAlias(1, {"Tank1.Level", "Depth"})),
            "done\n! CTank.cls:10 still uses Height");
}

TEST_F(CodeUsesTest, RenamesAFormulaWhereItIsCalled) {
  Write("CPump", "Fill", "  If Level > 1 Then Call Fill\r\n");
  Write("CTank", "Drain", "  Dim p As New CPump\r\n  p.Fill 'Fill\r\n");
  EditFormulaOptions options;
  options.with_uses = true;
  EXPECT_EQ(support::ToText(operations().EditFormula(1, {"Pour", kPump}, options)), "done");
  EXPECT_NE(
      project_.Code("CPump").find("Public Sub Pour()\r\n  If Level > 1 Then Call Pour\r\nEnd Sub"),
      std::string::npos)
      << project_.Code("CPump");
  EXPECT_NE(project_.Code("CTank").find("  p.Pour 'Fill\r\n"), std::string::npos);
}

TEST_F(CodeUsesTest, ExchangesAnArgumentInItsProcedureAlone) {
  Do(operations().AddFormula({"Other", kPump}));
  const ArgumentValues level[] = {{1, true, false}};
  Do(operations().AddArguments(3, level));
  Write("CPump", "Fill", "  Dim x As Object\r\n  Level = Level + 1: x.Level = 0\r\n");
  Write("CPump", "Other", "  Level = 0\r\n");
  const std::string before = project_.Code("CPump");
  EXPECT_EQ(support::ToText(operations().EditArgument(1, {2, true, false}, WithUses())),
            "done\n! CPump.cls:11 may use Level; the line was left as it was. Check it.");
  const std::string code = project_.Code("CPump");
  EXPECT_NE(code.find("  Flow = Flow + 1: x.Level = 0\r\n"), std::string::npos) << code;
  EXPECT_NE(code.find("Public Sub Other()\r\n  Level = 0\r\n"), std::string::npos) << code;
  Do(operations().EditArgument(1, {1, true, false}, WithUses()));
  EXPECT_EQ(project_.Code("CPump"), before);
}

TEST_F(CodeUsesTest, FindsAndReplacesAsOneOperation) {
  Write("CPump", "Fill",
        "  x = \"Gr\xFC\xDF"
        "e\" & Level: Level = 1 'level\r\n");
  const auto found = operations().FindInCode("level", {true, false});
  EXPECT_EQ(ListPlaces(found),
            "CPump:1:8 text \nCPump:1:32 text \nCPump:6:3 text \nCPump:9:17 text Fill\n"
            "CPump:9:24 text Fill\nCPump:9:35 text Fill\n"
            "CTank:1:8 text \nCTank:1:32 text \nCTank:6:3 text \n");
  EXPECT_EQ(operations().FindInCode("level", {true, true}).places.size(), 1u);
  EXPECT_EQ(operations().FindInCode("Leve", {true, true}).places.size(), 0u);
  EXPECT_EQ(operations().FindInCode("", {}).places.size(), 0u);
  const std::vector<codegen::CodePlace> some(found.places.begin() + 3, found.places.begin() + 6);
  EXPECT_EQ(ToInt(operations().ReplaceInCode(some, "a\r\nb").message.number()), 3603);
  EXPECT_EQ(ToInt(operations().ReplaceInCode(some, std::string(1000, 'x')).message.number()), 3611);
  Do(operations().ReplaceInCode(some, "h"));
  EXPECT_NE(project_.Code("CPump").find("  x = \"Gr\xFC\xDF"
                                        "e\" & h: h = 1 'h\r\n"),
            std::string::npos)
      << project_.Code("CPump");
  EXPECT_EQ(ToInt(operations().ReplaceInCode(some, "h").message.number()), 3604)
      << "the line is another now";
}

// Reads the classes of the alias and what these call; of the others, whether they hold the name.
TEST(CodeReadingTest, ReadsTheClassesConcernedAlone) {
  support::FormulaProject project({{"CA", ""}, {"CB", ""}, {"CC", ""}, {"CD", ""}});
  project.AddAlias("Item", "Level");
  const FormulaValues values = {"Fill", "PumpServer.CA"};
  ASSERT_TRUE(project.operations().AddFormula(values).success());
  const ArgumentValues level[] = {{1, true, false}};
  ASSERT_TRUE(project.operations().AddArguments(1, level).success());
  project.PutCode("CA", project.Code("CA") + "Sub T(): CB.X Level: End Sub\r\n");
  project.PutCode("CB", "Sub X(y)\r\n  y = 1\r\nEnd Sub\r\n");
  project.PutCode("CC", "Sub X(a As CA)\r\n  a.Level = 1\r\nEnd Sub\r\n");
  project.PutCode("CD", "Sub X(Levels)\r\n  Levels = 1\r\nEnd Sub\r\n");
  struct Counting final : support::ModuleWrapper {
    Counting(platform::CodeModule& inner, std::set<std::string>& read)
        : ModuleWrapper(inner), read_(read) {}
    std::string Lines(std::int32_t start, std::int32_t count) override {
      std::string text = ModuleWrapper::Lines(start, count);
      read_.insert(text.substr(0, text.find('\r')));
      return text;
    }
    std::set<std::string>& read_;
  };
  std::set<std::string> read;
  project.open->Use(std::make_shared<support::WrappedEnvironment>(
      project.open->environment,
      [&](platform::CodeModule& inner) { return std::make_unique<Counting>(inner, read); }));
  EXPECT_EQ(ListPlaces(project.operations().CodeUsesOfAlias(1)),
            "CA:11:15 write T\nCC:2:5 write X\n");
  EXPECT_EQ(read.size(), 3u);
  EXPECT_EQ(read.count("Sub X(Levels)"), 0u);
}

}  // namespace
}  // namespace store
