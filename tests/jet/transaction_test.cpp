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

OpenOptions Impatient() {
  OpenOptions options;
  options.wait_ms = 0;
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
