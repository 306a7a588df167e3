// SPDX-License-Identifier: MIT
// One contract, kept by the operating system's files and by their twin in memory.
#include "files/file_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "files/memory_file_system.h"
#include "files/replace_file.h"
#include "link.h"
#include "temporary_folder.h"

namespace files {
namespace {

std::span<const std::byte> Bytes(std::string_view text) { return std::as_bytes(std::span(text)); }

std::string Read(RandomAccessFile& file, std::uint64_t offset, std::size_t count) {
  std::string text(count, '?');
  text.resize(file.ReadAt(offset, std::as_writable_bytes(std::span(text))));
  return text;
}

ErrorKind KindThrown(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    EXPECT_NE(error.path(), "");
    EXPECT_NE(std::string(error.what()).find(error.path()), std::string::npos) << error.what();
    return error.kind();
  }
  ADD_FAILURE() << "nothing was raised";
  return ErrorKind::kIo;
}

std::string TextThrown(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.what();
  }
  return {};
}

#ifdef _WIN32
constexpr bool kWindows = true;
#else
constexpr bool kWindows = false;
#endif

class FileSystemContract : public testing::TestWithParam<bool> {
 protected:
  FileSystem& system() { return GetParam() ? RealFileSystem() : memory_; }
  // Paths in memory have the same form everywhere.
  std::string Folder() { return GetParam() ? folder_.path() : "/p"; }
  std::string At(const std::string& name) { return GetParam() ? folder_ / name : "/p/" + name; }

  void SetUp() override {
    if (!GetParam()) memory_.CreateDirectories(Folder());
  }

  void Write(const std::string& path, std::string_view text) {
    const auto file = system().Open(path, OpenMode::kCreateOrOpen);
    file->Truncate(0);
    file->WriteAt(0, Bytes(text));
  }

  void Link(const std::string& target, const std::string& name) {
    if (GetParam()) {
      MakeLink(target, At(name));
    } else {
      memory_.MakeLink(target, At(name));
    }
  }

  void AddName(const std::string& file, const std::string& name) {
    if (GetParam()) {
      std::filesystem::create_hard_link(At(file), At(name));
    } else {
      memory_.AddName(At(file), At(name));
    }
  }

  TemporaryFolder folder_;
  MemoryFileSystem memory_;
};

INSTANTIATE_TEST_SUITE_P(All, FileSystemContract, testing::Bool(),
                         [](const auto& p) { return p.param ? "Real" : "Memory"; });

TEST_P(FileSystemContract, ReadsAndWritesAtOffsets) {
  const auto file = system().Open(At("a"), OpenMode::kCreateNew);
  file->WriteAt(4, Bytes("four"));
  EXPECT_EQ(file->Size(), 8u);
  EXPECT_EQ(Read(*file, 0, 100), std::string("\0\0\0\0four", 8));
  EXPECT_EQ(Read(*file, 6, 2), "ur");
  EXPECT_EQ(Read(*file, 8, 2), "");
  EXPECT_EQ(Read(*file, 1000, 2), "");
  file->Truncate(5);
  file->Truncate(7);
  EXPECT_EQ(Read(*file, 0, 100), std::string("\0\0\0\0f\0\0", 7));
  file->Sync();
  EXPECT_EQ(ReadFile(system(), At("a")).size(), 7u);
  EXPECT_EQ(KindThrown([&] { ReadFile(system(), At("a"), 6); }), ErrorKind::kIo);
}

TEST_P(FileSystemContract, TellsFailuresApart) {
  Write(At("a"), "a");
  system().CreateDirectories(At("folder/inner"));
  const auto open = [&](const char* name, OpenMode mode) {
    return [this, name, mode] { system().Open(At(name), mode); };
  };
  EXPECT_EQ(KindThrown(open("none", OpenMode::kRead)), ErrorKind::kNotFound);
  EXPECT_EQ(KindThrown(open("none", OpenMode::kReadWrite)), ErrorKind::kNotFound);
  EXPECT_EQ(KindThrown(open("none/a", OpenMode::kCreateNew)), ErrorKind::kNotFound);
  EXPECT_EQ(KindThrown(open("a", OpenMode::kCreateNew)), ErrorKind::kExists);
  EXPECT_EQ(KindThrown(open("folder", OpenMode::kRead)), ErrorKind::kNotAFile);
  EXPECT_EQ(KindThrown(open("folder", OpenMode::kReadWrite)), ErrorKind::kNotAFile);
  EXPECT_EQ(KindThrown([&] { system().Remove(At("none")); }), ErrorKind::kNotFound);
  EXPECT_EQ(KindThrown([&] { system().Remove(At("folder")); }), ErrorKind::kIo);
  EXPECT_EQ(KindThrown([&] { system().Rename(At("none"), At("b")); }), ErrorKind::kNotFound);
  EXPECT_EQ(KindThrown([&] { system().List(At("none")); }), ErrorKind::kNotFound);
  EXPECT_EQ(KindThrown([&] { system().Canonical(At("none")); }), ErrorKind::kNotFound);
  EXPECT_EQ(KindThrown([&] { system().SyncDirectory(At("none")); }), ErrorKind::kNotFound);
  EXPECT_EQ(system().Stamp(At("none")), std::nullopt);
  EXPECT_FALSE(system().IsWritable(At("none")));
}

TEST_P(FileSystemContract, ListsRenamesAndRemoves) {
  Write(At("a"), "a");
  Write(At("b"), "b");
  system().CreateDirectories(At("c"));
  system().Rename(At("a"), At("b"));
  std::vector<DirectoryEntry> entries = system().List(Folder());
  std::sort(entries.begin(), entries.end(),
            [](const auto& one, const auto& other) { return one.name < other.name; });
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].name, "b");
  EXPECT_FALSE(entries[0].is_directory);
  EXPECT_EQ(entries[1].name, "c");
  EXPECT_TRUE(entries[1].is_directory);
  EXPECT_EQ(ReadFile(system(), At("b")), "a");
  system().Remove(At("b"));
  system().Remove(At("c"));
  EXPECT_TRUE(system().List(Folder()).empty());
}

TEST_P(FileSystemContract, ExchangesNamesAndReplacesNothingByAccident) {
  Write(At("a"), "a");
  Write(At("b"), "b");
  EXPECT_EQ(KindThrown([&] { system().RenameNew(At("a"), At("b")); }), ErrorKind::kExists);
  ASSERT_TRUE(system().Exchange(At("a"), At("b")));
  EXPECT_EQ(ReadFile(system(), At("a")), "b");
  system().RenameNew(At("a"), At("c"));
  EXPECT_EQ(ReadFile(system(), At("c")), "b");
  EXPECT_EQ(ReadFile(system(), At("b")), "a");
  EXPECT_FALSE(system().Exists(At("a")));
  EXPECT_EQ(KindThrown([&] { system().Exchange(At("a"), At("b")); }), ErrorKind::kNotFound);
  system().Remove(At("b"));
  system().Remove(At("c"));
}

TEST_P(FileSystemContract, UpdatesAFileThatOthersWriteToo) {
  int calls = 0;
  const auto add = [&](const std::string& before) {
    if (++calls == 1) Write(At("a"), "other ");
    return before + "own";
  };
  UpdateFile(system(), At("a"), add);
  EXPECT_EQ(ReadFile(system(), At("a")), "other own");
  system().Remove(At("a"));
}

TEST_P(FileSystemContract, AnOpenFileOutlivesItsName) {
  Write(At("a"), "old");
  Write(At("new"), "new");
  const auto file = system().Open(At("a"), OpenMode::kReadWrite);
  EXPECT_EQ(system().Stamp(At("a"))->identity, file->Stamp().identity);
  system().Rename(At("new"), At("a"));
  EXPECT_EQ(Read(*file, 0, 10), "old");
  EXPECT_NE(system().Stamp(At("a"))->identity, file->Stamp().identity);
  file->WriteAt(0, Bytes("OLD"));
  EXPECT_EQ(ReadFile(system(), At("a")), "new");
}

TEST_P(FileSystemContract, OnlyReadingFollowsALink) {
  Write(At("a"), "text");
  Link("a", "link");
  Link("none", "lost");
  Link(".", "here");
  EXPECT_TRUE(system().IsLink(At("link")) && system().IsLink(At("lost")));
  EXPECT_FALSE(system().IsLink(At("a")) || system().IsLink(At("here/a")));
  EXPECT_FALSE(system().Exists(At("lost")));
  EXPECT_EQ(ReadFile(system(), At("here/link")), "text");
  EXPECT_EQ(system().Canonical(At("here/link")), system().Canonical(At("a")));
  for (const OpenMode mode : {OpenMode::kReadWrite, OpenMode::kCreateOrOpen}) {
    for (const char* name : {"link", "lost"}) {
      EXPECT_EQ(KindThrown([&] { system().Open(At(name), mode); }), ErrorKind::kInTheWay) << name;
    }
  }
  EXPECT_EQ(KindThrown([&] { system().Open(At("lost"), OpenMode::kCreateNew); }),
            ErrorKind::kExists);
  EXPECT_EQ(KindThrown([&] { ReplaceFile(system(), At("lost"), "x"); }), ErrorKind::kInTheWay);
  ReplaceFile(system(), At("here/link"), "new");
  EXPECT_TRUE(system().IsLink(At("link")));
  EXPECT_EQ(ReadFile(system(), At("a")), "new");
  system().Remove(At("lost"));
  system().Rename(At("a"), At("link"));
  EXPECT_FALSE(system().IsLink(At("link")));
}

TEST_P(FileSystemContract, AFileOfTwoNamesIsNotReplaced) {
  Write(At("a"), "text");
  EXPECT_EQ(system().NameCount(At("a")), 1u);
  AddName("a", "b");
  Link("b", "link");
  EXPECT_EQ(system().NameCount(At("link")), 2u);
  EXPECT_EQ(system().Stamp(At("a"))->identity, system().Stamp(At("b"))->identity);
  for (const char* name : {"a", "link"}) {
    EXPECT_EQ(KindThrown([&] { ReplaceFile(system(), At(name), "x"); }), ErrorKind::kManyNames);
  }
  system().Remove(At("a"));
  ReplaceFile(system(), At("link"), "new");
  EXPECT_EQ(ReadFile(system(), At("b")), "new");
}

TEST_P(FileSystemContract, LocksExcludeOtherOpenFiles) {
  Write(At("a"), "");
  const auto one = system().Open(At("a"), OpenMode::kReadWrite);
  auto two = system().Open(At("a"), OpenMode::kReadWrite);
  constexpr std::uint64_t kFar = 0x10000001;
  EXPECT_TRUE(one->TryLock(kFar, 10, LockMode::kExclusive));
  EXPECT_FALSE(two->TryLock(kFar + 9, 5, LockMode::kShared));
  EXPECT_TRUE(two->TryLock(kFar + 10, 5, LockMode::kExclusive));
  EXPECT_TRUE(two->IsLockedByOthers(0, kFar + 1));
  EXPECT_FALSE(two->IsLockedByOthers(0, kFar));
  EXPECT_TRUE(one->TryLock(kFar, 10, LockMode::kShared)) << "replaces the lock";
  EXPECT_TRUE(two->TryLock(kFar, 10, LockMode::kShared));
  EXPECT_FALSE(one->TryLock(kFar, 10, LockMode::kExclusive));
  EXPECT_FALSE(two->TryLock(kFar, 10, LockMode::kExclusive)) << "the old lock stays";
  one->Unlock(kFar, 4);
  EXPECT_TRUE(two->TryLock(kFar, 4, LockMode::kExclusive));
  EXPECT_FALSE(two->TryLock(kFar, 5, LockMode::kExclusive));
  EXPECT_TRUE(one->IsLockedByOthers(kFar, 1));
  two.reset();
  EXPECT_FALSE(one->IsLockedByOthers(0, kFar + 100));
  EXPECT_TRUE(one->TryLock(0, kFar + 100, LockMode::kExclusive));
}

TEST_P(FileSystemContract, SplitsAndJoinsPaths) {
  FileSystem& s = system();
  EXPECT_EQ(s.Join("/p", "a"), GetParam() && kWindows ? "/p\\a" : "/p/a");
  EXPECT_EQ(s.Join("/", "a"), "/a");
  EXPECT_EQ(s.Join("", "a"), "a");
  EXPECT_EQ(s.Folder("/p/a.b"), "/p");
  EXPECT_EQ(s.Folder("/a"), "/");
  EXPECT_EQ(s.Folder("a"), "");
  EXPECT_EQ(s.FileName("/p/Größe.ovs"), "Größe.ovs");
  EXPECT_EQ(s.FileName("a"), "a");
  Write(At("a"), "");
  EXPECT_EQ(s.Canonical(At("./a")), s.Canonical(At("a")));
}

TEST_P(FileSystemContract, ReplacesWholeFiles) {
  ReplaceFile(system(), At("a"), "one");
  EXPECT_EQ(ReadFile(system(), At("a")), "one");
  ReplaceFile(system(), At("a"), "");
  EXPECT_EQ(ReadFile(system(), At("a")), "");
  EXPECT_EQ(system().List(Folder()).size(), 1u) << "a temporary file was left";
  EXPECT_EQ(KindThrown([&] { ReplaceFile(system(), At("none/a"), "x"); }), ErrorKind::kNotFound);
}

TEST(MemoryFileSystem, RefusesAsAProtectedOrFullMediumDoes) {
  MemoryFileSystem system;
  system.Put("/p/a", "12345");
  system.SetReadOnly("/p/a", true);
  EXPECT_EQ(KindThrown([&] { system.Open("/p/a", OpenMode::kReadWrite); }), ErrorKind::kReadOnly);
  EXPECT_EQ(KindThrown([&] { ReplaceFile(system, "/p/a", "x"); }), ErrorKind::kReadOnly);
  system.SetReadOnly("/p/a", false);
  system.SetReadOnly("/p", true);
  EXPECT_EQ(KindThrown([&] { system.Open("/p/b", OpenMode::kCreateNew); }), ErrorKind::kReadOnly);
  EXPECT_EQ(KindThrown([&] { system.Remove("/p/a"); }), ErrorKind::kReadOnly);
  EXPECT_EQ(TextThrown([&] { ReplaceFile(system, "/p/a", "x"); }),
            "/p/a cannot be written: no file can be made in its folder. Remove the write "
            "protection, or ask for the right to write there.");
  system.SetReadOnly("/p", false);
  system.SetCapacity(12);
  EXPECT_EQ(KindThrown([&] { ReplaceFile(system, "/p/a", "12345678"); }), ErrorKind::kFull);
  EXPECT_TRUE(
      TextThrown([&] { ReplaceFile(system, "/p/a", "12345678"); }).starts_with("/p/a cannot be "));
  EXPECT_EQ(system.Snapshot(), (std::map<std::string, std::string>{{"/p/a", "12345"}}));
  ReplaceFile(system, "/p/a", "1234567");
  EXPECT_EQ(system.Get("/p/a"), "1234567");
}

}  // namespace
}  // namespace files
