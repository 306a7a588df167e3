// SPDX-License-Identifier: MIT
// Copies of formulas: names, aliases, items and the words of their code.
#include "exchange/formula_copy.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/exchange/list_text.h"
#include "tests/support/formula_project.h"

namespace exchange {
namespace {

using support::ToText;

TEST(Replacement, TakesTextsButCutsNoNumber) {
  const std::vector<Replacement> pairs = {
      {"Tank1", "Tank2"}, {"Tank2", "Tank3"}, {"Pump", "Valve"}, {"PumpA", "X"}, {"7", "8"}};
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"Tank1", "Tank2"},
      {"Tank1.Level", "Tank2.Level"},
      {"FillTank1_x", "FillTank2_x"},
      {"Tank10", "Tank10"},
      {"Tank1Tank1", "Tank2Tank2"},
      {"tank1", "tank1"},
      {"Tank1 Tank2", "Tank2 Tank3"},
      {"PumpA Pumps", "X Valves"},
      {"17 7 70 7.7", "17 8 70 8.8"},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(Replaced(c.text, pairs), c.expected);
}

TEST(Replacement, InCodeKnowsNamesLiteralsAndComments) {
  const std::vector<std::pair<std::string, std::string>> names = {
      {"FillTank1", "FillTank2"}, {"Tank1_Level", "Tank2_Level"}, {"Level", "Tank2_Level2"}};
  const std::vector<Replacement> pairs = {
      {"Tank1", "Tank2"}, {"Sub", "Super"}, {"a b", "a-b"}, {"Big", "very big"}};
  const struct {
    const char* code;
    const char* expected;
  } cases[] = {
      {"Public Sub FillTank1()", "Public Sub FillTank2()"},
      {"  TANK1_LEVEL = level + Levels", "  Tank2_Level = Tank2_Level2 + Levels"},
      {"x = \"Tank1: \"\"Level\"\" a b\" & Tank1x ' Sub of Tank1, level; Tank10",
       "x = \"Tank2: \"\"Tank2_Level2\"\" a-b\" & Tank2x ' Super of Tank2, Tank2_Level2; Tank10"},
      {"Big = 1 ' Big", "Big = 1 ' very big"},
      {"a\r\n\r\n'Tank1\nEnd Sub\r\n", "a\r\n\r\n'Tank2\nEnd Sub\r\n"},
      {"Tänk1_Level = Tank1_Level", "Tänk1_Level = Tank2_Level"},
  };
  for (const auto& c : cases) EXPECT_EQ(ReplacedInCode(c.code, names, pairs), c.expected);
}

// FillTank1 with two arguments and code.
class FormulaCopyTest : public testing::Test {
 protected:
  FormulaCopyTest() {
    store::Operations& o = project_.operations();
    project_.AddAlias("Tank1.Level", "Tank1_Level");
    project_.AddAlias("Tank1.Pump", "Pump");
    project_.AddAlias("Shift", "Shift");
    o.AddFormula({"FillTank1", "PumpServer.CPump", 2, 50, false, "fills Tank1"});
    const store::ArgumentValues arguments[] = {{1, true, false}, {2, false, true}, {3, true, true}};
    o.AddArguments(1, arguments);
    std::string code = project_.Code("CPump");
    const std::string begin = "Public Sub FillTank1()\r\n";
    code.insert(code.find(begin) + begin.size(), "    Pump = Tank1_Level < Shift ' Tank1\r\n");
    project_.PutCode("CPump", code);
  }

  CopySource Source() {
    CopySource source;
    source.formula = *project_.operations().FindFormula(1);
    source.arguments = project_.operations().ArgumentsOf(1);
    source.code = project_.open->code.FunctionText("PumpServer.CPump", "FillTank1", false);
    return source;
  }

  std::string Copy(store::Operations& operations, const CopySource& source,
                   const CopyRequest& request, ExistingPolicy existing = ExistingPolicy::kError) {
    ImportOptions options;
    options.existing = existing;
    CopyPlan copies = PlanCopies(source, request, operations, options);
    std::string text = ToText(copies.plan);
    if (copies.plan.Count().refused > 0) return text;
    const auto result = Import(copies.plan, operations, {{kTextCopyTitle}}, {});
    EXPECT_TRUE(result.success()) << ToText(result);
    return text;
  }

  support::FormulaProject project_{{{"CPump", ""}, {"CTank", ""}}};
};

TEST_F(FormulaCopyTest, TakesReplacementsInRowsAndCode) {
  const CopyRequest request = {"", "", {{"Tank1", "Tank{2..3}"}}};
  EXPECT_EQ(Copy(project_.operations(), Source(), request),
            "new 0 Tank2_Level [Tank2.Level]\nnew 0 Tank2_Pump [Tank2.Pump]\nunchanged 0 Shift "
            "[Shift]\nnew 0 Tank3_Level [Tank3.Level]\nnew 0 Tank3_Pump [Tank3.Pump]\n"
            "new 0 PumpServer.CPump.FillTank2 [+Tank2_Level +Tank2_Pump +Shift]\n"
            "new 0 PumpServer.CPump.FillTank3 [+Tank3_Level +Tank3_Pump +Shift]\n");
  const auto copy = project_.operations().FindFormula(3);
  ASSERT_TRUE(copy);
  EXPECT_EQ(static_cast<store::FormulaValues>(*copy),
            (store::FormulaValues{"FillTank3", "PumpServer.CPump", 2, 50, false, "fills Tank3"}));
  const std::string code = project_.Code("CPump");
  EXPECT_NE(code.find("'\tTank3_Level\r\n'\tTank3_Pump\r\n'\tShift\r\n"
                      "'********************************************************\r\n"
                      "Public Sub FillTank3()\r\n    Tank3_Pump = Tank3_Level < Shift ' Tank3\r\n"),
            std::string::npos)
      << code;
  EXPECT_NE(code.find("    Pump = Tank1_Level < Shift ' Tank1\r\n"), std::string::npos) << code;
}

TEST_F(FormulaCopyTest, StandsBesideItsSourceUnderAFreeName) {
  EXPECT_EQ(Copy(project_.operations(), Source(), {}),
            "unchanged 0 Tank1_Level [Tank1.Level]\nunchanged 0 Pump [Tank1.Pump]\nunchanged 0 "
            "Shift [Shift]\n"
            "new 0 PumpServer.CPump.FillTank2 [+Tank1_Level +Pump +Shift]\n");
  EXPECT_NE(Copy(project_.operations(), Source(), {"", "CTank", {}})
                .find("new 0 PumpServer.CTank.FillTank1 ["),
            std::string::npos);
  EXPECT_NE(project_.Code("CTank").find("Pump = Tank1_Level < Shift"), std::string::npos);
  EXPECT_THROW(Copy(project_.operations(), Source(), {"A{1..2}", "", {{"1", "{1..3}"}}}),
               messages::Error);
}

TEST_F(FormulaCopyTest, GoesToAnotherProjectByPolicies) {
  const auto other = [] {
    auto project = std::make_unique<support::FormulaProject>(std::map<std::string, std::string>{
        {"CPump", "Public Sub FillTank1()\r\n  x\r\nEnd Sub\r\n"}, {"CMill", ""}});
    project->AddAlias("Other.Item", "Pump");
    return project;
  };
  CopySource source = Source();
  source.is_of_this_project = false;
  auto target = other();
  EXPECT_EQ(Copy(target->operations(), source, {"", "CMill", {}}),
            "new 0 Tank1_Level [Tank1.Level]\n"
            "refused 0 Pump [Tank1.Pump]: Pump exists already, for Other.Item.\n"
            "new 0 Shift [Shift]\n"
            "refused 0 PumpServer.CMill.FillTank1: The argument Pump is refused: The alias Pump is "
            "refused: Pump exists already, for Other.Item.\n");
  EXPECT_NE(Copy(target->operations(), source, {"", "CMill", {}}, ExistingPolicy::kRename)
                .find("FillTank1 [+Tank1_Level +Pump1 +Shift]"),
            std::string::npos);
  EXPECT_NE(target->Code("CMill").find("    Pump1 = Tank1_Level < Shift ' Tank1\r\n"),
            std::string::npos)
      << target->Code("CMill");
  // A procedure that stands there already is nobody's to replace.
  EXPECT_NE(Copy(target->operations(), source, {"", "CPump", {}}, ExistingPolicy::kSkip)
                .find("refused 0 PumpServer.CPump.FillTank1: PumpServer.CPump already holds"),
            std::string::npos);
}

}  // namespace
}  // namespace exchange
