// SPDX-License-Identifier: MIT
#include "files/journal_repair.h"

#include <set>

#include "files/replace_file.h"

namespace files::journal {
namespace {

void CopyFile(FileSystem& system, const std::string& from, const std::string& to) {
  const auto source = system.Open(from, OpenMode::kRead);
  const auto target = system.Open(to, OpenMode::kCreateNew);
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
void KeepAside(FileSystem& system, const InspectedFile& file) {
  if (file.State() != FileState::kEdited) return;
  const std::string aside = AsideName(system, file.path);
  CopyFile(system, file.path, aside);
  system.SyncDirectory(system.Folder(aside));
}

// Brings files back to their state before, as the records of the journal come in.
class Restorer {
 public:
  Restorer(FileSystem& system, const Inspection& inspection)
      : system_(system), inspection_(inspection) {}

  void Take(const Record& record) {
    if (const auto* range = std::get_if<RangeRecord>(&record)) {
      if (writer_) writer_->Write(range->offset, range->before);
    } else if (const auto* part = std::get_if<ContentsRecord>(&record)) {
      for (const std::byte byte : part->bytes) contents_ += static_cast<char>(byte);
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
    if (!file_->ranged) folders_.insert(system_.Folder(file_->path));
    if (file_->is_before) return;
    KeepAside(system_, *file_);
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
    if (file_->temporary_now != whole.before) {
      if (VersionOf(std::as_bytes(std::span(contents_))) != whole.before) {
        Raise(ErrorKind::kDamaged, whole.path, "cannot be put back",
              "the journal does not hold its contents");
      }
      if (file_->temporary_now.exists) system_.Remove(whole.temporary);
      WriteTemporary(system_, whole.temporary, whole.path, contents_);
    }
    system_.Rename(whole.temporary, whole.path);
  }

  FileSystem& system_;
  const Inspection& inspection_;
  std::size_t next_ = 0;
  const InspectedFile* file_ = nullptr;
  std::unique_ptr<RandomAccessFile> open_;
  std::optional<GatheringWriter> writer_;
  std::string contents_;
  std::set<std::string> folders_;
};

}  // namespace

std::string AsideName(FileSystem& system, const std::string& path) {
  std::string name = path + ".edited";
  for (int number = 2; system.Exists(name); ++number) {
    name = path + ".edited-" + std::to_string(number);
  }
  return name;
}

void RemoveTemporaries(FileSystem& system, const Inspection& inspection) {
  for (const InspectedFile& file : inspection.files) {
    if (!file.ranged && system.Exists(file.whole.temporary)) system.Remove(file.whole.temporary);
  }
}

void PutBack(FileSystem& system, JournalFile& journal, const Inspection& inspection) {
  if (inspection.readable_to_end) {
    Restorer restorer(system, inspection);
    Reader reader(journal.file(), inspection.header);
    Record record;
    Reader::Result read;
    while ((read = reader.Next(record)) == Reader::Result::kRecord) restorer.Take(record);
    if (read == Reader::Result::kDamaged) {
      Raise(ErrorKind::kDamaged, journal.path(), "cannot be read", "it changed meanwhile");
    }
    restorer.End();
  }
  journal.PutToRest();
}

bool CanFinish(const InspectedFile& file) {
  if (file.is_after) return true;
  return !file.ranged && (!file.whole.after.exists || file.temporary_now == file.whole.after);
}

void Finish(FileSystem& system, JournalFile& journal, const Inspection& inspection) {
  std::set<std::string> folders;
  for (const InspectedFile& file : inspection.files) {
    if (file.ranged) {
      system.Open(file.path, OpenMode::kReadWrite)->Sync();
      continue;
    }
    folders.insert(system.Folder(file.path));
    if (file.is_after) continue;
    KeepAside(system, file);
    if (file.whole.after.exists) {
      system.Rename(file.whole.temporary, file.path);
    } else {
      system.Remove(file.path);
    }
  }
  RemoveTemporaries(system, inspection);
  for (const std::string& folder : folders) system.SyncDirectory(folder);
  journal.PutToRest();
}

}  // namespace files::journal
