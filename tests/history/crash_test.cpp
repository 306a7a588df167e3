// SPDX-License-Identifier: MIT
// History and project never disagree, wherever a program dies or the power is cut; and several
// programs on one project share its history.
#include <random>

#include "tests/history/plant.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/forgetting_file_system.h"

namespace history {
namespace {

using enum files::Operation;

// Each operation adds one row.
std::size_t RowsIn(Program& program) {
  const store::Statistics count = program.operations().Count();
  return static_cast<std::size_t>(count.formulas + count.arguments + count.aliases);
}

void Check(files::MemoryFileSystem& medium) {
  Program program(medium);
  const std::vector<std::string> titles = program.Titles();
  ASSERT_EQ(titles.size(), RowsIn(program)) << testing::PrintToString(titles);
  const bool declared =
      medium.Get(support::ClassPath("CPump")).find("Public Level") != std::string::npos;
  EXPECT_EQ(declared, titles.size() >= 3);
  const std::size_t rows = RowsIn(program);
  const store::OperationResult undone = program.Undo();
  EXPECT_TRUE(undone.success()) << support::ToText(undone);
  EXPECT_EQ(RowsIn(program), rows - 1);
  EXPECT_TRUE(program.Redo().success());
}

TEST(Crash, LeavesHistoryAndProjectInStep) {
  std::mt19937 random(5);
  files::MemoryFileSystem plant;
  PutPlant(plant);
  const std::set<files::Operation> writing = {kWrite,  kTruncate, kSync,         kRename,
                                              kRemove, kLock,     kSyncDirectory};
  for (int n = 1;; ++n) {
    SCOPED_TRACE(n);
    files::ForgettingFileSystem disk;
    for (const auto& [path, contents] : plant.Snapshot()) disk.Put(path, contents);
    files::FailingFileSystem system(disk);
    {
      Program program(system);
      const std::int32_t alias = program.AddAlias("Tank1.Level", "Level");
      const std::int32_t formula = program.AddFormula("Fill");
      system.Arm({writing, n, files::Fault::Length::kCrash});
      const store::ArgumentValues values[] = {{alias, true, false}};
      if (program.operations().AddArguments(formula, values).success()) {
        const store::AliasValues other[] = {{"Tank2.Level", "Other"}};
        program.operations().AddAliases(other);
      }
    }
    for (int cut = 0; cut < 4; ++cut) Check(*disk.AfterPowerCut(random));
    Check(disk.now());
    if (!system.fired() || testing::Test::HasFailure()) break;
  }
}

// A failure that does not kill the program puts all back, or leaves it all done.
TEST(Failure, LeavesHistoryAndProjectInStep) {
  for (const auto length : {files::Fault::Length::kOnce, files::Fault::Length::kLasting}) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE(n);
      files::MemoryFileSystem medium;
      PutPlant(medium);
      files::FailingFileSystem system(medium);
      {
        Program program(system);
        const std::int32_t alias = program.AddAlias("Tank1.Level", "Level");
        const std::int32_t formula = program.AddFormula("Fill");
        system.Arm({{kWrite, kSync, kRename}, n, length, files::ErrorKind::kFull});
        const store::ArgumentValues values[] = {{alias, true, false}};
        program.operations().AddArguments(formula, values);
        system.Disarm();
      }
      Check(medium);
      if (!system.fired() || testing::Test::HasFailure()) break;
    }
  }
}

TEST(SeveralPrograms, ShareOneHistory) {
  files::MemoryFileSystem system;
  PutPlant(system);
  Program one(system), other(system);
  const std::int32_t alias = one.AddAlias("Tank1.Level", "Level");
  const std::int32_t formula = other.AddFormula("Fill");
  one.AddArgument(formula, alias);
  EXPECT_EQ(other.Titles(), (std::vector<std::string>{"Add argument Level of Fill",
                                                      "Add formula Fill", "Add alias Level"}));
  ASSERT_TRUE(other.Undo().success());
  ASSERT_TRUE(one.Undo().success());
  EXPECT_EQ(one.Titles(),
            (std::vector<std::string>{"Undo: Add formula Fill", "Undo: Add argument Level of Fill",
                                      "(Add argument Level of Fill)", "(Add formula Fill)",
                                      "Add alias Level"}));
  ASSERT_TRUE(other.Redo().success());
  ASSERT_TRUE(one.Redo().success());
  EXPECT_EQ(one.operations().ArgumentsOf(formula).size(), 1u);
  EXPECT_EQ(other.Titles(), one.Titles());
}

}  // namespace
}  // namespace history
