// SPDX-License-Identifier: MIT
// Adding, changing and deleting rows, transactions, and what others do meanwhile.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>

#include "recordset/value_conversion.h"
#include "tests/recordset/row_text.h"
#include "tests/support/memory_database.h"

namespace recordset {
namespace {

using platform::EditMode;
using platform::Null;
using platform::Variant;

class EditTest : public testing::Test {
 protected:
  EditTest() {
    db_.AddAlias("Item.A", "A");
    db_.AddAlias("Item.B", "B");
    db_.AddAlias("Item.C", "C");
  }
  std::string Aliases() { return RowsText(*db_.Open("TvbfAlias")); }

  support::MemoryDatabase db_;
};

TEST_F(EditTest, AddsByListsAndKnowsTheNumber) {
  auto rs = db_.Open("TvbfAlias");
  rs->AddNew({"vbAlias", "ITEMID"}, {"D", "Item.D"});
  EXPECT_EQ(rs->Fields("ID").Value(), Variant(4));
  EXPECT_EQ(rs->Fields("VBAlias").Value(), Variant("D"));
  EXPECT_EQ(rs->GetEditMode(), EditMode::kNone);
  EXPECT_EQ(rs->RecordCount(), 4);
  rs->MoveFirst();
  EXPECT_EQ(rs->Fields("ID").Value(), Variant(1));
  EXPECT_EQ(Aliases(), "1|Item.A|A 2|Item.B|B 3|Item.C|C 4|Item.D|D");

  EXPECT_EQ(ErrorOf([&] {
              rs->AddNew({"VBAlias", "ItemID"}, {"E"});
            }),
            platform::kErrInvalidArgument);
  EXPECT_EQ(ErrorOf([&] { rs->AddNew({"Nothing"}, {"E"}); }), platform::kErrItemNotFound);
  EXPECT_EQ(ErrorOf([&] { rs->AddNew({"ID"}, {9}); }), platform::kErrFeatureNotAvailable);
  EXPECT_EQ(ErrorOf([&] { rs->AddNew({"VBAlias"}, {std::string(256, 'x')}); }),
            platform::kErrDataOverflow);
  EXPECT_EQ(rs->GetEditMode(), EditMode::kNone);
  EXPECT_EQ(rs->Fields("ID").Value(), Variant(1)) << "the current row stays";
  EXPECT_EQ(db_.front().TableRowCount("TvbfAlias"), 4);
}

TEST_F(EditTest, AddsInTwoSteps) {
  auto rs = db_.Open("TvbfAlias");
  rs->MoveNext();
  rs->AddNew();
  EXPECT_EQ(rs->GetEditMode(), EditMode::kAdd);
  EXPECT_TRUE(rs->Fields("VBAlias").Value().IsNull());
  rs->Fields("VBAlias").SetValue("D");
  rs->CancelUpdate();
  EXPECT_EQ(rs->Fields("VBAlias").Value(), Variant("B")) << "back on the row before";
  rs->AddNew();
  rs->Fields("VBAlias").SetValue("D");
  EXPECT_EQ(rs->Fields("VBAlias").Value(), Variant("D"));
  rs->Update();
  EXPECT_EQ(rs->Fields("ID").Value(), Variant(4));
  EXPECT_TRUE(rs->Fields("ItemID").Value().IsNull());
  EXPECT_EQ(Aliases(), "1|Item.A|A 2|Item.B|B 3|Item.C|C 4|Null|D");

  auto arguments = db_.Open("TvbfParams");
  arguments->AddNew();
  EXPECT_EQ(arguments->Fields("In").Value(), Variant(false)) << "Yes/No is never Null";
  EXPECT_EQ(arguments->Fields("In").OriginalValue(), Variant(false));
  EXPECT_FALSE(arguments->EOF_());
  arguments->CancelUpdate();
  EXPECT_TRUE(arguments->EOF_());
}

TEST_F(EditTest, ChangesWhatWasSetAndShowsItBefore) {
  auto rs = db_.Open("TvbfAlias");
  rs->MoveNext();
  rs->Fields("VBAlias").SetValue("New");
  EXPECT_EQ(rs->GetEditMode(), EditMode::kInProgress);
  EXPECT_EQ(rs->Fields("VBAlias").Value(), Variant("New"));
  EXPECT_EQ(rs->Fields("VBAlias").OriginalValue(), Variant("B"));
  EXPECT_EQ(Aliases(), "1|Item.A|A 2|Item.B|B 3|Item.C|C") << "not yet written";
  rs->CancelUpdate();
  EXPECT_EQ(rs->Fields("VBAlias").Value(), Variant("B"));
  rs->Fields("VBAlias").SetValue("New");
  rs->Update();
  EXPECT_EQ(rs->Fields("VBAlias").OriginalValue(), Variant("New"));
  EXPECT_EQ(Aliases(), "1|Item.A|A 2|Item.B|New 3|Item.C|C");

  // Moving writes, as ADO does.
  rs->Fields("ItemID").SetValue(Null{});
  rs->MoveLast();
  EXPECT_EQ(Aliases(), "1|Item.A|A 2|Null|New 3|Item.C|C");
  rs->Update();  // nothing pending
}

TEST_F(EditTest, APendingEditForbidsWhatWouldLoseIt) {
  auto rs = db_.Open("TvbfAlias");
  rs->Fields("VBAlias").SetValue("New");
  EXPECT_EQ(ErrorOf([&] { rs->Close(); }), platform::kErrNotAllowedHere);
  EXPECT_EQ(ErrorOf([&] { rs->Requery(); }), platform::kErrNotAllowedHere);
  EXPECT_EQ(ErrorOf([&] { rs->Resync(); }), platform::kErrNotAllowedHere);
  EXPECT_EQ(ErrorOf([&] { rs->SetFilter("ID = 2"); }), platform::kErrNotAllowedHere);
  EXPECT_EQ(ErrorOf([&] { rs->Delete(); }), platform::kErrNotAllowedHere);
  EXPECT_EQ(rs->Fields("VBAlias").Value(), Variant("New"));
  rs->CancelUpdate();
  rs->Close();
  EXPECT_EQ(Aliases(), "1|Item.A|A 2|Item.B|B 3|Item.C|C");
}

TEST_F(EditTest, ADuplicateIsRefusedAndChangesNothing) {
  auto rs = db_.Open("TvbfAlias");
  EXPECT_EQ(ErrorOf([&] { rs->AddNew({"VBAlias"}, {"b"}); }), platform::kErrErrorsOccurred);
  ASSERT_EQ(db_.front().Errors().size(), 1u);
  EXPECT_EQ(db_.front().Errors()[0].number, platform::kErrErrorsOccurred);
  EXPECT_EQ(db_.front().Errors()[0].native_error, 3022);
  EXPECT_NE(db_.front().Errors()[0].description.find("VBAlias"), std::string::npos);

  rs->MoveLast();
  rs->Fields("ItemID").SetValue("Other");
  rs->Fields("VBAlias").SetValue("B ");
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), platform::kErrErrorsOccurred);
  EXPECT_EQ(rs->GetEditMode(), EditMode::kInProgress) << "the edit can be put right";
  EXPECT_EQ(ErrorOf([&] { rs->MoveFirst(); }), platform::kErrErrorsOccurred);
  EXPECT_EQ(Aliases(), "1|Item.A|A 2|Item.B|B 3|Item.C|C");
  rs->Fields("VBAlias").SetValue("D");
  rs->Update();
  EXPECT_EQ(Aliases(), "1|Item.A|A 2|Item.B|B 3|Other|D");

  auto by_alias = db_.OpenTable("TvbfAlias", "VBAlias");
  by_alias->Seek({"B"});
  EXPECT_EQ(by_alias->Fields("ID").Value(), Variant(2)) << "the index did not change either";
  by_alias->Seek({"C"});
  EXPECT_TRUE(by_alias->EOF_());
  EXPECT_TRUE(db_.connection()->database().Verify().ok());
}

TEST_F(EditTest, DeletesRowByRow) {
  auto rs = db_.Open("TvbfAlias");
  rs->SetFilter("ID > 1");
  std::string counts;
  rs->MoveFirst();
  while (!rs->EOF_()) {
    rs->Delete();
    rs->Update();
    counts += std::to_string(rs->RecordCount());
    EXPECT_EQ(ErrorOf([&] { rs->Fields("ID").Value(); }), platform::kErrNoCurrentRecord);
    rs->MoveNext();
  }
  EXPECT_EQ(counts, "10");
  EXPECT_TRUE(rs->BOF() && rs->EOF_());
  EXPECT_EQ(ErrorOf([&] { rs->Delete(); }), platform::kErrNoCurrentRecord);
  rs->SetFilter("");
  EXPECT_EQ(Aliases(), "1|Item.A|A");
  rs->Delete();
  EXPECT_EQ(ErrorOf([&] { rs->Delete(); }), platform::kErrNoCurrentRecord);
  EXPECT_EQ(rs->RecordCount(), 0);
  rs->MoveFirst();
  EXPECT_TRUE(rs->BOF() && rs->EOF_());
  db_.AddAlias("Item.D", "D");
  EXPECT_EQ(Aliases(), "4|Item.D|D") << "numbers are not given twice";
}

TEST_F(EditTest, AWriteConflictWritesNothing) {
  auto mine = db_.Open("TvbfAlias");
  const auto other = db_.Connect();
  auto theirs = support::MemoryDatabase::Open(*other, "TvbfAlias");
  EXPECT_EQ(mine->Fields("VBAlias").Value(), Variant("A"));
  theirs->Fields("ItemID").SetValue("Theirs");
  theirs->Update();
  EXPECT_EQ(mine->Fields("ItemID").Value(), Variant("Item.A")) << "as it was read";
  mine->Fields("VBAlias").SetValue("Mine");
  EXPECT_EQ(ErrorOf([&] { mine->Update(); }), platform::kErrWriteConflict);
  EXPECT_EQ(Aliases(), "1|Theirs|A 2|Item.B|B 3|Item.C|C");
  mine->CancelUpdate();
  mine->Resync();
  EXPECT_EQ(mine->Fields("ItemID").Value(), Variant("Theirs"));
  mine->Fields("VBAlias").SetValue("Mine");
  mine->Update();
  EXPECT_EQ(Aliases(), "1|Theirs|Mine 2|Item.B|B 3|Item.C|C");

  mine->Fields("VBAlias").SetValue("Gone");
  theirs->Delete();
  EXPECT_EQ(ErrorOf([&] { mine->Update(); }), platform::kErrRowDeleted);
  mine->CancelUpdate();
  mine->MoveNext();
  EXPECT_EQ(mine->Fields("ID").Value(), Variant(2));
}

// When its page is given back and taken again, the ID of a deleted row names another row.
TEST_F(EditTest, ARowInThePlaceOfADeletedOneIsNotTakenForIt) {
  for (std::int32_t alias : {1, 2, 3}) db_.AddArgument(7, alias);
  auto mine = db_.Open("SELECT * FROM TvbfParams  WHERE ParentID = ?", {7});
  const platform::Bookmark first =
      support::MemoryDatabase::Open(*db_.connection(), "TvbfParams")->GetBookmark();
  auto filtered = db_.Open("TvbfParams");
  filtered->SetFilter("ParentID = 7");
  auto standing = db_.Open("TvbfParams");
  standing->Find("AliasID = 1");

  auto other = db_.Connect();
  auto theirs = support::MemoryDatabase::Open(*other, "TvbfParams");
  for (int i = 0; i < 3; ++i) {
    theirs->MoveFirst();
    theirs->Delete();
  }
  for (std::int32_t alias : {1, 2, 3}) theirs->AddNew({"ParentID", "AliasID"}, {8, alias});
  theirs->Requery();
  ASSERT_EQ(theirs->GetBookmark(), first) << "else this test shows nothing";

  EXPECT_EQ(ErrorOf([&] { standing->Delete(); }), platform::kErrWriteConflict);
  mine->MoveNext();
  EXPECT_TRUE(mine->EOF_());
  filtered->Find("AliasID = 3");
  EXPECT_TRUE(filtered->EOF_());
  filtered->MoveFirst();
  EXPECT_TRUE(filtered->BOF() && filtered->EOF_());
  EXPECT_EQ(RowsText(*theirs, {"ParentID"}), "8 8 8") << "nothing of it was deleted";
}

TEST_F(EditTest, TransactionsNestAndRollBack) {
  platform::Connection& connection = db_.front();
  auto rs = db_.Open("TvbfAlias");
  connection.BeginTrans();
  rs->AddNew({"VBAlias"}, {"D"});
  connection.BeginTrans();
  rs->MoveFirst();
  rs->Delete();
  EXPECT_EQ(RowsText(*db_.Open("TvbfAlias"), {"VBAlias"}), "B C D");
  connection.RollbackTrans();
  EXPECT_EQ(RowsText(*db_.Open("TvbfAlias"), {"VBAlias"}), "A B C D");
  connection.RollbackTrans();
  rs->Requery();
  EXPECT_EQ(RowsText(*rs, {"VBAlias"}), "A B C");
  EXPECT_EQ(rs->RecordCount(), 3);
  EXPECT_EQ(ErrorOf([&] { connection.CommitTrans(); }), platform::kErrNotAllowedHere);
  EXPECT_EQ(ErrorOf([&] { connection.RollbackTrans(); }), platform::kErrNotAllowedHere);

  connection.BeginTrans();
  rs->AddNew({"VBAlias"}, {"E"});
  connection.CommitTrans();
  auto other = db_.Connect();
  EXPECT_EQ(RowsText(*support::MemoryDatabase::Open(*other, "TvbfAlias"), {"VBAlias"}), "A B C E");
}

TEST_F(EditTest, ValuesTakeTheTypeOfTheirField) {
  struct Case {
    const char* field;
    Variant value;
    Variant stored;
    std::int32_t error = 0;
  };
  const std::string zero(1, '\0');
  const Case cases[] = {
      {"Type", 7, 7},
      {"Type", 2.5, 2},
      {"Type", 3.5, 4},
      {"Type", true, -1},
      {"Type", "12", 12},
      {"Type", " -3 ", -3},
      {"Type", "12x", {}, platform::kErrTypeMismatch},
      {"Type", "", {}, platform::kErrTypeMismatch},
      {"Type", 3e9, {}, platform::kErrDataOverflow},
      {"Type", Null{}, Null{}},
      {"Enabled", 2, true},
      {"Enabled", 0, false},
      {"Enabled", Null{}, false},
      {"Comment", zero, zero},
      {"Comment", "", ""},
      {"Comment", zero + "a" + zero, zero + "a" + zero},
      {"Comment", 5, "5"},
      {"Comment", "Füße – €", "Füße – €"},
      {"Comment", Null{}, Null{}},
      {"Comment", std::vector<std::uint8_t>{1}, {}, platform::kErrTypeMismatch},
  };
  db_.AddFormula("F", "P.C");
  auto rs = db_.Open("TvbfFormulas");
  for (const Case& c : cases) {
    const std::int32_t error = ErrorOf([&] {
      rs->Fields(c.field).SetValue(c.value);
      rs->Update();
    });
    EXPECT_EQ(error, c.error) << c.field << " = " << c.value.ToText();
    if (error != 0) {
      rs->CancelUpdate();
      continue;
    }
    auto again = db_.Open("TvbfFormulas");
    EXPECT_EQ(again->Fields(c.field).Value(), c.stored) << c.field << " = " << c.value.ToText();
  }
}

TEST_F(EditTest, FieldsTellTheirTypesInAdosCodes) {
  using platform::DataType;
  struct Case {
    DataType type;
    int code;
    Variant value;
    Variant stored;
  };
  const std::vector<std::uint8_t> bytes = {0, 1, 255, 0};
  const Case cases[] = {
      {DataType::kBoolean, 11, true, true},
      {DataType::kUnsignedTinyInt, 17, 200, 200},
      {DataType::kSmallInt, 2, -300, -300},
      {DataType::kInteger, 3, 70000, 70000},
      {DataType::kSingle, 4, 0.5, 0.5},
      {DataType::kDouble, 5, 1e300, 1e300},
      {DataType::kCurrency, 6, 12.3456, 12.3456},
      {DataType::kDate, 7, platform::Date{36526.25}, platform::Date{36526.25}},
      {DataType::kVarWChar, 202, "text", "text"},
      {DataType::kLongVarWChar, 203, std::string(5000, 'm'), std::string(5000, 'm')},
      {DataType::kVarBinary, 204, bytes, bytes},
      {DataType::kLongVarBinary, 205, bytes, bytes},
  };
  std::vector<platform::Connection::ColumnInfo> columns;
  std::vector<std::string> names;
  std::vector<Variant> values;
  for (const Case& c : cases) {
    names.push_back("F" + std::to_string(c.code));
    const bool sized = c.type == DataType::kVarWChar || c.type == DataType::kVarBinary;
    columns.push_back({names.back(), c.type, sized ? 10 : 0, false});
    values.push_back(c.value);
  }
  db_.connection()->CreateTable("Types", columns, {});
  auto rs = db_.Open("Types");
  rs->AddNew(names, values);
  auto again = db_.Open("Types");
  for (const Case& c : cases) {
    platform::Field& field = again->Fields("f" + std::to_string(c.code));
    EXPECT_EQ(static_cast<int>(field.Type()), c.code);
    EXPECT_EQ(field.Value(), c.stored) << c.code;
  }
  EXPECT_EQ(again->Fields("F202").DefinedSize(), 10);
}

// Such columns can be read, not written.
TEST_F(EditTest, TypesOfOtherProgramsHaveAdosCodesToo) {
  db_.connection()->CreateTable("Types", {{"Key", platform::DataType::kGuid, 0, false}}, {});
  const std::array<std::byte, 16> stored = {std::byte{0x33}, std::byte{0x22}, std::byte{0x11}};
  const jet::ColumnValue values[] = {{0, jet::Value::Guid(stored)}};
  db_.connection()->database().OpenTable("Types").Insert(values);
  auto rs = db_.Open("Types");
  EXPECT_EQ(static_cast<int>(rs->Fields("Key").Type()), 72);
  EXPECT_EQ(rs->Fields("Key").Value(), Variant("{00112233-0000-0000-0000-000000000000}"));
  EXPECT_EQ(ErrorOf([&] { rs->Fields("Key").SetValue("{}"); }), platform::kErrFeatureNotAvailable);
  EXPECT_EQ(static_cast<int>(DataTypeOf(jet::ColumnType::kDecimal)), 131);
}

TEST_F(EditTest, RowsOfJoinsAndOfReadOnlyFilesCannotBeChanged) {
  const std::int32_t formula = db_.AddFormula("F", "P.C");
  db_.AddArgument(formula, 1);
  auto join =
      db_.Open("SELECT VBAlias FROM TvbfParams INNER JOIN TvbfAlias ON AliasID = TvbfAlias.ID");
  EXPECT_EQ(ErrorOf([&] { join->Fields("VBAlias").SetValue("x"); }),
            platform::kErrFeatureNotAvailable);

  recordset::JetConnection reader(db_.system());
  reader.Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + db_.path() + ";Mode=Read");
  auto rs = support::MemoryDatabase::Open(reader, "TvbfAlias");
  EXPECT_EQ(RowsText(*rs, {"ID"}), "1 2 3");
  rs->MoveFirst();
  EXPECT_EQ(ErrorOf([&] { rs->Delete(); }), platform::kErrPermissionDenied);
}

}  // namespace
}  // namespace recordset
