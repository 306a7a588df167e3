// SPDX-License-Identifier: MIT
// Damaged files: cut off anywhere, and with bytes changed. Whatever they hold, reading ends, in an
// error that names the file or with what is there; rows are never missing in silence.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <random>
#include <span>

#include "jet/data_page.h"
#include "jet/database.h"
#include "jet/header_page.h"
#include "jet/table_definition.h"
#include "jet/usage_map_record.h"
#include "tests/jet/plant_tables.h"
#include "tests/jet/samples.h"

namespace jet {
namespace {

// What a reader gets from a file.
struct Reading {
  bool refused = false;  // the file could not be opened
  std::size_t errors = 0;
  std::map<std::string, std::size_t> rows;  // by table
};

// Reads every row. A table that cannot be opened, a row or a page that cannot be read is an error.
Reading ReadAll(files::FileSystem& system, const std::string& path) {
  Reading reading;
  std::unique_ptr<Database> database;
  OpenOptions options;
  options.read_only = true;
  options.cache_pages = 32;
  std::vector<TableInfo> tables;
  try {
    database = Database::Open(system, path, options);
    tables = database->Tables(true);
  } catch (const Error& error) {
    EXPECT_NE(std::string(error.what()).find(path), std::string::npos);
    reading.refused = true;
    return reading;
  }
  for (const TableInfo& info : tables) {
    std::size_t& rows = reading.rows[info.name];
    try {
      Scan scan = database->OpenTable(info.name).OpenScan();
      RowBuffer row;
      for (bool more = true; more;) {
        try {
          more = scan.Next(row);
          rows += more;
          if (!more) reading.errors += !scan.Shortfall().empty();
        } catch (const Error&) {
          ++reading.errors;
        }
      }
    } catch (const Error&) {
      ++reading.errors;
    }
  }
  return reading;
}

TEST(Damage, CutFilesNeverLoseRowsInSilence) {
  for (const std::string& name : samples::All()) {
    files::MemoryFileSystem system;
    const std::string path = samples::Copy(system, name);
    const std::string whole = samples::Contents(name);
    const Reading before = ReadAll(system, path);
    ASSERT_FALSE(before.refused);
    std::mt19937 random(1);
    const std::size_t pages = whole.size() / kPageSize;
    for (std::size_t page = 0; page<pages; page += pages> 200 ? 17 : 1) {
      for (const std::size_t within :
           {std::size_t{0}, std::size_t{1} + random() % (kPageSize - 1)}) {
        SCOPED_TRACE(name + " cut in page " + std::to_string(page) + " at " +
                     std::to_string(within));
        system.Put(path, std::string_view(whole).substr(0, page * kPageSize + within));
        const Reading after = ReadAll(system, path);
        EXPECT_TRUE(after.refused || after.errors > 0 || after.rows == before.rows);
        EXPECT_TRUE(within == 0 || after.refused);
      }
    }
  }
}

// One byte changed at random places: nothing crashes or hangs, and Verify comes to an end.
TEST(Damage, SingleBytes) {
  const int rounds = std::getenv("OV_LONG") != nullptr ? 20000 : 60;
  std::size_t noticed = 0, total = 0;
  for (const std::string& name : samples::All()) {
    if (name == "testV2003.mdb" && rounds < 1000) continue;  // large
    files::MemoryFileSystem system;
    const std::string path = samples::Copy(system, name);
    const std::string whole = samples::Contents(name);
    std::mt19937 random(static_cast<unsigned>(whole.size()));
    for (int i = 0; i < rounds; ++i) {
      std::string damaged = whole;
      const std::size_t at = random() % damaged.size();
      damaged[at] = static_cast<char>(damaged[at] ^ (1 + random() % 255));
      SCOPED_TRACE(name + ", byte " + std::to_string(at));
      system.Put(path, damaged);
      const Reading reading = ReadAll(system, path);
      ++total;
      bool found = reading.refused || reading.errors > 0;
      if (!reading.refused) {
        OpenOptions options;
        options.read_only = true;
        try {
          const auto database = Database::Open(system, path, options);
          found |= !database->Verify().ok();
        } catch (const Error&) {
          found = true;
        }
      }
      noticed += found;
    }
  }
  // Most bytes of these files are slack that nobody reads.
  EXPECT_GE(noticed * 100, total * 8);
}

// A row that an index leads to is either read or reported, as a scan does.
TEST(Damage, SenselessBoundsOfARowAreReported) {
  files::MemoryFileSystem system;
  const std::string path = "/items.mdb";
  auto database = Database::Create(system, path);
  Table& table = database->CreateTable(ItemsSpec());
  const RowId id = AddItem(table, "a", "").id;
  AddItem(table, "b", "");
  const PageNumber page = id.page;
  database.reset();
  std::string bytes = system.Get(path);
  const std::size_t slot = page * kPageSize + 14 + 2 * std::size_t{id.slot};
  for (const unsigned bounds : {0u, 10u, 0x0FFFu, 0x1FFFu}) {  // among the slots, behind the page
    bytes[slot] = static_cast<char>(bounds & 0xFF);
    bytes[slot + 1] = static_cast<char>(bounds >> 8);
    system.Put(path, bytes);
    database = Database::Open(system, path);
    RowBuffer row;
    EXPECT_THROW(database->OpenTable("Items").Read(id, row), Error) << bounds;
    EXPECT_THROW(database->OpenTable("Items").Update(id, {}), Error) << bounds;
    EXPECT_FALSE(database->Verify().ok()) << bounds;
  }
}

// The position of a page's bit in the file's map of free pages, which is a bitmap in its record.
std::pair<std::size_t, unsigned char> FreeBit(std::string& bytes, PageNumber page) {
  const std::byte* header = std::as_bytes(std::span(bytes)).data();
  const RowId record = HeaderFreeMap(header);
  const std::size_t begin =
      record.page * kPageSize + GetSlot(header + record.page * kPageSize, record.slot).begin;
  const std::size_t bit = page - Load32(header + begin + 1);
  return {begin + kMapHead + bit / 8, static_cast<unsigned char>(1u << (bit % 8))};
}

// A row that an index names and whose page holds something else was not deleted by anybody.
TEST(Damage, ARowWhosePageIsAnothersIsNotTakenForDeleted) {
  files::MemoryFileSystem system;
  const std::string path = "/items.mdb";
  const auto add = [](Database& database, const std::string& table) {
    Transaction transaction(database);
    for (int i = 0; i < 60; ++i) {
      AddItem(database.OpenTable(table), std::string(200, 'i') + std::to_string(i), "");
    }
    transaction.Commit();
  };
  std::vector<RowId> ids;
  {
    const auto database = Database::Create(system, path);
    TableSpec others = ItemsSpec();
    others.name = "Others";
    database->CreateTable(ItemsSpec());
    database->CreateTable(others);
    add(*database, "Items");
    ids = database->OpenTable("Items").IndexedRows(0);
  }
  const std::string whole = system.Get(path);
  RowBuffer row;
  const auto change = [&](RowId id, std::size_t offset, char byte) {
    std::string bytes = whole;
    bytes[id.page * kPageSize + offset] = byte;
    system.Put(path, bytes);
  };
  for (const RowId id : {ids.front(), ids.back()}) {
    for (const auto& [offset, byte] :
         {std::pair{0, '\2'}, std::pair{0, '\x09'}, std::pair{0, '\xFF'}, std::pair{4, '\3'}}) {
      change(id, static_cast<std::size_t>(offset), byte);
      const auto database = Database::Open(system, path);
      try {
        EXPECT_FALSE(database->OpenTable("Items").Read(id, row));
        ADD_FAILURE() << "page " << id.page << ", byte " << offset;
      } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::kDamaged);
        EXPECT_EQ(error.place().page, id.page);
      }
    }
  }
  system.Put(path, whole);
  const auto reader = Database::Open(system, path), other = Database::Open(system, path);
  for (const RowId id : ids) other->OpenTable("Items").Delete(id);
  add(*other, "Others");
  EXPECT_EQ(other->OpenTable("Others").IndexedRows(0).front().page, ids.front().page);
  for (const RowId id : ids) EXPECT_FALSE(reader->OpenTable("Items").Read(id, row));
}

// Every page in use is marked free, one at a time: whoever needs pages is told before it is given
// away, or when he releases it, and the file stays as it was.
TEST(Damage, AUsedPageThatIsMarkedFreeIsNotGivenAway) {
  files::MemoryFileSystem system;
  const std::string path = "/items.mdb";
  const auto add = [](Database& database, int from, int to) {
    Transaction transaction(database);
    Table& table = database.OpenTable("Items");
    for (int i = from; i < to; ++i) {
      AddItem(table, std::string(200, 'i') + std::to_string(i), std::string(9000, 'n'));
    }
    transaction.Commit();
  };
  {
    const auto database = Database::Create(system, path);
    database->CreateTable(ItemsSpec());
    add(*database, 0, 50);
  }
  const std::string whole = system.Get(path);
  const auto pages = static_cast<PageNumber>(whole.size() / kPageSize);
  std::size_t used = 0;
  for (PageNumber page = 2; page < pages; ++page) {
    std::string wrong = whole;
    const auto [at, mask] = FreeBit(wrong, page);
    if ((static_cast<unsigned char>(wrong[at]) & mask) != 0) continue;
    wrong[at] = static_cast<char>(static_cast<unsigned char>(wrong[at]) | mask);
    ++used;
    for (const bool adds : {true, false}) {
      SCOPED_TRACE(page);
      system.Put(path, wrong);
      const auto database = Database::Open(system, path);
      bool told = false;
      try {
        if (adds) {
          add(*database, 50, 60);
        } else {
          Transaction transaction(*database);
          Table& table = database->OpenTable("Items");
          RowBuffer row;
          Scan scan = table.OpenScan();
          while (scan.Next(row)) table.Delete(row.id());
          transaction.Commit();
        }
      } catch (const Error& error) {
        told = true;
        EXPECT_EQ(error.kind(), ErrorKind::kDamaged);
        EXPECT_EQ(error.place().page, page);
        EXPECT_NE(std::string(error.what()).find("ovformula db verify"), std::string::npos);
        EXPECT_EQ(system.Get(path), wrong);
      }
      // Deleting releases only what held the rows.
      EXPECT_TRUE(told || !adds);
    }
  }
  EXPECT_GT(used, 150u);
}

// Maps of larger files: of 128 MB and of the largest, all in use; and one without a bitmap.
TEST(Damage, AMapOfAMuchLargerFileDoesNotLengthenThisOne) {
  files::MemoryFileSystem system;
  const std::string path = "/items.mdb";
  Database::Create(system, path)->CreateTable(ItemsSpec());
  std::string bytes = system.Get(path);
  const std::size_t record = FreeBit(bytes, 0).first - kMapHead;
  const auto full = static_cast<std::uint32_t>(bytes.size() / kPageSize);
  bytes += std::string("\5\1", 2) + std::string(kPageSize - 2, '\0');
  std::memset(&bytes[record], 0, kMapHead + 64);
  bytes[record] = kReferenceMap;
  constexpr std::size_t kReferences = 17;
  for (const auto& [bitmap, count] :
       {std::pair{full, std::size_t{1}}, {full, kReferences}, {0u, kReferences}}) {
    for (std::size_t i = 0; i < count; ++i) {
      std::memcpy(&bytes[record + 1 + sizeof bitmap * i], &bitmap, sizeof bitmap);
    }
    system.Put(path, bytes);
    const auto database = Database::Open(system, path);
    try {
      Transaction transaction(*database);
      for (int i = 0; i < 20; ++i) AddItem(database->OpenTable("Items"), std::string(250, 'i'), "");
      transaction.Commit();
      ADD_FAILURE() << bitmap << ' ' << count;
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::kDamaged);
    }
    EXPECT_TRUE(system.Get(path) == bytes);
  }
}

// A definition whose values would lead reading or writing astray is refused when it is read.
TEST(Damage, DefinitionsAreBounded) {
  files::MemoryFileSystem system;
  const std::string path = "/types.mdb";
  TableSpec spec;
  spec.name = "Types";
  spec.columns = {{"Number", ColumnType::kLong, 0, true},
                  {"Text", ColumnType::kText},
                  {"Other", ColumnType::kText},
                  {"Real", ColumnType::kDouble},
                  {"Memo", ColumnType::kMemo},
                  {"Guid", ColumnType::kGuid},
                  {"Decimal", ColumnType::kDecimal}};
  auto database = Database::Create(system, path);
  const std::size_t page = database->CreateTable(spec).definition_page();
  database.reset();
  const std::string whole = system.Get(path);
  constexpr const char* kUnsound = "has a size, scale or kind that its type cannot have";
  constexpr const char* kSamePlace = "lies on the place of another";
  const struct {
    std::size_t column, offset;
    std::uint8_t value;
    const char* says;
  } kCases[] = {
      {6, 12, 255, kUnsound},                             // scale
      {6, 12, 28, nullptr},                               // the largest
      {6, 11, 29, kUnsound},                              // precision
      {1, 24, 2, kUnsound},                               // a text of more than 510 bytes
      {1, 15, kColumnAutoNumber, kUnsound},               // numbers for texts
      {3, 15, kColumnFixed | kColumnAutoGuid, kUnsound},  // GUIDs for numbers
      {4, 15, kColumnFixed, kUnsound},                    // a memo in the fixed area
      {3, 22, 0x0F, nullptr},                             // at the end of the largest row
      {3, 22, 0x10, kUnsound},                            // behind it
      {3, 21, 2, kSamePlace},                             // over the number
      {2, 7, 0, kSamePlace},                              // the place of the first text
      {0, 0, static_cast<std::uint8_t>(ColumnType::kGuid), kUnsound},  // numbers for GUIDs
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(std::to_string(c.column) + ", " + std::to_string(c.offset));
    std::string damaged = whole;
    damaged[page * kPageSize + kDefinitionCountersOffset + c.column * kColumnRecordSize +
            c.offset] = static_cast<char>(c.value);
    system.Put(path, damaged);
    database = Database::Open(system, path);
    try {
      database->OpenTable("Types");
      EXPECT_EQ(c.says, nullptr);
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::kDamaged);
      ASSERT_NE(c.says, nullptr) << error.what();
      EXPECT_NE(std::string(error.what()).find(c.says), std::string::npos) << error.what();
    }
  }
}

// The same with writing: a change of a damaged table succeeds or is refused, and a refused change
// leaves the file as it was.
TEST(Damage, WritingIntoDamagedFiles) {
  const int rounds = std::getenv("OV_LONG") != nullptr ? 20000 : 200;
  for (const std::string& name : samples::Projects()) {
    files::MemoryFileSystem system;
    const std::string path = samples::Copy(system, name);
    const std::string whole = samples::Contents(name);
    std::mt19937 random(7);
    for (int i = 0; i < rounds; ++i) {
      std::string damaged = whole;
      for (int k = 0; k < 3; ++k) {
        const std::size_t at = random() % damaged.size();
        damaged[at] = static_cast<char>(random());
      }
      SCOPED_TRACE(name + ", round " + std::to_string(i));
      system.Put(path, damaged);
      std::unique_ptr<Database> database;
      try {
        database = Database::Open(system, path);
        Table& table = database->OpenTable("TvbfAlias");
        const std::string item = "Plant.Pump" + std::to_string(i);
        const std::string alias = "Pump" + std::to_string(i);
        const ColumnValue values[] = {{table.FindColumn("ItemID").value(), Value::Text(item)},
                                      {table.FindColumn("VBAlias").value(), Value::Text(alias)}};
        const InsertResult inserted = table.Insert(values);
        table.Update(inserted.id, {values, 1});
        RowBuffer row;
        Scan scan = table.OpenScan();
        if (scan.Next(row)) table.Delete(row.id());
      } catch (const Error&) {
        if (database && database->InTransaction()) ADD_FAILURE() << "a transaction is left open";
      } catch (const std::bad_optional_access&) {
        // a column's name was hit
      }
      database.reset();
    }
  }
}

}  // namespace
}  // namespace jet
