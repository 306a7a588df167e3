// SPDX-License-Identifier: MIT
#include "store/operations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "codegen/code_texts.h"
#include "codegen/identifier.h"
#include "platform/text.h"
#include "store/alias_proposals.h"
#include "store/operation_texts.h"
#include "tests/support/formula_project.h"
#include "tests/support/sentence.h"

namespace store {
namespace {

using Ids = std::vector<std::int32_t>;

constexpr const char* kClass = "PumpServer.CPump";
constexpr const char* kClassCode =
    "Option Explicit\r\nPrivate mCount As Long\r\nPublic Sub Tick()\r\nEnd Sub\r\n";

// Aliases Level (1) and Pump (2); formula FillTank (1) with both as arguments 1 and 2, the second
// in and out; formula DrainTank (2) with Level as argument 3.
class OperationsTest : public testing::Test {
 protected:
  OperationsTest() {
    project_.open->items.types = {{"Tank1.Level", 5}, {"Tank1.Pump", 11}};
    const AliasValues aliases[] = {{"Tank1.Level", "Level"}, {"Tank1.Pump", "Pump"}};
    Do(operations().AddAliases(aliases));
    Do(operations().AddFormula({"FillTank", kClass, 0, 0, true, ""}));
    Do(operations().AddFormula({"DrainTank", kClass, 7, 250, false, "drains"}));
    const ArgumentValues fill[] = {{1, true, false}, {2, true, true}};
    const ArgumentValues drain[] = {{1, false, true}};
    Do(operations().AddArguments(1, fill));
    Do(operations().AddArguments(2, drain));
  }

  Operations& operations() { return project_.operations(); }
  static OperationResult Do(OperationResult result) {
    EXPECT_TRUE(result.success()) << support::ToText(result);
    return result;
  }
  FormulaValues Formula(std::int32_t id) { return *operations().FindFormula(id); }
  OperationResult Edit(std::int32_t id, const std::function<void(FormulaValues&)>& change,
                       const EditFormulaOptions& options = {}) {
    FormulaValues values = Formula(id);
    change(values);
    return operations().EditFormula(id, values, options);
  }
  std::string State() {
    std::string state = project_.Code("CPump") + project_.Code("CTank");
    for (const std::string& row : support::RowsOf(operations())) state += row + "\n";
    return state;
  }

  support::FormulaProject project_{{{"CPump", kClassCode}, {"CTank", ""}}};
};

TEST_F(OperationsTest, RefusesWithAMessageAndChangesNothing) {
  const std::string long_name(256, 'a');
  using Call = std::function<OperationResult()>;
  const auto add = [&](const FormulaValues& values) -> Call {
    return [=, this] { return operations().AddFormula(values); };
  };
  const auto edit = [&](std::int32_t id,
                        const std::function<void(FormulaValues&)>& change) -> Call {
    return [=, this] { return Edit(id, change); };
  };
  const auto remove = [&](const Ids& ids) -> Call {
    return [=, this] { return operations().DeleteFormulas(ids); };
  };
  const auto add_argument = [&](std::int32_t formula, ArgumentValues value) -> Call {
    return [=, this] { return operations().AddArguments(formula, {&value, 1}); };
  };
  const auto add_alias = [&](const char* item, std::string name) -> Call {
    return [=, this] {
      const AliasValues values[] = {{item, name}};
      return operations().AddAliases(values);
    };
  };
  const auto edit_alias = [&](std::int32_t id, const AliasValues& values) -> Call {
    return [=, this] { return operations().EditAlias(id, values); };
  };
  const struct {
    const char* what;
    Call operation;
    std::int32_t text;
    const char* detail;  // what the message or the detail line says
  } kCases[] = {
      {"formula: no identifier", add({"a b", kClass}), 1007, "\" \""},
      {"formula: reserved", add({"Next", kClass}), 1007, "reserved"},
      {"formula: leading underscore", add({"_a", kClass}), 1007, "underscore"},
      {"formula: over-long", add({long_name, kClass}), 1007, "255"},
      {"formula: name is there", add({"filltank", kClass}), 1006, kClass},
      {"formula: no such class", add({"A", "PumpServer.CX"}), 1005, "PumpServer.CX"},
      {"formula: no class", add({"A", ""}), 1005, ""},
      {"formula: variable of that name", add({"mCount", kClass}), 1105, "mCount as a variable"},
      {"formula: alias of that name", add({"Level", kClass}), 1105, "as a variable"},
      {"formula: call type", add({"A", kClass, 8}), 1009, "8"},
      {"rename: onto another sub", edit(1, [](auto& v) { v.name = "Tick"; }), 1105, "as a Sub"},
      {"rename: onto another formula", edit(1, [](auto& v) { v.name = "DRAINTANK"; }), 1006,
       "DRAINTANK"},
      {"move: no such class", edit(1, [](auto& v) { v.prog_id = "X.Y"; }), 1005, "X.Y"},
      {"type: argument in and out", edit(1, [](auto& v) { v.type = 6; }), 552, "Pump"},
      {"edit: no such formula",
       [&] {
         return operations().EditFormula(9, {"A", kClass});
       },
       1001, "9"},
      {"delete: no such formula", remove({1, 9}), 1001, "9"},
      {"argument: twice", add_argument(1, {1, true, false}), 1011, "Level"},
      {"argument: no such alias", add_argument(1, {9, true, false}), 1002, "9"},
      {"argument: no such formula", add_argument(9, {1, true, false}), 1001, "9"},
      {"argument: exchanged for one that is there",
       [&] {
         return operations().EditArgument(1, {2, true, false});
       },
       1011, "Pump"},
      {"argument: no such argument",
       [&] {
         return operations().DeleteArguments(Ids{3, 9});
       },
       1003, "9"},
      {"alias: no item", add_alias("  ", "A"), 450, ""},
      {"alias: no name", add_alias("x", " "), 450, ""},
      {"alias: malformed", add_alias("x", "1.a"), 451, "A1_a would be valid"},
      {"alias: reserved", add_alias("x", "Double"), 451,
       "reserved word of Visual Basic. Double_ would be valid"},
      {"alias: over-long", add_alias("x", long_name), 451, "255"},
      {"alias: taken", add_alias("x", "LEVEL"), 1010, "Tank1.Level; free: LEVEL1"},
      {"alias: in use", [&] { return operations().DeleteAliases(Ids{1}); }, 1012, "FillTank"},
      {"alias: no such alias", edit_alias(9, {"a", "b"}), 1002, "9"},
      {"alias: renamed to a sub", edit_alias(1, {"Tank1.Level", "Tick"}), 1016, "Tick"},
  };
  const std::string before = State();
  for (const auto& c : kCases) {
    const OperationResult result = c.operation();
    EXPECT_EQ(result.outcome, Outcome::kRefused) << c.what;
    EXPECT_EQ(ToInt((c.text == 1012 ? result.detail : result.message).number()), c.text)
        << c.what << ": " << support::ToText(result);
    EXPECT_NE(support::ToText(result).find(c.detail), std::string::npos)
        << c.what << ": " << support::ToText(result);
    EXPECT_TRUE(result.rows.empty() && result.ids.empty()) << c.what;
    EXPECT_EQ(State(), before) << c.what;
  }
  EXPECT_EQ(support::Sentence(operations().DeleteAliases(Ids{1}).message),
            "Der zu löschende Alias wird in einer Funktion benutzt. Er kann nicht gelöscht werden");
}

TEST_F(OperationsTest, CallTypeSixForbidsInAndOut) {
  Do(Edit(2, [](auto& v) { v.type = 6; }));
  const ArgumentValues both[] = {{2, true, true}};
  EXPECT_EQ(ToInt(operations().AddArguments(2, both).message.number()), 552);
  EXPECT_EQ(ToInt(operations().EditArgument(3, {1, true, true}).message.number()), 552);
  Do(operations().EditArgument(3, {1, true, false}));
}

TEST_F(OperationsTest, InversesReturnToTheState) {
  const std::string before = State();
  Do(operations().DeleteFormulas({}));
  Do(operations().AddArguments(1, {}));
  // Flags alone change no byte of code.
  const std::string code = project_.Code("CPump");
  Do(operations().EditArgument(1, {1, false, true}));
  EXPECT_EQ(project_.Code("CPump"), code);
  Do(operations().EditArgument(1, {1, true, false}));
  EXPECT_EQ(State(), before);

  Do(Edit(1, [](auto& v) { v.name = "Fill"; }));
  Do(Edit(1, [](auto& v) { v.name = "FillTank"; }));
  EXPECT_EQ(State(), before);

  Do(operations().EditAlias(2, {"Tank2.Pump", "Motor"}));
  EXPECT_NE(project_.Code("CPump").find("Public Motor as Boolean 'Tank2.Pump\r\n"),
            std::string::npos);
  Do(operations().EditAlias(2, {"Tank1.Pump", "Pump"}));
  EXPECT_EQ(State(), before);

  const std::int32_t flow = project_.AddAlias("Tank1.Flow", "Flow");
  const ArgumentValues values[] = {{flow, true, false}};
  const std::int32_t argument = Do(operations().AddArguments(1, values)).id();
  EXPECT_NE(State(), before);
  Do(operations().DeleteArguments(Ids{argument}));
  Do(operations().EditArgument(2, {flow, true, true}));
  Do(operations().EditArgument(2, {2, true, true}));
  Do(operations().DeleteAliases(Ids{flow}));
  EXPECT_EQ(State(), before);
}

// Code that runs, whatever the order of the procedures.
std::vector<std::string> LiveLines(const std::string& code) {
  std::vector<std::string> lines;
  std::istringstream text(code);
  for (std::string line; std::getline(text, line);) {
    if (line != "\r" && !line.starts_with('\'')) lines.push_back(line);
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

TEST_F(OperationsTest, InversesReturnToTheCodeThatRuns) {
  std::string code = project_.Code("CPump");
  project_.PutCode("CPump", code.insert(code.find("Sub DrainTank()\r\n") + 17, "  Level = 1\r\n"));
  const std::vector<std::string> rows = support::RowsOf(operations());
  const std::int32_t added = Do(operations().AddFormula({"Added", kClass})).id();
  const ArgumentValues values[] = {{2, true, false}};
  Do(operations().AddArguments(added, values));
  Do(operations().DeleteFormulas(Ids{added}));
  EXPECT_EQ(support::RowsOf(operations()), rows);
  EXPECT_TRUE(project_.Code("CPump").starts_with(code));
  EXPECT_EQ(LiveLines(project_.Code("CPump")), LiveLines(code));

  EditFormulaOptions with_code;
  with_code.with_code = true;
  const auto move = [&](const char* prog_id) {
    Do(Edit(
        2, [&](FormulaValues& v) { v.prog_id = prog_id; }, with_code));
  };
  move("PumpServer.CTank");
  EXPECT_EQ(LiveLines(project_.Code("CTank")).size(), 4u) << project_.Code("CTank");
  move(kClass);
  EXPECT_EQ(support::RowsOf(operations()), rows);
  EXPECT_EQ(LiveLines(project_.Code("CPump")), LiveLines(code));
  EXPECT_TRUE(LiveLines(project_.Code("CTank")).empty());
}

TEST_F(OperationsTest, SharedDeclarationStaysUntilItsLastUse) {
  const std::string declaration = "Public Level as Double 'Tank1.Level\r\n";
  Do(operations().DeleteArguments(Ids{1}));
  EXPECT_NE(project_.Code("CPump").find(declaration), std::string::npos);
  EXPECT_EQ(ToInt(operations().DeleteAliases(Ids{1}).detail.number()), 1012);
  Do(operations().DeleteFormulas(Ids{2}));
  EXPECT_EQ(project_.Code("CPump").find(declaration), std::string::npos);
  Do(operations().DeleteAliases(Ids{1}));
  EXPECT_EQ(operations().Count().aliases, 1);
  EXPECT_EQ(operations().Count().arguments, 1);
  EXPECT_EQ(operations().Count().formulas, 1);
}

TEST_F(OperationsTest, AnItemThatNobodyKnowsKeepsItsType) {
  project_.open->items.types.clear();
  const auto expect = [&](const OperationResult& result, const char* cls, const char* line,
                          const char* warning) {
    EXPECT_NE(project_.Code(cls).find(std::string(line) + "\r\n"), std::string::npos)
        << project_.Code(cls);
    std::string said;
    for (const messages::Message& w : result.warnings)
      said += ToInt(w.number()) == 1113 ? support::Sentence(w) : "";
    EXPECT_EQ(said.empty(), *warning == 0) << said;
    EXPECT_NE(said.find(warning), std::string::npos) << said;
  };
  expect(Do(operations().EditAlias(1, {"Tank1.Level", "Height"})), "CPump",
         "Public Height as Double 'Tank1.Level", "Height");
  expect(Do(Edit(1, [](auto& v) { v.prog_id = "PumpServer.CTank"; })), "CTank",
         "Public Height as Double 'Tank1.Level", "Height, Pump");
  EXPECT_NE(project_.Code("CTank").find("Public Pump as Boolean 'Tank1.Pump"), std::string::npos);
  // Declared already, or with nothing to keep: not a word.
  expect(Do(Edit(2, [](auto& v) { v.prog_id = "PumpServer.CTank"; })), "CTank",
         "Public Height as Double 'Tank1.Level", "");
  const std::int32_t flow = project_.AddAlias("Tank1.Flow", "Flow");
  const ArgumentValues values[] = {{flow, true, false}};
  expect(Do(operations().AddArguments(2, values)), "CTank", "Public Flow as Variant 'Tank1.Flow",
         "");
  expect(Do(operations().EditAlias(flow, {"Tank1.Flow", "Stream"})), "CTank",
         "Public Stream as Variant 'Tank1.Flow", "");
  // What the catalogue knows is what it says.
  project_.open->items.types = {{"Tank1.Level", 3}};
  expect(Do(operations().EditAlias(1, {"Tank1.Level", "Level"})), "CTank",
         "Public Level as Long 'Tank1.Level", "");
}

TEST_F(OperationsTest, AnEngineersOwnDeclarationStaysAsLongAsItsNameIsUsed) {
  const std::string ours = "Public Level as Double 'Tank1.Level\r\n";
  const std::string own = "Public Level As Single 'in m\r\n";
  std::string code = project_.Code("CPump");
  code.replace(code.find(ours), ours.size(), own);
  project_.PutCode("CPump", code);
  const OperationResult item = Do(operations().EditAlias(1, {"Tank9.Level", "Level"}));
  EXPECT_EQ(project_.Code("CPump"), code);
  ASSERT_EQ(item.warnings.size(), 1u);
  EXPECT_EQ(item.warnings[0].number(), codegen::kTextDeclarationKept);
  // Under another name nothing needs it.
  Do(operations().EditAlias(1, {"Tank9.Level", "Height"}));
  EXPECT_NE(project_.Code("CPump").find("\r\n'" + own), std::string::npos)
      << project_.Code("CPump");
}

// The counter of proposed names ends where a number of 16 bits does.
TEST_F(OperationsTest, ProposalsEnd) {
  const auto names = support::MemoryDatabase::Open(*project_.open->connection, "TvbfFormulas");
  project_.open->connection->BeginTrans();
  const std::string base = project_.open->texts.Text(kTextFormulaBase);
  for (int i = 1; i <= 32767; ++i) {
    if (i != 20000) names->AddNew({"Name", "ProgID"}, {base + std::to_string(i), "P.C"});
  }
  project_.open->connection->CommitTrans();
  EXPECT_EQ(operations().ProposeFormulaName(), base + "20000");
  names->AddNew({"Name", "ProgID"}, {base + "20000", "P.C"});
  EXPECT_THROW(operations().ProposeFormulaName(), platform::Error);
  names->Close();
}

// A scan time below 0 is none; one that the call type does not use is stored with a warning.
TEST_F(OperationsTest, ScanTimes) {
  FormulaValues values = {"Scan", kClass, kAsynchronous, -1};
  EXPECT_EQ(operations().AddFormula(values).message.number(), kTextScanTime);
  values.scan_time = 500;
  const std::int32_t id = Do(operations().AddFormula(values)).id();
  values.type = kBeforeCycle;
  EXPECT_TRUE(Do(operations().EditFormula(id, values)).warnings.empty()) << "it is kept";
  values.scan_time = 600;
  const OperationResult changed = Do(operations().EditFormula(id, values));
  ASSERT_EQ(changed.warnings.size(), 1u);
  EXPECT_EQ(changed.warnings[0].number(), kTextScanTimeUse);
  values.scan_time = -1;
  EXPECT_EQ(operations().EditFormula(id, values).message.number(), kTextScanTime);
}

// Whatever may be stored as an alias: it is declared once, renamed and removed again.
TEST_F(OperationsTest, WhatIsDeclaredIsFoundAgain) {
  const std::string before = project_.Code("CPump");
  for (const char* name :
       {"_stValve", "__", "_1", "\xE2\x82\xAC", "\xC2\xA0x", "Ä_", "x\xC3\x97"}) {
    const std::int32_t alias = project_.AddAlias("#1 'x   _", name);
    const ArgumentValues values[] = {{alias, true, false}};
    const Ids arguments = {Do(operations().AddArguments(1, values)).id(),
                           Do(operations().AddArguments(2, values)).id()};
    const std::string line = std::string("Public ") + name + " as Variant '#1 'x   _'\r\n";
    const auto count = [&](const std::string& code) {
      return std::search(code.begin(), code.end(), line.begin(), line.end()) != code.end();
    };
    std::string code = platform::Windows1252ToUtf8(project_.Code("CPump"));
    EXPECT_TRUE(count(code)) << code;
    EXPECT_FALSE(count(code.substr(code.find(line) + 1))) << "declared twice: " << code;
    Do(operations().EditAlias(alias, {"#1 'x   _", "Renamed"}));
    EXPECT_FALSE(count(platform::Windows1252ToUtf8(project_.Code("CPump")))) << name;
    Do(operations().DeleteArguments(arguments));
    Do(operations().DeleteAliases(Ids{alias}));
    EXPECT_EQ(project_.Code("CPump"), before) << name;
  }
  // A lone underscore is no name, and that is said.
  const AliasValues alias[] = {{"a", "_"}};
  const OperationResult added = Do(operations().AddAliases(alias));
  const ArgumentValues values[] = {{added.id(), true, false}};
  const OperationResult used = Do(operations().AddArguments(1, values));
  ASSERT_EQ(added.warnings.size(), 1u);
  EXPECT_EQ(ToInt(added.warnings[0].number()), 1128);
  ASSERT_EQ(used.warnings.size(), 1u);
  EXPECT_EQ(ToInt(used.warnings[0].number()), 1109);
  Do(operations().DeleteArguments(used.ids));
  EXPECT_EQ(project_.Code("CPump"), before);
}

// Other programs may have stored two formulas of one name in one class.
TEST_F(OperationsTest, AnotherFormulaIsOneOfAnotherNumber) {
  OperationOptions rows_only;
  rows_only.with_rows_only = true;
  const std::int32_t twin = Do(operations().AddFormula({"Twin", "P.C"}, rows_only)).id();
  const ArgumentValues values[] = {{2, true, false}};
  Do(operations().AddArguments(twin, values, rows_only));
  auto row = support::MemoryDatabase::Open(*project_.open->connection,
                                           "SELECT * FROM TvbfFormulas WHERE ID = ?", {twin});
  row->Fields("Name").SetValue("FillTank");
  row->Fields("ProgID").SetValue(kClass);
  row->Update();
  row->Close();
  const std::string declaration = "Public Pump as Boolean 'Tank1.Pump\r\n";
  Do(operations().DeleteArguments(Ids{2}));
  EXPECT_NE(project_.Code("CPump").find(declaration), std::string::npos);
  Do(operations().DeleteFormulas(Ids{twin}));
  EXPECT_EQ(project_.Code("CPump").find(declaration), std::string::npos);
}

TEST_F(OperationsTest, AnswersForItsOwnFormula) {
  codegen::CVBFormulaCode& code = project_.open->code;
  int asked = 0;
  code.SetNeedFunctionName([&](std::string& name) { ++asked, name = "FillTank"; });
  const ArgumentValues values[] = {{2, true, false}};
  Do(operations().AddArguments(2, values));
  EXPECT_NE(code.GetFunctionCommentHeader("DrainTank", kClass).find("'\tPump\r\n"),
            std::string::npos);
  EXPECT_EQ(asked, 0);
  // The window answers again, also after an operation that failed.
  EXPECT_FALSE(operations().AddArguments(2, values).success());
  code.AddParameter(kClass, "Pump", "Tank1.Pump");
  EXPECT_EQ(asked, 1);
}

TEST_F(OperationsTest, AliasInUseNamesTheFormulas) {
  codegen::CVBFormulaCode& code = project_.open->code;
  using Uses = std::vector<codegen::AliasUse>;
  EXPECT_EQ(code.AliasInUse(1), (Uses{{"FillTank", kClass}, {"DrainTank", kClass}}));
  EXPECT_EQ(code.AliasInUse(2), (Uses{{"FillTank", kClass}}));
  EXPECT_TRUE(code.AliasInUse(project_.AddAlias("Tank1.Spare", "Spare")).empty());
  EXPECT_TRUE(code.AliasInUse(99).empty());
}

TEST_F(OperationsTest, GeneratorWritesNothingThatStands) {
  const std::string before = State();
  codegen::CVBFormulaCode& code = project_.open->code;
  platform::UnitOfWorkScope unit(project_.open->unit);
  code.AddFunction(kClass, "filltank", "");
  code.RenameFunction(kClass, "FillTank", "FillTank");
  code.AddParameter(kClass, "Level", "Tank1.Level");
  code.RenameParameter(kClass, "Level", "Level", {2, "DrainTank", 1, 1});
  code.RenameAlias(1, "Level", "Level", "Tank1.Level");
  code.RebuildFunctionCommentHeader("DrainTank", kClass);
  code.ReplaceFunctionCommentHeader("DrainTank", kClass,
                                    code.GetFunctionCommentHeader("DrainTank", kClass));
  files::ChangeSet changes;
  project_.open->environment->Collect(changes);
  EXPECT_TRUE(changes.files.empty()) << *changes.files[0].after;
  EXPECT_TRUE(code.TakeWarnings().empty());
  unit.Commit();
  EXPECT_EQ(State(), before);
}

// Somebody changed rows and left the code alone: what is switched off lists what it used.
TEST_F(OperationsTest, ASwitchedOffCopyListsItsArguments) {
  OperationOptions rows_only;
  rows_only.with_rows_only = true;
  const ArgumentValues values[] = {{2, true, false}};
  Do(operations().AddArguments(2, values, rows_only));
  Do(Edit(2, [](auto& v) { v.prog_id = "PumpServer.CTank"; }));
  const std::string listed = "'\tLevel\r\n'\tPump\r\n'" + std::string(56, '*') + "\r\n";
  EXPECT_NE(project_.Code("CPump").find(listed + "'Public Sub DrainTank()"), std::string::npos)
      << project_.Code("CPump");
  const std::int32_t flow = project_.AddAlias("Tank1.Flow", "Flow");
  const ArgumentValues more[] = {{flow, true, false}};
  Do(operations().AddArguments(1, more, rows_only));
  Do(operations().DeleteFormulas(Ids{1}));
  EXPECT_NE(project_.Code("CPump").find("'\tFlow\r\n"), std::string::npos);
}

TEST_F(OperationsTest, HintsSayWhyAValidNameMayNotDo) {
  const struct {
    const char* name;
    std::int32_t refused;  // text, 0 for none
    std::int32_t hint;     // text of the warning, 0 for none
  } kCases[] = {{"Fresh", 0, 0},  {"_a", 0, 1124}, {"a\u20AC", 0, 1125}, {"level", 1010, 0},
                {"Next", 451, 0}, {"a b", 451, 0}, {" ", 450, 0}};
  for (const auto& c : kCases) {
    const OperationResult result = operations().CheckAlias({"item", c.name});
    EXPECT_EQ(ToInt(result.message.number()), c.refused) << c.name;
    EXPECT_EQ(result.warnings.empty() ? 0 : ToInt(result.warnings[0].number()), c.hint) << c.name;
    const AliasValues values[] = {{"item", c.name}};
    const OperationResult added = operations().AddAliases(values);
    EXPECT_EQ(ToInt(added.message.number()), c.refused) << c.name;
    EXPECT_EQ(added.warnings.empty() ? 0 : ToInt(added.warnings[0].number()), c.hint) << c.name;
  }
  EXPECT_TRUE(operations().CheckAlias({"item", "LEVEL"}, 1).success()) << "its own name";
  EXPECT_EQ(ToInt(operations().CheckFormulaName("Next").message.number()), 1007);
  EXPECT_TRUE(operations().CheckFormulaName("FillTank").success());
}

TEST_F(OperationsTest, AClassIsListedWhileItHasFormulas) {
  std::vector<std::string>& calls = project_.open->components.calls;
  calls.clear();
  Do(operations().DeleteFormulas(Ids{1}));
  EXPECT_TRUE(calls.empty());
  Do(operations().DeleteFormulas(Ids{2}));
  const std::vector<std::string> removed = {"Open Plant",
                                            "Remove FormulaComponents PumpServer.CPump", "Commit"};
  EXPECT_EQ(calls, removed);
}

TEST_F(OperationsTest, WarnsOfUsesOfANameThatIsGone) {
  std::string code = project_.Code("CPump");
  code.insert(code.find("Sub FillTank()\r\n") + 16, "    Pump = Level > 1 'Pump\r\n");
  project_.PutCode("CPump", code);
  const OperationResult result = Do(operations().DeleteArguments(Ids{2}));
  ASSERT_EQ(result.warnings.size(), 1u) << support::ToText(result);
  EXPECT_EQ(support::Sentence(result.warnings[0]), "CPump.cls:13 still uses Pump");
}

TEST_F(OperationsTest, RefusesNamesOfTypesAndElements) {
  project_.PutCode("CTank", "Private Enum EMode\r\n  Manual\r\nEnd Enum\r\n");
  const std::int32_t manual = project_.AddAlias("Tank1.Manual", "Manual");
  const std::int32_t formula = Do(operations().AddFormula({"Mix", "PumpServer.CTank"})).id();
  const ArgumentValues values[] = {{manual, true, false}};
  EXPECT_EQ(ToInt(operations().AddArguments(formula, values).message.number()), 1016);
  const auto refused = operations().AddFormula({"emode", "PumpServer.CTank"});
  EXPECT_EQ(ToInt(refused.message.number()), 1105);
  EXPECT_NE(support::ToText(refused).find("a type or an enumeration"), std::string::npos)
      << support::ToText(refused);
}

TEST_F(OperationsTest, MovesOntoASubOnlyIfItCanBeAFormula) {
  const auto move = [&](const char* declaration) {
    project_.PutCode("CTank", std::string(declaration) + "\r\nEnd Sub\r\n");
    return Edit(1, [](auto& v) { v.prog_id = "PumpServer.CTank"; });
  };
  const std::pair<const char*, std::int32_t> kRefused[] = {{"Public Sub FillTank(x)", 1114},
                                                           {"Private Sub FillTank()", 1115}};
  for (const auto& [declaration, text] : kRefused) {
    const std::string before = project_.Code("CPump");
    EXPECT_EQ(ToInt(move(declaration).message.number()), text);
    EXPECT_EQ(Formula(1).prog_id, kClass);
    EXPECT_EQ(project_.Code("CPump"), before);
    EXPECT_EQ(project_.Code("CTank"), std::string(declaration) + "\r\nEnd Sub\r\n");
  }
  EXPECT_EQ(Do(move("Sub FillTank()")).warnings.size(), 2u);
}

TEST_F(OperationsTest, AbsentCodeIsAWarningAndNoProjectARefusal) {
  project_.PutCode("CPump", "Option Explicit\r\n");
  const OperationResult result = Do(Edit(1, [](auto& v) { v.comment = "c", v.name = "Fill"; }));
  ASSERT_EQ(result.warnings.size(), 1u) << support::ToText(result);
  EXPECT_EQ(ToInt(result.warnings[0].number()), 1102);
  EXPECT_EQ(Do(operations().DeleteFormulas(Ids{2})).warnings.size(), 1u);

  project_.open->Use(nullptr);
  const std::string before = State();
  EXPECT_EQ(ToInt(Edit(1, [](auto& v) { v.name = "Other"; }).message.number()), 1004);
  EXPECT_EQ(ToInt(operations().DeleteFormulas(Ids{1}).message.number()), 1004);
  EXPECT_EQ(ToInt(operations().EditAlias(1, {"x", "Other"}).message.number()), 1004);
  EXPECT_EQ(State(), before);
  Do(Edit(1, [](auto& v) { v.comment = "needs no code"; }));
  EditFormulaOptions rows_only;
  rows_only.with_rows_only = true;
  Do(Edit(
      1, [](auto& v) { v.name = "Other", v.prog_id = "Else.Where"; }, rows_only));
  EXPECT_EQ(Formula(1).prog_id, "Else.Where");
}

TEST_F(OperationsTest, RowsOnlyLeavesTheCodeAlone) {
  const std::string code = project_.Code("CPump");
  OperationOptions options;
  options.with_rows_only = true;
  Do(operations().DeleteFormulas(Ids{1}, options));
  Do(operations().EditAlias(1, {"a", "Renamed"}, options));
  EXPECT_EQ(project_.Code("CPump"), code);
  EXPECT_EQ(operations().FindAlias(1)->vb_alias, "Renamed");
}

TEST_F(OperationsTest, DryRunSaysWhatWouldChange) {
  const std::string before = State();
  OperationOptions options;
  options.dry_run = true;
  int inspected = 0;
  options.inspect = [&] {
    ++inspected;
    files::ChangeSet changes;
    project_.open->environment->Collect(changes);
    EXPECT_EQ(changes.files.size(), 1u);
  };
  const OperationResult result = Do(operations().DeleteFormulas(Ids{1}, options));
  EXPECT_EQ(inspected, 1);
  ASSERT_EQ(result.rows.size(), 3u);
  EXPECT_EQ(result.rows[0].kind, RowChange::Kind::kDeleted);
  EXPECT_EQ(result.rows[0].table, "TvbfParams");
  EXPECT_EQ(result.rows[2].table, "TvbfFormulas");
  EXPECT_EQ(result.rows[2].members[1].first, "Name");
  EXPECT_EQ(result.rows[2].members[1].second, platform::Variant("FillTank"));
  EXPECT_EQ(State(), before);
  EXPECT_EQ(project_.open->components.calls.size(), 6u);
}

TEST_F(OperationsTest, OneRowIsReportedOnce) {
  const OperationResult result =
      Do(Edit(2, [](auto& v) { v.name = "Drain", v.prog_id = "PumpServer.CTank"; }));
  ASSERT_EQ(result.rows.size(), 1u);
  EXPECT_EQ(result.rows[0].kind, RowChange::Kind::kChanged);
  EXPECT_EQ(result.rows[0].members[1].second, platform::Variant("Drain"));
  EXPECT_EQ(result.rows[0].members[2].second, platform::Variant("PumpServer.CTank"));
}

TEST_F(OperationsTest, CancelPutsEverythingBack) {
  const std::string before = State();
  OperationOptions options;
  options.progress = [](std::size_t done, std::size_t total) { return done * 2 < total; };
  const OperationResult result = operations().DeleteFormulas(Ids{1, 2}, options);
  EXPECT_EQ(result.outcome, Outcome::kCancelled);
  EXPECT_EQ(State(), before);
}

TEST_F(OperationsTest, ManyObjectsAreOneUnit) {
  std::vector<AliasValues> aliases;
  aliases.reserve(50);
  for (int i = 0; i < 50; ++i) {
    aliases.push_back({"Item" + std::to_string(i), "Many" + std::to_string(i)});
  }
  const OperationResult added = Do(operations().AddAliases(aliases));
  std::vector<ArgumentValues> arguments;
  for (const std::int32_t id : added.ids) arguments.push_back({id, true, false});
  const std::string before = project_.Code("CPump");
  const OperationResult result = Do(operations().AddArguments(1, arguments));
  EXPECT_NE(project_.Code("CPump").find("'\tMany49\r\n'***"), std::string::npos);
  Do(operations().DeleteArguments(result.ids));
  EXPECT_EQ(project_.Code("CPump"), before);

  // One that cannot be done undoes all.
  aliases = {{"a", "Fresh"}, {"b", "Fresh"}};
  EXPECT_EQ(ToInt(operations().AddAliases(aliases).message.number()), 1010);
  EXPECT_FALSE(operations().FindAliasByName("Fresh"));
}

TEST_F(OperationsTest, ALineThatCannotBecomeACommentStopsTheOperation) {
  std::string code = project_.Code("CPump");
  const std::string line = "  x = \"" + std::string(1015, 'a') + "\"\r\n";  // 1,023 characters
  project_.PutCode("CPump", code.insert(code.find("Sub FillTank()\r\n") + 16, line));
  const std::string before = State();
  const OperationResult result = operations().DeleteFormulas(Ids{1});
  EXPECT_EQ(result.outcome, Outcome::kRefused);
  EXPECT_NE(support::Sentence(result.detail).find("line 15 of /plant/CPump.cls has 1024"),
            std::string::npos)
      << support::ToText(result);
  EXPECT_EQ(State(), before);
}

TEST_F(OperationsTest, AStoredClassThatIsGoneCanBeLeft) {
  EditFormulaOptions rows_only;
  rows_only.with_rows_only = true;
  Do(Edit(
      1, [](auto& v) { v.prog_id = "Gone.CPump"; }, rows_only));
  const OperationResult result = Do(Edit(1, [](auto& v) { v.prog_id = "PumpServer.CTank"; }));
  ASSERT_FALSE(result.warnings.empty());
  EXPECT_EQ(ToInt(result.warnings[0].number()), 1100);
  EXPECT_NE(project_.Code("CTank").find("Public Sub FillTank()"), std::string::npos);
}

TEST_F(OperationsTest, ClassListNamesWhatCanHoldFormulas) {
  const std::string long_name = "C" + std::string(40, 'x');
  support::FormulaProject project({{"CPump", ""}, {long_name, ""}});
  project.system.Put("/plant/Other.vbp",
                     "Type=Exe\r\nClass=CPump; CPump.cls\r\nName=\"Other\"\r\n");
  project.open->environment->Open("/plant/Other.vbp");
  const ClassList list = project.operations().Classes();
  ASSERT_EQ(list.classes.size(), 2u);
  EXPECT_EQ(list.classes[0].prog_id, kClass);
  EXPECT_EQ(list.classes[0].file, support::ClassPath("CPump"));
  EXPECT_EQ(list.classes[1].prog_id, "PumpServer." + long_name);
  ASSERT_EQ(list.warnings.size(), 1u);
  EXPECT_NE(support::Sentence(list.warnings[0]).find(long_name), std::string::npos);
  EXPECT_EQ(support::Sentence(list.warnings[0]).find("<ClassNames>"), std::string::npos);
}

TEST(NameProposalTest, TakesTheFirstFreeNumber) {
  support::FormulaProject project;
  Operations& operations = project.operations();
  OperationOptions rows_only;
  rows_only.with_rows_only = true;
  EXPECT_EQ(operations.ProposeFormulaName(), "Formula1");
  for (const char* name : {"FORMULA1", "Formula3", "Formula04", "Formula2x", "Formula99999"}) {
    operations.AddFormula({name, "P.C"}, rows_only);
  }
  EXPECT_EQ(operations.ProposeFormulaName(), "Formula2");
  operations.AddFormula({"formula2", "P.C"}, rows_only);
  EXPECT_EQ(operations.ProposeFormulaName(), "Formula4");
}

TEST(NameProposalTest, AliasesAreUniqueAsInANaiveModel) {
  support::FormulaProject project;
  std::mt19937 random(7);
  std::map<std::string, std::int32_t> model;  // folded name
  const char* const kItems[] = {"a.b", "A/B", "1x", "Ä", "ä", "a_b1", "a_b2", "_x", "x"};
  const auto first_free = [&](const std::string& clean, std::int32_t own) {
    std::string free = clean;
    for (int n = 1;; ++n) {
      const auto found = model.find(platform::FoldCase(free));
      if (found == model.end() || (own != 0 && found->second == own)) return free;
      free = clean + std::to_string(n);
    }
  };
  for (int i = 0; i < 200; ++i) {
    const std::string item = kItems[random() % std::size(kItems)];
    std::int32_t own = 0;
    if (!model.empty() && random() % 3 == 0) {
      own = std::next(model.begin(), static_cast<int>(random() % model.size()))->second;
    }
    const std::string clean = codegen::CleanIdentifier(item);
    const std::string expected = first_free(clean, own);
    std::string cleaned = item;
    ASSERT_EQ(project.open->code.VBConformItemName(cleaned, own), expected) << item;
    ASSERT_EQ(cleaned, clean);
    ASSERT_EQ(project.operations().ProposeAlias(item, own), expected);
    if (random() % 2 == 0 && own == 0) {
      model[platform::FoldCase(expected)] = project.AddAlias(item, expected);
    }
  }
  EXPECT_GT(model.size(), 20u);
  // Many at once, some of them named by the caller.
  AliasProposals proposals(project.operations());
  for (int i = 0; i < 200; ++i) {
    const std::string item = kItems[random() % std::size(kItems)];
    const std::string expected = first_free(codegen::CleanIdentifier(item), 0);
    if (random() % 4 == 0) {
      proposals.Take(expected);
    } else {
      ASSERT_EQ(proposals.Propose(item), expected);
    }
    model[platform::FoldCase(expected)] = 0;
  }
}

}  // namespace
}  // namespace store
