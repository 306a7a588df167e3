// SPDX-License-Identifier: MIT
#include "project/backups.h"

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <vector>

#include "files/memory_file_system.h"
#include "files/replace_file.h"
#include "jet/database.h"
#include "jet/lock_file.h"
#include "project/daily_backup.h"
#include "project/new_project.h"

using project::Backups;

TEST(Backups, KeepsTheFirstStateOfEachDayAndPutsItBackByteForByte) {
  files::MemoryFileSystem system;
  const std::string bytes("a\0b\r\n\xFF", 6);
  system.Put("/p/Plant.ovs", bytes);
  system.Put("/p/CPump.cls", "one\r\n");
  Backups backups(system, "/state/Plant");
  backups.MakeDaily("2026-11-20", {"/p/Plant.ovs", "/p/CPump.cls", "/p/missing.cls"});
  system.Put("/p/Plant.ovs", "changed");
  backups.MakeDaily("2026-11-20", {"/p/Plant.ovs"});  // a second time that day: nothing
  system.Put("/p/CPump.cls", "two");

  auto list = backups.List();
  ASSERT_EQ(list.size(), 1u);
  backups.Restore(list[0], "2026-11-21 10.00.00");
  EXPECT_EQ(system.Get("/p/Plant.ovs"), bytes);
  EXPECT_EQ(system.Get("/p/CPump.cls"), "one\r\n");

  // Restoring can be taken back.
  list = backups.List();
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0].name, "2026-11-21 10.00.00");
  backups.Restore(list[0], "2026-11-21 10.00.01");
  EXPECT_EQ(system.Get("/p/Plant.ovs"), "changed");
  EXPECT_EQ(system.Get("/p/CPump.cls"), "two");
}

TEST(Backups, RestoresAFileThatIsGoneAndTheOldestOfTen) {
  files::MemoryFileSystem system;
  system.Put("/p/a", "x");
  system.Put("/p/b", "first");
  Backups backups(system, "/state/a");
  for (int day = 10; day < 20; ++day) {
    backups.MakeDaily("2026-11-" + std::to_string(day), {"/p/a", "/p/b"});
    system.Put("/p/b", "later");
  }
  system.Remove("/p/b");
  backups.Restore(backups.List().back(), "2026-11-20 08.00.00");
  EXPECT_EQ(system.Get("/p/b"), "first");
  EXPECT_EQ(backups.List().size(), Backups::kKept + 1) << "what is put back stays until the next";
  backups.MakeDaily("2026-11-21", {"/p/a", "/p/b"});
  EXPECT_EQ(backups.List().size(), Backups::kKept);
}

// Dates say nothing of the order: clocks go wrong.
TEST(Backups, KeepsTheStateBeforeARestoringThoughOthersHaveLaterDates) {
  files::MemoryFileSystem system;
  system.Put("/p/a", "good");
  Backups backups(system, "/state/a");
  for (int day = 10; day < 20; ++day) backups.MakeDaily("2031-01-" + std::to_string(day), {"/p/a"});
  const Backups::Backup oldest = backups.List().back();
  for (const char* const text : {"today's work", "more of it"}) {
    system.Put("/p/a", text);
    backups.Restore(oldest, "2026-11-21 10.00.00");
    EXPECT_EQ(system.Get("/p/a"), "good");
    EXPECT_EQ(files::ReadFile(system, backups.List().front().folder + "/0.bak"), text);
  }
  EXPECT_EQ(backups.List()[1].name, "2026-11-21 10.00.00") << "not replaced by one of that name";
  backups.MakeDaily("2026-11-22", {"/p/a"});
  EXPECT_EQ(backups.List()[2].name, "2026-11-21 10.00.00");
}

TEST(Backups, RestoresNothingWhileSomebodyHasTheDatabaseOpen) {
  files::MemoryFileSystem system;
  const char* const path = "/p/Plant.ovs";
  system.CreateDirectories("/p");
  project::MakeProject(system, path, {});
  Backups backups(system, "/state/a");
  backups.MakeDaily("2026-11-20", {path});
  { jet::Database::Open(system, path)->CreateTable({"More", {{"A"}}, {}}); }
  const std::string now = system.Get(path);
  const auto refusal = [&] {
    try {
      backups.Restore(backups.List().back(), "2026-11-21 10.00.00");
    } catch (const files::Error& error) {
      return std::string(error.what());
    }
    return std::string();
  };
  {
    const auto window = jet::Database::Open(system, path);
    EXPECT_NE(refusal().find("open in another window"), std::string::npos) << refusal();
  }
  {
    const auto foreign = system.Open("/p/Plant.ldb", files::OpenMode::kCreateOrOpen);
    const std::string computer = "DESK7";
    foreign->WriteAt(0, std::as_bytes(std::span(computer)));
    ASSERT_TRUE(foreign->TryLock(jet::kUserLockBase + 1, 1, files::LockMode::kExclusive));
    EXPECT_NE(refusal().find("DESK7"), std::string::npos) << refusal();
  }
  EXPECT_EQ(system.Get(path), now);
  EXPECT_EQ(refusal(), "");
  EXPECT_NE(system.Get(path), now);
}

TEST(Backups, RestoresNothingWhenACopyIsMissing) {
  files::MemoryFileSystem system;
  system.Put("/p/a", "x");
  system.Put("/p/b", "y");
  Backups backups(system, "/state/a");
  backups.MakeDaily("2026-11-20", {"/p/a", "/p/b"});
  system.Put("/p/a", "changed");
  system.Remove("/state/a/2026-11-20/1.bak");
  EXPECT_ANY_THROW(backups.Restore(backups.List()[0], "2026-11-21 10.00.00"));
  EXPECT_EQ(system.Get("/p/a"), "changed");
}

class DailyBackupTest : public testing::Test {
 protected:
  DailyBackupTest() { system_.Put("/p/a", "first"); }

  void Change(const std::string& text) {
    files::ChangeSet changes;
    changes.files.push_back({"/p/a", system_.Get("/p/a"), text});
    backup_.Collect(changes);
    system_.Put("/p/a", text);
  }

  files::MemoryFileSystem system_;
  std::string day_ = "2026-11-20";
  std::vector<std::string> told_;
  project::DailyBackup backup_{
      system_,
      "/state/a",
      {[this] { return day_; }, [] { return std::vector<std::string>{"/p/a"}; },
       [this] { told_.push_back("made"); },
       [this](const std::exception&) { told_.push_back("failed"); }}};
};

TEST_F(DailyBackupTest, IsMadeBeforeTheFirstChangeOfEachDay) {
  files::ChangeSet nothing;
  backup_.Collect(nothing);
  EXPECT_TRUE(told_.empty()) << "reading is no change";
  Change("second");
  Change("third");
  day_ = "2026-11-21";
  Change("fourth");
  EXPECT_EQ(told_, (std::vector<std::string>{"made", "made"}));
  const auto list = Backups(system_, "/state/a").List();
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(files::ReadFile(system_, list[1].folder + "/0.bak"), "first");
  EXPECT_EQ(files::ReadFile(system_, list[0].folder + "/0.bak"), "third");
}

TEST_F(DailyBackupTest, LetsTheChangeGoOnWhenItFails) {
  system_.Put("/state/a", "a file where the folder should be");
  Change("second");
  EXPECT_EQ(told_, std::vector<std::string>{"failed"});
}

TEST(Backups, KeepsTheLastTen) {
  files::MemoryFileSystem system;
  system.Put("/p/a", "x");
  Backups backups(system, "/state/a");
  for (int day = 10; day < 30; ++day) backups.MakeDaily("2026-11-" + std::to_string(day), {"/p/a"});
  const auto list = backups.List();
  ASSERT_EQ(list.size(), Backups::kKept);
  EXPECT_EQ(list.front().name, "2026-11-29");
  EXPECT_EQ(list.back().name, "2026-11-20");
}
