// SPDX-License-Identifier: MIT
// Every operation, with a fault at each of its steps: files and rows are as before or as after,
// and the result says which. And every operation repeated.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>

#include "tests/store/operation_cases.h"
#include "tests/support/code_model_wrappers.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/forgetting_file_system.h"
#include "tests/support/project_state.h"

namespace store {
namespace {

using support::Restore;

// The step that is tried after the n-th; all of them take a while.
int NextStep(int n) { return n + (std::getenv("OV_LONG") ? 1 : 13); }

class OperationFaultsTest : public testing::TestWithParam<OperationCase> {
 protected:
  OperationFaultsTest() : start_(StartFiles()) {
    Restore(memory_, start_);
    before_ = StateOf(memory_);
    files::MemoryFileSystem other;
    Restore(other, start_);
    {
      support::OpenProject project(other);
      const OperationResult result = GetParam().operation(*project.operations);
      EXPECT_TRUE(result.success()) << support::ToText(result);
    }
    after_ = StateOf(other);
    EXPECT_NE(before_, after_);
  }

  // What an operation came to whose files failed.
  struct Attempt {
    OperationResult result;
    bool fired = false;
    std::string rows;           // as the program that goes on has them; only asked for on wish
    bool list_changed = false;  // the component list
  };
  // Runs the operation over files of which an operation fails. Then they work again.
  static Attempt Try(files::FileSystem& system, const files::Fault& fault, bool goes_on) {
    files::FailingFileSystem failing(system);
    support::OpenProject project(failing);
    failing.Arm(fault);
    Attempt attempt;
    attempt.result = GetParam().operation(*project.operations);
    attempt.fired = failing.fired();
    attempt.list_changed = std::ranges::count(project.components.calls, "Commit") > 0;
    if (goes_on) {
      failing.Disarm();
      for (const std::string& row : support::RowsOf(*project.operations)) {
        attempt.rows += row + "\n";
      }
    }
    return attempt;
  }

  void ExpectOneOfBoth(files::FileSystem& system, const Attempt& attempt) {
    const std::string state = StateOf(system);
    EXPECT_TRUE(state == after_ || (state == before_ && !attempt.result.success()))
        << support::ToText(attempt.result) << "\n"
        << state;
  }

  support::Files start_;
  files::MemoryFileSystem memory_;
  std::string before_;
  std::string after_;
};

TEST_P(OperationFaultsTest, AFileFailsOnce) {
  int tried = 0;
  for (int n = 1;; n = NextStep(n), ++tried) {
    SCOPED_TRACE("step " + std::to_string(n));
    files::MemoryFileSystem memory;
    Restore(memory, start_);
    files::Fault fault;
    fault.n = n;
    fault.short_writes = n % 2 == 0;
    const Attempt attempt = Try(memory, fault, true);
    const bool done = attempt.result.success();
    EXPECT_EQ(StateOf(memory), done ? after_ : before_) << support::ToText(attempt.result);
    EXPECT_TRUE((done ? after_ : before_).starts_with(attempt.rows));
    if (!done) {
      EXPECT_FALSE(attempt.result.message.empty());
      EXPECT_TRUE(attempt.result.rows.empty() && attempt.result.ids.empty());
      EXPECT_FALSE(attempt.list_changed);
    }
    EXPECT_TRUE(attempt.fired || done);
    if (!attempt.fired || HasFailure()) break;
  }
  EXPECT_GT(tried, 3);
}

// Nothing can be put back then either: the next start does it.
TEST_P(OperationFaultsTest, FilesFailFromAStepOnOrTheProgramIsKilled) {
  for (const auto length : {files::Fault::Length::kLasting, files::Fault::Length::kCrash}) {
    int tried = 0;
    for (int n = length == files::Fault::Length::kCrash ? 2 : 5;; n = NextStep(n), ++tried) {
      SCOPED_TRACE("step " + std::to_string(n) +
                   (length == files::Fault::Length::kCrash ? " crash" : ""));
      files::MemoryFileSystem memory;
      Restore(memory, start_);
      files::Fault fault;
      fault.n = n;
      fault.length = length;
      fault.short_writes = n % 2 == 0;
      const Attempt attempt = Try(memory, fault, false);
      ExpectOneOfBoth(memory, attempt);
      if (!attempt.fired || HasFailure()) break;
    }
    EXPECT_GE(tried, 3);
  }
}

TEST_P(OperationFaultsTest, ThePowerIsCut) {
  std::mt19937 random(4);
  int tried = 0;
  for (int n = 3;; n = NextStep(n), ++tried) {
    SCOPED_TRACE("step " + std::to_string(n));
    files::ForgettingFileSystem disk;
    Restore(disk, start_);
    files::Fault fault;
    fault.n = n;
    fault.length = files::Fault::Length::kCrash;
    const Attempt attempt = Try(disk, fault, false);
    for (int state = 0; state < 3; ++state) ExpectOneOfBoth(*disk.AfterPowerCut(random), attempt);
    if (!attempt.fired || HasFailure()) break;
  }
  EXPECT_GT(tried, 3);
}

TEST_P(OperationFaultsTest, RepeatedItChangesNothing) {
  support::OpenProject project(memory_);
  ASSERT_TRUE(GetParam().operation(*project.operations).success());
  const OperationResult again = GetParam().operation(*project.operations);
  EXPECT_NE(again.outcome, Outcome::kFileProblem) << support::ToText(again);
  EXPECT_TRUE(again.rows.empty() && again.warnings.empty()) << support::ToText(again);
  EXPECT_EQ(StateOf(memory_), after_);
}

TEST_P(OperationFaultsTest, CodeFailsAtEveryEdit) {
  support::OpenProject project(memory_);
  int edits = 0;
  int failing_edit = 0;
  project.Use(std::make_shared<support::WrappedEnvironment>(
      project.environment, [&](platform::CodeModule& inner) {
        return std::make_unique<support::FailingModule>(inner, [&] {
          if (++edits == failing_edit) {
            throw platform::Error(platform::ErrorKind::kIo, platform::kErrModuleNotEditable,
                                  messages::Message::Verbatim("The module cannot be edited."));
          }
        });
      }));
  for (failing_edit = 1;; ++failing_edit) {
    edits = 0;
    const OperationResult result = GetParam().operation(*project.operations);
    if (result.success()) break;
    ASSERT_EQ(result.outcome, Outcome::kFileProblem);
    ASSERT_EQ(result.detail, messages::Message::Verbatim("The module cannot be edited."));
    ASSERT_EQ(StateOf(memory_), before_) << "edit " << failing_edit;
  }
  EXPECT_EQ(StateOf(memory_), after_);
  EXPECT_EQ(failing_edit > 1, GetParam().edits_code);
}

INSTANTIATE_TEST_SUITE_P(Operations, OperationFaultsTest, testing::ValuesIn(OperationCases()),
                         [](const auto& param) { return std::string(param.param.name); });

}  // namespace
}  // namespace store
