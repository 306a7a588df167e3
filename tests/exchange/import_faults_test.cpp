// SPDX-License-Identifier: MIT
// A large import with a fault at its steps: files are as before or as after, and the answer says
// which.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

#include "exchange/import_plan.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/forgetting_file_system.h"
#include "tests/support/project_state.h"

namespace exchange {
namespace {

using support::Files;
using support::Restore;

// 1,500 signals of 30 formulas in three classes, among aliases and formulas that are there.
std::string List() {
  std::string list = "item,alias,formula,class,in\n";
  for (int formula = 0; formula < 30; ++formula) {
    const std::string number = std::to_string(formula);
    list += "T" + number + ".{1..50},T" + number + "_{1..50},Fill" + number + ",C" +
            std::to_string(formula % 3) + ",x\n";
  }
  return list;
}

Files StartFiles() {
  files::MemoryFileSystem system;
  support::PutProject(
      system, {{"C0", "Option Explicit\r\n"}, {"C1", "' mine\r\n"}, {"C2", "' theirs\r\n"}});
  support::PutDatabase(system);
  {
    support::OpenProject project(system);
    const store::AliasValues alias[] = {{"T0.1", "T0_1"}};
    project.operations->AddAliases(alias);
    project.operations->AddFormula({"Fill0", "PumpServer.C0"});
  }
  return system.Snapshot();
}

store::OperationResult Import(support::OpenProject& project) {
  const Contents contents = ReadList(List());
  try {
    ImportPlan plan = PlanImport(contents, *project.operations, {});
    // A class that cannot be read refuses its lines, and they stop the import.
    if (plan.Count().refused == 0) {
      return exchange::Import(plan, *project.operations, {{kTextImportTitle}}, {});
    }
    store::OperationResult refused;
    refused.outcome = store::Outcome::kRefused;
    return refused;
  } catch (const std::exception&) {
    // The plan could not be made.
    store::OperationResult result;
    result.outcome = store::Outcome::kFileProblem;
    return result;
  }
}

std::string StateOf(files::FileSystem& system) {
  return support::StateOf(system, {"C0", "C1", "C2"});
}

// The steps are thousands; some of them, not always the same ones.
int NextStep(int n) { return n + (std::getenv("OV_LONG") ? 7 : 1 + n / 3); }

class ImportFaults : public testing::Test {
 protected:
  ImportFaults() : start_(StartFiles()) {
    files::MemoryFileSystem memory;
    Restore(memory, start_);
    before_ = StateOf(memory);
    {
      support::OpenProject project(memory);
      const store::OperationResult result = Import(project);
      EXPECT_TRUE(result.success()) << support::ToText(result);
    }
    after_ = StateOf(memory);
  }

  Files start_;
  std::string before_, after_;
};

TEST_F(ImportFaults, AFileFailsOnceOrTheProgramIsKilled) {
  for (const auto length : {files::Fault::Length::kOnce, files::Fault::Length::kCrash}) {
    int tried = 0;
    for (int n = 2;; n = NextStep(n), ++tried) {
      SCOPED_TRACE("step " + std::to_string(n));
      files::MemoryFileSystem memory;
      Restore(memory, start_);
      files::FailingFileSystem failing(memory);
      bool fired = false, done = false;
      {
        support::OpenProject project(failing);
        files::Fault fault;
        fault.n = n;
        fault.length = length;
        fault.short_writes = n % 2 == 0;
        failing.Arm(fault);
        done = Import(project).success();
        fired = failing.fired();
      }
      const std::string state = StateOf(memory);
      EXPECT_TRUE(state == after_ || (state == before_ && !done));
      if (!fired || HasFailure()) break;
    }
    EXPECT_GT(tried, 10);
  }
}

TEST_F(ImportFaults, ThePowerIsCut) {
  std::mt19937 random(4);
  for (int n = 3;; n = NextStep(2 * n)) {
    SCOPED_TRACE("step " + std::to_string(n));
    files::ForgettingFileSystem disk;
    Restore(disk, start_);
    files::FailingFileSystem failing(disk);
    bool fired = false, done = false;
    {
      support::OpenProject project(failing);
      files::Fault fault;
      fault.n = n;
      fault.length = files::Fault::Length::kCrash;
      failing.Arm(fault);
      done = Import(project).success();
      fired = failing.fired();
    }
    for (int i = 0; i < 2; ++i) {
      const std::string state = StateOf(*disk.AfterPowerCut(random));
      EXPECT_TRUE(state == after_ || (state == before_ && !done));
    }
    if (!fired || HasFailure()) break;
  }
}

}  // namespace
}  // namespace exchange
