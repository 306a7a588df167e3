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

// Of an operation whose record does not fit into the room for some hundred.
constexpr std::size_t kMany = 220;

std::vector<store::AliasValues> ManyAliases() {
  std::vector<store::AliasValues> values;
  for (std::size_t i = 0; i < kMany; ++i) {
    const std::string name = "Many" + std::to_string(i);
    values.push_back({name + std::string(240, '.'), name});
  }
  return values;
}

// Each operation adds one row, or kMany at once.
std::size_t OperationsIn(Program& program) {
  const store::Statistics count = program.operations().Count();
  const int changed = count.formulas + count.arguments + count.aliases;
  const auto rows = static_cast<std::size_t>(changed);
  return rows >= kMany ? rows - kMany + 1 : rows;
}

void Check(files::MemoryFileSystem& medium, std::size_t unrecorded = 0) {
  Program program(medium);
  const std::vector<std::string> titles = program.Titles();
  const std::size_t operations = OperationsIn(program);
  ASSERT_LE(titles.size(), operations) << testing::PrintToString(titles);
  ASSERT_GE(titles.size() + unrecorded, operations) << testing::PrintToString(titles);
  const bool declared =
      medium.Get(support::ClassPath("CPump")).find("Public Level") != std::string::npos;
  EXPECT_EQ(declared, program.operations().Count().arguments > 0);
  const store::OperationResult undone = program.Undo();
  EXPECT_TRUE(undone.success()) << support::ToText(undone);
  EXPECT_EQ(OperationsIn(program), operations - 1);
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
        program.operations().AddAliases(ManyAliases());
        const store::AliasValues other[] = {{"Tank2.Level", "Other"}};
        program.operations().AddAliases(other);
      }
    }
    for (int cut = 0; cut < 4; ++cut) Check(*disk.AfterPowerCut(random));
    Check(disk.now());
    if (!system.fired() || testing::Test::HasFailure()) break;
  }
}

// What the window offers to undo is the operation that the history has under that number.
void ExpectOffered(Program& program, const std::string& title) {
  EXPECT_EQ(program.Titles().front(), title);
  const auto done = program.project().history().TakeDone();
  ASSERT_TRUE(done.has_value());
  EXPECT_EQ(done->number, NewestEntries(program.file(), 1).entries.front().record.number);
}

// A failure that does not kill the program puts all back, or leaves it all done; what comes next is
// recorded as if nothing had been. Records alone may be missing where the medium was full; those
// that were there stay.
TEST(Failure, LeavesHistoryAndProjectInStep) {
  std::mt19937 random(7);
  files::MemoryFileSystem plant;
  PutPlant(plant);
  for (const auto length : {files::Fault::Length::kOnce, files::Fault::Length::kLasting}) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE(n);
      files::ForgettingFileSystem disk;
      for (const auto& [path, contents] : plant.Snapshot()) disk.Put(path, contents);
      files::FailingFileSystem system(disk);
      {
        Program program(system);
        const std::int32_t alias = program.AddAlias("Tank1.Level", "Level");
        const std::int32_t formula = program.AddFormula("Fill");
        system.Arm({{kWrite, kTruncate, kSync, kRename}, n, length, files::ErrorKind::kFull, true});
        const store::ArgumentValues values[] = {{alias, true, false}};
        program.operations().AddArguments(formula, values);
        program.operations().AddAliases(ManyAliases());
        const store::AliasValues still_full[] = {{"Tank3.Level", "Third"}};
        program.operations().AddAliases(still_full);
        system.Disarm();
        program.AddAlias("Tank2.Level", "Other");
        ExpectOffered(program, "Add alias Other");
        EXPECT_FALSE(disk.Exists(kHistory + std::string(".damaged")));
        Check(*disk.AfterPowerCut(random), 3);
      }
      Check(disk.now(), 3);
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
