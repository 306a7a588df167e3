// SPDX-License-Identifier: MIT
// Recordsets over files that fail: whatever call of the file system goes wrong, the rows are as
// before or as after, indexes agree with them, and the recordset can be used on.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>

#include "tests/recordset/row_text.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/memory_database.h"

namespace recordset {
namespace {

using platform::Recordset;

struct Case {
  const char* name;
  std::function<void(Recordset&)> edit;  // of "B", which is current
  const char* after;
};

constexpr char kBefore[] = "1|Item.A|A 2|Item.B|B 3|Item.C|C";

// Whether the edit was carried out. In a transaction it counts only when that is committed.
bool Edit(JetConnection& connection, Recordset& rows, const Case& c, bool in_transaction) {
  bool open = false;
  try {
    if (in_transaction) connection.BeginTrans();
    open = in_transaction;
    c.edit(rows);
    if (open) connection.CommitTrans();
    return true;
  } catch (const platform::Error& error) {
    EXPECT_FALSE(error.description().empty());
  }
  if (open) connection.RollbackTrans();
  return false;
}

class RecordsetFaultTest : public testing::TestWithParam<std::tuple<Case, bool>> {};

TEST_P(RecordsetFaultTest, LeavesRowsAsBeforeOrAsAfter) {
  const auto& [edit, in_transaction] = GetParam();
  bool ran_without_fault = false;
  int n = 0;
  while (!ran_without_fault && n < 500) {
    ++n;
    support::MemoryDatabase db;
    for (const char* name : {"A", "B", "C"}) db.AddAlias(std::string("Item.") + name, name);
    db.connection()->Close();

    files::FailingFileSystem failing(db.system());
    JetConnection connection(failing);
    connection.Open(store::ProjectConnectionString(db.path()));
    auto rows = support::MemoryDatabase::Open(connection, "TvbfAlias");
    rows->MoveNext();
    files::Fault fault;
    fault.n = n;
    failing.Arm(fault);
    const bool done = Edit(connection, *rows, edit, in_transaction);
    ran_without_fault = !failing.fired();
    failing.Disarm();
    if (rows->GetEditMode() != platform::EditMode::kNone) rows->CancelUpdate();

    EXPECT_TRUE(done || !ran_without_fault);
    const std::string expected = done ? edit.after : kBefore;
    EXPECT_EQ(RowsText(*support::MemoryDatabase::Open(connection, "TvbfAlias")), expected)
        << "fault " << n;
    rows->Requery();
    EXPECT_EQ(RowsText(*rows), expected) << "fault " << n;
    rows->MoveFirst();
    rows->Fields("ItemID").SetValue("Again");
    EXPECT_NO_THROW(rows->Update()) << "fault " << n;
    connection.Close();
    auto other = db.Connect();
    EXPECT_TRUE(other->database().Verify().ok()) << "fault " << n;
    if (HasFailure()) return;
  }
  EXPECT_TRUE(ran_without_fault);
  EXPECT_GT(n, 5) << "hardly anything failed";
}

const Case kCases[] = {
    {"Add",
     [](Recordset& rows) {
       rows.AddNew({"ItemID", "VBAlias"}, {"Item.D", "D"});
     },
     "1|Item.A|A 2|Item.B|B 3|Item.C|C 4|Item.D|D"},
    {"Change",
     [](Recordset& rows) {
       rows.Fields("ItemID").SetValue("New");
       rows.Fields("VBAlias").SetValue("Z");
       rows.Update();
     },
     "1|Item.A|A 2|New|Z 3|Item.C|C"},
    {"Delete", [](Recordset& rows) { rows.Delete(); }, "1|Item.A|A 3|Item.C|C"},
};

std::string CaseName(const testing::TestParamInfo<std::tuple<Case, bool>>& info) {
  const auto& [edit, in_transaction] = info.param;
  return std::string(edit.name) + (in_transaction ? "InATransaction" : "");
}

INSTANTIATE_TEST_SUITE_P(Edits, RecordsetFaultTest,
                         testing::Combine(testing::ValuesIn(kCases), testing::Bool()), CaseName);

}  // namespace
}  // namespace recordset
