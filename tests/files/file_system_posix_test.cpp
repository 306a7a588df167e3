// SPDX-License-Identifier: MIT
// What only Linux has of files: permissions, extended attributes, pipes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "files/replace_file.h"
#include "link.h"
#include "project_change.h"
#include "temporary_folder.h"

namespace files {

void MakeLink(const std::string& target, const std::string& path) {
  std::filesystem::create_symlink(target, path);
}

namespace {

// Whoever runs the program: it is how version control says that a file is not checked out.
TEST(RealFileSystem, LeavesAFileAloneThatIsMarkedReadOnly) {
  const TemporaryFolder folder;
  const std::string path = folder / "CPump.cls";
  FileSystem& system = RealFileSystem();
  ReplaceFile(system, path, "old");
  ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
  EXPECT_FALSE(system.IsWritable(path));
  EXPECT_EQ(KindRaised([&] { system.Open(path, OpenMode::kReadWrite); }), ErrorKind::kReadOnly);
  EXPECT_EQ(KindRaised([&] { ReplaceFile(system, path, "new"); }), ErrorKind::kReadOnly);
  EXPECT_EQ(ReadFile(system, path), "old");
}

TEST(ReplaceFile, KeepsAttributesAndLinks) {
  const TemporaryFolder folder;
  FileSystem& system = RealFileSystem();
  ReplaceFile(system, folder / "real", "one");
  ASSERT_EQ(::chmod((folder / "real").c_str(), 0640), 0);
  const bool has_attributes = ::setxattr((folder / "real").c_str(), "user.note", "kept", 4, 0) == 0;
  std::filesystem::create_symlink("real", folder / "link");

  ReplaceFile(system, folder / "link", "two");

  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
  EXPECT_EQ(ReadFile(system, folder / "real"), "two");
  struct stat info;
  ASSERT_EQ(::stat((folder / "real").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 07777, 0640u);
  if (has_attributes) {
    char value[8] = {};
    EXPECT_EQ(::getxattr((folder / "real").c_str(), "user.note", value, sizeof value), 4);
    EXPECT_STREQ(value, "kept");
  }
}

mode_t Mode(const std::string& path) {
  struct stat info = {};
  EXPECT_EQ(::stat(path.c_str(), &info), 0) << path;
  return info.st_mode & 07777;
}

// Whatever the user's mask is: what is made beside a file lets in whom that one does.
TEST(RealFileSystem, MakesFilesLikeAnother) {
  const TemporaryFolder folder;
  FileSystem& system = RealFileSystem();
  ReplaceFile(system, folder / "database", "d");
  for (const mode_t mask : {0022, 0077, 0000}) {
    for (const mode_t mode : {0600, 0664, 0640}) {
      SCOPED_TRACE(testing::Message() << std::oct << mask << " " << mode);
      ASSERT_EQ(::chmod((folder / "database").c_str(), mode), 0);
      const mode_t own = ::umask(mask);
      system.OpenLike(folder / "one", OpenMode::kCreateNew, folder / "database");
      system.OpenLike(folder / "two", OpenMode::kCreateOrOpen, folder / "database");
      ReplaceFile(system, folder / "three", "x", folder / "database");
      system.Open(folder / "four", OpenMode::kCreateNew);
      ::umask(own);
      for (const char* name : {"one", "two", "three"}) EXPECT_EQ(Mode(folder / name), mode) << name;
      EXPECT_EQ(Mode(folder / "four"), 0666 & ~mask);
      for (const char* name : {"one", "two", "three", "four"}) system.Remove(folder / name);
    }
  }
}

// Not even for a moment, where the medium has such files.
TEST(ScratchFile, HasNoName) {
  const TemporaryFolder folder;
  FileSystem& system = RealFileSystem();
  const int events = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  ASSERT_GE(::inotify_add_watch(events, folder.path().c_str(), IN_CREATE), 0);
  const auto scratch = system.OpenLike(folder / "plant.ovs.tmp", OpenMode::kScratch, "");
  EXPECT_EQ(system.List(folder.path()).size(), 0u);
  const int nameless = ::open(folder.path().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  std::array<char, 4096> seen;
  if (nameless >= 0) {
    EXPECT_LT(::read(events, seen.data(), seen.size()), 0) << "it had a name";
    ::close(nameless);
  }
  ::close(events);
  const std::string words = "pages";
  scratch->WriteAt(4096, std::as_bytes(std::span(words)));
  std::string read(words.size(), ' ');
  EXPECT_EQ(scratch->ReadAt(4096, std::as_writable_bytes(std::span(read))), words.size());
  EXPECT_EQ(read, words);
  EXPECT_EQ(KindRaised([&] { system.Open(folder / "gone/a.tmp", OpenMode::kScratch); }),
            ErrorKind::kNotFound);
}

TEST(RealFileSystem, RefusesWhatIsNoRegularFile) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  for (const std::string& path : {folder / "pipe", folder.path()}) {
    EXPECT_EQ(KindRaised([&] { RealFileSystem().Open(path, OpenMode::kRead); }),
              ErrorKind::kNotAFile)
        << path;
  }
}

}  // namespace
}  // namespace files
