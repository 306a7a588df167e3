// SPDX-License-Identifier: MIT
// The adapter over ADO's objects keeps what recordsets promise: the tests of recordsets are run
// over it in this program. Here is what they do not ask for.
#include <gtest/gtest.h>

#include "com/ado_connection.h"
#include "com/module.h"
#include "dialogs/alias_table.h"
#include "store/record_helpers.h"
#include "tests/com/partner_windows.h"
#include "tests/recordset/row_text.h"
#include "tests/support/memory_database.h"
#include "texts/text_table.h"

namespace com_tests {
namespace {

using recordset::ErrorOf;
using recordset::RowsText;
using support::MemoryDatabase;

// Of the connection that was put in front last.
std::weak_ptr<Partner> last_partner;

std::shared_ptr<platform::Connection> PutInFront(
    const std::shared_ptr<recordset::JetConnection>& engine) {
  // The engine must be closed: the objects open it.
  engine->Close();
  auto partner = std::make_shared<Partner>([engine] { return engine; });
  last_partner = partner;
  auto driven = std::make_shared<com::AdoConnection>(partner->Objects());
  driven->Open(store::ProjectConnectionString("/plant/plant.ovs"));
  return driven;
}

const bool kPutInFront = [] {
  MemoryDatabase::in_front = PutInFront;
  return true;
}();

class AdapterTest : public testing::Test {
 protected:
  AdapterTest() {
    for (const char* name : {"Delta", "Alpha", "Charlie"}) {
      db_.AddAlias(std::string("Item.") + name, name);
    }
  }
  Partner& partner() { return *partner_; }

  MemoryDatabase db_;
  std::shared_ptr<Partner> partner_ = last_partner.lock();
};

TEST_F(AdapterTest, ReadsTheDefinitionsThatTheEngineHas) {
  auto& engine = *db_.connection();
  engine.CreateTable("Kinds",
                     {{"Long", platform::DataType::kLongVarWChar, 0, false},
                      {"Picture", platform::DataType::kLongVarBinary, 0, false},
                      {"Short", platform::DataType::kVarBinary, 20, false},
                      {"When", platform::DataType::kDate, 0, false}},
                     {});
  ASSERT_EQ(db_.front().TableNames(), engine.TableNames());
  for (const std::string& table : engine.TableNames()) {
    const auto indexes = db_.front().Indexes(table), own = engine.Indexes(table);
    ASSERT_EQ(indexes.size(), own.size()) << table;
    for (std::size_t i = 0; i < own.size(); ++i) {
      EXPECT_EQ(indexes[i].name, own[i].name);
      EXPECT_EQ(indexes[i].columns, own[i].columns) << table << '.' << own[i].name;
      EXPECT_EQ(indexes[i].unique, own[i].unique) << table << '.' << own[i].name;
      EXPECT_EQ(indexes[i].primary, own[i].primary) << table << '.' << own[i].name;
    }
    const auto columns = db_.front().Columns(table), own_columns = engine.Columns(table);
    ASSERT_EQ(columns.size(), own_columns.size()) << table;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      EXPECT_EQ(columns[i].name, own_columns[i].name);
      EXPECT_EQ(columns[i].type, own_columns[i].type) << table << '.' << columns[i].name;
      EXPECT_EQ(columns[i].auto_increment, own_columns[i].auto_increment) << columns[i].name;
      if (columns[i].type == platform::DataType::kVarWChar) {
        EXPECT_EQ(columns[i].defined_size, own_columns[i].defined_size);
      }
    }
    EXPECT_EQ(db_.front().TableRowCount(table), engine.TableRowCount(table));
  }
  EXPECT_EQ(db_.front().Columns("Nothing").size(), 0u);
  EXPECT_EQ(ErrorOf([&] { db_.front().CreateTable("New", {}, {}); }),
            platform::kErrFeatureNotAvailable);
}

TEST_F(AdapterTest, DoesItselfWhatTheObjectsDoNot) {
  partner().is_strict = true;
  auto rs = db_.Open("TvbfAlias");
  rs->MoveLast();
  EXPECT_EQ(rs->AbsolutePosition(), 3);
  EXPECT_EQ(rs->RecordCount(), 3);
  EXPECT_EQ(rs->Fields("VBAlias").Value().ToText(), "Charlie") << "it stands where it stood";
  rs->SetAbsolutePosition(2);
  EXPECT_EQ(rs->AbsolutePosition(), 2);
  EXPECT_EQ(ErrorOf([&] { rs->SetAbsolutePosition(4); }), platform::kErrInvalidArgument);
  rs->MoveFirst();
  rs->MovePrevious();
  EXPECT_EQ(rs->RecordCount(), 3);
  EXPECT_TRUE(rs->BOF());
  rs->SetFilter("ID > 1");
  EXPECT_EQ(rs->RecordCount(), 2);
  rs->MovePrevious();
  rs->Find("VBAlias = 'Charlie'");
  EXPECT_EQ(rs->Fields("ID").Value(), platform::Variant(3));
  rs->MoveNext();
  rs->Find("ID = 3");
  EXPECT_TRUE(rs->EOF_());
  rs->Find("ID = 2", platform::SearchDirection::kBackward);
  EXPECT_EQ(rs->Fields("VBAlias").Value().ToText(), "Alpha");
  rs->SetFilter("ID > 9");
  rs->Find("ID = 3");
  rs->CancelUpdate();
  rs->Update();
  EXPECT_EQ(rs->RecordCount(), 0);
  EXPECT_EQ(rs->AbsolutePosition(), 0);
}

// As the grids and lists read it: by places, blocks and the index.
TEST_F(AdapterTest, TheAliasListNeedsNoPlacesEither) {
  partner().is_strict = true;
  const texts::TextTable texts(texts::Language::kEnglish);
  const std::shared_ptr<platform::Connection> connection(std::shared_ptr<void>(), &db_.front());
  store::Operations operations({connection, nullptr, nullptr, nullptr, &texts});
  dialogs::AliasTable list(connection, connection->CreateRecordset(), operations,
                           dialogs::AliasOrder::kName);
  const auto names = [&] {
    std::string text;
    for (const auto& record : list.Records(0, 9)) text += record.vb_alias + " ";
    return text;
  };
  EXPECT_EQ(names(), "Alpha Charlie Delta ");
  EXPECT_EQ(list.PositionOf(1), 2u);
  EXPECT_EQ(list.FindPrefix("ch", 0), 1u);
  EXPECT_EQ(list.FindPrefix("x", 0), std::nullopt);
  connection->BeginTrans();
  db_.AddAlias("Item.Bravo", "Bravo");
  list.Requery();
  EXPECT_EQ(names(), "Alpha Bravo Charlie Delta ");
  connection->RollbackTrans();
  list.Requery();
  EXPECT_EQ(names(), "Alpha Charlie Delta ");
}

TEST_F(AdapterTest, ErrorsHaveTheProvidersNumberAndWordsAndARemedy) {
  const texts::TextTable english(texts::Language::kEnglish);
  struct Case {
    std::int32_t failure;
    std::int32_t number;
    platform::ErrorKind kind;
    const char* remedy;
  };
  const Case cases[] = {
      {platform::kErrUnspecified, platform::kErrUnspecified, platform::ErrorKind::kIo,
       "See that the file is there"},
      {platform::kErrWriteConflict, platform::kErrWriteConflict, platform::ErrorKind::kConflict,
       "Read the row again"},
      {static_cast<std::int32_t>(0x800A0BCD), 3021, platform::ErrorKind::kRefused,
       "Open the project anew"},
  };
  auto rs = db_.Open("TvbfAlias");
  for (const Case& c : cases) {
    partner().failure = c.failure;
    partner().FailAt(1);
    try {
      rs->MoveFirst();
      ADD_FAILURE() << c.number;
    } catch (const platform::Error& error) {
      EXPECT_EQ(error.number(), c.number);
      EXPECT_EQ(error.kind(), c.kind) << c.number;
      const std::string said = english.Sentence(error);
      for (const std::string& part : {std::string("Jet of the test"), std::to_string(c.number),
                                      std::string(Partner::kWords), std::string(c.remedy)}) {
        EXPECT_NE(said.find(part), std::string::npos) << said;
      }
    }
  }
}

// Whatever is raised meanwhile, what is closed is closed, and nothing of it is left.
TEST_F(AdapterTest, ClosesOverObjectsThatFail) {
  auto rs = db_.Open("TvbfAlias");
  rs->Fields("VBAlias").SetValue("New");
  auto other = db_.Open("TvbfParams");
  db_.front().BeginTrans();
  partner().FailAt(1, Partner::kForEver);
  EXPECT_NE(ErrorOf([&] { other->MoveFirst(); }), 0);
  EXPECT_EQ(db_.front().OpenRecordsets().size(), 2u);
  db_.front().Close();
  EXPECT_EQ(rs->State(), platform::ObjectState::kClosed);
  EXPECT_EQ(other->State(), platform::ObjectState::kClosed);
  EXPECT_EQ(db_.front().State(), platform::ObjectState::kClosed);
  EXPECT_EQ(WrappersAlive(), 0);
  EXPECT_FALSE(com::IsModuleAlive());
}

// A row that cannot be cancelled must not keep its recordset open.
TEST_F(AdapterTest, CloseRecordsetClosesWhereCancellingFails) {
  auto rs = db_.Open("TvbfAlias");
  rs->Fields("VBAlias").SetValue("New");
  for (int n = 1; n < 8; ++n) {
    partner().FailAt(n);
    EXPECT_TRUE(store::CloseRecordset(*rs, false)) << n;
    partner().Recover();
    rs->Open();
    rs->Fields("VBAlias").SetValue("New");
  }
  store::CloseRecordset(*rs, false);
  EXPECT_EQ(RowsText(*db_.Open("TvbfAlias"), {"VBAlias"}), "Delta Alpha Charlie");
}

}  // namespace
}  // namespace com_tests
