// SPDX-License-Identifier: MIT
// Several users of one file: ours and others.
#include <gtest/gtest.h>

#include <functional>

#include "files/memory_file_system.h"
#include "files/recovery.h"
#include "jet/database.h"
#include "tests/jet/plant_tables.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/forwarding_file_system.h"

namespace jet {
namespace {

constexpr const char* kPath = "/plant.ovs";
constexpr const char* kLockPath = "/plant.ldb";
constexpr std::uint64_t kFirstUser = 0x10000001;

class Sharing : public ::testing::Test {
 protected:
  Sharing() {
    options_.wait_ms = 0;
    const auto database = Database::Create(system_, kPath);
    database->CreateTable(ItemsSpec());
    AddItem(database->OpenTable("Items"), "Pump", "");
  }

  std::unique_ptr<Database> Open(bool read_only = false) {
    OpenOptions options = options_;
    options.read_only = read_only;
    return Database::Open(system_, kPath, options);
  }

  // Somebody else's program, which knows nothing of us.
  std::unique_ptr<files::RandomAccessFile> ForeignUser(std::uint64_t user) {
    auto file = system_.Open(kLockPath, files::OpenMode::kCreateOrOpen);
    const std::string record =
        std::string("PLANT7") + std::string(26, '\0') + "Admin" + std::string(27, '\0');
    file->WriteAt((user - 1) * 64, std::as_bytes(std::span(record)));
    EXPECT_TRUE(file->TryLock(kFirstUser + user - 1, 1, files::LockMode::kExclusive));
    return file;
  }

  files::MemoryFileSystem system_;
  OpenOptions options_;
};

TEST_F(Sharing, ReadersSeeWhatOthersCommit) {
  const auto writer = Open();
  const auto reader = Open();
  const auto looker = Open(true);
  EXPECT_EQ(Items(*reader).size(), 1u);
  EXPECT_EQ(Items(*looker).size(), 1u);
  const std::uint64_t generation = reader->Generation();
  writer->Begin();
  AddItem(writer->OpenTable("Items"), "Valve", "");
  EXPECT_EQ(Items(*reader).size(), 1u);
  EXPECT_EQ(reader->Generation(), generation);
  writer->Commit();
  EXPECT_NE(reader->Generation(), generation);
  EXPECT_EQ(Items(*reader).size(), 2u);
  EXPECT_EQ(Items(*looker).size(), 2u);
}

TEST_F(Sharing, OneWriterAtATimeAndNumbersGoOn) {
  const auto first = Open();
  const auto second = Open();
  first->Begin();
  EXPECT_THROW(second->Begin(), Error);
  EXPECT_EQ(AddItem(first->OpenTable("Items"), "Valve", "").auto_number, 2);
  first->Commit();
  EXPECT_EQ(AddItem(second->OpenTable("Items"), "Tank", "").auto_number, 3);
  EXPECT_EQ(Items(*first).size(), 3u);
}

TEST_F(Sharing, AScanIsNotDisturbed) {
  const auto writer = Open();
  const auto reader = Open();
  RowBuffer row;
  {
    Scan scan = reader->OpenTable("Items").OpenScan();
    ASSERT_TRUE(scan.Next(row));
    EXPECT_THROW(AddItem(writer->OpenTable("Items"), "Valve", ""), Error);
    EXPECT_FALSE(scan.Next(row));
  }
  AddItem(writer->OpenTable("Items"), "Valve", "");
  EXPECT_EQ(Items(*reader).size(), 2u);
}

TEST_F(Sharing, OfForeignSoftware) {
  {
    const auto foreign = ForeignUser(1);
    const auto database = Open();
    EXPECT_NE(database->read_only_reason().English().find("PLANT7 (Admin)"), std::string::npos);
    EXPECT_EQ(Items(*database).size(), 1u);
    EXPECT_THROW(AddItem(database->OpenTable("Items"), "Valve", ""), Error);
  }
  EXPECT_EQ(Open()->read_only_reason().English(), "");  // a record without a lock is stale
  const auto database = Open();
  {
    const auto foreign = ForeignUser(2);  // comes later
    try {
      AddItem(database->OpenTable("Items"), "Valve", "");
      ADD_FAILURE() << "written beside a foreign user";
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::kLocked);
      EXPECT_NE(std::string(error.what()).find("PLANT7"), std::string::npos);
    }
  }
  AddItem(database->OpenTable("Items"), "Valve", "");
}

// A program dies in the middle of writing. Those that have the database open read nothing of it:
// who may write puts it back, who only looks says what is to be run and writes nothing.
TEST_F(Sharing, NobodyReadsAnInterruptedCommit) {
  const auto reader = Open();
  const auto looker = Open(true);
  int interrupted = 0;
  int refused = 0;
  for (int n = 1;; ++n) {
    SCOPED_TRACE(n);
    files::FailingFileSystem failing(system_);
    auto database = Database::Open(failing, kPath, options_);
    const auto before = Items(*reader);
    files::Fault fault;
    fault.kinds = {files::Operation::kWrite};
    fault.n = n;
    fault.length = files::Fault::Length::kCrash;
    fault.short_writes = true;
    failing.Arm(fault);
    try {
      AddItem(database->OpenTable("Items"), "Valve" + std::to_string(n), std::string(500, 'v'));
    } catch (const files::Error&) {
    }
    const bool fired = failing.fired();
    database.reset();
    interrupted += files::ExamineJournal(system_, kPath, {}).condition ==
                   files::JournalCondition::kInterrupted;
    const auto left = system_.Snapshot();
    std::vector<std::string> seen;
    try {
      seen = Items(*looker);
      EXPECT_EQ(Items(*Open(true)), seen);
    } catch (const files::Error& error) {
      EXPECT_NE(std::string(error.what()).find("recover --before"), std::string::npos);
      EXPECT_THROW(Open(true), files::Error);
      ++refused;
    }
    EXPECT_TRUE(system_.Snapshot() == left);
    const auto found = Items(*reader);
    EXPECT_TRUE(found == before || found.size() == before.size() + 1);
    EXPECT_TRUE(seen.empty() || seen == found);
    EXPECT_EQ(Items(*looker), found);
    EXPECT_EQ(Faults(*reader), "");
    if (!fired || HasFailure()) break;
  }
  EXPECT_GT(interrupted, 0);
  EXPECT_GT(refused, 0);
}

// Through a link one uses the file, with the journal and the lock file that stand beside it.
TEST_F(Sharing, ALinkIsTheFileThatItLeadsTo) {
  system_.CreateDirectories("/other");
  system_.MakeLink("../plant.ovs", "/other/link.ovs");
  for (int n = 1;; ++n) {
    SCOPED_TRACE(n);
    files::FailingFileSystem failing(system_);
    files::Fault fault;
    fault.kinds = {files::Operation::kWrite};
    fault.n = n;
    fault.length = files::Fault::Length::kCrash;
    bool done = false;
    {
      const auto database = Database::Open(failing, "/other/link.ovs", options_);
      EXPECT_TRUE(system_.Exists(kLockPath));
      failing.Arm(fault);
      try {
        AddItem(database->OpenTable("Items"), "Valve" + std::to_string(n), "");
        done = true;
      } catch (const files::Error&) {
      }
    }
    const auto through_link = Database::Open(system_, "/other/link.ovs", options_);
    AddItem(through_link->OpenTable("Items"), "Tank" + std::to_string(n), "");
    EXPECT_EQ(Faults(*through_link), "");
    EXPECT_EQ(Items(*Open()), Items(*through_link));
    if (done || HasFailure()) break;
  }
  EXPECT_EQ(system_.List("/other").size(), 1u);
}

// What cannot be kept as one file, or has something else under the name of its lock file, is read
// and not written, with the reason.
TEST_F(Sharing, WhatHasNoPlaceOfItsOwnIsOnlyRead) {
  struct Case {
    const char* path;
    std::function<void()> prepare;
    const char* reason;
  };
  const std::string database = system_.Get(kPath);
  const Case cases[] = {
      {"/a.ovs", [&] { system_.AddName("/a.ovs", "/b.ovs"); }, "several names"},
      {"/c.ovs", [&] { system_.AddName("/c.ovs", "/c.ldb"); }, "several names"},
      {"/d.ovs", [&] { system_.MakeLink("d.ovs", "/d.ldb"); }, "it is a link"},
      {"/e.ovs", [&] { system_.MakeLink("none", "/e.ldb"); }, "it is a link"},
      {"/f.ldb", [] {}, "it is the database"},
      {"/g.ovs", [&] { system_.Put("/g.ldb", std::string(20'000, 'x')); }, "not a lock file"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path);
    system_.Put(c.path, database);
    c.prepare();
    const auto before = system_.Snapshot();
    {
      const auto opened = Database::Open(system_, c.path, options_);
      EXPECT_EQ(Items(*opened).size(), 1u);
      EXPECT_NE(opened->read_only_reason().English().find(c.reason), std::string::npos)
          << opened->read_only_reason().English();
      EXPECT_THROW(AddItem(opened->OpenTable("Items"), "Valve", ""), Error);
    }
    EXPECT_TRUE(system_.Snapshot() == before);
  }
  EXPECT_THROW(Database::Create(system_, "/new.ldb"), Error);
  EXPECT_FALSE(system_.Exists("/new.ldb"));
}

// Files whose lock file's last user leaves whenever somebody else has seen it.
class LeavingUser final : public files::ForwardingFileSystem {
 public:
  explicit LeavingUser(files::FileSystem& files) : ForwardingFileSystem(files), files_(files) {}
  std::unique_ptr<files::RandomAccessFile> OpenLike(const std::string& path, files::OpenMode mode,
                                                    const std::string& like) override {
    if (path == kLockPath && mode == files::OpenMode::kRead) files_.Remove(path);
    return files_.OpenLike(path, mode, like);
  }

 private:
  files::FileSystem& files_;
};

TEST_F(Sharing, WhoLeavesMeanwhileIsInNobodysWay) {
  system_.Put(kLockPath, "");
  LeavingUser files(system_);
  const auto database = Database::Open(files, kPath, options_);
  EXPECT_TRUE(database->read_only_reason().empty());
}

TEST_F(Sharing, TheLockFileLivesAsLongAsItsUsers) {
  auto first = Open();
  auto second = Open();
  EXPECT_EQ(system_.Get(kLockPath).size(), 2u * 64);
  first.reset();
  EXPECT_TRUE(system_.Exists(kLockPath));
  first = Open(true);
  second.reset();
  EXPECT_FALSE(system_.Exists(kLockPath));
}

TEST_F(Sharing, ReadOnlyFilesAndFoldersCanBeRead) {
  system_.SetReadOnly(kPath, true);
  auto database = Open();
  EXPECT_NE(database->read_only_reason().English(), "");
  EXPECT_EQ(Items(*database).size(), 1u);
  EXPECT_FALSE(database->OpenTable("Items").ReadOnlyReason().empty());
  database.reset();
  system_.SetReadOnly(kPath, false);
  system_.SetReadOnly("/", true);
  database = Open();
  EXPECT_NE(database->read_only_reason().English(), "");
  EXPECT_EQ(Items(*database).size(), 1u);
}

}  // namespace
}  // namespace jet
