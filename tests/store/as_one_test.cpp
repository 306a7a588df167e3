// SPDX-License-Identifier: MIT
// Several operations as one unit of work.
#include <gtest/gtest.h>

#include "tests/support/formula_project.h"

namespace store {
namespace {

constexpr messages::Pattern kTitle{messages::kNoText, "Import <File>"};

class AsOne : public testing::Test {
 protected:
  OperationResult Run(const std::function<OperationResult()>& steps,
                      const OperationOptions& options = {}) {
    return operations().AsOne({kTitle, {{"<File>", "plant.csv"}}}, steps, options);
  }
  // An alias, a formula and its argument, each by an operation of its own.
  OperationResult AddThree() {
    const AliasValues alias[] = {{"Tank1.Level", "Level"}};
    const std::int32_t alias_id = operations().AddAliases(alias).id();
    const std::int32_t formula_id = operations().AddFormula({"Fill", "PumpServer.CPump"}).id();
    const ArgumentValues argument[] = {{alias_id, true, false}};
    return operations().AddArguments(formula_id, argument);
  }
  std::string Files() {
    return project_.system.Get(support::kDatabasePath) +
           project_.system.Get(support::ClassPath("CPump"));
  }
  Operations& operations() { return project_.operations(); }

  support::FormulaProject project_;
};

TEST_F(AsOne, IsOneUnitWithOneTitleAndCodeThatFollows) {
  const OperationResult result = Run([&] { return AddThree(); });
  ASSERT_TRUE(result.success()) << support::ToText(result);
  EXPECT_EQ(result.rows.size(), 3u);
  EXPECT_EQ(result.ids.size(), 1u);
  EXPECT_EQ(project_.open->unit.title().English(), "Import plant.csv");
  const std::string code = project_.Code("CPump");
  EXPECT_NE(code.find("Public Level as Variant 'Tank1.Level"), std::string::npos) << code;
  EXPECT_NE(code.find("'\tLevel\r\n'***"), std::string::npos) << code;
  EXPECT_TRUE(operations().AddFormula({"Other", "PumpServer.CPump"}).success());
  EXPECT_EQ(project_.open->unit.title().Text("<Name>"), "Other");
}

TEST_F(AsOne, GoesOnBehindAPartThatWasRefused) {
  const OperationResult result = Run([&] {
    AddThree();
    // The second alias is refused when the first is a row already.
    const AliasValues two[] = {{"Tank1.Pump", "Pump"}, {"Tank2.Level", "Level"}};
    EXPECT_EQ(operations().AddAliases(two).outcome, Outcome::kRefused);
    EXPECT_EQ(operations().DeleteFormulas(std::vector<std::int32_t>{1, 7}).outcome,
              Outcome::kRefused);
    const AliasValues last[] = {{"Tank3.Flow", "Flow"}};
    return operations().AddAliases(last);
  });
  ASSERT_TRUE(result.success()) << support::ToText(result);
  EXPECT_EQ(result.rows.size(), 4u);
  EXPECT_FALSE(operations().FindAliasByName("Pump"));
  EXPECT_TRUE(operations().FindAliasByName("Flow"));
  EXPECT_EQ(operations().ArgumentsOf(1).size(), 1u);
  EXPECT_NE(project_.Code("CPump").find("Public Sub Fill()"), std::string::npos);
}

TEST_F(AsOne, PutsAllBackWhenItsAnswerIsNotDoneOrItIsADryRun) {
  const std::string before = Files();
  const OperationResult refused = Run([&] {
    EXPECT_TRUE(AddThree().success());
    return operations().DeleteAliases(std::vector<std::int32_t>{99});
  });
  EXPECT_EQ(refused.outcome, Outcome::kRefused);
  EXPECT_NE(support::ToText(refused).find("99"), std::string::npos) << support::ToText(refused);
  EXPECT_TRUE(refused.rows.empty());
  EXPECT_EQ(Files(), before);

  OperationOptions dry;
  dry.dry_run = true;
  const OperationResult shown = Run(
      [&] {
        OperationResult result = AddThree();
        // A row that comes and goes is none.
        const AliasValues passing[] = {{"Tank9.X", "Passing"}};
        const std::int32_t id = operations().AddAliases(passing).id();
        EXPECT_TRUE(operations().DeleteAliases({&id, 1}).success());
        return result;
      },
      dry);
  ASSERT_TRUE(shown.success()) << support::ToText(shown);
  EXPECT_EQ(shown.rows.size(), 3u);
  EXPECT_EQ(Files(), before);
}

}  // namespace
}  // namespace store
