// SPDX-License-Identifier: MIT
#include "store/schema.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/memory_database.h"
#include "tests/support/sentence.h"

namespace store {
namespace {

using platform::DataType;
using Strings = std::vector<std::string>;

std::string IndexText(platform::Connection& connection, const char* table) {
  std::string text;
  for (const auto& index : connection.Indexes(table)) {
    text += (text.empty() ? "" : " ") + index.name;
    text += index.primary ? "!" : index.unique ? "+" : "";
    for (const std::string& column : index.columns) text += "," + column;
  }
  return text;
}

class EmptyDatabase {
 public:
  EmptyDatabase() : connection(system) { connection.Create(ProjectConnectionString("/p.ovs")); }
  files::MemoryFileSystem system;
  recordset::JetConnection connection;
};

TEST(Schema, ANewDatabaseHasTheThreeTables) {
  EmptyDatabase db;
  EXPECT_EQ(MissingFromSchema(db.connection), (Strings{"TvbfFormulas", "TvbfAlias", "TvbfParams"}));
  EXPECT_EQ(CompleteSchema(db.connection), (Strings{"TvbfFormulas", "TvbfAlias", "TvbfParams"}));
  EXPECT_TRUE(MissingFromSchema(db.connection).empty());
  EXPECT_TRUE(CompleteSchema(db.connection).empty());
  EXPECT_EQ(IndexText(db.connection, "TvbfFormulas"), "PrimaryKey!,ID ProgID,ProgID,Name");
  EXPECT_EQ(IndexText(db.connection, "tvbfalias"), "PrimaryKey!,ID VBAlias+,VBAlias");
  EXPECT_EQ(IndexText(db.connection, "TvbfParams"),
            "AliasID,AliasID PrimaryKey!,ID Unique+,ParentID,AliasID");
  for (const auto& column : db.connection.Columns("TvbfFormulas")) {
    EXPECT_EQ(column.auto_increment, column.name == "ID");
    EXPECT_EQ(column.defined_size == 255, column.type == DataType::kVarWChar) << column.name;
  }
  EXPECT_TRUE(db.connection.database().Verify().ok());
}

TEST(Schema, CompletesWhatIsMissingAndTouchesNothingElse) {
  EmptyDatabase db;
  auto& connection = db.connection;
  connection.CreateTable("Other", {{"Note", DataType::kVarWChar, 50, false}}, {});
  connection.CreateTable("tvbfalias",
                         {{"Id", DataType::kInteger, 0, true},
                          {"ItemID", DataType::kVarWChar, 80, false},
                          {"VBAlias", DataType::kVarWChar, 40, false}},
                         {{"VBALIAS", {"VBAlias"}, false, false}});
  auto rows = support::MemoryDatabase::Open(connection, "TvbfAlias");
  for (const char* name : {"A", "a"}) rows->AddNew({"VBAlias"}, {name});
  EXPECT_EQ(CompleteSchema(connection),
            (Strings{"TvbfFormulas", "TvbfAlias.PrimaryKey", "TvbfParams"}));
  EXPECT_EQ(IndexText(connection, "TvbfAlias"), "PrimaryKey!,Id VBALIAS,VBAlias");
  rows->Requery();
  EXPECT_EQ(rows->RecordCount(), 2);
  rows->Close();
  auto second =
      support::MemoryDatabase::Open(connection, "SELECT VBAlias FROM TvbfAlias WHERE ID = 2");
  EXPECT_EQ(second->Fields("VBAlias").Value(), platform::Variant("a"));
  EXPECT_EQ(connection.TableNames(), (Strings{"Other", "TvbfFormulas", "TvbfParams", "tvbfalias"}));
  EXPECT_TRUE(connection.database().Verify().ok());
}

TEST(Schema, IsCompletedWhollyOrNotAtAll) {
  EmptyDatabase db;
  auto& connection = db.connection;
  connection.CreateTable("TvbfParams",
                         {{"ID", DataType::kInteger, 0, true},
                          {"ParentID", DataType::kInteger, 0, false},
                          {"AliasID", DataType::kInteger, 0, false},
                          {"In", DataType::kBoolean, 0, false},
                          {"out", DataType::kBoolean, 0, false}},
                         {});
  auto rows = support::MemoryDatabase::Open(connection, "TvbfParams");
  for (int i = 0; i < 2; ++i) rows->AddNew({"ParentID", "AliasID"}, {1, 1});
  try {
    CompleteSchema(connection);
    ADD_FAILURE() << "two arguments have one key";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.number(), platform::kErrErrorsOccurred);
  }
  EXPECT_EQ(connection.TableNames(), Strings{"TvbfParams"});
  EXPECT_EQ(IndexText(connection, "TvbfParams"), "");
  EXPECT_TRUE(connection.database().Verify().ok());
}

TEST(Schema, NamesAMissingColumnAndAddsNothing) {
  EmptyDatabase db;
  db.connection.CreateTable(
      "TvbfParams", {{"ID", DataType::kInteger, 0, true}, {"In", DataType::kBoolean, 0, false}},
      {});
  EXPECT_EQ(MissingFromSchema(db.connection),
            (Strings{"TvbfFormulas", "TvbfAlias", "TvbfParams.ParentID", "TvbfParams.AliasID",
                     "TvbfParams.Out"}));
  try {
    CompleteSchema(db.connection);
    ADD_FAILURE() << "a column cannot be added";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.number(), platform::kErrItemNotFound);
    EXPECT_NE(support::Sentence(error.message()).find("ParentID"), std::string::npos);
  }
  EXPECT_EQ(db.connection.TableNames(), Strings{"TvbfParams"});
}

TEST(Schema, SaysWhatIsMissing) {
  EXPECT_TRUE(DescribeMissing({}).empty());
  const std::string text = support::Sentence(DescribeMissing({"TvbfAlias", "TvbfParams.Out"}));
  EXPECT_NE(text.find("TvbfAlias, TvbfParams.Out"), std::string::npos);
  EXPECT_NE(text.find("--into"), std::string::npos);
}

}  // namespace
}  // namespace store
