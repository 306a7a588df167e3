// SPDX-License-Identifier: MIT
// What others changed between an operation and its undoing.
#include <functional>

#include "tests/history/plant.h"

namespace history {
namespace {

class ForeignEdits : public testing::Test {
 protected:
  // An alias with an argument, renamed: the declaration and a line of the header change.
  ForeignEdits() {
    PutPlant(system_, {{"CPump", "Option Explicit\r\n\r\nPublic Sub Own()\r\nEnd Sub\r\n"},
                       {"CTank", "Option Explicit\r\n"}});
    program_.emplace(system_);
    alias_ = program_->AddAlias("Tank1.Level", "Level");
    formula_ = program_->AddFormula("Fill");
    program_->AddArgument(formula_, alias_);
    before_ = Code();
    program_->RenameAlias(alias_, "TankLevel");
    after_ = Code();
  }

  std::string Code() { return system_.Get(support::ClassPath("CPump")); }
  void Put(const std::string& code) { system_.Put(support::ClassPath("CPump"), code); }
  static std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), with);
  }
  std::string AliasName() { return program_->operations().FindAlias(alias_)->vb_alias; }
  // As another program would.
  void Write(const std::string& table, const std::string& column, const platform::Variant& value) {
    recordset::JetConnection other(system_, support::AnyFileOptions());
    other.Open(store::ProjectConnectionString(support::kDatabasePath));
    const auto row = other.CreateRecordset();
    row->SetSource("SELECT * FROM " + table + " WHERE ID = 1");
    row->SetCommandType(platform::CommandType::kText);
    row->SetCursorType(platform::CursorType::kKeyset);
    row->SetLockType(platform::LockType::kOptimistic);
    row->Open();
    if (column.empty()) {
      row->Delete();
    } else {
      row->Fields(column).SetValue(value);
      row->Update();
    }
    row->Close();
  }

  files::MemoryFileSystem system_;
  std::optional<Program> program_;
  std::int32_t alias_ = 0, formula_ = 0;
  std::string before_, after_;
};

TEST_F(ForeignEdits, OfOtherLinesStay) {
  struct Case {
    const char* what;
    const char* line;
    const char* other;
  };
  const Case cases[] = {
      {"the line above the declaration", "Option Explicit\r\n", "Option Explicit\r\n' mine\r\n"},
      {"the line below it", "'Tank1.Level\r\n", "'Tank1.Level\r\n' mine\r\n"},
      {"a line far away", "End Sub\r\n", "    y = 2\r\nEnd Sub\r\n"},
      {"the line above the header's", "'Arguments:\r\n", "'Arguments:\r\n'\tNote\r\n"},
      {"many lines above", "Option Explicit\r\n",
       "Option Explicit\r\nDim a\r\nDim b\r\nDim c\r\nDim d\r\nDim e\r\nDim f\r\nDim g\r\n"},
      {"a procedure that was moved", "Public Sub Own()\r\nEnd Sub\r\n", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Put(Replaced(after_, c.line, c.other));
    const store::OperationResult result = program_->Undo();
    EXPECT_TRUE(result.success()) << support::ToText(result);
    EXPECT_EQ(Code(), Replaced(before_, c.line, c.other));
    EXPECT_EQ(AliasName(), "Level");
    EXPECT_TRUE(program_->Redo().success());
    EXPECT_EQ(Code(), Replaced(after_, c.line, c.other));
  }
}

TEST_F(ForeignEdits, OfItsOwnLinesRefuseWithPlaceAndBothVersions) {
  struct Case {
    const char* what;
    std::function<void()> edit;
    std::vector<const char*> named;
  };
  const auto replace = [this](const char* line, const char* other) {
    return [=, this] { Put(Replaced(after_, line, other)); };
  };
  const std::string declaration = "Public TankLevel as Variant 'Tank1.Level\r\n";
  const Case cases[] = {
      {"a word in the line",
       replace("TankLevel as Variant", "TankLevel As Double"),
       {"CPump.cls:", "Public TankLevel as Variant", "Public TankLevel As Double"}},
      {"the line is gone",
       replace(declaration.c_str(), ""),
       {"CPump.cls:", "Public TankLevel as Variant"}},
      {"the file was replaced", [this] { Put("Option Explicit\r\n"); }, {"CPump.cls:"}},
      {"the file is gone",
       [this] { system_.Remove(support::ClassPath("CPump")); },
       {"CPump.cls is missing"}},
      {"the row",
       [this] { Write("TvbfAlias", "ItemID", "Tank9.Level"); },
       {"TvbfAlias #1", "Tank1.Level, TankLevel", "Tank9.Level, TankLevel"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Put(after_);
    c.edit();
    const auto files = system_.Snapshot();
    const store::OperationResult result = program_->Undo();
    EXPECT_EQ(result.outcome, store::Outcome::kRefused) << support::ToText(result);
    EXPECT_TRUE(Holds(result, "This cannot be undone: Rename alias Level to TankLevel"));
    for (const char* part : c.named) EXPECT_TRUE(Holds(result, part)) << support::ToText(result);
    EXPECT_EQ(AliasName(), "TankLevel");
    for (const auto& [path, contents] : files) {
      if (path.ends_with(".cls")) {
        EXPECT_EQ(system_.Get(path), contents);
      }
    }
  }
}

// What stands in several places alike is not guessed.
TEST_F(ForeignEdits, RefuseWhenTheLinesStandInSeveralPlacesAlike) {
  Put(after_ + after_);
  const store::OperationResult result = program_->Undo();
  EXPECT_EQ(result.outcome, store::Outcome::kRefused) << support::ToText(result);
  EXPECT_EQ(Code(), after_ + after_);
}

TEST_F(ForeignEdits, OfRowsThatItRestsOnRefuse) {
  // The formula comes back only with its place free, the argument only with its formula.
  ASSERT_TRUE(program_->Undo().success());
  const std::int32_t ids[] = {formula_};
  ASSERT_TRUE(program_->operations().DeleteFormulas(ids).success());
  Write("TvbfAlias", "", {});
  const store::OperationResult result = program_->Undo();
  EXPECT_EQ(result.outcome, store::Outcome::kRefused);
  EXPECT_TRUE(Holds(result, "TvbfParams #1 would then lack")) << support::ToText(result);
  EXPECT_FALSE(program_->operations().FindFormula(formula_));
}

TEST_F(ForeignEdits, OfOurOwnLaterOperationsAreNamed) {
  const auto named = [&](std::uint64_t number, const std::string& dependant) {
    const store::OperationResult result = program_->Undo(number);
    EXPECT_EQ(result.outcome, store::Outcome::kRefused) << number;
    EXPECT_TRUE(Holds(result, dependant)) << support::ToText(result);
  };
  named(1, "3 (Add argument Level of Fill)");
  named(1, "4 (Rename alias Level to TankLevel)");
  named(2, "3 (Add argument Level of Fill)");
  named(3, "4 (Rename alias Level to TankLevel)");
  named(99, "no entry 99");
  // One on which nothing rests, in the middle.
  const std::int32_t other = program_->AddAlias("Tank2.Level", "Other");
  program_->AddFormula("Next_", "CTank");
  EXPECT_TRUE(program_->Undo(5).success());
  EXPECT_FALSE(program_->operations().FindAlias(other));
  named(5, "already undone");
  EXPECT_TRUE(program_->Redo(5).success());
  EXPECT_TRUE(program_->operations().FindAlias(other)) << "with the same ID";
}

TEST(Undo, TellsThatTheListOfComponentsCannotFollow) {
  files::MemoryFileSystem system;
  PutPlant(system);
  system.Put("/state", "a file where the folder should be");
  project::ProjectOptions options;
  options.state_folder = "/state";
  Program program(system, options);
  program.AddFormula("Fill");
  const store::OperationResult result = program.Undo();
  EXPECT_TRUE(result.success());
  EXPECT_EQ(result.warnings.size(), 1u);
}

}  // namespace
}  // namespace history
