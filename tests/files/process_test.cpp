// SPDX-License-Identifier: MIT
// Real processes on real files: killed at any time, many at once, and large commits.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>

#include "files/recovery.h"
#include "files/replace_file.h"
#include "project_change.h"
#include "temporary_folder.h"

namespace files {
namespace {

// The nightly run takes the long way.
int Rounds(int quick, int full) { return std::getenv("OV_LONG") != nullptr ? full : quick; }

pid_t InChild(const std::function<int()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    int status = 99;
    try {
      status = work();
    } catch (const std::exception& error) {
      std::fprintf(stderr, "child: %s\n", error.what());
    }
    ::_exit(status);
  }
  return child;
}

int WaitFor(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

// A database of three pages and two files, all of which hold one number.
class NumberedProject {
 public:
  explicit NumberedProject(const TemporaryFolder& folder)
      : database_(folder / "plant.ovs"), files_{folder / "CPump.cls", folder / "CValve.cls"} {
    ReplaceFile(database_, Page(0) + Page(0) + Page(0));
    for (const std::string& path : files_) ReplaceFile(path, "0");
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

  static void ReplaceFile(const std::string& path, const std::string& contents) {
    RealFileSystem().Open(path, OpenMode::kCreateNew)->WriteAt(0, Bytes(contents));
  }

  FileSystem& system_ = RealFileSystem();
  std::string database_;
  std::vector<std::string> files_;
};

TEST(Processes, KilledAtAnyTimeLeaveOneState) {
  const TemporaryFolder folder;
  const NumberedProject project(folder);
  FileSystem& system = RealFileSystem();
  std::mt19937 random(11);
  int recovered = 0;
  for (int round = 0; round < Rounds(25, 2000); ++round) {
    const pid_t child = InChild([&] {
      const auto file = system.Open(project.database(), OpenMode::kReadWrite);
      ChangeJournal journal(system, project.database(), kAnyFile);
      for (;;) project.Increment(journal, *file);
      return 0;
    });
    ::usleep(1000 + random() % 40'000);
    ::kill(child, SIGKILL);
    ASSERT_EQ(WaitFor(child), -SIGKILL);
    if (Recover(system, project.database(), kAnyFile).condition != JournalCondition::kNone)
      ++recovered;
    ASSERT_TRUE(project.Number().has_value()) << "round " << round;
    ASSERT_EQ(system.List(folder.path()).size(), 3u) << "a stray file in round " << round;
  }
  EXPECT_GT(*project.Number(), 0);
  EXPECT_GT(recovered, 0) << "no process was killed in a commit";
}

TEST(Processes, ThatCommitAtOnceLoseNothing) {
  const TemporaryFolder folder;
  const NumberedProject project(folder);
  FileSystem& system = RealFileSystem();
  constexpr int kProcesses = 3;
  const int increments = Rounds(20, 500);
  std::vector<pid_t> children;
  for (int i = 0; i < kProcesses; ++i) {
    children.push_back(InChild([&] {
      const auto file = system.Open(project.database(), OpenMode::kReadWrite);
      for (int done = 0; done < increments;) {
        ChangeJournal journal(system, project.database(), kAnyFile);
        try {
          for (; done < increments; ++done) project.Increment(journal, *file);
        } catch (const Error& error) {
          if (error.kind() != ErrorKind::kLocked && error.kind() != ErrorKind::kConflict) throw;
          ::usleep(200);
        }
      }
      return 0;
    }));
  }
  for (const pid_t child : children) EXPECT_EQ(WaitFor(child), 0);
  EXPECT_EQ(project.Number(), kProcesses * increments);
  EXPECT_EQ(system.List(folder.path()).size(), 3u);
}

// Each of them knows its own database only.
TEST(Processes, WhoseDatabasesShareAClassLoseNothingOfIt) {
  const TemporaryFolder folder;
  FileSystem& system = RealFileSystem();
  const std::string path = folder / "CShared.cls";
  ReplaceFile(system, path, "Option Explicit\n");
  constexpr int kProcesses = 3;
  const int lines = Rounds(40, 1000);
  std::vector<pid_t> children;
  for (int i = 0; i < kProcesses; ++i) {
    const std::string name = std::to_string(i);
    ReplaceFile(system, folder / (name + ".ovs"), "d");
    children.push_back(InChild([&] {
      ChangeJournal journal(system, folder / (name + ".ovs"), kAnyFile);
      for (int done = 0; done < lines;) {
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
    }));
  }
  for (const pid_t child : children) EXPECT_EQ(WaitFor(child), 0);
  const std::string text = ReadFile(system, path);
  for (int i = 0; i < kProcesses * lines; ++i) {
    const std::string line =
        "line " + std::to_string(i / lines) + "-" + std::to_string(i % lines) + "\n";
    EXPECT_NE(text.find(line), std::string::npos) << line;
  }
  EXPECT_EQ(system.List(folder.path()).size(), 1u + kProcesses);
}

TEST(Processes, ThatRecoverAtOnceDoNotDisturbEachOther) {
  FileSystem& system = RealFileSystem();
  for (int round = 0; round < Rounds(10, 300); ++round) {
    const TemporaryFolder folder;
    const NumberedProject project(folder);
    // One that is stopped in its commit and killed: the project is left in between.
    const pid_t child = InChild([&] {
      const auto file = system.Open(project.database(), OpenMode::kReadWrite);
      ChangeJournal journal(system, project.database(), kAnyFile);
      for (;;) project.Increment(journal, *file);
      return 0;
    });
    ::usleep(1000 + 300 * static_cast<unsigned>(round % 10));
    ::kill(child, SIGKILL);
    WaitFor(child);
    std::vector<pid_t> children;
    for (int i = 0; i < 3; ++i) {
      children.push_back(InChild([&] {
        for (;;) {
          try {
            Recover(system, project.database(), kAnyFile);
            return project.Number().has_value() ? 0 : 1;
          } catch (const Error& error) {
            if (error.kind() != ErrorKind::kLocked) throw;
            ::usleep(200);
          }
        }
      }));
    }
    for (const pid_t each : children) EXPECT_EQ(WaitFor(each), 0) << "round " << round;
    EXPECT_EQ(system.List(folder.path()).size(), 3u);
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

TEST(Processes, CommitTenThousandPagesInBoundedMemory) {
  const TemporaryFolder folder;
  const std::string database = folder / "large.ovs";
  constexpr std::uint64_t kPages = 10'000;
  FileSystem& system = RealFileSystem();
  {
    const auto file = system.Open(database, OpenMode::kCreateNew);
    const std::string chunk(100 * kPage, '0');
    for (std::uint64_t i = 0; i < kPages / 100; ++i) file->WriteAt(i * chunk.size(), Bytes(chunk));
  }
  const auto peak_kib = [] {
    struct rusage usage;
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
  };
  EXPECT_EQ(WaitFor(InChild([&] {
              const long before = peak_kib();
              const auto file = system.Open(database, OpenMode::kReadWrite);
              StreamedPages pages(*file, kPages);
              ChangeSet changes;
              changes.ranges.push_back(&pages);
              {
                ChangeJournal journal(system, database, kAnyFile);
                journal.Commit(changes);
              }
              const long grown = peak_kib() - before;
              std::fprintf(stderr, "40 MB committed with %ld KiB more memory\n", grown);
              return grown < 8192 ? 0 : 1;
            })),
            0);
  const auto file = system.Open(database, OpenMode::kRead);
  EXPECT_EQ(file->Size(), kPages * kPage);
  std::string last(1, ' ');
  file->ReadAt(file->Size() - 1, std::as_writable_bytes(std::span(last)));
  EXPECT_EQ(last, "1");
  EXPECT_EQ(system.List(folder.path()).size(), 1u);
}

}  // namespace
}  // namespace files
