// SPDX-License-Identifier: MIT
// Recordsets over files that fail: whatever call of the file system goes wrong, the rows are as
// before or as after, indexes agree with them, and the recordset can be used on.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "files/failing_file_system.h"
#include "tests/recordset/row_text.h"
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

class RecordsetFaultTest : public testing::TestWithParam<Case> {};

TEST_P(RecordsetFaultTest, LeavesRowsAsBeforeOrAsAfter) {
  bool ran_without_fault = false;
  for (int n = 1; !ran_without_fault && n < 500; ++n) {
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
    bool done = true;
    try {
      GetParam().edit(*rows);
    } catch (const platform::Error& error) {
      done = false;
      EXPECT_FALSE(error.description().empty());
    }
    ran_without_fault = !failing.fired();
    failing.Disarm();
    if (rows->GetEditMode() != platform::EditMode::kNone) rows->CancelUpdate();

    const std::string expected = done ? GetParam().after : kBefore;
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
}

INSTANTIATE_TEST_SUITE_P(Edits, RecordsetFaultTest,
                         testing::Values(Case{"Add",
                                              [](Recordset& rows) {
                                                rows.AddNew({"ItemID", "VBAlias"}, {"Item.D", "D"});
                                              },
                                              "1|Item.A|A 2|Item.B|B 3|Item.C|C 4|Item.D|D"},
                                         Case{"Change",
                                              [](Recordset& rows) {
                                                rows.Fields("ItemID").SetValue("New");
                                                rows.Fields("VBAlias").SetValue("Z");
                                                rows.Update();
                                              },
                                              "1|Item.A|A 2|New|Z 3|Item.C|C"},
                                         Case{"Delete", [](Recordset& rows) { rows.Delete(); },
                                              "1|Item.A|A 3|Item.C|C"}),
                         [](const auto& param) { return std::string(param.param.name); });

}  // namespace
}  // namespace recordset
