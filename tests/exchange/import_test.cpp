// SPDX-License-Identifier: MIT
// What lists come to in a project: plans, policies, and what is carried out.
#include "exchange/import_plan.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/exchange/list_text.h"
#include "tests/support/formula_project.h"

namespace exchange {
namespace {

using support::ToText;

constexpr const char* kCode =
    "Public Taken As Long\r\nPublic Function Busy()\r\nEnd Function\r\nPublic Sub Mine()\r\nEnd "
    "Sub\r\n";

// CPump with Fill (Level, Pump) and CTank with Fill (Level); aliases Level, Pump and Tank1_Mode.
class ImportTest : public testing::Test {
 protected:
  ImportTest() {
    store::Operations& o = project_.operations();
    project_.AddAlias("T.Level", "Level");
    project_.AddAlias("T.Pump", "Pump");
    project_.AddAlias("Tank1.Mode", "Tank1_Mode");
    o.AddFormula({"Fill", "PumpServer.CPump", 0, 100, true, "c"});
    o.AddFormula({"Fill", "PumpServer.CTank"});
    const store::ArgumentValues both[] = {{1, true, false}, {2, false, true}};
    o.AddArguments(1, both);
    o.AddArguments(2, {both, 1});
    before_ = rows_ = support::RowsOf(o);
  }

  struct Done {
    std::string plan;
    ImportPlan::Counts counts;
    store::OperationResult result;
  };
  Done Import(const std::string& list, const ImportOptions& options = {},
              const store::OperationOptions& operation = {}) {
    const Contents contents = ReadList(list);
    ImportPlan plan = PlanImport(contents, project_.operations(), options);
    EXPECT_EQ(support::RowsOf(project_.operations()), rows_);
    Done done = {ToText(plan), plan.Count(), {}};
    done.result = exchange::Import(plan, project_.operations(), {{kTextImportTitle}}, operation);
    rows_ = support::RowsOf(project_.operations());
    return done;
  }

  // The rows that are not as they were: "-" those before, "+" those now.
  std::string Difference() {
    std::string text;
    const auto now = support::RowsOf(project_.operations());
    for (const auto& row : before_) {
      if (std::ranges::count(now, row) == 0) text += "- " + row + "\n";
    }
    for (const auto& row : now) {
      if (std::ranges::count(before_, row) == 0) text += "+ " + row + "\n";
    }
    return text;
  }

  support::FormulaProject project_{{{"CPump", kCode}, {"CTank", ""}}};
  std::vector<std::string> before_;
  std::vector<std::string> rows_;
};

TEST_F(ImportTest, TakesPoliciesForWhatExists) {
  // Level has another item, pump another letter case; CPump.Fill another comment and arguments.
  const std::string list =
      R"({"aliases": [{"ItemID": "New.Level", "VBAlias": "Level"},
                      {"ItemID": "T.Pump", "VBAlias": "pump"},
                      {"ItemID": "Tank1.Mode", "VBAlias": "Tank1_Mode"},
                      {"ItemID": "T.Flow", "VBAlias": "Flow"}],
          "formulas": [{"Name": "Fill", "ProgID": "PumpServer.CPump", "Comment": "new",
                        "arguments": [{"VBAlias": "Flow", "In": true, "Out": false},
                                      {"VBAlias": "Pump", "In": true, "Out": true}]},
                       {"Name": "Fill", "ProgID": "CTank", "Enabled": true}]})";
  struct Case {
    ExistingPolicy existing;
    ImportPlan::Counts counts;
    std::string difference;
  };
  const Case cases[] = {
      {ExistingPolicy::kError, {1, 0, 2, 3}, "+ alias 4 T.Flow Flow\n"},
      {ExistingPolicy::kSkip, {1, 0, 5, 0}, "+ alias 4 T.Flow Flow\n"},
      {ExistingPolicy::kUpdate,
       {1, 3, 2, 0},
       "- alias 1 T.Level Level\n- alias 2 T.Pump Pump\n"
       "- formula 1 Fill PumpServer.CPump 0 100 1 c\n"
       "- argument 1 of 1 Level 1 0\n- argument 2 of 1 Pump 0 1\n"
       "+ alias 1 New.Level Level\n+ alias 2 T.Pump pump\n+ alias 4 T.Flow Flow\n"
       "+ formula 1 Fill PumpServer.CPump 0 100 1 new\n"
       "+ argument 2 of 1 pump 1 1\n+ argument 4 of 1 Flow 1 0\n"},
      {ExistingPolicy::kRename,
       {4, 0, 2, 0},
       "+ alias 4 New.Level Level1\n+ alias 5 T.Pump pump1\n+ alias 6 T.Flow Flow\n"
       "+ formula 3 Fill1 PumpServer.CPump 0 0 1 new\n"
       "+ argument 4 of 3 Flow 1 0\n+ argument 5 of 3 pump1 1 1\n"},
  };
  const auto files = project_.system.Snapshot();
  for (const Case& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.existing));
    project_.open.reset();
    for (const auto& [path, contents] : files) project_.system.Put(path, contents);
    project_.open.emplace(project_.system);
    rows_ = before_;
    const Done done = Import(list, {c.existing});
    EXPECT_TRUE(done.result.success()) << ToText(done.result);
    EXPECT_EQ(done.counts, c.counts) << done.plan;
    EXPECT_EQ(Difference(), c.difference);
    // Once more, nothing is left to do, whatever the policy; what was refused is so again.
    const Done again = Import(list, {c.existing});
    if (c.existing != ExistingPolicy::kRename) {
      EXPECT_EQ(again.counts.added + again.counts.changed, 0u) << again.plan;
    }
  }
}

TEST_F(ImportTest, BringsCodeIntoStep) {
  const Done done = Import(
      "signal;alias;formula;class;in;out\nT.Level;Level;Halt;CTank;x;\nT.Flow;;Halt;CTank;;x\n"
      "T.Flow;;Fill;CTank;x;\n");
  EXPECT_TRUE(done.result.success()) << ToText(done.result);
  EXPECT_EQ(done.plan,
            "unchanged 2 Level [T.Level]\nnew 2 PumpServer.CTank.Halt [+Level +T_Flow]\n"
            "new 3 T_Flow [T.Flow]\nchanged 4 PumpServer.CTank.Fill [+T_Flow]\n");
  const std::string code = project_.Code("CTank");
  EXPECT_NE(code.find("Public T_Flow as Variant 'T.Flow\r\n"), std::string::npos) << code;
  EXPECT_NE(code.find("'\tLevel\r\n'\tT_Flow\r\n'*****"), std::string::npos) << code;
  EXPECT_NE(code.find("Public Sub Halt()\r\n"), std::string::npos) << code;
}

TEST_F(ImportTest, NamesEachRefusedLine) {
  const std::string aliases =
      "item,alias\nA,B C\nB,\nT.New,Level\nT.A,Same\nT.B,same\nT.A,Same\nX,Dim\n" +
      std::string(256, 'x') + ",Long\nT.Mode,Tank1_Mode\nT.Ok,Ok\nB,\n";
  EXPECT_EQ(
      Import(aliases).plan,
      "refused 2 B C [A]: The Alias does not meet the Visual Basic naming conventions!!! B C "
      "contains the character \" \"; Visual Basic allows only letters, digits and underscores. B_C "
      "would be valid.\n"
      "new 3 B [B]\n"
      "refused 4 Level [T.New]: Level exists already, for T.Level.\n"
      "new 5 Same [T.A]\n"
      "refused 6 same [T.B]: Contradicts line 5: there the item is T.A.\n"
      "refused 7 Same [T.A]: Line 5 already says the same.\n"
      "refused 8 Dim [X]: The Alias does not meet the Visual Basic naming conventions!!! Dim is a "
      "reserved word of Visual Basic. Dim_ would be valid.\n"
      "refused 9 Long [" +
          std::string(256, 'x') +
          "]: ItemID is longer than 255 characters.\n"
          "refused 10 Tank1_Mode [T.Mode]: Tank1_Mode exists already, for Tank1.Mode.\n"
          "new 11 Ok [T.Ok]\n"
          "refused 12  [B]: Line 3 already says the same.\n");
  EXPECT_EQ(
      Import("name,class,type,comment,arguments\n"
             "1F,CPump,,,\nF,,,,\nF,None,,,\nBusy,CPump,,,\nMine,CPump,,,Level:in\n"
             "G,CPump,,,\"Level:in, Lost\"\nH,CPump,,,Taken:in\nI,CPump,6,,Level:in:out\n"
             "J,CPump,,,\"Level, Level:in\"\nK,CPump,,,T.Pump\nmine,CPump,,,\n"
             "Fill,CPump,6,,\n")
          .plan,
      "refused 2 PumpServer.CPump.1F: 1F cannot be the name of a formula. Choose another name. 1F "
      "begins "
      "with a digit; Visual Basic requires a letter.\n"
      "refused 3 F: The class is missing. Choose from: PumpServer.CPump, PumpServer.CTank\n"
      "refused 4 None.F: None cannot hold formulas. That takes a class with Instancing MultiUse or "
      "GlobalMultiUse in an open ActiveX DLL project.\n"
      "refused 5 PumpServer.CPump.Busy: PumpServer.CPump already holds Busy as a Function "
      "(CPump.cls:4). Choose another name, or rename it in the class.\n"
      "new 6 PumpServer.CPump.Mine [+Level]\n"
      "refused 7 PumpServer.CPump.G: The argument Lost is refused: There is no alias Lost. Put it "
      "into the list, or have missing ones created.\n"
      "refused 8 PumpServer.CPump.H: The argument Taken is refused: There is no alias Taken. Put "
      "it into the list, or have missing ones created.\n"
      "refused 9 PumpServer.CPump.I: The argument Level is refused: The Parameter can't be at the "
      "same "
      "time In- and Output Value \r\nif the Function type is 'on Variable Change' Input and return "
      "value at the same "
      "time: Level. Change these arguments first.\n"
      "refused 10 PumpServer.CPump.J: The argument Level is refused: Line 10 already says the "
      "same.\n"
      "refused 11 PumpServer.CPump.K: The argument T.Pump is refused: There is no alias T.Pump. "
      "Put it into the list, or have missing ones created.\n"
      "refused 12 PumpServer.CPump.mine: Line 6 already says the same.\n"
      "refused 13 PumpServer.CPump.Fill: Fill exists already with other values.\n");
}

TEST_F(ImportTest, CreatesMissingAliases) {
  ImportOptions options;
  options.create_aliases = true;
  const Done done = Import(
      "name,class,arguments\nF,CTank,\"Tank9.Level:in, Tank1.Mode, Busy:out\"\n"
      "G,CPump,Busy\n",
      options);
  EXPECT_EQ(done.plan,
            "new 2 Tank9_Level [Tank9.Level]\nnew 2 Busy [Busy]\n"
            "new 2 PumpServer.CTank.F [+Tank9_Level +Tank1_Mode +Busy]\n"
            "refused 3 PumpServer.CPump.G: The argument Busy is refused: PumpServer.CPump already "
            "holds Busy as something else. Choose another alias, or rename it in the class.\n");
  EXPECT_TRUE(done.result.success()) << ToText(done.result);
}

TEST_F(ImportTest, ArgumentsOfSignalsAreAddedOneByOne) {
  const std::string list =
      "alias,formula,class,in,out\nLevel,Fill,CPump,x,\nPump,Fill,CPump,x,x\nTank1_Mode,Fill,CPump,"
      ",\n"
      "Lost,Fill,CPump,,\n";
  EXPECT_EQ(Import(list).plan,
            "changed 2 PumpServer.CPump.Fill [+Tank1_Mode]\n"
            "refused 3 PumpServer.CPump.Fill: The argument Pump exists already with other values.\n"
            "refused 5 PumpServer.CPump.Fill: There is no alias Lost. Put it into the list, or "
            "have missing ones created.\n");
  EXPECT_EQ(Difference(), "+ argument 4 of 1 Tank1_Mode 0 0\n");
  EXPECT_EQ(Import(list, {ExistingPolicy::kUpdate}).counts, (ImportPlan::Counts{0, 1, 0, 1}));
  EXPECT_EQ(Difference(),
            "- argument 2 of 1 Pump 0 1\n+ argument 2 of 1 Pump 1 1\n"
            "+ argument 4 of 1 Tank1_Mode 0 0\n");
}

TEST_F(ImportTest, AFormulaBecomesOneThatForbidsInAndOut) {
  project_.operations().EditArgument(1, {1, true, true});
  before_ = rows_ = support::RowsOf(project_.operations());
  const std::string to_change = "name,class,type,arguments\nFill,CPump,6,\"Level:in, Pump:out\"\n";
  EXPECT_TRUE(Import(to_change, {ExistingPolicy::kUpdate}).result.success());
  const std::string back = "name,class,type,arguments\nFill,CPump,0,\"Level:in:out, Pump:out\"\n";
  EXPECT_TRUE(Import(back, {ExistingPolicy::kUpdate}).result.success());
  EXPECT_EQ(Difference(), "");
}

TEST_F(ImportTest, IsCancelledAsAWhole) {
  store::OperationOptions options;
  std::size_t calls = 0;
  options.progress = [&](std::size_t done, std::size_t total) {
    EXPECT_LE(done, total);
    ++calls;
    return false;
  };
  const auto files = project_.system.Snapshot();
  const Done done = Import("item,alias\nA{1..5000},\n", {}, options);
  EXPECT_EQ(done.result.outcome, store::Outcome::kCancelled);
  EXPECT_EQ(calls, 1u);
  EXPECT_EQ(Difference(), "");
  EXPECT_EQ(project_.system.Snapshot(), files);
}

TEST_F(ImportTest, NeedsNoCode) {
  ImportOptions options;
  options.with_rows_only = true;
  store::OperationOptions rows_only;
  rows_only.with_rows_only = true;
  const Done done = Import("name,class,arguments\nF,Other.CThing,Level:in\n", options, rows_only);
  EXPECT_TRUE(done.result.success()) << ToText(done.result);
  EXPECT_EQ(Difference(), "+ formula 3 F Other.CThing 0 0 1 \n+ argument 4 of 3 Level 1 0\n");
}

}  // namespace
}  // namespace exchange
