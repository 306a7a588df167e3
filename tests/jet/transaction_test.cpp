// SPDX-License-Identifier: MIT
// Transactions: all or nothing, whatever fails.
#include <gtest/gtest.h>

#include <random>

#include "files/memory_file_system.h"
#include "jet/database.h"
#include "tests/jet/plant_tables.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/forgetting_file_system.h"

namespace jet {
namespace {

using Rows = std::vector<std::string>;

constexpr const char* kPath = "/plant.ovs";

// Some of the pages that a transaction changes have no room in memory.
OpenOptions Impatient(std::size_t changed_pages = 32) {
  OpenOptions options;
  options.wait_ms = 0;
  options.changed_pages = changed_pages;
  return options;
}

// The file of a database with some rows in Items.
std::string StartFile() {
  files::MemoryFileSystem system;
  const auto database = Database::Create(system, kPath);
  database->CreateTable(ItemsSpec());
  Transaction transaction(*database);
  for (int i = 0; i < 40; ++i) {
    AddItem(database->OpenTable("Items"), "Pump" + std::to_string(i),
            std::string(static_cast<std::size_t>(i) * 100, 'x'));
  }
  transaction.Commit();
  return system.Get(kPath);
}

// Changes of every kind, in one transaction: the index splits, the file grows, rows move.
void ChangeMuch(Database& database) {
  Transaction transaction(database);
  Table& table = database.OpenTable("Items");
  std::vector<RowId> ids;
  RowBuffer row;
  for (Scan scan = table.OpenScan(); scan.Next(row);) ids.push_back(row.id());
  for (std::size_t i = 0; i < ids.size(); i += 3) table.Delete(ids[i]);
  for (std::size_t i = 1; i < ids.size(); i += 3) {
    const std::string longer = std::string(150, 'u') + std::to_string(i);
    const ColumnValue values[] = {{1, Value::Text(longer)}};
    table.Update(ids[i], values);
  }
  for (int i = 0; i < 60; ++i) AddItem(table, "Valve" + std::to_string(i), std::string(200, 'n'));
  transaction.Commit();
}

Rows After() {
  files::MemoryFileSystem system;
  system.Put(kPath, StartFile());
  const auto database = Database::Open(system, kPath);
  ChangeMuch(*database);
  return Items(*database);
}

TEST(Transactions, RollbackLeavesEveryByte) {
  files::MemoryFileSystem system;
  system.Put(kPath, StartFile());
  const std::string before = system.Get(kPath);
  const auto database = Database::Open(system, kPath);
  const Rows rows = Items(*database);
  database->Begin();
  ChangeMuch(*database);  // as an inner level
  EXPECT_NE(Items(*database), rows);
  database->Rollback();
  EXPECT_EQ(Items(*database), rows);
  EXPECT_EQ(system.Get(kPath), before);
}

std::vector<std::string> Names(const files::MemoryFileSystem& system) {
  std::vector<std::string> names;
  for (const auto& [path, contents] : system.Snapshot()) names.push_back(path);
  return names;
}

// Pages that have no room in memory go to a file that nobody sees, are put back by inner and outer
// rollbacks, and come back for the commit. A medium that is full takes none of them.
TEST(Transactions, OutgrowMemory) {
  const Rows after = After();
  const std::string start = StartFile();
  bool fired = true;
  for (int n = 0; fired; ++n) {
    SCOPED_TRACE(n);
    files::MemoryFileSystem system;
    system.Put(kPath, start);
    files::FailingFileSystem failing(system);
    const auto database = Database::Open(failing, kPath, Impatient(2));
    const Rows before = Items(*database);
    const std::vector<std::string> names = Names(system);
    database->Begin();
    files::Fault full;
    full.kinds = {files::Operation::kOpen, files::Operation::kWrite};
    full.n = n;
    full.length = files::Fault::Length::kLasting;
    full.error = files::ErrorKind::kFull;
    if (n > 0) failing.Arm(full);
    AddItem(database->OpenTable("Items"), "Outer", std::string(9000, 'o'));
    const Rows outer = Items(*database);
    database->Begin();
    ChangeMuch(*database);
    database->Rollback();
    EXPECT_EQ(Items(*database), outer);
    ChangeMuch(*database);
    fired = n == 0 || failing.fired();
    EXPECT_TRUE(fired || n > 10);
    EXPECT_EQ(Names(system), names);
    failing.Disarm();
    if (n % 2 == 0) {
      database->Rollback();
      EXPECT_EQ(Items(*database), before);
      ChangeMuch(*database);
      EXPECT_EQ(Items(*database), after);
    } else {
      database->Commit();
      EXPECT_EQ(Items(*database).size(), after.size() + 1);
    }
    EXPECT_EQ(Faults(*database), "");
    EXPECT_EQ(Items(*Database::Open(system, kPath, Impatient())), Items(*database));
    if (HasFailure()) return;
  }
}

// The n-th operation fails, for n = 1, 2, ... until none did: what is there afterwards is exactly
// the state before or the state after, in this program and in the next.
TEST(Transactions, FailureOfEveryOperation) {
  const std::string start = StartFile();
  const Rows after = After();
  using files::Fault;
  using files::Operation;
  for (const Fault::Length length :
       {Fault::Length::kOnce, Fault::Length::kLasting, Fault::Length::kCrash}) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE("operation " + std::to_string(n) + ", length " +
                   std::to_string(static_cast<int>(length)));
      files::MemoryFileSystem system;
      system.Put(kPath, start);
      files::FailingFileSystem failing(system);
      auto database = Database::Open(failing, kPath, Impatient());
      const Rows before = Items(*database);
      Fault fault;
      fault.kinds = {Operation::kOpen,   Operation::kRead,         Operation::kWrite,
                     Operation::kSync,   Operation::kRename,       Operation::kTruncate,
                     Operation::kRemove, Operation::kSyncDirectory};
      fault.n = n;
      fault.length = length;
      fault.error = n % 2 == 0 ? files::ErrorKind::kFull : files::ErrorKind::kIo;
      fault.short_writes = n % 3 == 0;
      failing.Arm(fault);
      bool threw = false, undone = true;
      try {
        ChangeMuch(*database);
      } catch (const files::NotUndoneError&) {
        threw = true;
        undone = false;
      } catch (const files::Error&) {
        threw = true;
      } catch (const Error&) {
        threw = true;
      }
      const bool fired = failing.fired();
      if (length == Fault::Length::kOnce) {
        EXPECT_TRUE(undone);
        failing.Disarm();
        EXPECT_EQ(Items(*database), threw ? before : after);
        EXPECT_FALSE(database->InTransaction());
      }
      database.reset();
      failing.Disarm();
      database = Database::Open(system, kPath, Impatient());
      ASSERT_EQ(database->read_only_reason().English(), "");
      const Rows found = Items(*database);
      if (length == Fault::Length::kCrash || !undone) {
        EXPECT_TRUE(found == before || found == after);
      } else {
        EXPECT_EQ(found, threw ? before : after);
      }
      EXPECT_EQ(Faults(*database), "");
      if (HasFailure()) return;
      if (!fired) {
        EXPECT_GT(n, 5);
        break;
      }
    }
  }
}

// The power is cut after any number of operations, with any of what was not synced lost.
TEST(Transactions, PowerCuts) {
  const std::string start = StartFile();
  const Rows after = After();
  std::mt19937 random(11);
  for (int n = 1;; ++n) {
    SCOPED_TRACE(n);
    files::ForgettingFileSystem medium;
    medium.Put(kPath, start);
    files::FailingFileSystem failing(medium);
    auto database = Database::Open(failing, kPath, Impatient());
    const Rows before = Items(*database);
    files::Fault fault;
    fault.n = n;
    fault.length = files::Fault::Length::kCrash;
    fault.kinds = {files::Operation::kWrite, files::Operation::kSync, files::Operation::kTruncate,
                   files::Operation::kSyncDirectory};
    failing.Arm(fault);
    bool acknowledged = false;
    try {
      ChangeMuch(*database);
      acknowledged = true;
    } catch (const files::Error&) {
    }
    const bool fired = failing.fired();
    for (int round = 0; round < 3; ++round) {
      const auto rest = medium.AfterPowerCut(random);
      const auto again = Database::Open(*rest, kPath, Impatient());
      const Rows found = Items(*again);
      EXPECT_TRUE(found == after || (!acknowledged && found == before));
      EXPECT_EQ(Faults(*again), "");
    }
    if (HasFailure()) return;
    if (!fired) {
      EXPECT_GT(n, 5);
      break;
    }
  }
}

}  // namespace
}  // namespace jet
