// SPDX-License-Identifier: MIT
// Backups on the real file system.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "project/backups.h"
#include "tests/files/temporary_folder.h"

// Whoever may not read the database may not read its backups.
TEST(Backups, AreAsPrivateAsTheDatabase) {
  const mode_t own_mask = ::umask(0);
  for (const mode_t mode : {0600, 0640}) {
    SCOPED_TRACE(mode);
    TemporaryFolder folder;
    const std::string database = folder / "Plant.ovs", module = folder / "CPump.cls";
    std::ofstream(database) << "rows";
    std::ofstream(module) << "code";
    ASSERT_EQ(::chmod(database.c_str(), mode) + ::chmod(module.c_str(), 0666), 0);
    project::Backups backups(files::RealFileSystem(), folder / "backups");
    ASSERT_TRUE(backups.MakeDaily("2026-11-20", {database, module}));
    const std::string made = backups.List().at(0).folder;
    for (const char* name : {"/0.bak", "/1.bak"}) {
      struct stat info = {};
      ASSERT_EQ(::stat((made + name).c_str(), &info), 0) << name;
      EXPECT_EQ(info.st_mode & 0777 & ~mode, 0u) << name;
    }
  }
  ::umask(own_mask);
}
