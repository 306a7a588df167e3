// SPDX-License-Identifier: MIT
// Real processes on real files: killed at any time, many at once, and large commits.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>

#include "files/recovery.h"
#include "files/replace_file.h"
#include "project_change.h"
#include "temporary_folder.h"
#include "tests/support/child_process.h"

namespace files {
namespace {

// The nightly run takes the long way.
int Rounds(int quick, int full) { return std::getenv("OV_LONG") != nullptr ? full : quick; }

using support::Arguments;
using support::ChildProcess;

// A database of three pages and two files, all of which hold one number.
class NumberedProject {
 public:
  explicit NumberedProject(const std::string& folder)
      : database_(folder + "/plant.ovs"), files_{folder + "/CPump.cls", folder + "/CValve.cls"} {}

  void Create() const {
    CreateFile(database_, Page(0) + Page(0) + Page(0));
    for (const std::string& path : files_) CreateFile(path, "0");
  }

  const std::string& database() const { return database_; }

  // The number, when all agree.
  std::optional<long> Number() const {
    const std::string pages = ReadFile(system_, database_);
    const long number = std::stol(pages);
    if (pages != Page(number) + Page(number) + Page(number)) return std::nullopt;
    for (const std::string& path : files_) {
      if (ReadFile(system_, path) != std::to_string(number)) return std::nullopt;
    }
    return number;
  }

  void Increment(ChangeJournal& journal, RandomAccessFile& file) const {
    std::string page(kPage, '\0');
    file.ReadAt(0, std::as_writable_bytes(std::span(page)));
    const long number = std::stol(page);
    const std::string next = Page(number + 1);
    std::vector<FileChange> others;
    for (const std::string& path : files_) {
      others.push_back({path, std::to_string(number), std::to_string(number + 1)});
    }
    Commit(journal, file, {{0, next}, {kPage, next}, {2 * kPage, next}}, 3 * kPage,
           std::move(others));
  }

 private:
  static std::string Page(long number) {
    std::string page = std::to_string(number) + " ";
    while (page.size() < kPage) page += static_cast<char>('a' + number % 26);
    return page;
  }

  static void CreateFile(const std::string& path, const std::string& contents) {
    RealFileSystem().Open(path, OpenMode::kCreateNew)->WriteAt(0, Bytes(contents));
  }

  FileSystem& system_ = RealFileSystem();
  std::string database_;
  std::vector<std::string> files_;
};

// Increments without an end; tells of the first time.
const support::Work increment("increment", [](const Arguments& arguments) -> int {
  FileSystem& system = RealFileSystem();
  const NumberedProject project(arguments[0]);
  const auto file = system.Open(project.database(), OpenMode::kReadWrite);
  ChangeJournal journal(system, project.database(), kAnyFile);
  project.Increment(journal, *file);
  project.Increment(journal, *file);
  support::Tell();
  for (;;) project.Increment(journal, *file);
});

// Increments so many times, together with others.
const support::Work increment_among_others(
    "increment-among-others", [](const Arguments& arguments) {
      FileSystem& system = RealFileSystem();
      const NumberedProject project(arguments[0]);
      const auto file = system.Open(project.database(), OpenMode::kReadWrite);
      for (int left = std::stoi(arguments[1]); left > 0;) {
        ChangeJournal journal(system, project.database(), kAnyFile);
        try {
          for (; left > 0; --left) project.Increment(journal, *file);
        } catch (const Error& error) {
          if (error.kind() != ErrorKind::kLocked && error.kind() != ErrorKind::kConflict) throw;
          support::Sleep(200);
        }
      }
      return 0;
    });

const support::Work recover("recover", [](const Arguments& arguments) {
  const NumberedProject project(arguments[0]);
  for (;;) {
    try {
      Recover(RealFileSystem(), project.database(), kAnyFile);
      return project.Number().has_value() ? 0 : 1;
    } catch (const Error& error) {
      if (error.kind() != ErrorKind::kLocked) throw;
      support::Sleep(200);
    }
  }
});

TEST(Processes, KilledAtAnyTimeLeaveOneState) {
  const TemporaryFolder folder;
  const NumberedProject project(folder.path());
  project.Create();
  FileSystem& system = RealFileSystem();
  std::mt19937 random(11);
  const int rounds = Rounds(25, 2000);
  int recovered = 0;
  // On a busy machine a process may stand still for long; some time one dies in a commit.
  for (int round = 0; round < rounds || (recovered == 0 && round < 20 * rounds); ++round) {
    ChildProcess child("increment", {folder.path()});
    ASSERT_TRUE(child.Hear());
    support::Sleep(random() % 40'000);
    child.Kill();
    ASSERT_EQ(child.Wait(), ChildProcess::kKilled);
    if (Recover(system, project.database(), kAnyFile).condition != JournalCondition::kNone)
      ++recovered;
    ASSERT_TRUE(project.Number().has_value()) << "round " << round;
    ASSERT_EQ(system.List(folder.path()).size(), 3u) << "a stray file in round " << round;
  }
  EXPECT_GE(*project.Number(), rounds);
  EXPECT_GT(recovered, 0) << "no process was killed in a commit";
}

TEST(Processes, ThatCommitAtOnceLoseNothing) {
  const TemporaryFolder folder;
  const NumberedProject project(folder.path());
  project.Create();
  constexpr int kProcesses = 3;
  const int increments = Rounds(20, 500);
  std::vector<ChildProcess> children;
  children.reserve(kProcesses);
  for (int i = 0; i < kProcesses; ++i) {
    children.emplace_back("increment-among-others",
                          Arguments{folder.path(), std::to_string(increments)});
  }
  for (ChildProcess& child : children) EXPECT_EQ(child.Wait(), 0);
  EXPECT_EQ(project.Number(), kProcesses * increments);
  EXPECT_EQ(RealFileSystem().List(folder.path()).size(), 3u);
}

// Adds lines to a class, each with the name of its database.
const support::Work add_lines("add-lines", [](const Arguments& arguments) {
  const std::string &folder = arguments[0], &name = arguments[1];
  const std::string path = RealFileSystem().Join(folder, "CShared.cls");
  FileSystem& system = RealFileSystem();
  ChangeJournal journal(system, system.Join(folder, name + ".ovs"), kAnyFile);
  for (int done = 0; done < std::stoi(arguments[2]);) {
    try {
      const std::string before = ReadFile(system, path);
      ChangeSet changes;
      changes.files.push_back(
          {path, before, before + "line " + name + "-" + std::to_string(done) + "\n"});
      journal.Commit(changes);
      ++done;
    } catch (const Error& error) {
      if (error.kind() != ErrorKind::kConflict) throw;
    }
  }
  return 0;
});

// Each of them knows its own database only.
TEST(Processes, WhoseDatabasesShareAClassLoseNothingOfIt) {
  const TemporaryFolder folder;
  FileSystem& system = RealFileSystem();
  const std::string path = folder / "CShared.cls";
  ReplaceFile(system, path, "Option Explicit\n");
  constexpr int kProcesses = 3;
  const int lines = Rounds(40, 1000);
  std::vector<ChildProcess> children;
  for (int i = 0; i < kProcesses; ++i) {
    const std::string name = std::to_string(i);
    ReplaceFile(system, folder / (name + ".ovs"), "d");
    children.emplace_back("add-lines", Arguments{folder.path(), name, std::to_string(lines)});
  }
  for (ChildProcess& child : children) EXPECT_EQ(child.Wait(), 0);
  const std::string text = ReadFile(system, path);
  for (int i = 0; i < kProcesses * lines; ++i) {
    const std::string line =
        "line " + std::to_string(i / lines) + "-" + std::to_string(i % lines) + "\n";
    EXPECT_NE(text.find(line), std::string::npos) << line;
  }
  EXPECT_EQ(system.List(folder.path()).size(), 1u + kProcesses);
}

TEST(Processes, ThatRecoverAtOnceDoNotDisturbEachOther) {
  for (int round = 0; round < Rounds(10, 300); ++round) {
    const TemporaryFolder folder;
    NumberedProject(folder.path()).Create();
    // One that is stopped in its commit and killed: the project is left in between.
    ChildProcess stopped("increment", {folder.path()});
    ASSERT_TRUE(stopped.Hear());
    support::Sleep(300 * static_cast<unsigned>(round % 10));
    stopped.Kill();
    stopped.Wait();
    std::vector<ChildProcess> children;
    children.reserve(3);
    for (int i = 0; i < 3; ++i) children.emplace_back("recover", Arguments{folder.path()});
    for (ChildProcess& child : children) EXPECT_EQ(child.Wait(), 0) << "round " << round;
    EXPECT_EQ(RealFileSystem().List(folder.path()).size(), 3u);
  }
}

// Pages that are made one at a time, as they are asked for.
class StreamedPages final : public RangeSource {
 public:
  StreamedPages(RandomAccessFile& file, std::uint64_t count)
      : file_(file), count_(count), before_(kPage, '0'), after_(kPage, '1') {}
  RandomAccessFile& File() override { return file_; }
  std::uint64_t SizeBefore() override { return count_ * kPage; }
  std::uint64_t SizeAfter() override { return count_ * kPage; }
  void ForEachRange(const std::function<void(const Range&)>& visit) override {
    for (std::uint64_t page = 0; page < count_; ++page) {
      visit({page * kPage, Bytes(before_), Bytes(after_)});
    }
  }

 private:
  RandomAccessFile& file_;
  std::uint64_t count_;
  std::string before_;
  std::string after_;
};

constexpr std::uint64_t kPages = 10'000;

const support::Work commit_large("commit-large", [](const Arguments& arguments) {
  const long before = support::PeakMemory();
  FileSystem& system = RealFileSystem();
  const auto file = system.Open(arguments[0], OpenMode::kReadWrite);
  StreamedPages pages(*file, kPages);
  ChangeSet changes;
  changes.ranges.push_back(&pages);
  {
    ChangeJournal journal(system, arguments[0], kAnyFile);
    journal.Commit(changes);
  }
  const long grown = support::PeakMemory() - before;
  std::fprintf(stderr, "40 MB committed with %ld KiB more memory\n", grown);
  return before > 0 && grown < 8192 ? 0 : 1;
});

TEST(Processes, CommitTenThousandPagesInBoundedMemory) {
  const TemporaryFolder folder;
  const std::string database = folder / "large.ovs";
  FileSystem& system = RealFileSystem();
  {
    const auto file = system.Open(database, OpenMode::kCreateNew);
    const std::string chunk(100 * kPage, '0');
    for (std::uint64_t i = 0; i < kPages / 100; ++i) file->WriteAt(i * chunk.size(), Bytes(chunk));
  }
  EXPECT_EQ(ChildProcess("commit-large", {database}).Wait(), 0);
  const auto file = system.Open(database, OpenMode::kRead);
  EXPECT_EQ(file->Size(), kPages * kPage);
  std::string last(1, ' ');
  file->ReadAt(file->Size() - 1, std::as_writable_bytes(std::span(last)));
  EXPECT_EQ(last, "1");
  EXPECT_EQ(system.List(folder.path()).size(), 1u);
}

}  // namespace
}  // namespace files
