// SPDX-License-Identifier: MIT
// Backups of a whole project: its rows, its code and its history.
#include <map>
#include <string>

#include "project/backups.h"
#include "tests/history/plant.h"
#include "tests/support/failing_file_system.h"

namespace {

using history::Program;
using project::Backups;

constexpr const char* kBackups = "/state/backups";
constexpr const char* kNow = "2026-11-21 10.00.00";

// What a restoring changes.
std::map<std::string, std::string> FilesOf(const files::MemoryFileSystem& system) {
  std::map<std::string, std::string> files;
  for (const auto& [path, contents] : system.Snapshot()) {
    const bool is_kept =
        path.ends_with(".ovs") || path.ends_with(".cls") || path.ends_with(".history");
    if (is_kept) files.emplace(path, contents);
  }
  return files;
}

TEST(BackupOfAProject, IsRestoredWholeOrNotAtAllWhereverTheProgramDies) {
  using enum files::Operation;
  for (int n = 1;; ++n) {
    SCOPED_TRACE(n);
    files::MemoryFileSystem disk;
    history::PutPlant(disk);
    {
      Program program(disk);
      program.AddAlias("Tank1.Level", "Level");
    }
    const auto old = FilesOf(disk);
    ASSERT_TRUE(
        Backups(disk, kBackups).MakeDaily("2026-11-20", Program(disk).project().ChangeableFiles()));
    {
      Program program(disk);
      program.AddFormula("Fill");
    }
    const auto present = FilesOf(disk);
    files::FailingFileSystem system(disk);
    system.Arm({{kWrite, kTruncate, kSync, kRename, kRemove, kLock, kSyncDirectory},
                n,
                files::Fault::Length::kCrash});
    try {
      Backups backups(system, kBackups);
      backups.Restore(backups.List().back(), kNow);
    } catch (const std::exception&) {
      EXPECT_TRUE(system.fired());
    }
    try {
      const Program again(disk);
    } catch (const std::exception& error) {
      FAIL() << error.what();
    }
    const auto now = FilesOf(disk);
    EXPECT_TRUE(now == old || now == present);
    if (!system.fired() || testing::Test::HasFailure()) break;
  }
}

// A class that several projects share may have gone on since.
TEST(BackupOfAProject, LeavesFilesOutsideTheProjectAlone) {
  files::MemoryFileSystem system;
  history::PutPlant(system);
  system.Put(support::kProjectPath,
             system.Get(support::kProjectPath) + "Class=CShared; ..\\common\\CShared.cls\r\n");
  system.Put("/common/CShared.cls", support::ClassHeader("CShared") + "'first\r\n");
  Backups backups(system, kBackups);
  backups.MakeDaily("2026-11-20", Program(system).project().ChangeableFiles());
  const std::string later = support::ClassHeader("CShared") + "'later\r\n";
  system.Put("/common/CShared.cls", later);
  system.Put(support::ClassPath("CPump"), "changed");
  backups.Restore(backups.List().front(), kNow);
  EXPECT_EQ(system.Get("/common/CShared.cls"), later);
  EXPECT_NE(system.Get(support::ClassPath("CPump")), "changed");
}

}  // namespace
