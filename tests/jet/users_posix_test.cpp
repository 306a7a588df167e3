// SPDX-License-Identifier: MIT
// Two users of one machine.
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "files/file_system.h"
#include "jet/database.h"
#include "tests/files/temporary_folder.h"
#include "tests/jet/plant_tables.h"

namespace jet {
namespace {

// A project that a group shares: whoever opens the database first shuts nobody out, whatever his
// mask is, and the journal and lock file of a private one are private.
TEST(Users, ShareWhatTheDatabaseShares) {
  if (::geteuid() != 0) GTEST_SKIP() << "only an administrator can be two users";
  constexpr uid_t kOther = 65534;
  constexpr gid_t kGroup = 65533;
  const mode_t own_mask = ::umask(022);
  for (const mode_t mode : {0660, 0600}) {
    SCOPED_TRACE(mode);
    TemporaryFolder folder;
    const std::string path = folder / "plant.ovs";
    Database::Create(files::RealFileSystem(), path)->CreateTable(ItemsSpec());
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
    const pid_t child = ::fork();
    if (child == 0) {
      try {
        if (::setgroups(0, nullptr) + ::setgid(kGroup) + ::setuid(kOther) != 0) std::_Exit(2);
        const auto shared = Database::Open(files::RealFileSystem(), path);
        AddItem(shared->OpenTable("Items"), "Second", "");
      } catch (const std::exception&) {
        std::_Exit(1);
      }
      std::_Exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status == 0, mode == 0660);
    EXPECT_EQ(Items(*database).size(), mode == 0660 ? 2u : 1u);
  }
  ::umask(own_mask);
}

}  // namespace
}  // namespace jet
