// SPDX-License-Identifier: MIT
#include "files/unit_of_work.h"

#include <gtest/gtest.h>

#include "files/memory_file_system.h"
#include "platform/error.h"
#include "tests/support/any_file.h"
#include "tests/support/failing_file_system.h"

namespace files {
namespace {

// A text file that is edited in memory and written by the unit of work.
class TextFile final : public Participant {
 public:
  TextFile(FileSystem& system, std::string path, std::vector<std::string>& log)
      : system_(system), path_(std::move(path)), log_(log) {}

  void Save() override {
    if (fail_save) throw std::runtime_error("cannot save");
    log_.push_back("save " + path_);
    saved_ = text = on_disk_ = ReadFile(system_, path_);
  }
  void Collect(ChangeSet& changes) override {
    if (text != on_disk_) changes.files.push_back({path_, on_disk_, text});
  }
  void Committed() noexcept override { log_.push_back("committed " + path_); }
  void Restore() noexcept override {
    log_.push_back("restore " + path_);
    text = saved_;
  }

  std::string text;
  bool fail_save = false;

 private:
  FileSystem& system_;
  std::string path_;
  std::vector<std::string>& log_;
  std::string saved_;
  std::string on_disk_;
};

class UnitOfWorkTest : public testing::Test {
 protected:
  UnitOfWorkTest() {
    medium.Put("/p/a", "a");
    medium.Put("/p/b", "b");
    unit.Enlist(a);
    unit.Enlist(b);
  }

  platform::ErrorKind CommitFails() {
    try {
      unit.Commit();
    } catch (const platform::Error& error) {
      return error.kind();
    }
    ADD_FAILURE() << "committed";
    return platform::ErrorKind::kInternal;
  }

  MemoryFileSystem medium;
  FailingFileSystem system{medium};
  std::vector<std::string> log;
  TextFile a{system, "/p/a", log};
  TextFile b{system, "/p/b", log};
  JournalledUnitOfWork unit{system, "/p/plant.ovs", kAnyFile};
};

TEST_F(UnitOfWorkTest, CommitsAllParticipantsAsOne) {
  unit.Begin();
  a.text = "A";
  b.text = "B";
  EXPECT_EQ(medium.Get("/p/a"), "a") << "written before the commit";
  unit.Commit();
  EXPECT_FALSE(unit.IsOpen());
  EXPECT_EQ(medium.Get("/p/a") + medium.Get("/p/b"), "AB");
  EXPECT_EQ(log, (std::vector<std::string>{"save /p/a", "save /p/b", "committed /p/a",
                                           "committed /p/b"}));
}

TEST_F(UnitOfWorkTest, NestedUsesJoinTheOuterOne) {
  {
    platform::UnitOfWorkScope outer(unit);
    a.text = "A";
    {
      platform::UnitOfWorkScope inner(unit);
      b.text = "B";
      inner.Commit();
    }
    EXPECT_EQ(medium.Get("/p/b"), "b");
    EXPECT_TRUE(unit.IsOpen());
    outer.Commit();
  }
  EXPECT_EQ(medium.Get("/p/a") + medium.Get("/p/b"), "AB");

  unit.Begin();
  a.text = "x";
  { platform::UnitOfWorkScope left(unit); }
  EXPECT_TRUE(unit.IsOpen());
  EXPECT_EQ(CommitFails(), platform::ErrorKind::kRefused);
  EXPECT_FALSE(unit.IsOpen());
  EXPECT_EQ(a.text, "A");
  EXPECT_EQ(medium.Get("/p/a"), "A");

  unit.Begin();
  a.text = "again";
  unit.Commit();
  EXPECT_EQ(medium.Get("/p/a"), "again") << "an earlier rollback is forgotten";
}

TEST_F(UnitOfWorkTest, PutsEverythingBackWhenACommitFails) {
  unit.Begin();
  a.text = "A";
  b.text = "B";
  medium.Put("/p/b", "edited by hand");
  EXPECT_EQ(CommitFails(), platform::ErrorKind::kConflict);
  EXPECT_EQ(a.text, "a");
  EXPECT_EQ(medium.Get("/p/a"), "a");
  EXPECT_EQ(medium.Get("/p/b"), "edited by hand");
  EXPECT_TRUE(unit.NotUndone().empty());
}

TEST_F(UnitOfWorkTest, SaysWhatIsNotUndone) {
  unit.Begin();
  a.text = "A";
  b.text = "B";
  system.Arm({{Operation::kRename}, 2, Fault::Length::kCrash});
  EXPECT_EQ(CommitFails(), platform::ErrorKind::kIo);
  EXPECT_TRUE(system.fired());
  ASSERT_EQ(unit.NotUndone().size(), 1u);
  EXPECT_EQ(a.text, "a") << "participants return to what was";
  system.Disarm();
  unit.Begin();
  EXPECT_TRUE(unit.NotUndone().empty());
  unit.Rollback();
}

TEST_F(UnitOfWorkTest, BeginsNothingWhenAParticipantCannotSave) {
  b.fail_save = true;
  EXPECT_THROW(unit.Begin(), platform::Error);
  EXPECT_FALSE(unit.IsOpen());
  EXPECT_EQ(log, (std::vector<std::string>{"save /p/a", "restore /p/a"}));
}

}  // namespace
}  // namespace files
