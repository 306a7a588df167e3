// SPDX-License-Identifier: MIT
// The alias list over project databases with other indexes than ours.
#include "dialogs/alias_table.h"

#include <gtest/gtest.h>

#include <string>

#include "files/memory_file_system.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"
#include "store/schema.h"
#include "texts/text_table.h"

namespace dialogs {
namespace {

using platform::Connection;
using platform::DataType;

struct Case {
  const char* what;
  std::vector<Connection::IndexInfo> indexes;
};

TEST(AliasTable, ShowsAllAliasesInOrderWhateverTheIndexes) {
  const Case cases[] = {
      {"none", {}},
      {"ours", {{"PrimaryKey", {"ID"}, true, true}, {"VBAlias", {"VBAlias"}, true, false}}},
      {"names on other columns", {{"VBAlias", {"ItemID"}, false, false}}},
      {"other names", {{"Key", {"id"}, true, false}, {"Names", {"vbalias"}, false, false}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    files::MemoryFileSystem system;
    auto connection = std::make_shared<recordset::JetConnection>(system);
    connection->Create(store::ProjectConnectionString("/p.ovs"));
    connection->CreateTable("TvbfAlias",
                            {{"ID", DataType::kInteger, 0, true},
                             {"ItemID", DataType::kVarWChar, 80, false},
                             {"VBAlias", DataType::kVarWChar, 40, false}},
                            c.indexes);
    const texts::TextTable texts(texts::Language::kEnglish);
    store::Operations operations({connection, nullptr, nullptr, nullptr, &texts});
    const auto rows = connection->CreateRecordset();
    rows->SetSource("TvbfAlias");
    rows->SetLockType(platform::LockType::kOptimistic);
    rows->Open();
    for (const char* name : {"Level2", "Ventil", "äpfel", "Level1", "O'Ring"}) {
      rows->AddNew({"ItemID", "VBAlias"}, {"Item", name});
    }
    AliasTable by_name(connection, connection->CreateRecordset(), operations, AliasOrder::kName);
    std::string names;
    for (const auto& record : by_name.Records(0, 9)) names += record.vb_alias + " ";
    EXPECT_EQ(names, "äpfel Level1 Level2 O'Ring Ventil ");
    EXPECT_EQ(by_name.PositionOf(1), 2u);
    EXPECT_EQ(by_name.PositionOf(5), 3u);
    EXPECT_EQ(by_name.PositionOf(99), std::nullopt);
    EXPECT_EQ(by_name.FindPrefix("level", 0), 1u);
    EXPECT_EQ(by_name.FindPrefix("o'", 0), 3u);
    EXPECT_EQ(by_name.FindPrefix("x", 0), std::nullopt);

    AliasTable by_id(connection, connection->CreateRecordset(), operations, AliasOrder::kId);
    EXPECT_EQ(by_id.Count(), 5u);
    EXPECT_EQ(by_id.PositionOf(4), 3u);
  }
}

}  // namespace
}  // namespace dialogs
