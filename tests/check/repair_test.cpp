// SPDX-License-Identifier: MIT
// What a repair changes, and that it stops there.
#include "check/repair.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/check/faults.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/project_state.h"

namespace check {
namespace {

RepairResult RepairAll(CheckedProject& project, store::OperationOptions options = {}) {
  return Repair(project.MakeParts(), project.Find(), {}, std::move(options));
}

class RepairFaultTest : public testing::TestWithParam<Fault> {};

TEST_P(RepairFaultTest, MendsWhatItCanAndNothingElse) {
  const Fault& fault = GetParam();
  CheckedProject project;
  fault.make(project);
  const auto before = project.Lines();
  store::OperationOptions dry;
  dry.dry_run = true;
  const RepairResult tried = RepairAll(project, dry);
  EXPECT_TRUE(tried.operation.success()) << support::ToText(tried.operation);
  EXPECT_EQ(project.Lines(), before);

  const RepairResult result = RepairAll(project);
  EXPECT_TRUE(result.operation.success()) << support::ToText(result.operation);
  EXPECT_EQ(Changes(before, project.Lines()), fault.repaired);
  const std::string all = *fault.repaired == '\0' ? fault.findings : "";
  const std::string left = fault.left ? fault.left : all;
  EXPECT_EQ(Describe(result.left), left);
  EXPECT_EQ(Describe(tried.left), left);
  EXPECT_EQ(Describe(project.Find()), left);
  EXPECT_EQ(result.mended.empty(), *fault.repaired == '\0');

  const auto once = project.project().system.Snapshot();
  const RepairResult again = RepairAll(project);
  EXPECT_TRUE(again.operation.success() && again.operation.rows.empty() && again.mended.empty());
  EXPECT_EQ(project.project().system.Snapshot(), once) << "a second repair changed something";
}

INSTANTIATE_TEST_SUITE_P(Projects, RepairFaultTest, testing::ValuesIn(Faults()),
                         [](const auto& param) { return std::string(param.param.name); });

// Faults that can stand in one project.
void MakeMany(CheckedProject& project) {
  for (const Fault& fault : Faults()) {
    for (const char* name : {"ArgumentOfNoFormula", "ArgumentOfNoAlias", "SubOfNoFormula",
                             "HeaderListsOthers", "OtherItem", "DeclarationNobodyUses"}) {
      if (fault.name == std::string_view(name)) fault.make(project);
    }
  }
}

TEST(Repair, OfAllAtOnceIsThatOfOneRuleAfterTheOther) {
  CheckedProject together;
  MakeMany(together);
  ASSERT_TRUE(RepairAll(together).operation.success());
  EXPECT_EQ(Describe(together.Find({Severity::kWarning, {&rule::kNoArgumentOfUse}, {}})), "");
  CheckedProject apart;
  MakeMany(apart);
  for (const Rule* rule : Rules()) {
    std::vector<Finding> findings = apart.Find();
    std::erase_if(findings, [&](const Finding& finding) { return finding.rule != rule; });
    ASSERT_TRUE(Repair(apart.MakeParts(), findings, {}).operation.success()) << rule->code;
  }
  EXPECT_EQ(Changes(together.Lines(), apart.Lines()), "");
}

std::string StateOf(files::FileSystem& system) {
  return support::StateOf(system, {"CPump", "CTank"});
}

store::OperationResult RepairOver(files::FileSystem& system) {
  support::OpenProject project(system);
  const Parts parts = CheckedProject::PartsOf(project);
  return Repair(parts, Find(parts), {}).operation;
}

TEST(Repair, IsDoneOrNotWhenFilesFailOrTheProgramIsKilled) {
  CheckedProject project;
  MakeMany(project);
  const support::Files start = project.project().system.Snapshot();
  files::MemoryFileSystem done;
  support::Restore(done, start);
  const std::string before = StateOf(done);
  ASSERT_TRUE(RepairOver(done).success());
  const std::string after = StateOf(done);
  ASSERT_NE(before, after);
  for (const auto length : {files::Fault::Length::kOnce, files::Fault::Length::kLasting,
                            files::Fault::Length::kCrash}) {
    int tried = 0;
    for (int n = 5;; n += std::getenv("OV_LONG") ? 1 : 5, ++tried) {
      SCOPED_TRACE("step " + std::to_string(n));
      files::MemoryFileSystem memory;
      support::Restore(memory, start);
      files::FailingFileSystem failing(memory);
      failing.Arm({{files::Operation::kWrite, files::Operation::kRename, files::Operation::kSync,
                    files::Operation::kRead},
                   n,
                   length});
      bool success = false;
      try {
        success = RepairOver(failing).success();
      } catch (const std::exception&) {
        // The project could not even be opened.
      }
      // A class that cannot be looked at is left and told; the next repair finds just that.
      if (success && StateOf(memory) != after) {
        EXPECT_TRUE(RepairOver(memory).success());
        EXPECT_EQ(StateOf(memory), after);
      }
      const std::string state = StateOf(memory);
      EXPECT_TRUE(state == after || (state == before && !success)) << state;
      if (!failing.fired() || HasFailure()) break;
    }
    EXPECT_GT(tried, 2);
  }
}

TEST(Repair, IsPutBackWhereItIsStopped) {
  CheckedProject project;
  project.Exchange("CTank", "as Double", "As Long");
  const auto findings = project.Find();
  ASSERT_EQ(findings.size(), 1u);
  const auto before = project.project().system.Snapshot();
  int calls = 0, last = 0;
  store::OperationOptions options;
  options.progress = [&](std::size_t, std::size_t) { return ++calls != last; };
  options.dry_run = true;
  EXPECT_TRUE(Repair(project.MakeParts(), findings, {}, options).operation.success());
  options.dry_run = false;
  const int all = calls;
  EXPECT_GE(all, 4) << "also while all is looked at again";
  for (last = 1; last <= all; ++last) {
    calls = 0;
    EXPECT_EQ(Repair(project.MakeParts(), findings, {}, options).operation.outcome,
              store::Outcome::kCancelled);
    EXPECT_EQ(project.project().system.Snapshot(), before) << last;
  }
  calls = 0;
  EXPECT_TRUE(Repair(project.MakeParts(), findings, {}, options).operation.success());
  EXPECT_EQ(Describe(project.Find()), "");
}

}  // namespace
}  // namespace check
