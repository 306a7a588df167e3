// SPDX-License-Identifier: MIT
// Random changes against a model in memory: after every few of them the database holds what the
// model holds, in the order of the index, also when it is opened anew.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <random>
#include <string>

#include "jet/database.h"
#include "tests/jet/samples.h"

namespace jet {
namespace {

constexpr const char* kPath = "/model.mdb";

struct Row {
  std::int64_t id = 0;
  std::optional<std::string> name;  // unique, ignoring case
  std::optional<std::int64_t> number;
  bool flag = false;
  std::optional<std::string> note;  // memo
  friend bool operator==(const Row&, const Row&) = default;
};

TableSpec Spec() {
  TableSpec spec;
  spec.name = "Things";
  spec.columns = {{"ID", ColumnType::kLong, 0, true, false},
                  {"Name", ColumnType::kText, 0, false, true},
                  {"Number", ColumnType::kLong, 0, false, false},
                  {"Flag", ColumnType::kBoolean, 0, false, false},
                  {"Note", ColumnType::kMemo, 0, false, false}};
  spec.indexes = {{"PrimaryKey", {{"ID", true}}, false, true, false, false},
                  {"Name", {{"Name", true}}, true, false, false, false},
                  {"NumberName", {{"Number", false}, {"Name", true}}, false, false, true, false}};
  return spec;
}

class Model {
 public:
  explicit Model(unsigned seed) : random_(seed) {
    options_.changed_pages = seed % 2 == 0 ? 2 : 1024;
    database_ = Database::Create(system_, kPath, options_);
    database_->CreateTable(Spec());
  }

  void Run(int steps) {
    for (int i = 0; i < steps; ++i) {
      Step();
      if (i % 97 == 0) Compare();
      if (i % 389 == 0) Reopen();
      if (::testing::Test::HasFatalFailure()) return;
    }
    Compare();
    Reopen();
    Compare();
  }

 private:
  std::size_t Pick(std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_);
  }

  std::string Text(std::size_t longest) {
    static constexpr const char* kPieces[] = {"a", "B", "ö", "ß",    "-",
                                              " ", "'", "1", "Tank", "\xE2\x82\xAC"};
    std::string text;
    for (std::size_t i = Pick(longest + 1); i > 0; --i) text += kPieces[Pick(std::size(kPieces))];
    return text;
  }

  Row RandomRow() {
    Row row;
    if (Pick(8) != 0) row.name = Text(Pick(10) == 0 ? 60 : 12) + std::to_string(Pick(100000));
    if (Pick(4) != 0) row.number = static_cast<std::int64_t>(Pick(20)) - 10;
    row.flag = Pick(2) == 0;
    if (Pick(3) != 0) row.note = std::string(Pick(4) == 0 ? Pick(9000) : Pick(80), 'n') + Text(3);
    return row;
  }

  static std::vector<ColumnValue> Values(const Row& row) {
    const auto text = [](const std::optional<std::string>& t) {
      return t ? Value::Text(*t) : Value();
    };
    return {{1, text(row.name)},
            {2, row.number ? Value::Integer(*row.number) : Value()},
            {3, Value::Boolean(row.flag)},
            {4, text(row.note)}};
  }

  // One change, or several in a transaction that may be rolled back.
  void Step() {
    if (Pick(10) != 0) return Change();
    const std::map<RowId, Row> before = rows_;
    database_->Begin();
    for (std::size_t i = Pick(12); i > 0; --i) Change();
    if (Pick(3) == 0) {
      const std::map<RowId, Row> inner = rows_;
      database_->Begin();
      for (std::size_t i = Pick(12); i > 0; --i) Change();
      if (Pick(2) == 0) {
        database_->Rollback();
        rows_ = inner;
      } else {
        database_->Commit();
      }
    }
    if (Pick(2) == 0) {
      database_->Rollback();
      rows_ = before;
    } else {
      database_->Commit();
    }
  }

  bool NameIsTaken(const Row& row, std::optional<RowId> except) const {
    // The names end in digits and differ otherwise in ways the test keeps apart by exact match.
    Table& table = database_->OpenTable("Things");
    IndexCursor cursor = table.OpenCursor(table.FindIndex("Name").value());
    if (!row.name) return false;
    const Value key[] = {Value::Text(*row.name)};
    return cursor.Seek(key) && cursor.row() != except;
  }

  void Change() {
    Table& table = database_->OpenTable("Things");
    const std::size_t what = Pick(rows_.size() < 400 ? 6 : 12);
    if (rows_.empty() || what < 3) return Insert(table);
    auto at = rows_.begin();
    std::advance(at, static_cast<std::ptrdiff_t>(Pick(rows_.size())));
    if (what < 6) return Update(table, at);
    table.Delete(at->first);
    rows_.erase(at);
  }

  void Insert(Table& table) {
    Row row = RandomRow();
    if (NameIsTaken(row, std::nullopt)) {
      EXPECT_THROW(table.Insert(Values(row)), Error);
      return;
    }
    const InsertResult result = table.Insert(Values(row));
    row.id = result.auto_number;
    EXPECT_TRUE(rows_.emplace(result.id, row).second);
  }

  void Update(Table& table, std::map<RowId, Row>::iterator at) {
    Row row = RandomRow();
    row.id = at->second.id;
    if (NameIsTaken(row, at->first)) {
      EXPECT_THROW(table.Update(at->first, Values(row)), Error);
      return;
    }
    std::vector<ColumnValue> values = Values(row);
    if (Pick(2) == 0) {  // only some columns
      values.erase(values.begin() + 1);
      row.number = at->second.number;
    }
    table.Update(at->first, values);
    at->second = row;
  }

  static Row Read(const RowBuffer& buffer) {
    Row row;
    row.id = buffer[0].integer();
    if (!buffer[1].is_null()) row.name = buffer[1].text();
    if (!buffer[2].is_null()) row.number = buffer[2].integer();
    row.flag = buffer[3].boolean();
    if (!buffer[4].is_null()) row.note = buffer[4].text();
    return row;
  }

  void Compare() {
    Table& table = database_->OpenTable("Things");
    std::map<RowId, Row> found;
    RowBuffer buffer;
    for (Scan scan = table.OpenScan(); scan.Next(buffer);) found[buffer.id()] = Read(buffer);
    ASSERT_EQ(found.size(), rows_.size());
    ASSERT_TRUE(found == rows_);
    EXPECT_EQ(table.RowCount(), rows_.size());
    const VerifyResult result = database_->Verify();
    for (const Finding& finding : result.findings) {
      ADD_FAILURE() << finding.table << ", page " << finding.place.page << ", row "
                    << finding.place.row << ": " << finding.text.English();
    }
    ASSERT_TRUE(result.ok());
    EXPECT_EQ(result.leaked_pages, 0u);
  }

  void Reopen() {
    database_.reset();
    database_ = Database::Open(system_, kPath, options_);
    EXPECT_EQ(database_->read_only_reason().English(), "");
  }

  std::mt19937 random_;
  files::MemoryFileSystem system_;
  OpenOptions options_;
  std::unique_ptr<Database> database_;
  std::map<RowId, Row> rows_;
};

TEST(Model, RandomChanges) {
  const bool is_long = std::getenv("OV_LONG") != nullptr;
  for (unsigned seed = 1; seed <= (is_long ? 200u : 2u); ++seed) {
    SCOPED_TRACE(seed);
    Model(seed).Run(is_long ? 6000 : 800);
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace jet
