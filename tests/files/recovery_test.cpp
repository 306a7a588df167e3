// SPDX-License-Identifier: MIT
#include "files/recovery.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "project_change.h"
#include "tests/support/failing_file_system.h"

namespace files {
namespace {

constexpr const char* kDatabase = ProjectChange::kDatabase;
constexpr const char* kJournal = "/p/plant.ovs.journal";

// Leaves the project as a program that was killed at the n-th operation of the kinds does.
void Interrupt(const ProjectChange& change, MemoryFileSystem& medium, std::set<Operation> kinds,
               int n) {
  change.Put(medium);
  FailingFileSystem system(medium);
  system.Arm({std::move(kinds), n, Fault::Length::kCrash});
  EXPECT_NE(KindRaised([&] { change.Commit(system); }), std::nullopt);
  EXPECT_TRUE(system.fired());
}

// The writes of a commit: the journal, two temporary files, the database.
void InterruptBeforeDatabase(const ProjectChange& change, MemoryFileSystem& medium) {
  Interrupt(change, medium, {Operation::kWrite}, 4);
}
void InterruptInDatabase(const ProjectChange& change, MemoryFileSystem& medium) {
  Interrupt(change, medium, {Operation::kWrite}, 5);
}
void InterruptAfterDatabase(const ProjectChange& change, MemoryFileSystem& medium) {
  Interrupt(change, medium, {Operation::kRename}, 2);
}

// Every place in the header and the first records, and some in each page.
std::size_t Next(std::size_t place) { return place + (place < 1200 ? 1 : 29); }

TEST(Recovery, TellsHowFarAChangeCame) {
  const ProjectChange change;
  struct Case {
    void (*interrupt)(const ProjectChange&, MemoryFileSystem&);
    JournalCondition condition;
    FileState database;
    bool can_finish;
    bool can_read;
  };
  const Case cases[] = {
      {InterruptBeforeDatabase, JournalCondition::kUntouched, FileState::kBefore, false, true},
      {InterruptInDatabase, JournalCondition::kInterrupted, FileState::kPartly, false, false},
      {InterruptAfterDatabase, JournalCondition::kInterrupted, FileState::kAfter, true, false},
  };
  for (const Case& c : cases) {
    MemoryFileSystem medium;
    c.interrupt(change, medium);
    const Snapshot interrupted = medium.Snapshot();
    const RecoveryPlan plan = ExamineJournal(medium, kDatabase, kAnyFile);
    const auto refused = KindRaised([&] { CheckReadable(medium, kDatabase); });
    EXPECT_EQ(refused, c.can_read ? std::nullopt : std::optional(ErrorKind::kConflict));
    EXPECT_EQ(medium.Snapshot(), interrupted) << "a look changes nothing";
    EXPECT_EQ(plan.condition, c.condition);
    ASSERT_EQ(plan.files.size(), 4u);
    EXPECT_EQ(plan.files[0].path, kDatabase);
    EXPECT_EQ(plan.files[0].state, c.database) << plan.files[0].message.English();
    EXPECT_TRUE(plan.before.possible);
    EXPECT_EQ(plan.after.possible, c.can_finish) << plan.after.reason.English();
    EXPECT_NE(plan.after.possible, !plan.after.reason.empty());
    EXPECT_EQ(Recover(medium, kDatabase, kAnyFile).condition, c.condition);
    EXPECT_TRUE(change.IsBefore(medium)) << change.Difference(medium);
  }
}

// A journal is cut at every length while the database is untouched: it was never finished.
TEST(Recovery, IgnoresAJournalThatWasNotFinished) {
  const ProjectChange change;
  MemoryFileSystem crashed;
  Interrupt(change, crashed, {Operation::kSync}, 1);
  const std::uint64_t size = crashed.Stamp(kJournal)->size;
  ASSERT_GT(size, 2 * kPage);
  for (std::uint64_t length = 0; length <= size; length = Next(length)) {
    MemoryFileSystem medium;
    Copy(crashed, medium);
    medium.Open(kJournal, OpenMode::kReadWrite)->Truncate(length);
    ASSERT_EQ(KindRaised([&] { Recover(medium, kDatabase, kAnyFile); }), std::nullopt) << length;
    ASSERT_TRUE(change.IsBefore(medium)) << length << ": " << change.Difference(medium);
  }
}

// The journal is damaged after files were touched: nothing is done, and nothing passes unnoticed.
TEST(Recovery, NeverAppliesADamagedJournal) {
  const ProjectChange change;
  MemoryFileSystem crashed;
  InterruptInDatabase(change, crashed);
  const std::string journal = crashed.Get(kJournal);
  const auto check = [&](const std::string& damaged, const std::string& what) {
    MemoryFileSystem medium;
    Copy(crashed, medium);
    medium.Put(kJournal, damaged);
    const Snapshot before = medium.Snapshot();
    ASSERT_EQ(KindRaised([&] { Recover(medium, kDatabase, kAnyFile); }), ErrorKind::kDamaged)
        << what;
    ASSERT_EQ(KindRaised([&] { change.Commit(medium); }), ErrorKind::kDamaged) << what;
    ASSERT_EQ(medium.Snapshot(), before) << what;
    const RecoveryPlan plan = ExamineJournal(medium, kDatabase, kAnyFile);
    EXPECT_FALSE(plan.before.possible || plan.after.possible);
  };
  for (std::size_t length = 512; length < journal.size(); length = Next(length)) {
    check(journal.substr(0, length), "cut at " + std::to_string(length));
    if (HasFailure()) return;
  }
  for (std::size_t at = 16; at < journal.size(); at = Next(at)) {
    if (at == 64) at = 512;  // zeros without meaning
    std::string flipped = journal;
    flipped[at] = static_cast<char>(flipped[at] ^ (1 << (at % 8)));
    check(flipped, "byte " + std::to_string(at));
    if (HasFailure()) return;
  }
  check("Dear diary, this is somebody's own file.", "another file");
}

TEST(Recovery, AsksWhenAFileWasEditedSince) {
  const ProjectChange change;
  const std::string mine = "Public Sub Mine()\r\nEnd Sub\r\n";
  MemoryFileSystem medium;
  InterruptAfterDatabase(change, medium);
  medium.Put("/p/CPump.cls", mine);
  const Snapshot edited = medium.Snapshot();

  try {
    Recover(medium, kDatabase, kAnyFile);
    FAIL() << "went over an edited file";
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::kConflict);
    const std::string text = error.what();
    for (const char* part : {"/p/CPump.cls", "28 bytes", "27 bytes", "--before", "--discard"}) {
      EXPECT_NE(text.find(part), std::string::npos) << part << " in: " << text;
    }
  }
  EXPECT_EQ(KindRaised([&] { change.Commit(medium); }), ErrorKind::kConflict);
  EXPECT_EQ(medium.Snapshot(), edited);

  const auto resolve = [&](RecoveryChoice choice) {
    auto resolved = std::make_unique<MemoryFileSystem>();
    Copy(medium, *resolved);
    Resolve(*resolved, kDatabase, choice, kAnyFile);
    EXPECT_EQ(Recover(*resolved, kDatabase, kAnyFile).condition, JournalCondition::kNone);
    return resolved->Snapshot();
  };
  Snapshot before = change.before();
  before["/p/CPump.cls.edited"] = mine;
  EXPECT_EQ(resolve(RecoveryChoice::kBefore), before);
  Snapshot discarded = edited;
  discarded.extract(kJournal);
  std::erase_if(discarded, [](const auto& file) { return file.first.ends_with(".tmp"); });
  Snapshot stays = resolve(RecoveryChoice::kDiscard);
  EXPECT_EQ(stays.erase(std::string(kJournal) + ".discarded"), 1u);
  EXPECT_EQ(stays, discarded);
}

// A class that was given another name since stays one file: whoever did that is told.
TEST(Recovery, ReplacesNoFileOfSeveralNames) {
  const ProjectChange change;
  MemoryFileSystem medium;
  InterruptAfterDatabase(change, medium);
  const auto files = ExamineJournal(medium, kDatabase, kAnyFile).files;
  const auto changed = std::ranges::find_if(files, [](const RecoveryFile& file) {
    return file.path != kDatabase && file.state == FileState::kAfter;
  });
  ASSERT_NE(changed, files.end());
  medium.AddName(changed->path, "/p/Twin.cls");
  const Snapshot linked = medium.Snapshot();
  const auto recover = [&] { Recover(medium, kDatabase, kAnyFile); };
  EXPECT_EQ(KindRaised(recover), ErrorKind::kManyNames);
  EXPECT_EQ(medium.Snapshot(), linked);
  medium.Remove("/p/Twin.cls");
  recover();
  EXPECT_TRUE(change.IsBefore(medium)) << change.Difference(medium);
}

// Of a large class the journal holds what the change replaces: with the new version at hand the
// state before can be made, whatever became of the file; without it nothing is tried.
TEST(Recovery, AsksWhenALargeClassWasEditedSince) {
  const ProjectChange change(ProjectChange::Class::kLarge);
  const std::string mine(80'000, 'm');
  for (const bool moved : {false, true}) {
    SCOPED_TRACE(moved);
    MemoryFileSystem medium;
    Interrupt(change, medium, {Operation::kRename}, moved ? 2 : 1);
    EXPECT_EQ(medium.Get("/p/CPump.cls"),
              (moved ? change.after() : change.before()).at("/p/CPump.cls"));
    medium.Put("/p/CPump.cls", mine);
    EXPECT_EQ(KindRaised([&] { Recover(medium, kDatabase, kAnyFile); }), ErrorKind::kConflict);
    const Snapshot edited = medium.Snapshot();
    const RecoveryPlan plan = ExamineJournal(medium, kDatabase, kAnyFile);
    EXPECT_EQ(plan.before.possible, !moved);
    EXPECT_TRUE(plan.discard.possible);
    if (moved) {
      EXPECT_EQ(KindRaised([&] { Resolve(medium, kDatabase, RecoveryChoice::kBefore, kAnyFile); }),
                ErrorKind::kConflict);
      EXPECT_EQ(medium.Snapshot(), edited);
      continue;
    }
    for (int n = 1;; ++n) {  // however often that is interrupted
      MemoryFileSystem again;
      Copy(medium, again);
      again.CreateDirectories("/p/sub");
      FailingFileSystem system(again);
      system.Arm({{}, n, Fault::Length::kCrash});
      KindRaised([&] { Resolve(system, kDatabase, RecoveryChoice::kBefore, kAnyFile); });
      Resolve(again, kDatabase, RecoveryChoice::kBefore, kAnyFile);
      EXPECT_TRUE(again.Get("/p/CPump.cls") == change.before().at("/p/CPump.cls")) << n;
      const Snapshot resolved = again.Snapshot();  // a copy that was interrupted is made again
      EXPECT_TRUE(std::any_of(resolved.begin(), resolved.end(), [&](const auto& file) {
        return file.first.starts_with("/p/CPump.cls.edited") && file.second == mine;
      })) << n;
      if (!system.fired() || HasFailure()) break;
    }
  }
}

TEST(Recovery, FinishesAChangeWhenTold) {
  const ProjectChange change;
  MemoryFileSystem medium;
  InterruptAfterDatabase(change, medium);
  Resolve(medium, kDatabase, RecoveryChoice::kAfter, kAnyFile);
  EXPECT_TRUE(change.IsAfter(medium)) << change.Difference(medium);

  MemoryFileSystem partly;
  InterruptInDatabase(change, partly);
  const Snapshot interrupted = partly.Snapshot();
  EXPECT_EQ(KindRaised([&] { Resolve(partly, kDatabase, RecoveryChoice::kAfter, kAnyFile); }),
            ErrorKind::kConflict);
  EXPECT_EQ(partly.Snapshot(), interrupted);
}

// A version that somebody else made is there afterwards under another name, whatever was chosen.
TEST(Recovery, KeepsAnEditedDatabaseAside) {
  const ProjectChange change;
  for (const std::uint64_t place : {std::uint64_t{701}, 2 * kPage + 5, 3 * kPage + 1, 9 * kPage}) {
    SCOPED_TRACE(place);
    MemoryFileSystem medium;
    InterruptAfterDatabase(change, medium);
    medium.Open(kDatabase, OpenMode::kReadWrite)->WriteAt(place, Bytes(std::string("edit")));
    const std::string edited = medium.Get(kDatabase);
    EXPECT_EQ(KindRaised([&] { Recover(medium, kDatabase, kAnyFile); }), ErrorKind::kConflict);
    Resolve(medium, kDatabase, RecoveryChoice::kBefore, kAnyFile);
    EXPECT_EQ(medium.Get(std::string(kDatabase) + ".edited"), edited);
    medium.Remove(std::string(kDatabase) + ".edited");
    EXPECT_TRUE(change.IsBefore(medium)) << change.Difference(medium);
  }
}

TEST(Recovery, LeavesTheJournalOfAnotherPlaceAlone) {
  const ProjectChange change;
  MemoryFileSystem medium;
  InterruptInDatabase(change, medium);
  medium.Rename("/p", "/moved");
  const Snapshot moved = medium.Snapshot();
  const std::string database = "/moved/plant.ovs";
  EXPECT_EQ(KindRaised([&] { Recover(medium, database, kAnyFile); }), ErrorKind::kConflict);
  EXPECT_EQ(KindRaised([&] { Resolve(medium, database, RecoveryChoice::kBefore, kAnyFile); }),
            ErrorKind::kConflict);
  EXPECT_EQ(medium.Snapshot(), moved);
  const RecoveryPlan plan = ExamineJournal(medium, database, kAnyFile);
  EXPECT_EQ(plan.condition, JournalCondition::kElsewhere);
  EXPECT_EQ(plan.message.Part("<First>").Text("<Owner>"), kDatabase) << plan.message.English();
  medium.Rename("/moved", "/p");
  Recover(medium, kDatabase, kAnyFile);
  EXPECT_TRUE(change.IsBefore(medium)) << change.Difference(medium);
}

TEST(Recovery, RefusesWhileAnotherOneRuns) {
  const ProjectChange change;
  MemoryFileSystem medium;
  InterruptInDatabase(change, medium);
  const Snapshot interrupted = medium.Snapshot();
  {
    JournalFile other(medium, kDatabase);
    const JournalLock lock(other, /*create=*/false);
    EXPECT_EQ(KindRaised([&] { Recover(medium, kDatabase, kAnyFile); }), ErrorKind::kLocked);
    EXPECT_EQ(KindRaised([&] { ExamineJournal(medium, kDatabase, kAnyFile); }), ErrorKind::kLocked);
    EXPECT_EQ(KindRaised([&] { change.Commit(medium); }), ErrorKind::kLocked);
    EXPECT_EQ(medium.Snapshot(), interrupted);
  }
  Recover(medium, kDatabase, kAnyFile);
  EXPECT_TRUE(change.IsBefore(medium)) << change.Difference(medium);
}

TEST(Recovery, SaysWhatStandsInTheWay) {
  const ProjectChange change;
  MemoryFileSystem medium;
  InterruptInDatabase(change, medium);
  const Snapshot interrupted = medium.Snapshot();
  for (const char* path : {kJournal, kDatabase, "/p"}) {
    SCOPED_TRACE(path);
    medium.SetReadOnly(path, true);
    EXPECT_EQ(KindRaised([&] { Recover(medium, kDatabase, kAnyFile); }), ErrorKind::kReadOnly);
    medium.SetReadOnly(path, false);
    EXPECT_FALSE(ExamineJournal(medium, kDatabase, kAnyFile).message.empty());
  }
  Recover(medium, kDatabase, kAnyFile);
  EXPECT_TRUE(change.IsBefore(medium)) << change.Difference(medium);

  MemoryFileSystem gone;
  InterruptInDatabase(change, gone);
  gone.RemoveTree("/p/sub");
  EXPECT_EQ(KindRaised([&] { Recover(gone, kDatabase, kAnyFile); }), ErrorKind::kNotFound);
  gone.CreateDirectories("/p/sub");
  Recover(gone, kDatabase, kAnyFile);
  EXPECT_TRUE(change.IsBefore(gone)) << change.Difference(gone);
}

// A program that had the database open all along recovers what another one left when it commits.
// What it had read was not the truth, also where its own change concerns other bytes.
TEST(Recovery, ComesBeforeTheNextCommit) {
  const ProjectChange change;
  const auto commit_other_page = [](MemoryFileSystem& medium) {
    const auto file = medium.Open(kDatabase, OpenMode::kReadWrite);
    ChangeJournal journal(medium, kDatabase, kAnyFile);
    Commit(journal, *file, {{kPage, std::string(kPage, 'o')}}, file->Size());
  };
  for (const auto interrupt : {InterruptInDatabase, InterruptAfterDatabase}) {
    MemoryFileSystem medium;
    interrupt(change, medium);
    EXPECT_EQ(KindRaised([&] { commit_other_page(medium); }), ErrorKind::kConflict);
    EXPECT_TRUE(change.IsBefore(medium)) << change.Difference(medium);
    change.Commit(medium);
    EXPECT_TRUE(change.IsAfter(medium)) << change.Difference(medium);
  }
}

// A journal that anybody may have put there: all its checksums are right.
struct Forgery {
  std::string database = kDatabase;
  std::string ranged = kDatabase;
  std::string whole = "/p/CPump.cls";
  std::string temporary = "/p/CPump.cls.0123456789ab.tmp";
};

void Forge(MemoryFileSystem& medium, const Forgery& forgery) {
  const auto file = medium.Open(kJournal, OpenMode::kCreateOrOpen);
  journal::Writer writer(*file, 7, *medium.Stamp(kDatabase));
  writer.AddDatabase(forgery.database);
  writer.AddRangedFile({forgery.ranged, 0, 3 * kPage});
  const FileChange change{forgery.whole, "evil", std::nullopt};
  writer.AddWholeFile({forgery.whole, forgery.temporary, {true, 4, change.before.Hash()}, {}},
                      change);
  writer.Finish();
}

TEST(Recovery, WritesNothingThatIsNotTheProjects) {
  const Reach modules = [](const std::string& path) {
    return path.starts_with("/p/") && path.ends_with(".cls");
  };
  const std::string temporary = ".0123456789ab.tmp";
  const auto whole = [&](const std::string& path) {
    return Forgery{kDatabase, kDatabase, path, path + temporary};
  };
  const Forgery honest;
  const Forgery cases[] = {
      {"/fd/3", "/fd/3", honest.whole, honest.temporary},  // a way to whatever was opened
      {"/elsewhere.ovs", "/elsewhere.ovs", honest.whole, honest.temporary},
      {kDatabase, "/home/keys", honest.whole, honest.temporary},
      {kDatabase, "/p/other.txt", honest.whole, honest.temporary},
      {kDatabase, kDatabase, honest.whole, "/home/keys"},
      {kDatabase, kDatabase, honest.whole, "/p/CPump.cls.keys.tmp"},
      whole("/home/keys"),
      whole("/p/other.txt"),
      whole("/p/../home/keys.cls"),
      whole("/p/out/keys.cls"),
      whole("/p/link.cls"),
  };
  MemoryFileSystem plant;
  ProjectChange().Put(plant);
  plant.Put("/home/keys", "secret");
  plant.Put("/home/keys.cls", "secret");
  plant.CreateDirectories("/fd");
  plant.MakeLink(kDatabase, "/fd/3");
  plant.MakeLink("/home", "/p/out");
  plant.MakeLink("/home/keys", "/p/link.cls");
  for (const Forgery& forgery : cases) {
    SCOPED_TRACE(forgery.database + " " + forgery.ranged + " " + forgery.whole + " " +
                 forgery.temporary);
    Forge(plant, forgery);
    const Snapshot forged = plant.Snapshot();
    for (const auto& act : std::vector<std::function<void()>>{
             [&] { Recover(plant, kDatabase, modules); },
             [&] { Resolve(plant, kDatabase, RecoveryChoice::kBefore, modules); },
             [&] { Resolve(plant, kDatabase, RecoveryChoice::kAfter, modules); }}) {
      EXPECT_NE(KindRaised(act), std::nullopt);
      EXPECT_TRUE(plant.Snapshot() == forged);
    }
    EXPECT_FALSE(ExamineJournal(plant, kDatabase, modules).message.empty());
    Resolve(plant, kDatabase, RecoveryChoice::kDiscard, modules);
    plant.Remove(std::string(kJournal) + ".discarded");
  }
  Forge(plant, honest);
  EXPECT_EQ(KindRaised([&] { Recover(plant, kDatabase, modules); }), ErrorKind::kConflict);
  EXPECT_EQ(ExamineJournal(plant, kDatabase, modules).files.size(), 2u) << "believed, but asks";
}

// Nobody is led away from the journal's own place.
TEST(Recovery, RefusesAJournalThatIsNoFileOfItsOwn) {
  const ProjectChange change;
  for (const bool hard : {false, true}) {
    MemoryFileSystem medium;
    change.Put(medium);
    medium.Put("/home/keys", "");
    hard ? medium.AddName("/home/keys", kJournal) : medium.MakeLink("/home/keys", kJournal);
    const Snapshot planted = medium.Snapshot();
    const ErrorKind kind = hard ? ErrorKind::kManyNames : ErrorKind::kInTheWay;
    EXPECT_EQ(KindRaised([&] { change.Commit(medium); }), kind);
    EXPECT_EQ(KindRaised([&] { CheckReadable(medium, kDatabase); }), kind);
    EXPECT_TRUE(medium.Snapshot() == planted);
  }
}

}  // namespace
}  // namespace files
