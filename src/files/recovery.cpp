// SPDX-License-Identifier: MIT
#include "files/recovery.h"

#include "files/journal_file.h"
#include "files/journal_inspection.h"
#include "files/journal_repair.h"
#include "files/recovery_plan.h"
#include "files/replace_file.h"

namespace files {
namespace {

// An idle journal says nothing; it goes unless somebody uses it or it is protected.
void RemoveLeftOver(FileSystem& system, const std::string& database) {
  try {
    JournalFile journal(system, database);
    const JournalLock lock(journal, /*create=*/false);
  } catch (const Error&) {
    // Whoever may, removes it.
  }
}

void Discard(FileSystem& system, JournalFile& journal, const journal::Inspection& inspection) {
  journal::PutOthersBack(system, inspection);
  journal::RemoveTemporaries(system, inspection);
  system.Rename(journal.path(), DiscardedName(journal.path()));
  system.SyncDirectory(system.Folder(journal.path()));
}

// Locks the journal, says what there is and calls `act` with it.
template <typename Act>
RecoveryPlan WithLockedJournal(FileSystem& system, const std::string& database, const Reach& reach,
                               Act act) {
  JournalFile journal(system, database);
  const JournalLock lock(journal, /*create=*/false);
  if (!lock.held()) return MakePlan(system, journal.path(), database, {});
  const journal::Inspection inspection = journal::Inspect(system, journal.file(), database, reach);
  RecoveryPlan plan = MakePlan(system, journal.path(), database, inspection);
  act(journal, inspection, plan);
  return plan;
}

// The same for the journal of a database, if there is one that is not idle.
template <typename Act>
RecoveryPlan WithJournal(FileSystem& system, const std::string& database_path, const Reach& reach,
                         Act act) {
  const std::string database = ResolveTarget(system, database_path);
  const std::string path = JournalPath(system, database_path);
  auto file = OpenIfExists(system, path, OpenMode::kRead);
  if (!file) return MakePlan(system, path, database, {});
  const bool is_idle = journal::IsIdle(*file);
  file.reset();
  if (is_idle) {
    RemoveLeftOver(system, database);
    return MakePlan(system, path, database, {});
  }
  try {
    return WithLockedJournal(system, database, reach, act);
  } catch (const Error& error) {
    const auto is = [&error](ErrorKind kind) { return error.kind() == kind; };
    if (is(ErrorKind::kLocked) || is(ErrorKind::kConflict) || is(ErrorKind::kDamaged) ||
        is(ErrorKind::kOutside)) {
      throw;
    }
    throw Error(
        error.kind(), error.path(),
        CausedBy({message::kChangeCannotBePutBack, {{"<Path>", database}}}, error.message()));
  }
}

// What the journal of the database at the resolved path says, nobody being at work with it.
journal::Inspection InspectUnused(FileSystem& system, const std::string& database,
                                  const Reach& reach, journal::Scope scope) {
  const auto file = OpenIfExists(system, JournalPath(system, database), OpenMode::kRead);
  if (!file) return {};
  if (JournalFile::IsInUse(*file)) {
    Raise(ErrorKind::kLocked, database, message::kCannotBeExamined, message::kProjectBusy);
  }
  return journal::Inspect(system, *file, database, reach, scope);
}

}  // namespace

RecoveryPlan ExamineJournal(FileSystem& system, const std::string& database_path,
                            const Reach& reach) {
  const std::string database = ResolveTarget(system, database_path);
  return MakePlan(system, JournalPath(system, database), database,
                  InspectUnused(system, database, reach, journal::Scope::kAllFiles));
}

void CheckReadable(FileSystem& system, const std::string& database_path) {
  const std::string database = ResolveTarget(system, database_path);
  const journal::Inspection inspection =
      InspectUnused(system, database, {}, journal::Scope::kDatabase);
  const std::string path = JournalPath(system, database);
  CheckRecoverable(path, database, inspection);
  const bool is_decided =
      inspection.condition == JournalCondition::kNone ||
      inspection.condition == JournalCondition::kUntouched ||
      (inspection.condition == JournalCondition::kComplete && !inspection.passed_over);
  if (is_decided) return;
  throw Error(ErrorKind::kConflict, path,
              Joined({message::kInterruptedInTheMiddle, {{"<Path>", database}}},
                     Joined(message::kReaderDoesNotPutBack, message::kChooseState)));
}

RecoveryPlan Recover(FileSystem& system, const std::string& database_path, const Reach& reach) {
  return WithJournal(
      system, database_path, reach,
      [&](JournalFile& journal, const journal::Inspection& inspection, const RecoveryPlan&) {
        journal::Repair(system, journal, database_path, inspection);
      });
}

RecoveryPlan Resolve(FileSystem& system, const std::string& database_path, RecoveryChoice choice,
                     const Reach& reach) {
  return WithJournal(
      system, database_path, reach,
      [&](JournalFile& journal, const journal::Inspection& inspection, const RecoveryPlan& plan) {
        const RecoveryPlan::Way& way = choice == RecoveryChoice::kBefore  ? plan.before
                                       : choice == RecoveryChoice::kAfter ? plan.after
                                                                          : plan.discard;
        if (plan.condition != JournalCondition::kNone && !way.possible) {
          throw Error(
              ErrorKind::kConflict, journal.path(),
              Joined(CausedBy(message::kCannotBeDone, way.reason), message::kChooseAnotherWay));
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
