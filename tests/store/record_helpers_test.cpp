// SPDX-License-Identifier: MIT
#include "store/record_helpers.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "store/ado_fro.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/memory_database.h"

namespace store {
namespace {

using platform::Variant;

const std::string kZero(1, '\0');

class RecordHelpersTest : public testing::Test {
 protected:
  RecordHelpersTest() {
    for (const char* name : {"A", "B", "C"}) db_.AddAlias("Item", name);
  }
  std::shared_ptr<platform::Recordset> Closed(std::string_view table) {
    auto rows = db_.Open(table);
    rows->Close();
    return rows;
  }
  std::string AliasOf(std::int32_t id) {
    return db_.Open("SELECT VBAlias FROM TvbfAlias WHERE ID = ?", {id})
        ->Fields("VBAlias")
        .Value()
        .ToText();
  }

  support::MemoryDatabase db_;
};

TEST_F(RecordHelpersTest, OpenFilteredGoesToTheFirstOrLastRow) {
  auto rows = Closed("TvbfAlias");
  OpenFilteredAtLast(*rows, "");
  EXPECT_EQ(rows->Fields("VBAlias").Value(), Variant("C"));
  OpenFilteredAtFirst(*rows, "ID > 1");
  EXPECT_EQ(rows->Fields("VBAlias").Value(), Variant("B"));
  OpenFilteredAtLast(*rows, "ID = 99");
  EXPECT_EQ(rows->State(), platform::ObjectState::kOpen);
  EXPECT_TRUE(rows->BOF() && rows->EOF_());
  OpenFilteredAtFirst(*rows, "");
  EXPECT_EQ(rows->Fields("VBAlias").Value(), Variant("A"));
  EXPECT_THROW(OpenFilteredAtLast(*rows, "Nothing = 1"), platform::Error);
}

TEST_F(RecordHelpersTest, CloseRecordsetSavesOrCancelsAndAlwaysCloses) {
  struct Case {
    const char* value;
    bool save;
    const char* stored;
  };
  const Case cases[] = {
      {"New", false, "A"},  // given up
      {"B", true, "A"},     // a duplicate cannot be saved
      {"New", true, "New"},
  };
  for (const Case& c : cases) {
    auto rows = db_.Open("TvbfAlias");
    rows->Fields("VBAlias").SetValue(c.value);
    EXPECT_TRUE(CloseRecordset(*rows, c.save));
    EXPECT_EQ(rows->State(), platform::ObjectState::kClosed);
    EXPECT_EQ(AliasOf(1), c.stored);
    rows->Open();
    EXPECT_EQ(rows->GetEditMode(), platform::EditMode::kNone);
    EXPECT_TRUE(CloseRecordset(*rows, c.save));
    EXPECT_TRUE(CloseRecordset(*rows, c.save)) << "closed already";
  }
}

TEST_F(RecordHelpersTest, CloseRecordsetClosesWhateverFails) {
  db_.connection()->Close();
  bool fired = true;
  int n = 0;
  while (fired) {
    ++n;
    files::FailingFileSystem failing(db_.system());
    recordset::JetConnection connection(failing);
    connection.Open(ProjectConnectionString(db_.path()));
    auto rows = support::MemoryDatabase::Open(connection, "TvbfAlias");
    const std::string before = rows->Fields("ItemID").Value().ToText();
    const std::string after = "Item " + std::to_string(n);
    rows->Fields("ItemID").SetValue(after);
    files::Fault fault;
    fault.n = n;
    failing.Arm(fault);
    EXPECT_TRUE(CloseRecordset(*rows, true)) << "fault " << n;
    fired = failing.fired();
    failing.Disarm();
    EXPECT_EQ(rows->State(), platform::ObjectState::kClosed);
    rows->Open();
    const std::string stored = rows->Fields("ItemID").Value().ToText();
    EXPECT_TRUE(stored == before || stored == after) << "fault " << n << ": " << stored;
    EXPECT_TRUE(fired || stored == after);
  }
  EXPECT_GT(n, 5) << "hardly anything failed";
}

TEST_F(RecordHelpersTest, TextToFieldGoesByTheTypeOfTheField) {
  db_.AddFormula("F", "P.C");
  auto rows = db_.Open("TvbfFormulas");
  struct Case {
    const char* field;
    std::string text;
    Variant stored;
  };
  const Case cases[] = {
      {"ScanTime", "250ms", 250},    {"ScanTime", "abc", 0},       {"ScanTime", "", 0},
      {"ScanTime", " 1 000 ", 1000}, {"ScanTime", "-1.5e2", -150}, {"ScanTime", "2.5", 2},
      {"ScanTime", "&HFF", 255},     {"Comment", "text", "text"},  {"Comment", "", kZero},
      {"Comment", kZero, kZero},     {"Comment", " ", " "},        {"Enabled", "0", true},
  };
  for (const Case& c : cases) {
    TextToField(rows->Fields(c.field), c.text);
    rows->Update();
    auto again = db_.Open("TvbfFormulas");
    EXPECT_EQ(again->Fields(c.field).Value(), c.stored) << c.field << " <- " << c.text;
  }
  EXPECT_THROW(TextToField(rows->Fields("ScanTime"), "99999999999"), platform::Error);
}

TEST_F(RecordHelpersTest, FieldToTextShowsNullAsEmptyAndTheRestAsItIs) {
  auto text_of = [&](const Variant& comment) {
    const std::int32_t id = db_.AddFormula("F", "P.C", 7, comment);
    auto rows = db_.Open("SELECT * FROM TvbfFormulas WHERE ID = ?", {id});
    EXPECT_EQ(FieldToText(rows->Fields("Type")), "7");
    EXPECT_EQ(FieldToText(rows->Fields("enabled")), "True");
    return FieldToText(rows->Fields("Comment"));
  };
  EXPECT_EQ(text_of(platform::Null{}), "");
  EXPECT_EQ(text_of(kZero), kZero);
  EXPECT_EQ(text_of("Füllstand"), "Füllstand");
}

// An open recordset of somebody else's engine that can do nothing but close, and not even give up
// an edit.
class Broken : public platform::Recordset {
 public:
  bool open = true, closes = true;
  bool pending = true;  // Close raises as long as CancelUpdate was not tried

  void Close() override {
    if (!closes || std::exchange(pending, false)) Fail();
    open = false;
  }
  platform::ObjectState State() const override {
    return open ? platform::ObjectState::kOpen : platform::ObjectState::kClosed;
  }
  void CancelUpdate() override { Fail(); }
  void Update() override { Fail(); }

  void SetSource(std::string_view) override { Fail(); }
  void SetCursorLocation(platform::CursorLocation) override { Fail(); }
  void SetCursorType(platform::CursorType) override { Fail(); }
  void SetLockType(platform::LockType) override { Fail(); }
  void SetCommandType(platform::CommandType) override { Fail(); }
  void SetIndex(std::string_view) override { Fail(); }
  void SetParameters(std::vector<Variant>) override { Fail(); }
  void Open() override { Fail(); }
  bool BOF() const override { Fail(); }
  bool EOF_() const override { Fail(); }
  std::int32_t RecordCount() const override { Fail(); }
  void MoveFirst() override { Fail(); }
  void MoveLast() override { Fail(); }
  void MoveNext() override { Fail(); }
  void MovePrevious() override { Fail(); }
  std::int32_t AbsolutePosition() const override { Fail(); }
  void SetAbsolutePosition(std::int32_t) override { Fail(); }
  platform::Bookmark GetBookmark() const override { Fail(); }
  void SetBookmark(platform::Bookmark) override { Fail(); }
  std::shared_ptr<Recordset> Clone() override { Fail(); }
  void SetFilter(std::string_view) override { Fail(); }
  std::string Filter() const override { Fail(); }
  void Find(std::string_view, platform::SearchDirection) override { Fail(); }
  void Seek(const std::vector<Variant>&, platform::SeekOption) override { Fail(); }
  std::vector<std::string> FieldNames() const override { Fail(); }
  platform::Field& Fields(std::string_view) override { Fail(); }
  platform::Field& Fields(std::size_t) override { Fail(); }
  std::size_t FieldCount() const override { Fail(); }
  platform::EditMode GetEditMode() const override { Fail(); }
  void AddNew(const std::vector<std::string>&, const std::vector<Variant>&) override { Fail(); }
  void AddNew() override { Fail(); }
  void Delete() override { Fail(); }
  void Requery() override { Fail(); }
  void Resync() override { Fail(); }
  platform::RowBlock GetRows(std::int32_t, const std::vector<std::string>&) override { Fail(); }

 private:
  [[noreturn]] static void Fail() {
    throw platform::Error(platform::ErrorKind::kIo, 5, messages::Message::Verbatim("broken"));
  }
};

TEST(CloseRecordset, ClosesAlsoWhenTheEditCannotBeGivenUp) {
  for (const bool save : {false, true}) {
    Broken rows;
    EXPECT_TRUE(CloseRecordset(rows, save));
    EXPECT_FALSE(rows.open);
    Broken stuck;
    stuck.closes = false;
    EXPECT_FALSE(CloseRecordset(stuck, save)) << "it says so";
  }
}

class AdoFroTest : public testing::Test {
 protected:
  AdoFroTest() {
    ADOFRO::SetConnectionFactory(
        [this] { return std::make_shared<recordset::JetConnection>(db_.system()); });
  }
  ~AdoFroTest() override { ADOFRO::Drop(); }

  support::MemoryDatabase db_;
};

TEST_F(AdoFroTest, HasTheFiveCommands) {
  const std::int32_t formula = db_.AddFormula("F", "P.C");
  for (const char* name : {"A", "B", "C"}) db_.AddArgument(formula, db_.AddAlias("Item", name));
  db_.AddArgument(99, 1);
  ADOFRO& environment = ADOFRO::Instance();
  EXPECT_EQ(&ADOFRO::Instance(), &environment);
  EXPECT_EQ(environment.cnnFormulas()->State(), platform::ObjectState::kClosed);
  environment.cnnFormulas()->Open(ProjectConnectionString(db_.path()));
  auto count = [](platform::Recordset& rows) {
    OpenFilteredAtFirst(rows, "");
    return rows.RecordCount();
  };
  EXPECT_EQ(count(*environment.rsvbAlias()), 3);
  EXPECT_EQ(count(*environment.rstabvbAlias()), 3);
  EXPECT_EQ(count(*environment.rsFormulas()), 1);
  EXPECT_EQ(count(*environment.rsParams()), 4);
  environment.rstabParams()->SetParameters({formula});
  EXPECT_EQ(count(*environment.rstabParams()), 3);
  EXPECT_NE(environment.rsvbAlias(), environment.rstabvbAlias());

  environment.rsvbAlias()->AddNew({"VBAlias"}, {"D"});
  EXPECT_EQ(environment.cnnFormulas()->OpenRecordsets().size(), 5u);
  environment.rsFormulas()->Fields("Name").SetValue("Pending");
  const auto connection = environment.cnnFormulas();
  ADOFRO::Drop();
  EXPECT_FALSE(ADOFRO::Exists());
  EXPECT_EQ(connection->State(), platform::ObjectState::kClosed);
  EXPECT_EQ(db_.Open("TvbfFormulas")->Fields("Name").Value(), Variant("F"));
  EXPECT_NE(ADOFRO::Instance().cnnFormulas(), connection);
}

TEST(ProjectConnectionString, KeepsAnyPathInOnePiece) {
  EXPECT_EQ(ProjectConnectionString("C:\\Plant\\p.ovs"),
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\Plant\\p.ovs;"
            "Mode=Read|Write|Share Deny None;");
  files::MemoryFileSystem system;
  system.CreateDirectories("/d");
  for (const char* path : {"/d/a b.ovs", "/d/a;Mode=Read.ovs", "/d/it's; \"odd\".ovs",
                           "/d/trailing .ovs ", "/d/ä=ö.ovs"}) {
    recordset::JetConnection connection(system);
    connection.Create(ProjectConnectionString(path));
    EXPECT_TRUE(system.Exists(path)) << path;
    EXPECT_NO_THROW(CompleteSchema(connection)) << "opened for writing";
  }
}

}  // namespace
}  // namespace store
