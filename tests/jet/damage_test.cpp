// SPDX-License-Identifier: MIT
// Damaged files: cut off anywhere, and with bytes changed. Whatever they hold, reading ends, in an
// error that names the file or with what is there; rows are never missing in silence.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <random>

#include "jet/database.h"
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
  OV_NEED_SAMPLES();
  for (const std::string& name : samples::Names()) {
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
  OV_NEED_SAMPLES();
  const int rounds = std::getenv("OV_LONG") != nullptr ? 20000 : 60;
  std::size_t noticed = 0, total = 0;
  for (const std::string& name : samples::Names()) {
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
  EXPECT_GT(noticed, total / 50);
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

// The same with writing: a change of a damaged table succeeds or is refused, and a refused change
// leaves the file as it was.
TEST(Damage, WritingIntoDamagedFiles) {
  OV_NEED_SAMPLES();
  const int rounds = std::getenv("OV_LONG") != nullptr ? 20000 : 200;
  files::MemoryFileSystem system;
  const std::string path = samples::Copy(system, "plant.ovs");
  const std::string whole = samples::Contents("plant.ovs");
  std::mt19937 random(7);
  for (int i = 0; i < rounds; ++i) {
    std::string damaged = whole;
    for (int k = 0; k < 3; ++k) {
      const std::size_t at = random() % damaged.size();
      damaged[at] = static_cast<char>(random());
    }
    SCOPED_TRACE(i);
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

}  // namespace
}  // namespace jet
