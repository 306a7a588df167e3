// SPDX-License-Identifier: MIT
// Invariants of a commit. Recovery relies on them, and so does the undoing of a commit that fails.
//
//   1. Only the holder of the journal's lock writes the journal or a file of a change.
//   2. No file is touched before the journal is whole and synced, its name too, with the state
//      active. A journal that cannot be read to its end was never whole, so every file that it
//      names is as before, and the database was not written since; if that is not so, the journal
//      was damaged later and is not trusted.
//   3. What the journal calls "before" was compared with the files under the lock.
//   4. While the journal is active, every sector of a range is as before or as after (or zero,
//      where the file grows), and every whole file is the old one or the new one. Whole files
//      change by rename only, from temporary files that are synced and that the journal names.
//   5. The journal is marked idle, synced, only when all files are synced in one of the two
//      states. That mark decides: an idle journal is never looked into again.
//   6. No temporary file is left when the journal is idle.
//   7. The body of a journal is overwritten only while the mark that makes it idle is on the
//      medium, so that what is active is never mixed with what was.
//
// Syncs, in order: the journal (2), its folder when the journal is new (2), each file with ranges,
// each temporary file (4), each folder in which a name changed (5), the journal (5).
#include "files/change_journal.h"

#include <algorithm>
#include <cassert>
#include <exception>
#include <set>
#include <utility>

#include "files/carried_append.h"
#include "files/journal_inspection.h"
#include "files/journal_repair.h"
#include "files/put_in_place.h"
#include "files/random_number.h"
#include "files/recovery_plan.h"
#include "files/replace_file.h"

namespace files {
namespace {

// How far a commit is. It only moves on.
enum class Stage { kPreparing, kJournalWritten, kActive, kStaged, kWritten, kMoved };

struct WholeFile {
  const FileChange* change;
  journal::WholeFileRecord record;
  std::optional<FileStamp> stamp;  // when its contents were compared
  std::unique_ptr<ChangeLock> lock = nullptr;
};

class CommitRun {
 public:
  CommitRun(FileSystem& system, JournalFile& journal, const std::string& database,
            const Reach& reach, const ChangeSet& changes, std::uint64_t salt,
            const journal::Carried& carried, std::string_view appended)
      : system_(system),
        journal_(journal),
        database_(database),
        reach_(reach),
        changes_(changes),
        salt_(salt),
        carried_(carried),
        appended_(appended) {}

  void Run() {
    assert(journal_.locked());  // 1
    CheckOneName(system_, database_, message::kCannotBeWritten);
    CheckWholeFiles();
    WriteJournal();
    journal_.SyncName();
    Advance(Stage::kJournalWritten, Stage::kActive);
    StageFiles();
    WriteRanges();
    MoveFiles();
  }

  // Closes what a failure left open, so that it can be put back or removed.
  void Close() noexcept {
    staged_.clear();
    for (WholeFile& file : files_) file.lock.reset();
  }

  // Whether a file may have been changed.
  bool touched() const { return stage_ >= Stage::kActive; }
  // Whether a write to a range failed, which may have left any bytes there.
  bool tore_ranges() const { return stage_ == Stage::kStaged; }
  // Whether the name of a whole file may have been changed.
  bool moved(const std::string& path) const { return moved_.contains(path); }

  // All files are in their state after: notes the end.
  void MarkIdle() {
    assert(stage_ == Stage::kMoved);  // 5
    journal_.MarkIdle();
  }

 private:
  void Advance(Stage from, Stage to) {
    assert(stage_ == from);
    static_cast<void>(from);
    stage_ = to;
  }

  [[noreturn]] static void RaiseConflict(const std::string& path, const messages::Pattern& cause) {
    Raise(ErrorKind::kConflict, path, message::kIsNotChanged, cause);
  }

  // Recovery would not believe the journal.
  [[noreturn]] static void RaiseOutside(const std::string& path) {
    Raise(ErrorKind::kOutside, path, message::kIsNotChanged, message::kNoFileOfProject);
  }

  void CheckWholeFiles() {
    std::set<std::string> seen;
    for (const FileChange& change : changes_.files) {
      WholeFile file{&change, {}, {}};
      file.record.path = ResolveTarget(system_, change.path);
      if (!seen.insert(file.record.path).second) {
        RaiseConflict(change.path, message::kChangedTwice);
      }
      if (change.before != change.after) Claim(file);
      file.stamp = system_.Stamp(file.record.path);
      CheckBefore(change, file);
      if (change.before == change.after) continue;
      file.record.before = ToVersion(change.before);
      file.record.after = ToVersion(change.after);
      file.record.temporary = TemporaryName(system_, file.record.path);
      files_.push_back(std::move(file));
    }
  }

  // Sees to it that the file may be written, and that no other program of ours does.
  void Claim(WholeFile& file) {
    const std::string& path = file.record.path;
    if (path != database_ && !(reach_ && reach_(path))) RaiseOutside(path);
    CheckOneName(system_, path, message::kCannotBeWritten);
    if (!system_.Exists(path)) return;
    if (!system_.IsWritable(path)) {
      Raise(ErrorKind::kReadOnly, file.change->path, message::kCannotBeWritten,
            message::kWriteProtected);
    }
    file.lock = std::make_unique<ChangeLock>(system_, path);
  }

  void CheckBefore(const FileChange& change, const WholeFile& file) {
    if (change.before.has_value() != file.stamp.has_value()) {
      RaiseConflict(change.path,
                    file.stamp ? message::kCreatedMeanwhile : message::kRemovedMeanwhile);
    }
    if (change.before && (file.stamp->size != change.before->size() ||
                          !HoldsBytes(system_, file.record.path, *change.before))) {
      RaiseConflict(change.path, message::kChangedMeanwhile);
    }
  }

  static journal::Version ToVersion(const Contents& contents) {
    if (!contents) return {};
    return {true, contents->size(), contents.Hash()};
  }

  void WriteJournal() {
    journal::Writer writer(journal_.file(), salt_, system_.Stamp(database_).value_or(FileStamp()),
                           carried_, appended_);
    writer.AddDatabase(database_);
    for (RangeSource* source : changes_.ranges) AddRanges(*source, writer);
    for (const WholeFile& file : files_) {
      writer.AddWholeFile(file.record, *file.change);
    }
    writer.Finish();
    journal_.file().Sync();
    Advance(Stage::kPreparing, Stage::kJournalWritten);
  }

  void AddRanges(RangeSource& source, journal::Writer& writer) {
    RandomAccessFile& file = source.File();
    const std::string path = system_.Canonical(file.path());
    if (!IsSamePath(system_, path, database_)) RaiseOutside(path);
    if (file.read_only()) {
      Raise(ErrorKind::kReadOnly, path, message::kCannotBeWritten, message::kOpenForReadingOnly);
    }
    const FileStamp stamp = file.Stamp();
    const std::optional<FileStamp> named = system_.Stamp(path);
    if (!named || named->identity != stamp.identity) {
      RaiseConflict(path, message::kReplacedMeanwhile);
    }
    if (stamp.size != source.SizeBefore()) {
      RaiseConflict(path, message::kResizedMeanwhile);
    }
    writer.AddRangedFile({path, source.SizeBefore(), source.SizeAfter()});
    std::vector<std::byte> now;
    source.ForEachRange([&](const RangeSource::Range& range) {
      assert(range.offset + range.after.size() <= source.SizeAfter());
      now.resize(range.after.size());
      now.resize(file.ReadAt(range.offset, now));
      if (!std::equal(now.begin(), now.end(), range.before.begin(), range.before.end())) {  // 3
        RaiseConflict(path, message::kChangedMeanwhile);
      }
      writer.AddRange(range.offset, range.before, range.after);
    });
    AddCutTail(source, writer);
  }

  // What a file that shrinks loses.
  static void AddCutTail(RangeSource& source, journal::Writer& writer) {
    std::vector<std::byte> tail(journal::kMaxRange);
    for (std::uint64_t offset = source.SizeAfter(); offset < source.SizeBefore();) {
      const std::uint64_t wanted =
          std::min<std::uint64_t>(tail.size(), source.SizeBefore() - offset);
      const std::size_t count = source.File().ReadAt(offset, std::span(tail).first(wanted));
      if (count == 0) RaiseConflict(source.File().path(), message::kCutMeanwhile);
      writer.AddRange(offset, std::span(tail).first(count), {});
      offset += count;
    }
  }

  void StageFiles() {
    for (const WholeFile& file : files_) {
      if (file.change->after) {
        staged_.emplace_back(system_, file.record.temporary, file.record.path, *file.change->after,
                             database_);
      }
    }
    Advance(Stage::kActive, Stage::kStaged);
  }

  void WriteRanges() {
    for (RangeSource* source : changes_.ranges) {
      journal::GatheringWriter writer(source->File());
      source->ForEachRange(
          [&](const RangeSource::Range& range) { writer.Write(range.offset, range.after); });
      writer.Flush();
      const std::uint64_t size = source->File().Size();
      if (size != source->SizeAfter()) source->File().Truncate(source->SizeAfter());
      source->File().Sync();
    }
    // Their way to the medium began before that of the ranges.
    for (TemporaryFile& file : staged_) file.Sync();
    Advance(Stage::kStaged, Stage::kWritten);
  }

  void MoveFiles() {
    for (WholeFile& file : files_) Move(file);
    std::set<std::string> folders;
    for (WholeFile& file : files_) {
      RemoveReplaced(file);
      folders.insert(system_.Folder(file.record.path));
    }
    for (const std::string& folder : folders) system_.SyncDirectory(folder);
    Advance(Stage::kWritten, Stage::kMoved);
  }

  void Move(WholeFile& file) {
    const journal::WholeFileRecord& record = file.record;
    if (system_.Stamp(record.path) != file.stamp) RaiseMoved(file);
    moved_.insert(record.path);
    if (!file.change->before) {
      MoveNew(file);
    } else if (file.change->after) {
      if (!PutInPlace(system_, record.temporary, record.path, HoldsBefore(file))) RaiseMoved(file);
      LockAgain(file);
    } else {
      // Moved aside first: a failure later on brings it back with all its attributes.
      system_.Rename(record.path, record.temporary);
      if (!HoldsBefore(file)(record.temporary)) PutBack(file);
    }
  }

  // A version that somebody else made is in its place.
  [[noreturn]] void RaiseMoved(const WholeFile& file) {
    moved_.erase(file.record.path);
    RaiseConflict(file.record.path,
                  file.change->before ? message::kChangedMeanwhile : message::kCreatedMeanwhile);
  }

  IsExpected HoldsBefore(const WholeFile& file) {
    return [&](const std::string& path) { return HoldsBytes(system_, path, *file.change->before); };
  }

  void MoveNew(const WholeFile& file) {
    try {
      system_.RenameNew(file.record.temporary, file.record.path);
    } catch (const Error& error) {
      if (error.kind() == ErrorKind::kExists) RaiseMoved(file);
      throw;
    }
  }

  // The lock of the file that was replaced is of no more use.
  void LockAgain(WholeFile& file) {
    try {
      file.lock = std::make_unique<ChangeLock>(system_, file.record.path);
    } catch (const Error&) {
      // Whoever was faster finds a conflict if this commit is put back yet.
    }
  }

  // Removes what was replaced, unless somebody who had it open has written it since.
  void RemoveReplaced(WholeFile& file) {
    if (!file.change->before || !system_.Exists(file.record.temporary)) return;
    if (system_.Stamp(file.record.temporary) != file.stamp) PutBack(file);
    system_.Remove(file.record.temporary);  // 6
  }

  [[noreturn]] void PutBack(WholeFile& file) {
    if (file.change->after) {
      system_.Exchange(file.record.temporary, file.record.path);
    } else {
      system_.RenameNew(file.record.temporary, file.record.path);
    }
    RaiseMoved(file);
  }

  FileSystem& system_;
  JournalFile& journal_;
  const std::string& database_;
  const Reach& reach_;
  const ChangeSet& changes_;
  std::uint64_t salt_;
  journal::Carried carried_;
  std::string_view appended_;
  std::vector<WholeFile> files_;
  std::vector<TemporaryFile> staged_;
  std::set<std::string> moved_;
  Stage stage_ = Stage::kPreparing;
};

messages::Message MessageOf(const std::exception_ptr& cause) {
  try {
    std::rethrow_exception(cause);
  } catch (const std::exception& error) {
    return messages::MessageOf(error);
  } catch (...) {
    return message::kChangeFailed;
  }
}

// Puts back what a run did. Files that it had not come to yet stay as they are: they are as before,
// or somebody else edited them just now.
void Undo(FileSystem& system, JournalFile& journal, const std::string& database, const Reach& reach,
          const CommitRun& run) {
  journal::Inspection inspection = journal::Inspect(system, journal.file(), database, reach);
  for (journal::InspectedFile& file : inspection.files) {
    if (file.ranged) {
      const auto [least, most] = std::minmax(file.sizes.size_before, file.sizes.size_after);
      const bool has_our_size = file.size_now >= least && file.size_now <= most;
      if (run.tore_ranges() && has_our_size) file.edited_sectors = 0;
      continue;
    }
    if (run.moved(file.path)) continue;
    file.is_before = true;
    file.is_missing = false;
  }
  inspection.condition = journal::Classify(inspection, /*database_written=*/true);
  CheckRecoverable(journal.path(), database, inspection);
  journal::PutBack(system, journal, inspection);
}

// What was told to have failed is not found done at the next start, should putting it back fail.
void Abandon(JournalFile& journal) {
  try {
    journal.Abandon();
  } catch (const Error&) {
    // A medium that takes nothing any more: what is there stays, and the failure says so.
  }
}

// Undoes a run that failed, for the cause that is being handled, and raises that.
[[noreturn]] void UndoAndRaise(FileSystem& system, JournalFile& journal,
                               const std::string& database, const Reach& reach,
                               const CommitRun& run) {
  const std::exception_ptr cause = std::current_exception();
  try {
    if (run.touched()) {
      Abandon(journal);
      Undo(system, journal, database, reach, run);
    } else {
      journal.MarkPutBack();
    }
  } catch (const Error& error) {
    if (run.touched()) {
      const messages::Message left =
          Joined(CausedBy(message::kCouldNotPutBack, error.message()), message::kNextStartRecovers);
      throw NotUndoneError(error.kind(), error.path(), Joined(MessageOf(cause), left));
    }
  }
  std::rethrow_exception(cause);
}

}  // namespace

ChangeJournal::ChangeJournal(FileSystem& system, std::string database_path, Reach reach)
    : system_(system), database_path_(std::move(database_path)), reach_(std::move(reach)) {}

void ChangeJournal::Commit(const ChangeSet& changes) {
  if (changes.empty()) return;
  const std::string database = ResolveTarget(system_, database_path_);
  if (!journal_) journal_ = std::make_unique<JournalFile>(system_, database);
  const JournalLock lock(*journal_, /*create=*/true);
  const journal::Inspection left = journal::Inspect(system_, journal_->file(), database, reach_);
  journal::Repair(system_, *journal_, database, left);
  const bool was_begun = left.condition == JournalCondition::kInterrupted ||
                         left.condition == JournalCondition::kComplete;
  if (was_begun && left.header.salt != last_salt_) {
    Raise(ErrorKind::kConflict, database, message::kIsNotChanged, message::kOtherChangeRecovered);
  }
  CarriedAppend carrier(system_, database, journal_->file());
  const FileAppend* append = changes.append ? &*changes.append : nullptr;
  const bool settled = std::exchange(appended_, false) && left.header.salt == last_salt_;
  journal::Carried carried;
  try {
    carried = carrier.Next(append, settled);
  } catch (const std::exception& error) {
    if (append) append->on_failure(error);
    append = nullptr;
    carried = carrier.Next(nullptr, false);
  }
  last_salt_ = RandomNumber();
  CommitRun run(system_, *journal_, database, reach_, changes, last_salt_, carried, carrier.kept());
  try {
    run.Run();
  } catch (...) {
    run.Close();
    UndoAndRaise(system_, *journal_, database, reach_, run);
  }
  try {
    run.MarkIdle();
  } catch (const Error&) {
    // Everything is on the medium; the next commit or start finds that and notes it.
  }
  if (!append) return;
  try {
    carrier.Write();
    appended_ = true;
  } catch (const Error& error) {
    append->on_failure(error);
  }
}

}  // namespace files
