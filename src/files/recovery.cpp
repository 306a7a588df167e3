// SPDX-License-Identifier: MIT
#include "files/recovery.h"

#include "files/journal_file.h"
#include "files/journal_inspection.h"
#include "files/journal_repair.h"
#include "files/recovery_plan.h"
#include "files/replace_file.h"

namespace files {
namespace {

// A journal at rest says nothing; it goes unless somebody uses it or it is protected.
void RemoveLeftOver(FileSystem& system, const std::string& path) {
  try {
    JournalFile journal(system, path);
    const JournalLock lock(journal, /*create=*/false);
  } catch (const Error&) {
    // Whoever may, removes it.
  }
}

void Discard(FileSystem& system, JournalFile& journal, const journal::Inspection& inspection) {
  journal::RemoveTemporaries(system, inspection);
  system.Rename(journal.path(), DiscardedName(journal.path()));
  system.SyncDirectory(system.Folder(journal.path()));
}

// Locks the journal, says what there is and calls `act` with it.
template <typename Act>
RecoveryPlan WithLockedJournal(FileSystem& system, const std::string& path,
                               const std::string& database, Act act) {
  JournalFile journal(system, path);
  const JournalLock lock(journal, /*create=*/false);
  if (!lock.held()) return MakePlan(system, path, database, {});
  const journal::Inspection inspection = journal::Inspect(system, journal.file(), database);
  RecoveryPlan plan = MakePlan(system, path, database, inspection);
  act(journal, inspection, plan);
  return plan;
}

// The same for the journal of a database, if there is one that is not at rest.
template <typename Act>
RecoveryPlan WithJournal(FileSystem& system, const std::string& database_path, Act act) {
  const std::string database = ResolveTarget(system, database_path);
  const std::string path = JournalPath(system, database_path);
  auto file = OpenIfExists(system, path, OpenMode::kRead);
  if (!file) return MakePlan(system, path, database, {});
  const bool at_rest = journal::IsAtRest(*file);
  file.reset();
  if (at_rest) {
    RemoveLeftOver(system, path);
    return MakePlan(system, path, database, {});
  }
  try {
    return WithLockedJournal(system, path, database, act);
  } catch (const Error& error) {
    const bool says_enough = error.kind() == ErrorKind::kLocked ||
                             error.kind() == ErrorKind::kConflict ||
                             error.kind() == ErrorKind::kDamaged;
    if (says_enough) throw;
    throw Error(error.kind(), error.path(),
                "An interrupted change of " + database + " cannot be put back: " + error.what());
  }
}

}  // namespace

RecoveryPlan ExamineJournal(FileSystem& system, const std::string& database_path) {
  const std::string database = ResolveTarget(system, database_path);
  const std::string path = JournalPath(system, database_path);
  const auto file = OpenIfExists(system, path, OpenMode::kRead);
  if (!file) return MakePlan(system, path, database, {});
  if (JournalFile::IsInUse(*file)) {
    Raise(ErrorKind::kLocked, database, "cannot be examined",
          "another program is changing the project or putting back an interrupted change");
  }
  return MakePlan(system, path, database, journal::Inspect(system, *file, database));
}

RecoveryPlan Recover(FileSystem& system, const std::string& database_path) {
  return WithJournal(
      system, database_path,
      [&](JournalFile& journal, const journal::Inspection& inspection, const RecoveryPlan&) {
        RecoverLocked(system, journal, database_path, inspection);
      });
}

void RecoverLocked(FileSystem& system, JournalFile& journal, const std::string& database,
                   const journal::Inspection& inspection) {
  CheckRecoverable(journal.path(), database, inspection);
  if (inspection.condition == JournalCondition::kComplete) {
    journal::Finish(system, journal, inspection);
  } else if (inspection.condition != JournalCondition::kNone) {
    journal::PutBack(system, journal, inspection);
  }
}

RecoveryPlan Resolve(FileSystem& system, const std::string& database_path, RecoveryChoice choice) {
  return WithJournal(
      system, database_path,
      [&](JournalFile& journal, const journal::Inspection& inspection, const RecoveryPlan& plan) {
        const RecoveryPlan::Way& way = choice == RecoveryChoice::kBefore  ? plan.before
                                       : choice == RecoveryChoice::kAfter ? plan.after
                                                                          : plan.discard;
        if (plan.condition != JournalCondition::kNone && !way.possible) {
          throw Error(ErrorKind::kConflict, journal.path(),
                      "This cannot be done: " + way.reason + " Choose another way.");
        }
        if (plan.condition == JournalCondition::kNone) return;
        switch (choice) {
          case RecoveryChoice::kBefore:
            return journal::PutBack(system, journal, inspection);
          case RecoveryChoice::kAfter:
            return journal::Finish(system, journal, inspection);
          case RecoveryChoice::kDiscard:
            return Discard(system, journal, inspection);
        }
      });
}

}  // namespace files
