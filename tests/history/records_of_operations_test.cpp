// SPDX-License-Identifier: MIT
// What leaves a record, and what stands in it.
#include "messages/text_number.h"
#include "tests/history/plant.h"

namespace history {
namespace {

class RecordsOfOperations : public testing::Test {
 protected:
  RecordsOfOperations() {
    PutPlant(system_);
    program_.emplace(system_);
  }
  Record Last() {
    const auto newest = NewestEntries(program_->file(), 1).entries;
    return newest.empty() ? Record() : FindEntry(program_->file(), newest[0].record.number)->record;
  }
  store::Operations& operations() { return program_->operations(); }

  files::MemoryFileSystem system_;
  std::optional<Program> program_;
};

TEST_F(RecordsOfOperations, SeveralAsOneLeaveOneWithoutWhatWasRefused) {
  constexpr messages::Pattern kAddAliases{messages::TextNumber{3302}};
  const auto result = operations().AsOne({kAddAliases, {{"<Count>", 2}}}, [&] {
    program_->AddAlias("Tank1.Level", "Level");
    const store::AliasValues two[] = {{"Tank1.Pump", "Pump"}, {"Tank2.Level", "Level"}};
    EXPECT_FALSE(operations().AddAliases(two).success());
    const std::int32_t passing = program_->AddAlias("Tank9.X", "Passing");
    EXPECT_TRUE(operations().DeleteAliases({&passing, 1}).success());
    const store::AliasValues last[] = {{"Tank3.Flow", "Flow"}};
    return operations().AddAliases(last);
  });
  ASSERT_TRUE(result.success()) << support::ToText(result);
  EXPECT_EQ(program_->Titles(), (std::vector<std::string>{"Add 2 aliases"}));
  EXPECT_EQ(Last().rows.size(), 2u);
  ASSERT_TRUE(program_->Undo().success());
  EXPECT_FALSE(operations().FindAliasByName("Flow"));
}

// Lines that somebody types in the window, through the unit of work alone.
TEST_F(RecordsOfOperations, EditsOfCodeAreNamedAndUndone) {
  const std::string before = system_.Get(support::ClassPath("CPump"));
  const auto type = [&](const std::string& text) {
    const auto component =
        program_->project().vb()->FindProject("PumpServer")->FindComponent("CPump");
    platform::UnitOfWorkScope scope(program_->project().unit());
    component->Module()->AddFromString(text);
    scope.Commit();
  };
  type("' one\r\n");
  type("' two\r\n");
  EXPECT_EQ(program_->Titles(),
            (std::vector<std::string>{"Edit code in CPump.cls", "Edit code in CPump.cls"}));
  ASSERT_TRUE(program_->Undo().success());
  ASSERT_TRUE(program_->Undo().success());
  EXPECT_EQ(system_.Get(support::ClassPath("CPump")), before);
}

TEST_F(RecordsOfOperations, NothingThatChangesNothingLeavesOne) {
  const std::int32_t alias = program_->AddAlias("Tank1.Level", "Level");
  EXPECT_TRUE(operations().EditAlias(alias, {"Tank1.Level", "Level"}).success());
  store::OperationOptions dry;
  dry.dry_run = true;
  const store::AliasValues values[] = {{"Tank2.Level", "Other"}};
  EXPECT_TRUE(operations().AddAliases(values, dry).success());
  EXPECT_FALSE(operations().AddFormula({"Fill", "PumpServer.CNone"}).success());
  EXPECT_EQ(program_->Titles(), (std::vector<std::string>{"Add alias Level"}));
  project::Project& project = program_->project();
  const Reverted shown = project.MakeUndoRedo().Undo(std::nullopt, dry);
  EXPECT_EQ(shown.result.rows.size(), 1u);
  EXPECT_EQ(shown.operation.number, 1u);
  EXPECT_TRUE(operations().FindAlias(alias));
  EXPECT_EQ(project.MakeUndoRedo().NextUndo()->number, 1u);
  EXPECT_FALSE(project.MakeUndoRedo().NextRedo());
}

// The list of classes that have formulas follows.
TEST_F(RecordsOfOperations, TheListOfComponentsFollows) {
  project::ProjectOptions options;
  options.state_folder = "/state";
  program_.emplace(system_, options);
  const auto listed = [&] {
    for (const auto& [path, contents] : system_.Snapshot()) {
      if (path.starts_with("/state") && contents.find("PumpServer.CPump") != std::string::npos)
        return true;
    }
    return false;
  };
  program_->AddFormula("Fill");
  EXPECT_TRUE(listed());
  ASSERT_TRUE(program_->Undo().success());
  EXPECT_FALSE(listed());
  ASSERT_TRUE(program_->Redo().success());
  EXPECT_TRUE(listed());
}

}  // namespace
}  // namespace history
