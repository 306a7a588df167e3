// SPDX-License-Identifier: MIT
// An operation over a database that has only transactions of its own, and a module beside it.
#include "project/transaction_participant.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/recordset/row_text.h"
#include "tests/support/memory_database.h"

namespace project {
namespace {

class ModuleText final : public files::Participant {
 public:
  std::string text = "before";

  void Save() override { kept_ = text; }
  void Collect(files::ChangeSet&) override {}
  void Committed() noexcept override {}
  void Restore() noexcept override { text = kept_; }

 private:
  std::string kept_;
};

class TransactionParticipantTest : public testing::Test {
 protected:
  TransactionParticipantTest() {
    unit_.Enlist(module_);
    unit_.Enlist(rows_);
  }
  // Adds a row and changes the module in one unit.
  void Change(bool in_two_steps = false) {
    platform::UnitOfWorkScope unit(unit_);
    db_.AddAlias("Item.A", "A");
    if (in_two_steps) {
      platform::UnitOfWorkScope part(unit_);
      db_.AddAlias("Item.B", "B");
      part.Commit();
    }
    module_.text = "after";
    unit.Commit();
  }
  // As another program sees them.
  std::string Rows() {
    const auto other = db_.Connect();
    return recordset::RowsText(*support::MemoryDatabase::Open(*other, "TvbfAlias"), {"VBAlias"});
  }

  support::MemoryDatabase db_;
  ModuleText module_;
  TransactionParticipant rows_{db_.connection()};
  files::JournalledUnitOfWork unit_{db_.system(), db_.path()};
};

TEST_F(TransactionParticipantTest, CommitsRowsWithTheModule) {
  Change(true);
  EXPECT_EQ(Rows(), "A B");
  EXPECT_EQ(module_.text, "after");
  EXPECT_TRUE(rows_.not_restored().empty());
}

TEST_F(TransactionParticipantTest, PutsBothBack) {
  {
    const platform::UnitOfWorkScope unit(unit_);
    db_.AddAlias("Item.A", "A");
    module_.text = "after";
  }
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(module_.text, "before");
  EXPECT_TRUE(rows_.not_restored().empty());
  Change();
  EXPECT_EQ(Rows(), "A") << "it can be used on";
}

TEST_F(TransactionParticipantTest, ACommitThatFailsPutsTheModuleBackAndSaysWhatStayed) {
  unit_.Begin();
  db_.AddAlias("Item.A", "A");
  module_.text = "after";
  db_.connection()
      ->RollbackTrans();  // the transaction is gone: neither commit nor rollback succeed
  EXPECT_THROW(unit_.Commit(), platform::Error);
  EXPECT_EQ(module_.text, "before");
  EXPECT_FALSE(rows_.not_restored().empty());
  Change();
  EXPECT_TRUE(rows_.not_restored().empty());
  EXPECT_EQ(Rows(), "A");
}

TEST_F(TransactionParticipantTest, AClosedDatabaseTakesNoPart) {
  db_.connection()->Close();
  unit_.Begin();
  module_.text = "after";
  unit_.Commit();
  EXPECT_EQ(module_.text, "after");
}

}  // namespace
}  // namespace project
