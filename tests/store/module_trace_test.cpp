// SPDX-License-Identifier: MIT
// A class through the life of its formulas: the module's text after each operation, in both
// languages and under both ownerships of lines.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "tests/support/code_model_wrappers.h"
#include "tests/support/formula_project.h"
#include "tests/support/sentence.h"

namespace store {
namespace {

// A line each, CR LF behind every one. "@Name" is a header's first three lines, "@@" its rule.
class ModuleTraceTest
    : public testing::TestWithParam<std::tuple<texts::Language, bool /* documented */>> {
 protected:
  static constexpr const char* kClass = "PumpServer.CPump";

  std::string Expected(std::string_view lines) const {
    const std::string rule = "'" + std::string(56, '*');
    std::string text;
    while (!lines.empty()) {
      const std::size_t end = lines.find('\n');
      const std::string line(lines.substr(0, end));
      lines.remove_prefix(end + 1);
      if (line == "@@") {
        text += rule + "\r\n";
      } else if (line.starts_with('@')) {
        const std::string name = line.substr(1);
        text += "\r\n" + rule + "\r\n";
        text += std::get<0>(GetParam()) == texts::Language::kEnglish
                    ? "'OrvanaStudio Formula '" + name + "'\r\n'Arguments:\r\n"
                    : "'OrvanaStudio Formel \"" + name + "\"\r\n'Argumente:\r\n";
      } else {
        text += line + "\r\n";
      }
    }
    return text;
  }

  void Start(const std::string& code) {
    project_.emplace(std::map<std::string, std::string>{{"CPump", code}, {"CTank", ""}},
                     std::get<0>(GetParam()));
    if (std::get<1>(GetParam())) {
      project_->open->Use(support::WithDocumentedOwnership(project_->open->environment));
    }
    project_->open->items.types = {{"Tank1.Level", 5}, {"Tank1.Pump", 11}};
  }
  std::int32_t Add(const std::string& name, const std::string& prog_id = kClass) {
    const OperationResult result = operations().AddFormula({name, prog_id, 0, 0, true, ""});
    EXPECT_TRUE(result.success()) << support::ToText(result);
    return result.id();
  }
  OperationResult AddArgument(std::int32_t formula, std::int32_t alias) {
    const ArgumentValues values[] = {{alias, true, false}};
    OperationResult result = operations().AddArguments(formula, values);
    EXPECT_TRUE(result.success()) << support::ToText(result);
    return result;
  }
  void Rename(std::int32_t id, const std::string& name) {
    FormulaValues values = *operations().FindFormula(id);
    values.name = name;
    const OperationResult result = operations().EditFormula(id, values);
    EXPECT_TRUE(result.success()) << support::ToText(result);
  }
  OperationResult Move(std::int32_t id, const std::string& prog_id, bool with_code = false) {
    FormulaValues values = *operations().FindFormula(id);
    values.prog_id = prog_id;
    EditFormulaOptions options;
    options.with_code = with_code;
    OperationResult result = operations().EditFormula(id, values, options);
    EXPECT_TRUE(result.success()) << support::ToText(result);
    return result;
  }
  void Delete(std::int32_t id) {
    const std::int32_t ids[] = {id};
    const OperationResult result = operations().DeleteFormulas(ids);
    EXPECT_TRUE(result.success()) << support::ToText(result);
  }
  void Replace(const std::string& from, const std::string& to) {
    std::string code = project_->Code("CPump");
    const std::size_t at = code.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    project_->PutCode("CPump", code.replace(at, from.size(), to));
  }
  Operations& operations() { return project_->operations(); }

  std::optional<support::FormulaProject> project_;
};

TEST_P(ModuleTraceTest, FollowsEveryOperation) {
  const std::string declarations = "Option Explicit\n\nPrivate mCount As Long\n";
  const std::string tick =
      "\n' Housekeeping, written by the engineer\nPublic Sub Tick()\n    mCount = mCount + 1\n"
      "End Sub\n";
  Start(Expected(declarations + tick));
  const std::int32_t level = project_->AddAlias("Tank1.Level", "Level");
  const std::int32_t pump = project_->AddAlias("Tank1.Pump", "Pump");

  const std::int32_t fill = Add("FillTank");
  const std::string fill_empty = "@FillTank\n@@\nPublic Sub FillTank()\n\nEnd Sub\n";
  EXPECT_EQ(project_->Code("CPump"), Expected(declarations + tick + fill_empty));

  const std::int32_t drain = Add("DrainTank");
  EXPECT_EQ(project_->Code("CPump"),
            Expected(declarations + tick + fill_empty +
                     "@DrainTank\n@@\nPublic Sub DrainTank()\n\nEnd Sub\n"));

  AddArgument(drain, level);
  const std::string with_level = declarations + "Public Level as Double 'Tank1.Level\n" + tick;
  EXPECT_EQ(project_->Code("CPump"),
            Expected(with_level + fill_empty +
                     "@DrainTank\n'\tLevel\n@@\nPublic Sub DrainTank()\n\nEnd Sub\n"));

  Replace("Sub FillTank()\r\n", "Sub FillTank()\r\n    Pump = True");
  Replace("Sub DrainTank()\r\n", "Sub DrainTank()\r\n    If Level > 10 Then Pump = False");
  Rename(drain, "EmptyTank");
  const std::string fill_full = "@FillTank\n@@\nPublic Sub FillTank()\n    Pump = True\nEnd Sub\n";
  const std::string empty_body =
      "@@\nPublic Sub EmptyTank()\n    If Level > 10 Then Pump = False\nEnd Sub\n";
  EXPECT_EQ(project_->Code("CPump"),
            Expected(with_level + fill_full + "@EmptyTank\n'\tLevel\n" + empty_body));

  Delete(fill);
  const std::string fill_off =
      "@FillTank\n@@\n'Public Sub FillTank()\n'    Pump = True\n'End Sub\n";
  EXPECT_EQ(project_->Code("CPump"),
            Expected(with_level + fill_off + "@EmptyTank\n'\tLevel\n" + empty_body));

  AddArgument(drain, pump);
  const std::string both = declarations +
                           "Public Level as Double 'Tank1.Level\n"
                           "Public Pump as Boolean 'Tank1.Pump\n" +
                           tick + fill_off + "@EmptyTank\n'\tLevel\n'\tPump\n" + empty_body;
  EXPECT_EQ(project_->Code("CPump"), Expected(both));

  Add("FillTank");
  EXPECT_EQ(project_->Code("CPump"), Expected(both + fill_empty));
}

TEST_P(ModuleTraceTest, KeepsTheSwitchedOffTailOfTheModule) {
  Start("Option Explicit\r\n");
  const std::int32_t fill = Add("FillTank");
  Replace("Sub FillTank()\r\n", "Sub FillTank()\r\n    Pump = True");
  Delete(fill);
  const std::string off =
      "Option Explicit\n@FillTank\n@@\n'Public Sub FillTank()\n'    Pump = True\n'End Sub\n";
  EXPECT_EQ(project_->Code("CPump"), Expected(off));
  Add("FillTank");
  EXPECT_EQ(project_->Code("CPump"),
            Expected(off + "@FillTank\n@@\nPublic Sub FillTank()\n\nEnd Sub\n"));
}

TEST_P(ModuleTraceTest, MovesToAnotherClassAndBack) {
  Start("Option Explicit\r\n");
  const std::int32_t level = project_->AddAlias("Tank1.Level", "Level");
  const std::int32_t fill = Add("FillTank");
  AddArgument(fill, level);
  Replace("Sub FillTank()\r\n", "Sub FillTank()\r\n    Level = 1");

  const OperationResult moved = Move(fill, "PumpServer.CTank");
  ASSERT_EQ(moved.warnings.size(), 1u) << support::ToText(moved);
  EXPECT_NE(support::Sentence(moved.warnings[0]).find("PumpServer.CPump"), std::string::npos);
  const std::string off =
      "Option Explicit\n@FillTank\n'\tLevel\n@@\n'Public Sub FillTank()\n'    Level = 1\n'End "
      "Sub\n";
  EXPECT_EQ(project_->Code("CPump"), Expected(off));
  EXPECT_EQ(project_->Code("CTank"),
            Expected("Public Level as Double 'Tank1.Level\n@FillTank\n'\tLevel\n@@\n"
                     "Public Sub FillTank()\n\nEnd Sub\n"));

  std::string code = project_->Code("CTank");
  project_->PutCode("CTank", code.replace(code.find("()\r\n\r\n") + 4, 0, "  Level = 2"));
  EXPECT_TRUE(Move(fill, kClass, true).warnings.empty());
  EXPECT_EQ(project_->Code("CPump"),
            Expected("Option Explicit\nPublic Level as Double 'Tank1.Level\n" + off.substr(16) +
                     "@FillTank\n'\tLevel\n@@\nPublic Sub FillTank()\n  Level = 2\nEnd Sub\n"));
  EXPECT_EQ(project_->Code("CTank"),
            Expected("@FillTank\n'\tLevel\n@@\n'Public Sub FillTank()\n'  Level = 2\n'End Sub\n"));
}

INSTANTIATE_TEST_SUITE_P(LanguagesAndOwnership, ModuleTraceTest,
                         testing::Combine(testing::Values(texts::Language::kGerman,
                                                          texts::Language::kEnglish),
                                          testing::Bool()));

}  // namespace
}  // namespace store
