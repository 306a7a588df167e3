// SPDX-License-Identifier: MIT
// Real processes on a real file: two that insert, one that is killed, a reader of others.
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <set>
#include <sstream>
#include <thread>

#include "files/file_system.h"
#include "jet/database.h"
#include "tests/files/temporary_folder.h"
#include "tests/jet/plant_tables.h"

namespace jet {
namespace {

bool IsLong() { return std::getenv("OV_LONG") != nullptr; }

void CreateItems(const std::string& path) {
  Database::Create(files::RealFileSystem(), path)->CreateTable(ItemsSpec());
}

// Runs `work` in a process of its own, which reports through its exit code.
template <class Work>
pid_t Start(Work work) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  int code = 1;
  try {
    work();
    code = 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  std::_Exit(code);
}

TEST(Processes, TwoThatInsertLoseNothing) {
  TemporaryFolder folder;
  const std::string path = folder / "plant.ovs";
  CreateItems(path);
  const int rows = IsLong() ? 2000 : 60;
  const auto insert = [&](const char* name) {
    return Start([&] {
      const auto database = Database::Open(files::RealFileSystem(), path);
      for (int i = 0; i < rows; ++i) {
        AddItem(database->OpenTable("Items"), name + std::to_string(i), "");
      }
    });
  };
  const pid_t children[] = {insert("First"), insert("Second")};
  for (const pid_t child : children) {
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  const auto database = Database::Open(files::RealFileSystem(), path);
  EXPECT_EQ(Items(*database).size(), 2u * static_cast<std::size_t>(rows));
  EXPECT_EQ(Faults(*database), "");
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
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t child = Start([&] {
      const auto database = Database::Open(files::RealFileSystem(), path);
      for (int i = 0;; ++i) {
        Transaction transaction(*database);
        for (int k = 0; k < 3; ++k) {
          AddItem(database->OpenTable("Items"),
                  "R" + std::to_string(round) + "-" + std::to_string(i) + "-" + std::to_string(k),
                  std::string(200, 'n'));
        }
        transaction.Commit();
        if (::write(ends[1], "c", 1) != 1) return;
      }
    });
    ::close(ends[1]);
    std::size_t acknowledged = 0;
    char c = 0;
    // Every second one has committed something by then, however slow the machine is.
    if (round % 2 == 0 && ::read(ends[0], &c, 1) == 1) acknowledged += 3;
    std::this_thread::sleep_for(std::chrono::milliseconds(5 + random() % 60));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    while (::read(ends[0], &c, 1) == 1) acknowledged += 3;
    ::close(ends[0]);
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

// A project that a group shares: whoever opens the database first shuts nobody out, whatever his
// mask is, and the journal and lock file of a private one are private.
TEST(Processes, OfAnotherUserShareWhatTheDatabaseShares) {
  if (::geteuid() != 0) GTEST_SKIP() << "only an administrator can be two users";
  constexpr uid_t kOther = 65534;
  constexpr gid_t kGroup = 65533;
  const mode_t own_mask = ::umask(022);
  for (const mode_t mode : {0660, 0600}) {
    SCOPED_TRACE(mode);
    TemporaryFolder folder;
    const std::string path = folder / "plant.ovs";
    CreateItems(path);
    ASSERT_EQ(::chown(folder.path().c_str(), 0, kGroup) + ::chmod(folder.path().c_str(), 0770), 0);
    ASSERT_EQ(::chown(path.c_str(), 0, kGroup) + ::chmod(path.c_str(), mode), 0);
    const auto database = Database::Open(files::RealFileSystem(), path);
    AddItem(database->OpenTable("Items"), "First", "");
    for (const char* name : {"plant.ldb", "plant.ovs.journal"}) {
      struct stat info = {};
      ASSERT_EQ(::stat((folder / name).c_str(), &info), 0) << name;
      EXPECT_EQ(info.st_mode & 0777, mode) << name;
      EXPECT_EQ(info.st_gid, kGroup) << name;
    }
    const pid_t child = Start([&] {
      if (::setgroups(0, nullptr) + ::setgid(kGroup) + ::setuid(kOther) != 0) std::_Exit(2);
      const auto shared = Database::Open(files::RealFileSystem(), path);
      AddItem(shared->OpenTable("Items"), "Second", "");
    });
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status == 0, mode == 0660);
    EXPECT_EQ(Items(*database).size(), mode == 0660 ? 2u : 1u);
  }
  ::umask(own_mask);
}

std::string Output(const std::string& command) {
  std::string text;
  if (FILE* pipe = ::popen(command.c_str(), "r")) {
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
      text.append(buffer, n);
    }
    ::pclose(pipe);
  }
  return text;
}

std::multiset<std::string> Lines(const std::string& text) {
  std::multiset<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.insert(line);
  return lines;
}

// Another reader finds the same tables and rows in what we wrote: enough of them that maps grow,
// rows move and indexes have several levels. It visits moved rows in another order.
TEST(Processes, MdbtoolsReadTheSame) {
  if (std::system("mdb-ver -M >/dev/null 2>&1") != 0) GTEST_SKIP() << "mdbtools is not installed";
  TemporaryFolder folder;
  const std::string path = folder / "plant.mdb";
  std::string expected = "ID,Item,Note\n";
  {
    const auto database = Database::Create(files::RealFileSystem(), path);
    Table& table = database->CreateTable(ItemsSpec());
    std::mt19937 random(5);
    Transaction transaction(*database);
    std::vector<InsertResult> rows;
    for (int i = 0; i < 2000; ++i) {
      rows.push_back(AddItem(table, "Tank" + std::to_string(i) + std::string(random() % 100, 'a'),
                             std::string(1 + random() % 3000, 'm')));
    }
    for (std::size_t i = 0; i < rows.size(); i += 2) {
      const std::string text = "Ventil" + std::to_string(i) + std::string(random() % 200, 'b');
      const ColumnValue values[] = {{1, Value::Text(text)}};
      table.Update(rows[i].id, values);
    }
    for (std::size_t i = 0; i < rows.size(); i += 5) table.Delete(rows[i].id);
    transaction.Commit();
    EXPECT_EQ(Faults(*database), "");
    EXPECT_GT(database->Header().page_count, 600u);  // the first map of free pages holds 512
    RowBuffer row;
    for (Scan scan = table.OpenScan(); scan.Next(row);) {
      expected += std::to_string(row[0].integer()) + ",\"" + std::string(row[1].text()) + "\",\"" +
                  std::string(row[2].text()) + "\"\n";
    }
  }
  EXPECT_EQ(Output("mdb-tables -1 " + path), "Items\n");
  EXPECT_EQ(Output("mdb-count " + path + " Items"), "1600\n");
  EXPECT_TRUE(Lines(Output("mdb-export " + path + " Items")) == Lines(expected));
}

}  // namespace
}  // namespace jet
