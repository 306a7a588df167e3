// SPDX-License-Identifier: MIT
// A database that another program made: without the indexes that keep rows apart.
#include <gtest/gtest.h>

#include "check/repair.h"
#include "store/schema.h"
#include "tests/check/checked_project.h"

namespace check {
namespace {

// The tables without an index, so that equal rows can be put in.
void PutForeignDatabase(files::FileSystem& system) {
  recordset::JetConnection connection(system, support::AnyFileOptions());
  connection.Create(store::ProjectConnectionString(support::kDatabasePath));
  for (const store::TableDefinition& table : store::ProjectSchema()) {
    connection.CreateTable(table.name, table.columns, {});
  }
  const auto add = [&](const char* table, const std::vector<std::string>& fields,
                       const std::vector<std::vector<platform::Variant>>& rows) {
    const auto recordset = support::MemoryDatabase::Open(connection, table);
    for (const auto& values : rows) recordset->AddNew(fields, values);
  };
  add("TvbfAlias", {"ItemID", "VBAlias"}, {{"A", "Level"}, {"B", "LEVEL"}, {"C", "Pump"}});
  add("TvbfFormulas", {"Name", "ProgID", "Type", "ScanTime", "Enabled", "Comment"},
      {{"Fill", "PumpServer.CPump", 0, 0, true, "c"},
       {"Drain", "PumpServer.CPump", 6, 0, true, "c"}});
  add("TvbfParams", {"ParentID", "AliasID", "In", "Out"},
      {{1, 1, true, false}, {1, 1, false, true}, {2, 3, true, false}, {2, 3, false, true}});
}

TEST(ForeignDatabase, HasEqualRowsJoinedWhereTheFormulaTakesThem) {
  files::MemoryFileSystem system;
  support::PutProject(system, {{"CPump", ""}});
  PutForeignDatabase(system);
  support::OpenProject project(system);
  const Parts parts = CheckedProject::PartsOf(project);
  Options rows;
  for (const Rule* rule : Rules()) {
    if (rule->code.starts_with("SUB") || rule->code.starts_with("DCL")) rows.silenced.insert(rule);
  }
  rows.silenced.insert(&rule::kUnknownItem);
  EXPECT_EQ(Describe(Find(parts, rows)),
            "ARG003 TvbfParams #2 AliasID\nARG003 TvbfParams #4 AliasID\n"
            "ALI004 TvbfAlias #2 VBAlias\nDBA003 TvbfFormulas #0 \nDBA003 TvbfFormulas #0 \n"
            "DBA003 TvbfAlias #0 \nDBA003 TvbfAlias #0 \nDBA003 TvbfParams #0 \n"
            "DBA003 TvbfParams #0 \nDBA003 TvbfParams #0 \n");
  const RepairResult result = Repair(parts, Find(parts, rows), rows);
  EXPECT_TRUE(result.operation.success()) << project.texts.Sentence(result.operation.message);
  EXPECT_EQ(Describe(result.mended), "ARG003 TvbfParams #2 AliasID\n");
  const std::vector<std::string> after = support::RowsOf(*project.operations);
  EXPECT_EQ(std::ranges::count(after, "argument 1 of 1 Level 1 1"), 1);
  EXPECT_EQ(after.size(), 3u + 2u + 3u);
}

}  // namespace
}  // namespace check
