// SPDX-License-Identifier: MIT
// Every operation, with a fault at each of its steps: files and rows are as before or as after,
// and the result says which.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <map>
#include <string>

#include "files/failing_file_system.h"
#include "tests/support/code_model_wrappers.h"
#include "tests/support/formula_project.h"

namespace store {
namespace {

using Ids = std::vector<std::int32_t>;

struct Case {
  const char* name;
  std::function<OperationResult(Operations&)> operation;
};

std::vector<Case> Cases() {
  return {
      {"AddFormula",
       [](Operations& o) {
         return o.AddFormula({"Added", "PumpServer.CTank", 1, 2, true, "c"});
       }},
      {"RenameAndMove",
       [](Operations& o) {
         EditFormulaOptions options;
         options.with_code = true;
         return o.EditFormula(1, {"Renamed", "PumpServer.CTank", 3, 0, true, "c"}, options);
       }},
      {"DeleteFormulas",
       [](Operations& o) {
         return o.DeleteFormulas(Ids{1, 2});
       }},
      {"AddArguments",
       [](Operations& o) {
         const ArgumentValues values[] = {{2, true, false}, {3, false, true}};
         return o.AddArguments(2, values);
       }},
      {"EditArgument",
       [](Operations& o) {
         return o.EditArgument(1, {3, false, true});
       }},
      {"DeleteArguments",
       [](Operations& o) {
         return o.DeleteArguments(Ids{1, 2, 3});
       }},
      {"AddAliases",
       [](Operations& o) {
         const AliasValues values[] = {{"a", "Alpha"}, {"b", "Beta"}};
         return o.AddAliases(values);
       }},
      {"EditAlias",
       [](Operations& o) {
         return o.EditAlias(1, {"New.Item", "NewName"});
       }},
      {"DeleteAliases", [](Operations& o) { return o.DeleteAliases(Ids{3}); }},
  };
}

// Level (1), Pump (2), Flow (3); FillTank (1) with Level and Pump, DrainTank (2) in the other
// class with Level.
std::map<std::string, std::string> StartFiles() {
  files::MemoryFileSystem system;
  support::PutProject(system, {{"CPump", "Option Explicit\r\n"}, {"CTank", "' mine\r\n"}});
  support::PutDatabase(system);
  {
    support::OpenProject project(system);
    Operations& operations = *project.operations;
    const AliasValues aliases[] = {{"T.Level", "Level"}, {"T.Pump", "Pump"}, {"T.Flow", "Flow"}};
    operations.AddAliases(aliases);
    operations.AddFormula({"FillTank", "PumpServer.CPump"});
    operations.AddFormula({"DrainTank", "PumpServer.CTank"});
    const ArgumentValues both[] = {{1, true, false}, {2, true, false}};
    operations.AddArguments(1, both);
    operations.AddArguments(2, {both, 1});
  }
  return system.Snapshot();
}

void Restore(files::MemoryFileSystem& system, const std::map<std::string, std::string>& files) {
  for (const auto& [path, contents] : files) system.Put(path, contents);
}

// Code and rows, as somebody sees them who opens the project now.
std::string StateOf(files::FileSystem& system) {
  support::OpenProject project(system);
  std::string state;
  for (const std::string& row : support::RowsOf(*project.operations)) state += row + "\n";
  for (const char* name : {"CPump", "CTank"}) {
    platform::CodeModule& module =
        *project.environment->FindProject("PumpServer")->FindComponent(name)->Module();
    state += module.Lines(1, module.CountOfLines()) + "\n";
  }
  return state;
}

class OperationFaultsTest : public testing::TestWithParam<Case> {
 protected:
  OperationFaultsTest() {
    const std::map<std::string, std::string> files = StartFiles();
    Restore(memory_, files);
    before_ = StateOf(memory_);
    files::MemoryFileSystem other;
    Restore(other, files);
    {
      support::OpenProject project(other);
      const OperationResult result = GetParam().operation(*project.operations);
      EXPECT_TRUE(result.success()) << support::ToText(result);
    }
    after_ = StateOf(other);
    EXPECT_NE(before_, after_);
    start_ = files;
  }

  files::MemoryFileSystem memory_;
  std::map<std::string, std::string> start_;
  std::string before_;
  std::string after_;
};

TEST_P(OperationFaultsTest, FilesFailAtEveryStep) {
  // All of them take a while; some of them every time.
  const int stride = std::getenv("OV_LONG") ? 1 : 7;
  bool ran_without_fault = false;
  for (int n = 1; !ran_without_fault && n < 2000; n += stride) {
    files::MemoryFileSystem memory;
    Restore(memory, start_);
    files::FailingFileSystem failing(memory);
    OperationResult result;
    bool fired = false;
    {
      support::OpenProject project(failing);
      files::Fault fault;
      fault.n = n;
      failing.Arm(fault);
      result = GetParam().operation(*project.operations);
      fired = failing.fired();
      failing.Disarm();
      if (fired) {
        // The project goes on working with what stands in the files.
        std::string rows;
        for (const std::string& row : support::RowsOf(*project.operations)) rows += row + "\n";
        EXPECT_TRUE((result.success() ? after_ : before_).starts_with(rows))
            << "fault " << n << ' ' << support::ToText(result);
      }
    }
    EXPECT_EQ(StateOf(memory), result.success() ? after_ : before_)
        << "fault " << n << ' ' << support::ToText(result);
    if (!result.success()) {
      EXPECT_NE(result.outcome, Outcome::kDone);
      EXPECT_FALSE(result.message.empty());
    }
    ran_without_fault = !fired;
    if (HasFailure()) break;
  }
  EXPECT_TRUE(ran_without_fault);
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
                                  "The module cannot be edited.");
          }
        });
      }));
  for (failing_edit = 1;; ++failing_edit) {
    edits = 0;
    const OperationResult result = GetParam().operation(*project.operations);
    if (result.success()) break;
    ASSERT_EQ(result.outcome, Outcome::kFileProblem);
    ASSERT_EQ(result.detail, "The module cannot be edited.");
    ASSERT_EQ(StateOf(memory_), before_) << "edit " << failing_edit;
  }
  EXPECT_EQ(StateOf(memory_), after_);
}

INSTANTIATE_TEST_SUITE_P(Operations, OperationFaultsTest, testing::ValuesIn(Cases()),
                         [](const auto& param) { return std::string(param.param.name); });

}  // namespace
}  // namespace store
