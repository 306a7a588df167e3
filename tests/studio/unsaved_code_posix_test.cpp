// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "files/real_file_system.h"
#include "files/replace_file.h"
#include "studio/unsaved_code.h"
#include "tests/files/temporary_folder.h"

namespace studio {
namespace {

TEST(UnsavedCopies, LetInWhomTheModuleLetsIn) {
  files::FileSystem& system = files::RealFileSystem();
  for (const mode_t mode : {0600, 0640}) {
    const TemporaryFolder folder;
    const std::string module = folder / "CPump.cls";
    files::ReplaceFile(system, module, "code");
    ASSERT_EQ(::chmod(module.c_str(), mode), 0);
    UnsavedCopies(system, folder / "unsaved").Keep({module, "", "secret"});
    struct stat info = {};
    ASSERT_EQ(::stat((folder / "unsaved/0.code").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, mode);
  }
}

}  // namespace
}  // namespace studio
