// SPDX-License-Identifier: MIT
// Real processes on a real file: two that insert, one that is killed.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "files/file_system.h"
#include "jet/database.h"
#include "tests/files/temporary_folder.h"
#include "tests/jet/plant_tables.h"
#include "tests/support/child_process.h"

namespace jet {
namespace {

bool IsLong() { return std::getenv("OV_LONG") != nullptr; }

void CreateItems(const std::string& path) {
  Database::Create(files::RealFileSystem(), path)->CreateTable(ItemsSpec());
}

using support::Arguments;
using support::ChildProcess;

const support::Work insert("insert", [](const Arguments& arguments) {
  const auto database = Database::Open(files::RealFileSystem(), arguments[0]);
  for (int i = 0; i < std::stoi(arguments[2]); ++i) {
    AddItem(database->OpenTable("Items"), arguments[1] + std::to_string(i), "");
  }
  return 0;
});

// Inserts three rows at a time without an end and tells each commit.
const support::Work insert_threes("insert-threes", [](const Arguments& arguments) -> int {
  const auto database = Database::Open(files::RealFileSystem(), arguments[0]);
  for (int i = 0;; ++i) {
    Transaction transaction(*database);
    for (int k = 0; k < 3; ++k) {
      AddItem(database->OpenTable("Items"),
              arguments[1] + "-" + std::to_string(i) + "-" + std::to_string(k),
              std::string(200, 'n'));
    }
    transaction.Commit();
    support::Tell();
  }
});

// Inserts without an end in one transaction, far more than it keeps in memory, and tells so.
const support::Work insert_much("insert-much", [](const Arguments& arguments) -> int {
  OpenOptions options;
  options.changed_pages = 16;
  const auto database = Database::Open(files::RealFileSystem(), arguments[0], options);
  const Transaction transaction(*database);
  for (int i = 0;; ++i) {
    AddItem(database->OpenTable("Items"), std::to_string(i), std::string(200, 'n'));
    if (i % 500 == 499) support::Tell();
  }
});

std::vector<std::string> TemporaryFiles(const TemporaryFolder& folder) {
  std::vector<std::string> names;
  for (const files::DirectoryEntry& entry : files::RealFileSystem().List(folder.path())) {
    if (entry.name.ends_with(".tmp")) names.push_back(entry.name);
  }
  return names;
}

// No file is left of what it had no room for.
TEST(Processes, KilledInALargeTransactionLeavesNothing) {
  TemporaryFolder folder;
  const std::string path = folder / "plant.ovs";
  CreateItems(path);
  ChildProcess child("insert-much", {path});
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(child.Hear());
  child.Kill();
  child.Wait();
  EXPECT_EQ(TemporaryFiles(folder), std::vector<std::string>());
  const auto database = Database::Open(files::RealFileSystem(), path);
  EXPECT_EQ(Items(*database).size(), 0u);
  EXPECT_EQ(Faults(*database), "");
}

TEST(Processes, TwoThatInsertLoseNothing) {
  TemporaryFolder folder;
  const std::string path = folder / "plant.ovs";
  CreateItems(path);
  const int rows = IsLong() ? 2000 : 60;
  std::vector<ChildProcess> children;
  for (const char* name : {"First", "Second"}) {
    children.emplace_back("insert", Arguments{path, name, std::to_string(rows)});
  }
  for (ChildProcess& child : children) EXPECT_EQ(child.Wait(), 0);
  const auto database = Database::Open(files::RealFileSystem(), path);
  EXPECT_EQ(Items(*database).size(), 2u * static_cast<std::size_t>(rows));
  EXPECT_EQ(Faults(*database), "");
}

// A program that changes something without a pause lets others in.
TEST(Processes, AreNotShutOutByOneThatInsertsWithoutEnd) {
  TemporaryFolder folder;
  const std::string path = folder / "plant.ovs";
  CreateItems(path);
  ChildProcess child("insert-threes", {path, "Other"});
  ASSERT_TRUE(child.Hear());
  OpenOptions options;
  options.wait_ms = 1000;
  const auto database = Database::Open(files::RealFileSystem(), path, options);
  for (int i = 0; i < (IsLong() ? 500 : 20); ++i) {
    ASSERT_NO_THROW(AddItem(database->OpenTable("Items"), "Own" + std::to_string(i), "")) << i;
  }
  EXPECT_TRUE(child.Hear()) << "goes on, too";
  child.Kill();
  child.Wait();
}

// A program is killed at any moment. What it had been told to be committed is there.
TEST(Processes, KilledInserterLosesNothingThatWasCommitted) {
  TemporaryFolder folder;
  const std::string path = folder / "plant.ovs";
  CreateItems(path);
  std::mt19937 random(3);
  std::size_t expected = 0;
  for (int round = 0; round < (IsLong() ? 400 : 6); ++round) {
    SCOPED_TRACE(round);
    ChildProcess child("insert-threes", {path, "R" + std::to_string(round)});
    std::size_t acknowledged = 0;
    // Every second one has committed something by then, however slow the machine is.
    if (round % 2 == 0 && child.Hear()) acknowledged += 3;
    support::Sleep(5000 + random() % 60'000);
    child.Kill();
    while (child.Hear()) acknowledged += 3;
    child.Wait();
    const auto database = Database::Open(files::RealFileSystem(), path);
    const std::size_t found = Items(*database).size();
    // The last commit may have been made without the word of it getting out.
    EXPECT_TRUE(found == expected + acknowledged || found == expected + acknowledged + 3)
        << found << " rows, expected " << expected + acknowledged;
    EXPECT_EQ(Faults(*database), "");
    expected = found;
    if (HasFailure()) return;
  }
  EXPECT_GT(expected, 0u);
}

}  // namespace
}  // namespace jet
