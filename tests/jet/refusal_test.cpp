// SPDX-License-Identifier: MIT
// Files and tables that cannot be opened or changed, and what the user is told.
#include <gtest/gtest.h>

#include <functional>

#include "jet/bytes.h"
#include "jet/database.h"
#include "jet/header_page.h"
#include "jet/table_definition.h"
#include "jet/usage_map_record.h"
#include "tests/files/temporary_folder.h"
#include "tests/jet/plant_tables.h"
#include "tests/jet/samples.h"

namespace jet {
namespace {

constexpr const char* kPath = "/plant.ovs";

TEST(Refusal, FilesByTheirHeader) {
  struct Case {
    const char* name;
    std::function<void(std::string&)> change;
    ErrorKind kind;
    const char* says;
  };
  const auto unmasked = [](std::size_t at, std::uint8_t value) {
    return [=](std::string& file) {
      const auto page = std::as_writable_bytes(std::span(file));
      MaskHeader(page);
      page[at] ^= std::byte{value};
      MaskHeader(page);
    };
  };
  const Case cases[] = {
      {"empty", [](std::string& f) { f.clear(); }, ErrorKind::kForeign, "too short"},
      {"text", [](std::string& f) { f.assign(9000, 'x'); }, ErrorKind::kForeign, "not a Jet"},
      {"Access 2007", [](std::string& f) { f.replace(4, 15, "Standard ACE DB"); },
       ErrorKind::kUnsupported, "Access 2007"},
      {"Access 97", [](std::string& f) { f[0x14] = 0; }, ErrorKind::kUnsupported, "Access 97"},
      {"newer", [](std::string& f) { f[0x14] = 2; }, ErrorKind::kUnsupported, "newer"},
      {"encrypted", unmasked(0x3E, 1), ErrorKind::kUnsupported, "encrypted"},
      {"password", unmasked(0x42, 'p'), ErrorKind::kUnsupported, "password"},
      {"cut", [](std::string& f) { f.resize(f.size() - 100); }, ErrorKind::kDamaged, "cut off"},
      {"header only", [](std::string& f) { f.resize(kPageSize); }, ErrorKind::kDamaged, "ends"},
  };
  const std::string good = NewDatabase(45000);
  for (const Case& test : cases) {
    SCOPED_TRACE(test.name);
    files::MemoryFileSystem system;
    std::string file = good;
    test.change(file);
    system.Put(kPath, file);
    try {
      Database::Open(system, kPath);
      ADD_FAILURE() << "opened";
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), test.kind);
      EXPECT_NE(std::string(error.what()).find(test.says), std::string::npos) << error.what();
      EXPECT_EQ(std::string(error.what()).find(kPath), 0u);
    }
  }
}

TEST(Refusal, ChangesThatATableCannotTake) {
  files::MemoryFileSystem system;
  const auto database = Database::Create(system, kPath);
  Table& table = database->CreateTable(ItemsSpec());
  const RowId row = AddItem(table, "Straße ", "note").id;
  AddItem(table, "Weg", "");
  struct Case {
    const char* name;
    ColumnValue value;
    ErrorKind kind;
  };
  const std::string too_long(256, 'x');
  const Case cases[] = {
      {"same key in other letters", {1, Value::Text("STRASSE")}, ErrorKind::kDuplicate},
      {"too long", {1, Value::Text(too_long)}, ErrorKind::kInvalid},
      {"no place in the order", {1, Value::Text("\xE6\xB0\xB4")}, ErrorKind::kInvalid},
      {"another type", {1, Value::Integer(7)}, ErrorKind::kInvalid},
      {"number out of range", {0, Value::Integer(std::int64_t{1} << 31)}, ErrorKind::kInvalid},
      {"no such column", {9, Value::Integer(7)}, ErrorKind::kNotFound},
  };
  const std::string before = system.Get(kPath);
  for (const Case& test : cases) {
    SCOPED_TRACE(test.name);
    try {
      table.Insert({&test.value, 1});
      ADD_FAILURE() << "inserted";
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), test.kind) << error.what();
    }
    EXPECT_EQ(system.Get(kPath), before);
  }
  const ColumnValue same[] = {{1, Value::Text("STRASSE")}};
  table.Update(row, same);  // its own key in other letters is no duplicate
  const ColumnValue taken[] = {{1, Value::Text("weg")}};
  EXPECT_THROW(table.Update(row, taken), Error);
  const ColumnValue number[] = {{0, Value::Integer(70)}};
  EXPECT_THROW(table.Update(row, number), Error);
  table.Delete(row);
  EXPECT_THROW(table.Delete(row), Error);
  EXPECT_THROW(table.Update(row, same), Error);
  EXPECT_EQ(Faults(*database), "");
}

// A Null in the primary key, and a transaction that a caller's mistake leaves usable.
TEST(Refusal, AMistakeLeavesTheTransactionUsable) {
  files::MemoryFileSystem system;
  const auto database = Database::Create(system, kPath);
  TableSpec spec = ItemsSpec();
  spec.columns[0].auto_number = false;
  Table& table = database->CreateTable(spec);
  Transaction transaction(*database);
  const ColumnValue good[] = {{0, Value::Integer(5)}, {1, Value::Text("a")}};
  table.Insert(good);
  try {
    AddItem(table, "b", "");
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::kRequired);
  }
  EXPECT_THROW(table.Insert(good), Error);
  const ColumnValue other[] = {{0, Value::Integer(-6)}, {1, Value::Text("c")}};
  table.Insert(other);
  transaction.Commit();
  EXPECT_EQ(Items(*database), (std::vector<std::string>{"-6|c|-", "5|a|-"}));
}

// A table that is only read, with the reason and no change of the file.
void ExpectReadOnly(files::MemoryFileSystem& system, const std::string& path,
                    const std::string& table_name, const char* says) {
  const std::string before = system.Get(path);
  {
    const auto database = Database::Open(system, path);
    Table& table = database->OpenTable(table_name);
    const std::string reason = table.ReadOnlyReason().English();
    EXPECT_NE(reason.find(says), std::string::npos) << reason;
    RowBuffer row;
    Scan scan = table.OpenScan();
    EXPECT_TRUE(scan.Next(row));
    try {
      table.Insert({});
      ADD_FAILURE() << "inserted";
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::kReadOnly);
      EXPECT_NE(std::string(error.what()).find(says), std::string::npos) << error.what();
    }
    EXPECT_THROW(table.Delete(row.id()), Error);
    EXPECT_EQ(Faults(*database), "");
  }
  EXPECT_EQ(system.Get(path), before);
}

TEST(Refusal, TablesOfEnforcedRelations) {
  OV_NEED_SAMPLES();
  files::MemoryFileSystem system;
  const std::string path = samples::Copy(system, "indexTestV2000.mdb");
  for (const char* table : {"Table1", "Table2", "Table3"}) {
    ExpectReadOnly(system, path, table, "enforced relation");
  }
  EXPECT_EQ(Database::Open(system, path)->Relations().size(), 4u);
}

// What only Access can maintain, as the record of a column says it.
TEST(Refusal, TablesOfOtherCollationsAndUnknownColumns) {
  struct Case {
    const char* says;
    const char* column;
    std::size_t offset;  // within the record
    char value;
  };
  for (const Case& test : {Case{"rules of language 1031", "Item", 11, '\x07'},
                           Case{"rules of language", "Item", 14, '\x01'},  // a later version
                           Case{"unknown type 20", "Note", 0, '\x14'},
                           Case{"calculated column", "Note", 16, '\xC0'}}) {
    SCOPED_TRACE(test.says);
    files::MemoryFileSystem system;
    std::size_t record = 0;
    {
      const auto database = Database::Create(system, kPath);
      Table& table = database->CreateTable(ItemsSpec());
      AddItem(table, "Pumpe", "");
      record = table.definition_page() * kPageSize + kDefinitionCountersOffset +
               table.physical_indexes().size() * kDefinitionCounterSize +
               table.FindColumn(test.column).value() * kColumnRecordSize;
    }
    std::string file = system.Get(kPath);
    file[record + test.offset] = test.value;
    system.Put(kPath, file);
    ExpectReadOnly(system, kPath, "Items", test.says);
  }
}

// A map of free pages that has only the last page that the format allows, and those behind it.
void TakeAllPagesButTheLast(files::RandomAccessFile& file) {
  constexpr PageNumber kFirstBitmap = 100;
  constexpr PageNumber kLastPage = kMaxPageCount - 1;
  std::vector<std::byte> map(kNewMapSize);
  Store8(map.data(), kReferenceMap);
  for (PageNumber i = 0; i * kPagesPerBitmap <= kLastPage; ++i) {
    std::vector<std::byte> bitmap(kPageSize);
    Store8(bitmap.data(), static_cast<std::uint8_t>(PageType::kUsageBitmap));
    const PageNumber first = i * kPagesPerBitmap;
    for (std::size_t bit = kLastPage - first; bit < kPagesPerBitmap; ++bit) {
      bitmap[kBitmapHead + bit / 8] |= std::byte{1} << (bit % 8);
    }
    file.WriteAt((kFirstBitmap + i) * kPageSize, bitmap);
    Store32(&map[1 + 4 * i], kFirstBitmap + i);
  }
  file.WriteAt(2 * kPageSize - map.size(), map);  // the first row of page 1
}

// The file ends at 2 GiB: what does not fit is refused, and all that was there stays.
TEST(Refusal, DatabasesAtTheLimitOfTheFormat) {
  TemporaryFolder folder;
  files::FileSystem& system = files::RealFileSystem();
  const std::string path = folder / "large.mdb";
  {
    const auto database = Database::Create(system, path);
    AddItem(database->CreateTable(ItemsSpec()), "Pumpe", "");
  }
  {
    const auto file = system.Open(path, files::OpenMode::kReadWrite);
    file->Truncate(kMaxFileSize - kPageSize);  // mostly a hole
    TakeAllPagesButTheLast(*file);
  }
  const auto database = Database::Open(system, path);
  Table& table = database->OpenTable("Items");
  database->Begin();
  AddItem(table, "Ventil", std::string(2000, 'x'));
  try {
    AddItem(table, "Tank", std::string(2000, 'x'));
    ADD_FAILURE() << "the file grew beyond its limit";
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::kTooLarge) << error.what();
  }
  EXPECT_THROW(AddItem(table, "Kessel", ""), Error);  // only the rollback is left
  database->Rollback();
  EXPECT_EQ(Items(*database).size(), 1u);
  AddItem(table, "Ventil", "");
  EXPECT_EQ(Items(*database).size(), 2u);
}

}  // namespace
}  // namespace jet
