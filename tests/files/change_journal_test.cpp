// SPDX-License-Identifier: MIT
#include "files/change_journal.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "files/recovery.h"
#include "files/replace_file.h"
#include "project_change.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/forgetting_file_system.h"

namespace files {
namespace {

constexpr const char* kDatabase = ProjectChange::kDatabase;

class ChangeJournalWithClass : public testing::TestWithParam<ProjectChange::Class> {};

INSTANTIATE_TEST_SUITE_P(All, ChangeJournalWithClass,
                         testing::Values(ProjectChange::Class::kSmall,
                                         ProjectChange::Class::kLarge),
                         [](const auto& test) {
                           return test.param == ProjectChange::Class::kSmall ? "Small" : "Large";
                         });

// Every n-th operation fails: once, from then on, or with everything behind it as if the program
// had been killed. The next start finds all as before or all as after.
TEST_P(ChangeJournalWithClass, IsBeforeOrAfterWhateverFails) {
  const ProjectChange change(GetParam());
  for (const Fault::Length length :
       {Fault::Length::kOnce, Fault::Length::kLasting, Fault::Length::kCrash}) {
    for (const bool short_writes : {false, true}) {
      int n = 1;
      for (;; ++n) {
        SCOPED_TRACE(testing::Message() << "operation " << n << ", length "
                                        << static_cast<int>(length) << ", short " << short_writes);
        MemoryFileSystem medium;
        change.Put(medium);
        FailingFileSystem system(medium);
        system.Arm({{}, n, length, ErrorKind::kIo, short_writes});
        enum { kDone, kUndone, kNotUndone } result = kDone;
        try {
          change.Commit(system);
        } catch (const NotUndoneError&) {
          result = kNotUndone;
        } catch (const Error&) {
          result = kUndone;
        }
        const bool fired = system.fired();
        EXPECT_TRUE(result != kNotUndone || length != Fault::Length::kOnce);
        const JournalCondition now = ExamineJournal(medium, kDatabase, kAnyFile).condition;
        EXPECT_EQ(KindRaised([&] { Recover(medium, kDatabase, kAnyFile); }), std::nullopt);
        const bool before = change.IsBefore(medium);
        const bool after = change.IsAfter(medium);
        EXPECT_TRUE(before || after) << change.Difference(medium);
        EXPECT_TRUE(result != kDone || after);
        EXPECT_TRUE(result != kUndone || before || length == Fault::Length::kCrash);
        if (!fired) {
          EXPECT_TRUE(after);
          EXPECT_EQ(now, JournalCondition::kNone) << "a journal was left behind";
          break;
        }
        if (HasFailure()) return;
      }
      EXPECT_GT(n, 20);
    }
  }
}

// A folder does not take its new names, then neither the old ones. What was told to have failed is
// not done at the next start.
TEST(ChangeJournal, IsNotDoneAfterAllWhenUndoingFails) {
  MemoryFileSystem medium;
  medium.Put(kDatabase, std::string(kPage, 'd'));
  medium.Put("/p/sub/a.cls", "old");
  FailingFileSystem system(medium);
  ChangeSet changes;
  changes.files.push_back({"/p/sub/a.cls", "old", "new"});
  {
    ChangeJournal journal(system, kDatabase, kAnyFile);
    system.Arm({{Operation::kSyncDirectory, Operation::kRename}, 3, Fault::Length::kLasting});
    EXPECT_THROW(journal.Commit(changes), NotUndoneError);
  }
  EXPECT_EQ(medium.Get("/p/sub/a.cls"), "new");
  system.Disarm();
  EXPECT_EQ(Recover(medium, kDatabase, kAnyFile).condition, JournalCondition::kInterrupted);
  EXPECT_EQ(medium.Get("/p/sub/a.cls"), "old");
}

// Each way to crash in the recovery of each way to crash.
TEST_P(ChangeJournalWithClass, RecoversFromACrashInRecovery) {
  const ProjectChange change(GetParam());
  int crashes = 0;
  for (int n = 1;; ++n) {
    MemoryFileSystem crashed;
    change.Put(crashed);
    FailingFileSystem first(crashed);
    first.Arm({{}, n, Fault::Length::kCrash, ErrorKind::kIo, n % 2 == 0});
    KindRaised([&] { change.Commit(first); });
    if (!first.fired()) break;
    for (int m = 1;; ++m) {
      SCOPED_TRACE(testing::Message() << "commit stops at " << n << ", recovery at " << m);
      MemoryFileSystem medium;
      Copy(crashed, medium);
      medium.CreateDirectories("/p/sub");
      FailingFileSystem second(medium);
      second.Arm({{}, m, Fault::Length::kCrash, ErrorKind::kIo, m % 2 == 0});
      KindRaised([&] { Recover(second, kDatabase, kAnyFile); });
      Recover(medium, kDatabase, kAnyFile);
      ASSERT_TRUE(change.IsBefore(medium) || change.IsAfter(medium)) << change.Difference(medium);
      if (!second.fired()) break;
      ++crashes;
    }
  }
  EXPECT_GT(crashes, 200);
}

// The power is cut at every operation, in the commit or in the recovery, and the medium keeps any
// part of what was not synced.
TEST_P(ChangeJournalWithClass, SurvivesPowerCuts) {
  const ProjectChange change(GetParam());
  std::mt19937 random(20260801);
  const auto check = [&change](MemoryFileSystem& medium, const std::string& place) {
    medium.CreateDirectories("/p/sub");
    SCOPED_TRACE(place);
    ASSERT_EQ(KindRaised([&] { Recover(medium, kDatabase, kAnyFile); }), std::nullopt)
        << ExamineJournal(medium, kDatabase, kAnyFile).message.English();
    ASSERT_TRUE(change.IsBefore(medium) || change.IsAfter(medium)) << change.Difference(medium);
  };
  constexpr int kCuts = 12;
  for (int n = 1;; ++n) {
    ForgettingFileSystem disk;
    change.Put(disk);
    FailingFileSystem system(disk);
    system.Arm({{}, n, Fault::Length::kCrash});
    const bool failed = KindRaised([&] { change.Commit(system); }).has_value();
    for (int cut = 0; cut < kCuts; ++cut) {
      const auto medium = disk.AfterPowerCut(random);
      check(*medium, "commit cut at " + std::to_string(n));
      EXPECT_TRUE(failed || change.IsAfter(*medium)) << "a finished commit was lost";
      if (HasFailure()) return;
    }
    if (!system.fired()) break;
    // The program was killed there, the next one recovers, and the power is cut under it.
    for (int m = 1; failed; m += 1 + static_cast<int>(random() % 3)) {
      ForgettingFileSystem again;
      change.Put(again);
      FailingFileSystem killed(again);
      killed.Arm({{}, n, Fault::Length::kCrash});
      KindRaised([&] { change.Commit(killed); });
      FailingFileSystem recovering(again);
      recovering.Arm({{}, m, Fault::Length::kCrash});
      KindRaised([&] { Recover(recovering, kDatabase, kAnyFile); });
      check(*again.AfterPowerCut(random),
            "commit stopped at " + std::to_string(n) + ", recovery cut at " + std::to_string(m));
      if (HasFailure()) return;
      if (!recovering.fired()) break;
    }
  }
}

// A second commit overwrites the journal of the first: no mixture of the two is ever believed.
TEST(ChangeJournal, SurvivesPowerCutsInLaterCommits) {
  std::mt19937 random(7);
  for (int n = 1;; ++n) {
    ForgettingFileSystem disk;
    disk.Put(kDatabase, std::string(4 * kPage, '0'));
    FailingFileSystem system(disk);
    int committed = 0;
    {
      const auto file = system.Open(kDatabase, OpenMode::kReadWrite);
      ChangeJournal journal(system, kDatabase, kAnyFile);
      const auto commit = [&](char fill, std::size_t pages) {
        std::map<std::uint64_t, std::string> after;
        for (std::size_t i = 0; i < pages; ++i) after[i * kPage] = std::string(kPage, fill);
        Commit(journal, *file, after, 4 * kPage);
        ++committed;
      };
      commit('1', 4);
      system.Arm({{}, n, Fault::Length::kCrash});
      KindRaised([&] {
        commit('2', 2);
        commit('3', 3);
      });
    }
    const std::string one(4 * kPage, '1');
    const std::string two = std::string(2 * kPage, '2') + std::string(2 * kPage, '1');
    const std::string three = std::string(3 * kPage, '3') + std::string(kPage, '1');
    const std::string states[] = {one, two, three};
    const auto check = [&] {
      for (int cut = 0; cut < 20; ++cut) {
        const auto medium = disk.AfterPowerCut(random);
        ASSERT_EQ(KindRaised([&] { Recover(*medium, kDatabase, kAnyFile); }), std::nullopt) << n;
        const std::string now = medium->Get(kDatabase);
        const auto* found = std::find(std::begin(states), std::end(states), now);
        ASSERT_NE(found, std::end(states)) << "operation " << n;
        EXPECT_GE(found - std::begin(states), committed - 1) << "a finished commit was lost";
      }
    };
    check();
    Recover(disk, kDatabase, kAnyFile);  // the program was killed there; the power is cut later
    check();
    if (HasFatalFailure()) return;
    if (!system.fired()) break;
  }
}

TEST(ReplaceFile, SurvivesFailuresAndPowerCuts) {
  std::mt19937 random(3);
  const std::string old_text(3000, 'o');
  const std::string new_text(5000, 'n');
  for (int n = 1;; ++n) {
    for (const Fault::Length length : {Fault::Length::kOnce, Fault::Length::kCrash}) {
      ForgettingFileSystem disk;
      disk.Put("/p/a", old_text);
      FailingFileSystem system(disk);
      system.Arm({{}, n, length, ErrorKind::kIo, true});
      const bool failed = KindRaised([&] { ReplaceFile(system, "/p/a", new_text); }).has_value();
      if (length == Fault::Length::kOnce) {
        EXPECT_EQ(disk.now().Snapshot().size(), 1u) << "a stray file at operation " << n;
      }
      for (int cut = 0; cut < 20; ++cut) {
        const std::string found = disk.AfterPowerCut(random)->Get("/p/a");
        EXPECT_TRUE(found == new_text || (failed && found == old_text)) << "operation " << n;
      }
      if (length == Fault::Length::kCrash && !system.fired()) return;
    }
  }
}

TEST(ChangeJournal, RefusesWhatSomebodyElseChanged) {
  const ProjectChange change;
  const std::map<std::string, std::function<void(MemoryFileSystem&)>> edits = {
      {"file edited", [](auto& s) { s.Put("/p/CPump.cls", "Public Sub Mine()\r\nEnd Sub\r\n"); }},
      {"file removed", [](auto& s) { s.Remove("/p/CPump.cls"); }},
      {"file created", [](auto& s) { s.Put("/p/sub/CNew.cls", ""); }},
      {"file to remove edited", [](auto& s) { s.Put("/p/sub/CGone.cls", std::string(2000, 'x')); }},
      {"database edited",
       [](auto& s) {
         s.Open(kDatabase, OpenMode::kReadWrite)->WriteAt(2 * kPage + 9, Bytes(std::string("x")));
       }},
      {"database grew",
       [](auto& s) {
         s.Open(kDatabase, OpenMode::kReadWrite)->WriteAt(3 * kPage, Bytes(std::string("x")));
       }},
  };
  for (const auto& [what, edit] : edits) {
    SCOPED_TRACE(what);
    MemoryFileSystem system;
    change.Put(system);
    const auto file = system.Open(kDatabase, OpenMode::kReadWrite);
    TextRanges ranges(*file, {{2 * kPage, std::string(kPage, 'n')}}, 3 * kPage);
    ChangeSet changes;
    changes.ranges.push_back(&ranges);
    changes.files.push_back({"/p/CPump.cls", change.before().at("/p/CPump.cls"), "x"});
    changes.files.push_back({"/p/sub/CGone.cls", std::string(2000, 'r'), std::nullopt});
    changes.files.push_back({"/p/sub/CNew.cls", std::nullopt, "created"});
    edit(system);
    const Snapshot edited = system.Snapshot();
    {
      ChangeJournal journal(system, kDatabase, kAnyFile);
      EXPECT_EQ(KindRaised([&] { journal.Commit(changes); }), ErrorKind::kConflict);
    }
    EXPECT_EQ(system.Snapshot(), edited);
  }

  MemoryFileSystem system;
  change.Put(system);
  const auto file = system.Open(kDatabase, OpenMode::kReadWrite);
  system.Put("/p/restored", change.before().at(kDatabase));
  system.Rename("/p/restored", kDatabase);
  ChangeJournal journal(system, kDatabase, kAnyFile);
  EXPECT_EQ(KindRaised([&] { change.Commit(*file, journal); }), ErrorKind::kConflict)
      << "another file has the database's name";
}

// Lets somebody else act while the database is being written.
class DisturbedRanges final : public RangeSource {
 public:
  DisturbedRanges(RangeSource& inner, std::function<void()> act)
      : inner_(inner), act_(std::move(act)) {}
  RandomAccessFile& File() override { return inner_.File(); }
  std::uint64_t SizeBefore() override { return inner_.SizeBefore(); }
  std::uint64_t SizeAfter() override { return inner_.SizeAfter(); }
  void ForEachRange(const std::function<void(const Range&)>& visit) override {
    inner_.ForEachRange(visit);
    if (++calls_ == 2) act_();
  }

 private:
  RangeSource& inner_;
  std::function<void()> act_;
  int calls_ = 0;
};

TEST(ChangeJournal, PutsBackItsOwnWorkAndKeepsWhatIsEditedDuringACommit) {
  const std::map<std::string, std::function<void(MemoryFileSystem&)>> edits = {
      {"edited", [](auto& s) { s.Put("/p/b.cls", "edited by hand"); }},
      {"removed", [](auto& s) { s.Remove("/p/b.cls"); }},
  };
  for (const auto& [what, edit] : edits) {
    SCOPED_TRACE(what);
    MemoryFileSystem system;
    system.Put(kDatabase, std::string(kPage, 'd'));
    for (const char* path : {"/p/a.cls", "/p/b.cls", "/p/c.cls"}) system.Put(path, "old");
    const auto file = system.Open(kDatabase, OpenMode::kReadWrite);
    TextRanges ranges(*file, {{0, "new"}}, kPage);
    DisturbedRanges disturbed(ranges, [&, &change = edit] { change(system); });
    ChangeSet changes;
    changes.ranges.push_back(&disturbed);
    for (const char* path : {"/p/a.cls", "/p/b.cls", "/p/c.cls"}) {
      changes.files.push_back({path, "old", "new"});
    }
    MemoryFileSystem untouched;
    Copy(system, untouched);
    edit(untouched);
    try {
      ChangeJournal(system, kDatabase, kAnyFile).Commit(changes);
      FAIL() << "written over an edited file";
    } catch (const NotUndoneError& error) {
      FAIL() << error.what();
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::kConflict);
    }
    EXPECT_EQ(system.Snapshot(), untouched.Snapshot());
  }
}

// An editor that saves after the last look at the file and before the new version takes its place.
TEST(ChangeJournal, LosesNoVersionThatIsSavedAtTheLastMoment) {
  struct Case {
    const char* what;
    std::vector<std::string> saves;  // one before each exchange
    Snapshot after;
  };
  const Case cases[] = {
      {"no save", {}, {{"/p/a.cls", "new"}}},
      {"a save", {"edited"}, {{"/p/a.cls", "edited"}}},
      {"a save while the first is given back",
       {"edited", "edited again"},
       {{"/p/a.cls", "edited again"}, {"/p/a.cls.edited", "edited"}}},
  };
  for (const bool in_place : {true, false}) {
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(c.what) + (in_place ? " in place" : " by rename"));
      MemoryFileSystem system;
      system.Put(kDatabase, "d");
      system.Put("/p/a.cls", "old");
      std::deque<std::function<void()>> saves;
      for (const std::string& text : c.saves) {
        saves.push_back([&] {
          system.Put(in_place ? "/p/a.cls" : "/p/editor", text);
          if (!in_place) system.Rename("/p/editor", "/p/a.cls");
        });
      }
      system.BeforeExchange(std::move(saves));
      ChangeSet changes;
      changes.files.push_back({"/p/a.cls", "old", "new"});
      const auto kind =
          KindRaised([&] { ChangeJournal(system, kDatabase, kAnyFile).Commit(changes); });
      EXPECT_EQ(kind, c.saves.empty() ? std::nullopt : std::optional(ErrorKind::kConflict));
      Snapshot expected = c.after;
      expected[kDatabase] = "d";
      EXPECT_EQ(system.Snapshot(), expected);
    }
  }
}

TEST(ChangeJournal, LosesNoVersionThatIsSavedAtTheLastMomentOfAProgram) {
  for (int step = 1, more = 1; more; ++step) {
    SCOPED_TRACE(step);
    MemoryFileSystem medium;
    medium.Put(kDatabase, "d");
    medium.Put("/p/a.cls", "old");
    FailingFileSystem system(medium);
    medium.BeforeExchange({[&] {
      medium.Put("/p/a.cls", "edited");
      system.Arm({.kinds = {}, .n = step, .length = Fault::Length::kCrash});
    }});
    ChangeSet changes;
    changes.files.push_back({"/p/a.cls", "old", "new"});
    EXPECT_NE(KindRaised([&] { ChangeJournal(system, kDatabase, kAnyFile).Commit(changes); }),
              std::nullopt);
    more = system.fired();
    for (const auto choice :
         {RecoveryChoice::kBefore, RecoveryChoice::kAfter, RecoveryChoice::kDiscard}) {
      MemoryFileSystem found;
      Copy(medium, found);
      if (KindRaised([&] { Recover(found, kDatabase, kAnyFile); })) {
        KindRaised([&] { Resolve(found, kDatabase, choice, kAnyFile); });  // not every way is open
      }
      const Snapshot files = found.Snapshot();
      EXPECT_TRUE(std::ranges::any_of(files, [](const auto& f) { return f.second == "edited"; }));
    }
  }
}

TEST(ChangeJournal, RefusesWhereItMayNotWrite) {
  const ProjectChange change;
  for (const char* path : {"/p", "/p/sub", "/p/CPump.cls", "/p/sub/CGone.cls"}) {
    SCOPED_TRACE(path);
    MemoryFileSystem system;
    change.Put(system);
    system.SetReadOnly(path, true);
    EXPECT_EQ(KindRaised([&] { change.Commit(system); }), ErrorKind::kReadOnly);
    EXPECT_TRUE(change.IsBefore(system)) << change.Difference(system);
  }
}

TEST(ChangeJournal, RefusesAFullMedium) {
  const ProjectChange change;
  MemoryFileSystem empty;
  change.Put(empty);
  std::uint64_t used = 0;
  for (const auto& [path, contents] : change.before()) used += contents.size();
  int full = 0;
  for (std::uint64_t room = 0;; room += 97) {
    SCOPED_TRACE(room);
    MemoryFileSystem system;
    change.Put(system);
    system.SetCapacity(used + room);
    const std::optional<ErrorKind> raised = KindRaised([&] { change.Commit(system); });
    if (!raised) {
      EXPECT_TRUE(change.IsAfter(system)) << change.Difference(system);
      break;
    }
    ASSERT_EQ(raised, ErrorKind::kFull);
    ASSERT_TRUE(change.IsBefore(system)) << change.Difference(system);
    ++full;
  }
  EXPECT_GT(full, 50);
}

TEST(ChangeJournal, NamesAFolderThatVanished) {
  const ProjectChange change;
  MemoryFileSystem system;
  change.Put(system);
  const auto file = system.Open(kDatabase, OpenMode::kReadWrite);
  ChangeJournal journal(system, kDatabase, kAnyFile);
  system.RemoveTree("/p");
  try {
    change.Commit(*file, journal);
    FAIL() << "committed into nowhere";
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::kNotFound);
    EXPECT_NE(std::string(error.what()).find("/p"), std::string::npos);
  }
}

TEST(ChangeJournal, ShrinksAFileAndPutsItBack) {
  for (int n = 1;; ++n) {
    MemoryFileSystem medium;
    const std::string before = std::string(1000, 'a') + std::string(70'000, 'b');
    const std::string after = "A" + std::string(1998, 'z');
    medium.Put(kDatabase, before);
    FailingFileSystem system(medium);
    const std::optional<ErrorKind> raised = KindRaised([&] {
      const auto file = system.Open(kDatabase, OpenMode::kReadWrite);
      ChangeJournal journal(system, kDatabase, kAnyFile);
      system.Arm({{}, n, Fault::Length::kCrash});
      Commit(journal, *file, {{0, after}}, after.size());
    });
    Recover(medium, kDatabase, kAnyFile);
    const Snapshot now = medium.Snapshot();
    EXPECT_TRUE(now == (Snapshot{{kDatabase, before}}) || now == (Snapshot{{kDatabase, after}}))
        << n;
    if (!system.fired()) {
      EXPECT_FALSE(raised);
      EXPECT_EQ(medium.Get(kDatabase), after);
      break;
    }
  }
}

// Syncs: at most four for one database, two more for each further file; bytes: at most twice the
// pages changed and one page more. Each page of which every sector changes costs 96 bytes of
// hashes and record besides, which shows from some 40 such pages on.
TEST(ChangeJournal, IsFrugal) {
  const ProjectChange change;
  const auto count_for_ever = [](std::set<Operation> kinds) {
    return Fault{std::move(kinds), 1'000'000'000};
  };
  MemoryFileSystem medium;
  medium.Put(kDatabase, std::string(100 * kPage, 'd'));
  for (const char* path : {"/a/1", "/b/2", "/c/3"}) medium.Put(path, "old");
  FailingFileSystem system(medium);
  const auto file = system.Open(kDatabase, OpenMode::kReadWrite);
  ChangeJournal journal(system, kDatabase, kAnyFile);
  char fill = 'e';
  const auto syncs = [&](std::size_t pages, const std::vector<std::string>& others) {
    system.Arm(count_for_ever({Operation::kSync, Operation::kSyncDirectory}));
    std::map<std::uint64_t, std::string> after;
    for (std::size_t i = 0; i < pages; ++i) after[i * kPage] = std::string(kPage, fill);
    ++fill;
    std::vector<FileChange> files;
    for (const std::string& path : others) files.push_back({path, medium.Get(path), "new"});
    Commit(journal, *file, after, 100 * kPage, std::move(files));
    return system.count();
  };
  EXPECT_EQ(syncs(1, {}), 4);
  EXPECT_LE(system.bytes_written(), 3 * kPage);
  EXPECT_EQ(syncs(1, {}), 3) << "the journal's name is known to be there";
  EXPECT_LE(syncs(1, {"/a/1", "/b/2", "/c/3"}), 3 + 2 * 3);
  const std::string code(100'000, 'c');
  medium.Put("/c/CPump.cls", code);
  system.Arm(count_for_ever({Operation::kSync, Operation::kSyncDirectory}));
  ChangeSet class_alone;
  class_alone.files.push_back({"/c/CPump.cls", code, "'new\r\n" + code, {{0, 6, code.size()}}});
  journal.Commit(class_alone);
  EXPECT_LE(system.bytes_written(), code.size() + 1000) << "what stays is written once";
  EXPECT_EQ(syncs(35, {}), 3);
  EXPECT_LE(system.bytes_written(), (2 * 35 + 1) * kPage);
  EXPECT_EQ(syncs(100, {}), 3);
  EXPECT_LE(system.bytes_written(), (2 * 100 + 1) * kPage + std::uint64_t{100} * 96);
}

TEST(ChangeJournal, TwoOfOneDatabaseTakeTurns) {
  MemoryFileSystem system;
  system.Put(kDatabase, std::string(2 * kPage, '0'));
  const auto file = system.Open(kDatabase, OpenMode::kReadWrite);
  auto one = std::make_unique<ChangeJournal>(system, kDatabase, kAnyFile);
  auto two = std::make_unique<ChangeJournal>(system, "/p/../p/plant.ovs", kAnyFile);
  const auto commit = [&](ChangeJournal& journal, const std::string& text) {
    Commit(journal, *file, {{kPage, text}}, 2 * kPage);
  };
  commit(*one, "1");
  commit(*two, "2");
  one.reset();
  EXPECT_TRUE(system.Exists("/p/plant.ovs.journal")) << "removed under the other";
  commit(*two, "3");
  one = std::make_unique<ChangeJournal>(system, kDatabase, kAnyFile);
  commit(*one, "4");
  system.Remove("/p/plant.ovs.journal");
  commit(*two, "5");
  EXPECT_TRUE(system.Exists("/p/plant.ovs.journal")) << "a journal without its name protects none";
  commit(*one, "6");
  one.reset();
  two.reset();
  EXPECT_EQ(system.Snapshot().size(), 1u);
  EXPECT_EQ(system.Get(kDatabase)[kPage], '6');
}

}  // namespace
}  // namespace files
