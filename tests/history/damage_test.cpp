// SPDX-License-Identifier: MIT
// Histories that are damaged, foreign or protected: never a wrong undoing, and work goes on.
#include "history/messages.h"
#include "tests/history/plant.h"

namespace history {
namespace {

// Four operations, each on what the one before made.
class DamagedHistory : public testing::Test {
 protected:
  DamagedHistory() {
    PutPlant(system_);
    Program program(system_);
    const std::int32_t alias = program.AddAlias("Tank1.Level", "Level");
    const std::int32_t formula = program.AddFormula("Fill");
    program.AddArgument(formula, alias);
    before_last_ = StateOf(program, system_);
    program.RenameAlias(alias, "TankLevel");
    last_ = StateOf(program, system_);
  }

  void Check(const std::string& history, const std::string& what) {
    SCOPED_TRACE(what);
    files::MemoryFileSystem system;
    for (const auto& [path, contents] : system_.Snapshot()) system.Put(path, contents);
    system.Put(kHistory, history);
    Program program(system);
    const store::OperationResult result = program.Undo();
    EXPECT_EQ(StateOf(program, system), result.success() ? before_last_ : last_);
    const std::int32_t id = program.AddAlias("Tank2.Level", "Other");
    ASSERT_TRUE(program.Undo().success()) << "goes on behind the damage";
    EXPECT_FALSE(program.operations().FindAlias(id));
  }

  files::MemoryFileSystem system_;
  std::vector<std::string> before_last_, last_;
};

TEST_F(DamagedHistory, CutAtEveryLength) {
  const std::string history = system_.Get(kHistory);
  for (std::size_t length = 0; length < history.size();
       length += length + 150 < history.size() ? 41 : 1) {
    Check(history.substr(0, length), "cut at " + std::to_string(length));
    if (HasFailure()) return;
  }
}

TEST_F(DamagedHistory, MutatedAtEveryPlace) {
  const std::string history = system_.Get(kHistory);
  for (std::size_t at = 0; at < history.size(); at += at < 120 ? 5 : 53) {
    std::string mutated = history;
    mutated[at] = static_cast<char>(mutated[at] ^ (1 << (at % 7)));
    Check(mutated, "byte " + std::to_string(at));
    Check(history.substr(0, at) + "\n" + history.substr(at), "line end at " + std::to_string(at));
    if (HasFailure()) return;
  }
  // Records in another order, one of them twice.
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < history.size();) {
    const std::size_t end = history.find('\n', begin) + 1;
    lines.push_back(history.substr(begin, end - begin));
    begin = end;
  }
  ASSERT_EQ(lines.size(), 5u);
  Check(lines[0] + lines[2] + lines[1] + lines[3] + lines[4], "exchanged");
  Check(lines[0] + lines[1] + lines[2] + lines[4], "one is missing");
  Check(history + lines[4], "one stands twice");
}

TEST(ForeignHistory, IsSetAsideWithAMessageOnce) {
  files::MemoryFileSystem system;
  PutPlant(system);
  system.Put(kHistory, "Dear diary, this is somebody's own file.");
  Program program(system);
  EXPECT_FALSE(program.Undo().success());
  program.AddAlias("Tank1.Level", "Level");
  const auto problems = program.project().history().TakeProblems();
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(problems[0].number(), message::kSetAside.number);
  EXPECT_EQ(system.Get(std::string(kHistory) + ".damaged"),
            "Dear diary, this is somebody's own file.");
  EXPECT_EQ(program.Titles(), (std::vector<std::string>{"Add alias Level"}));
  program.AddAlias("Tank2.Level", "Other");
  EXPECT_TRUE(program.project().history().TakeProblems().empty());
  EXPECT_TRUE(program.Undo().success());
}

TEST(ProtectedHistory, StopsNoWorkAndIsSaidOnce) {
  files::MemoryFileSystem system;
  PutPlant(system);
  Program program(system);
  program.AddAlias("Tank1.Level", "Level");
  const std::string history = system.Get(kHistory);
  system.SetReadOnly(kHistory, true);
  program.AddAlias("Tank2.Level", "Other");
  program.AddAlias("Tank3.Level", "Third");
  EXPECT_EQ(system.Get(kHistory), history);
  EXPECT_EQ(program.project().history().TakeProblems().size(), 1u);
}

// Records that contradict themselves.
TEST(ForgedHistory, OfARowThatGoesTwiceIsRefusedWithThePlace) {
  files::MemoryFileSystem system;
  PutPlant(system);
  Program program(system);
  const std::int32_t id = program.AddAlias("Tank1.Level", "Level");
  HistoryFile& file = program.file();
  Record record;
  file.ForEach([&](Record& last) {
    record = last;
    return false;
  });
  record.rows.push_back(record.rows.at(0));
  const Ends ends = file.ReadEnds().value();
  record.number = ends.last_number + 1;
  std::string bytes = system.Get(kHistory);
  HistoryFile::Write(ends, record, ListedRows(record.rows),
                     [&](std::string_view piece) { bytes += piece; });
  system.Put(kHistory, bytes);
  const store::OperationResult result = program.Undo();
  EXPECT_TRUE(Holds(result, "TvbfAlias #1 has been deleted since")) << support::ToText(result);
  EXPECT_TRUE(program.operations().FindAlias(id));
}

TEST(NoHistory, LeavesNoFile) {
  files::MemoryFileSystem system;
  PutPlant(system);
  project::ProjectOptions options;
  options.with_history = false;
  Program program(system, options);
  program.AddAlias("Tank1.Level", "Level");
  EXPECT_FALSE(system.Exists(kHistory));
  EXPECT_TRUE(program.project().history().TakeProblems().empty());
}

}  // namespace
}  // namespace history
