// SPDX-License-Identifier: MIT
#include "files/journal_repair.h"

#include <optional>
#include <set>
#include <string>

#include "files/file_identity.h"
#include "files/put_in_place.h"
#include "files/recovery_plan.h"
#include "files/replace_file.h"

namespace files::journal {
namespace {

void CopyFile(FileSystem& system, const std::string& from, const std::string& to) {
  const auto source = system.Open(from, OpenMode::kRead);
  const auto target = system.OpenLike(to, OpenMode::kCreateNew, from);
  std::vector<std::byte> buffer(std::size_t{1} << 18);
  std::uint64_t offset = 0;
  while (const std::size_t count = source->ReadAt(offset, buffer)) {
    target->WriteAt(offset, std::span(buffer).first(count));
    offset += count;
  }
  system.CopyAttributes(from, to);
  target->Sync();
}

// Keeps what somebody else made of a file before it is overwritten.
void PreserveEdited(FileSystem& system, const InspectedFile& file) {
  if (file.State() != FileState::kEdited) return;
  const std::string aside = AsideName(system, file.path);
  CopyFile(system, file.path, aside);
  system.SyncDirectory(system.Folder(aside));
}

// `from` takes the place of the version that was inspected, and of no other.
void MoveInPlace(FileSystem& system, const std::string& from, const InspectedFile& file) {
  const auto is_inspected = [&](const std::string& path) {
    const std::string contents = ReadFile(system, path);
    const Version found = VersionOf(std::as_bytes(std::span(contents)));
    return found.size == file.now.size && (file.now.hash == 0 || found.hash == file.now.hash);
  };
  const ChangeLock lock(system, file.path);
  if (PutInPlace(system, from, file.path, is_inspected)) return;
  Raise(ErrorKind::kConflict, file.path, message::kIsNotChanged, message::kChangedMeanwhile);
}

// A file that got another name since would become two when it is replaced. A temporary file may be
// the same one, where the program died between the two steps of a renaming.
void CheckOneName(FileSystem& system, const InspectedFile& file) {
  if (file.ranged || !system.Exists(file.path)) return;
  const std::optional<FileStamp> own = system.Stamp(file.path);
  const std::optional<FileStamp> temporary = system.Stamp(file.whole.temporary);
  if (own && temporary && own->identity == temporary->identity) return;
  files::CheckOneName(system, file.path, message::kCannotBePutBack);
}

// Where contents before are written that the file gets back.
std::string RestoredName(const WholeFileRecord& whole) { return whole.temporary + ".old"; }

// Brings files back to their state before, as the records of the journal come in.
class Restorer {
 public:
  Restorer(FileSystem& system, const Inspection& inspection)
      : system_(system), inspection_(inspection) {}

  void Apply(const Record& record) {
    if (const auto* range = std::get_if<RangeRecord>(&record)) {
      if (writer_) writer_->Write(range->offset, range->before);
    } else if (const auto* part = std::get_if<ContentsRecord>(&record)) {
      for (const std::byte byte : part->bytes) contents_ += static_cast<char>(byte);
    } else if (const auto* kept = std::get_if<KeptRecord>(&record)) {
      if (!file_->is_before) contents_.append(ContentsAfter(), kept->offset, kept->length);
    } else if (!std::holds_alternative<DatabaseRecord>(record)) {
      EndFile();
      BeginFile();
    }
  }

  void End() {
    EndFile();
    RemoveTemporaries(system_, inspection_);
    for (const std::string& folder : folders_) system_.SyncDirectory(folder);
  }

 private:
  void BeginFile() {
    file_ = &inspection_.files[next_++];
    contents_.clear();
    after_.reset();
    if (!file_->ranged) folders_.insert(system_.Folder(file_->path));
    if (file_->is_before) return;
    PreserveEdited(system_, *file_);
    if (file_->ranged) {
      open_ = system_.Open(file_->path, OpenMode::kReadWrite);
      writer_.emplace(*open_);
    }
  }

  void EndFile() {
    if (open_) {
      writer_->Flush();
      if (open_->Size() != file_->sizes.size_before) open_->Truncate(file_->sizes.size_before);
      open_->Sync();
      writer_.reset();
      open_.reset();
    } else if (file_ != nullptr && !file_->is_before) {
      RestoreWhole(file_->whole);
    }
    file_ = nullptr;
  }

  void RestoreWhole(const WholeFileRecord& whole) {
    if (!whole.before.exists) {
      system_.Remove(whole.path);
      return;
    }
    if (file_->temporary_now == whole.before) return Move(whole.temporary);
    if (VersionOf(std::as_bytes(std::span(contents_))) != whole.before) {
      Raise(ErrorKind::kDamaged, whole.path, message::kCannotBePutBack, message::kContentsMissing);
    }
    // The file that is replaced, and the new contents, may be needed once more.
    const std::string restored = RestoredName(whole);
    if (system_.Exists(restored)) system_.Remove(restored);
    WriteTemporary(system_, restored, whole.path, contents_, inspection_.database);
    Move(restored);
  }

  void Move(const std::string& from) {
    if (!file_->now.exists) return system_.RenameNew(from, file_->path);
    MoveInPlace(system_, from, *file_);
  }

  // The contents after the change of the file that is put back.
  const std::string& ContentsAfter() {
    const WholeFileRecord& whole = file_->whole;
    if (!after_) after_ = ReadFile(system_, file_->is_after ? whole.path : whole.temporary);
    return *after_;
  }

  FileSystem& system_;
  const Inspection& inspection_;
  std::size_t next_ = 0;
  const InspectedFile* file_ = nullptr;
  std::unique_ptr<RandomAccessFile> open_;
  std::optional<GatheringWriter> writer_;
  std::string contents_;
  std::optional<std::string> after_;
  std::set<std::string> folders_;
};

}  // namespace

void RemoveTemporaries(FileSystem& system, const Inspection& inspection) {
  for (const InspectedFile& file : inspection.files) {
    if (file.ranged) continue;
    const std::string& temporary = file.whole.temporary;
    for (const std::string& name : {temporary, temporary + kExchanging, RestoredName(file.whole)}) {
      if (system.Exists(name)) system.Remove(name);
    }
  }
}

void PutOthersBack(FileSystem& system, const Inspection& inspection) {
  for (const InspectedFile& file : inspection.files) {
    if (file.displaced.empty()) continue;
    if (!system.Exists(file.path)) {
      system.RenameNew(file.displaced, file.path);
    } else if (!system.Exchange(file.displaced, file.path)) {
      Raise(ErrorKind::kConflict, file.path, message::kIsNotChanged,
            {message::kOtherVersionIs, {{"<Name>", file.displaced}}});
    } else if (file.displaced != file.whole.temporary) {
      system.Rename(file.displaced, file.whole.temporary);
    }
  }
}

void PutBack(FileSystem& system, JournalFile& journal, const Inspection& inspection) {
  for (const InspectedFile& file : inspection.files) {
    if (!file.is_before) CheckOneName(system, file);
  }
  PutOthersBack(system, inspection);
  if (inspection.readable_to_end) {
    Restorer restorer(system, inspection);
    Reader reader(journal.file(), inspection.header);
    Record record;
    Reader::Result read;
    while ((read = reader.Next(record)) == Reader::Result::kRecord) restorer.Apply(record);
    if (read == Reader::Result::kDamaged) {
      Raise(ErrorKind::kDamaged, journal.path(), message::kCannotBeRead, message::kJournalChanged);
    }
    restorer.End();
  }
  journal.MarkPutBack();
}

bool CanFinish(const InspectedFile& file) {
  if (file.is_after) return true;
  return !file.ranged && (!file.whole.after.exists || file.temporary_now == file.whole.after);
}

void Finish(FileSystem& system, JournalFile& journal, const Inspection& inspection) {
  for (const InspectedFile& file : inspection.files) {
    if (!file.is_after) CheckOneName(system, file);
  }
  PutOthersBack(system, inspection);
  std::set<std::string> folders;
  for (const InspectedFile& file : inspection.files) {
    if (file.ranged) {
      system.Open(file.path, OpenMode::kReadWrite)->Sync();
      continue;
    }
    folders.insert(system.Folder(file.path));
    if (file.is_after) continue;
    PreserveEdited(system, file);
    if (!file.whole.after.exists) {
      system.Remove(file.path);
    } else if (file.now.exists) {
      MoveInPlace(system, file.whole.temporary, file);
    } else {
      system.RenameNew(file.whole.temporary, file.path);
    }
  }
  RemoveTemporaries(system, inspection);
  for (const std::string& folder : folders) system.SyncDirectory(folder);
  journal.MarkIdle();
}

void Repair(FileSystem& system, JournalFile& journal, const std::string& database,
            const Inspection& inspection) {
  CheckRecoverable(journal.path(), database, inspection);
  if (inspection.condition == JournalCondition::kComplete) {
    Finish(system, journal, inspection);
  } else if (inspection.condition != JournalCondition::kNone) {
    PutBack(system, journal, inspection);
  }
}

}  // namespace files::journal
