// SPDX-License-Identifier: MIT
#include "files/journal_inspection.h"

#include <algorithm>
#include <optional>

#include "files/carried_append.h"
#include "files/hash.h"
#include "files/replace_file.h"

namespace files {
namespace journal {
namespace {

class Inspector {
 public:
  Inspector(FileSystem& system, const Reach& reach, Scope scope, Inspection& result)
      : system_(system), reach_(reach), scope_(scope), result_(result) {}

  // False when the record cannot stand where it stands, or names what it must not.
  bool Accept(const Record& record) {
    if (!NamesOwnFiles(record)) return false;
    if (skipping_) return true;
    if (const auto* file = std::get_if<RangedFileRecord>(&record)) return Begin(*file);
    if (const auto* range = std::get_if<RangeRecord>(&record)) return Compare(*range);
    if (const auto* file = std::get_if<WholeFileRecord>(&record)) return Begin(*file);
    if (const auto* kept = std::get_if<KeptRecord>(&record)) return Note(*kept);
    if (std::holds_alternative<ContentsRecord>(record)) return InWholeFile();
    return false;
  }

 private:
  // Whether the record, if it names a file, names one of the project's. Notes which it is not, and
  // whether it and what follows it is to be passed over.
  bool NamesOwnFiles(const Record& record) {
    if (const auto* ranged = std::get_if<RangedFileRecord>(&record)) {
      skipping_ = false;
      if (!IsDatabase(ranged->path)) NoteOutside(ranged->path);
    } else if (const auto* whole = std::get_if<WholeFileRecord>(&record)) {
      skipping_ = scope_ == Scope::kDatabase && !IsDatabase(whole->path);
      result_.passed_over = result_.passed_over || skipping_;
      if (skipping_) return true;
      if (!IsOwn(whole->path)) NoteOutside(whole->path);
      if (!IsTemporaryName(whole->temporary, whole->path)) NoteOutside(whole->temporary);
    }
    return result_.outside.empty();
  }

  void NoteOutside(const std::string& path) {
    result_.outside = path;
    result_.outside_folder = system_.Folder(path);
  }

  bool IsDatabase(const std::string& path) { return IsSamePath(system_, path, result_.database); }

  // A path that was not resolved, or has led elsewhere since, is not the one that was written.
  bool IsOwn(const std::string& path) {
    if (IsDatabase(path)) return true;
    const bool is_history = path == AppendedPath(system_, result_.database);
    if (!is_history && !(reach_ && reach_(path))) return false;
    return !system_.Exists(system_.Folder(path)) ||
           (!system_.IsLink(path) && ResolveTarget(system_, path) == path);
  }

  bool InRangedFile() const { return !result_.files.empty() && result_.files.back().ranged; }
  bool InWholeFile() const { return !result_.files.empty() && !result_.files.back().ranged; }

  bool Begin(const RangedFileRecord& record) {
    InspectedFile& file = result_.files.emplace_back();
    file.path = record.path;
    file.ranged = true;
    file.sizes = record;
    open_.reset();
    if (!system_.Exists(record.path)) {
      file.is_missing = true;
      file.is_before = file.is_after = false;
      return true;
    }
    open_ = system_.Open(record.path, OpenMode::kRead);
    file.size_now = open_->Size();
    file.is_before = file.size_now == record.size_before;
    file.is_after = file.size_now == record.size_after;
    const auto [least, most] = std::minmax(record.size_before, record.size_after);
    if (file.size_now < least || file.size_now > most) MarkEdited(file, least);
    return true;
  }

  bool Compare(const RangeRecord& range) {
    if (!InRangedFile()) return false;
    if (!open_) return true;
    const std::uint64_t length = std::max<std::uint64_t>(range.before.size(), range.size_after);
    current_.resize(length);
    current_.resize(open_->ReadAt(range.offset, current_));
    std::size_t index = 0;
    ForEachSector(range.offset, length, [&](std::uint64_t begin, std::uint64_t count) {
      CompareSector(range, begin - range.offset, count, index++);
    });
    return true;
  }

  void CompareSector(const RangeRecord& range, std::uint64_t from, std::uint64_t count,
                     std::size_t index) {
    const auto part = [&](std::span<const std::byte> bytes) {
      const std::size_t begin = std::min<std::size_t>(from, bytes.size());
      return bytes.subspan(begin, std::min<std::size_t>(count, bytes.size() - begin));
    };
    const auto equal = [](std::span<const std::byte> one, std::span<const std::byte> other) {
      return std::equal(one.begin(), one.end(), other.begin(), other.end());
    };
    const std::span<const std::byte> now = part(current_);
    const std::span<const std::byte> before = part(range.before);
    const std::uint64_t size_after = std::min<std::uint64_t>(
        count, range.size_after - std::min<std::uint64_t>(from, range.size_after));
    const bool is_before = equal(now, before);
    const bool is_after =
        now.size() == size_after && (size_after == 0 || Hash64(now) == range.hashes_after[index]);
    InspectedFile& file = result_.files.back();
    file.is_before = file.is_before && is_before;
    file.is_after = file.is_after && is_after;
    if (is_before || is_after) return;
    // A file that grows may have its new size already and not yet its new bytes.
    const bool is_growing = now.size() > before.size() && now.size() <= size_after &&
                            equal(now.first(before.size()), before) &&
                            std::all_of(now.begin() + static_cast<long>(before.size()), now.end(),
                                        [](std::byte byte) { return byte == std::byte{0}; });
    if (!is_growing) MarkEdited(file, range.offset + from);
  }

  static void MarkEdited(InspectedFile& file, std::uint64_t at) {
    if (file.edited_sectors++ == 0) file.first_edited = at;
    file.is_before = file.is_after = false;
  }

  bool Begin(const WholeFileRecord& record) {
    InspectedFile& file = result_.files.emplace_back();
    open_.reset();
    file.path = record.path;
    file.whole = record;
    file.now = Look(record.path, record);
    if (const std::optional<FileStamp> stamp = system_.Stamp(record.path)) {
      file.modified_ns = stamp->modified_ns;
    }
    file.temporary_now = Look(record.temporary, record);
    FindDisplaced(file);
    file.is_before = file.now == record.before;
    file.is_after = file.now == record.after;
    file.is_missing = !file.now.exists && !file.is_before && !file.is_after;
    return true;
  }

  // What comes out where a file is put in place is to be its contents before. Else it is
  // somebody's, and so is what is found on the way while the place is empty.
  void FindDisplaced(InspectedFile& file) {
    const WholeFileRecord& whole = file.whole;
    if (!whole.before.exists) return;
    const bool in_place = file.now == whole.after;
    const bool empty = !file.now.exists;
    for (const std::string& name : {whole.temporary, whole.temporary + kExchanging}) {
      const Version version = Look(name, whole);
      const bool displaced = in_place ? version != whole.before : empty && name != whole.temporary;
      if (!version.exists || !displaced) continue;
      file.displaced = name;
      file.now = version;
      if (in_place) file.temporary_now = whole.after;
      return;
    }
  }

  bool Note(const KeptRecord& kept) {
    if (!InWholeFile()) return false;
    InspectedFile& file = result_.files.back();
    file.has_kept_parts = true;
    const std::uint64_t size = file.whole.after.size;
    return kept.offset <= size && kept.length <= size - kept.offset &&
           kept.length <= file.whole.before.size;
  }

  // The version of a file as it is now. Contents of a size that is neither that before nor that
  // after need not be read: they are another version anyway.
  Version Look(const std::string& path, const WholeFileRecord& record) {
    const std::optional<FileStamp> stamp = system_.Stamp(path);
    if (!stamp || system_.IsDirectory(path)) return {};
    if (stamp->size != record.before.size && stamp->size != record.after.size) {
      return {true, stamp->size, 0};
    }
    const std::string contents = ReadFile(system_, path);
    return VersionOf(std::as_bytes(std::span(contents)));
  }

  FileSystem& system_;
  const Reach& reach_;
  Scope scope_;
  Inspection& result_;
  bool skipping_ = false;
  std::unique_ptr<RandomAccessFile> open_;
  std::vector<std::byte> current_;
};

// Whether the database was written since the journal was begun. A power cut may take the time of
// an earlier write back, but not forward.
bool WasWritten(FileSystem& system, const std::string& database, const Header& header) {
  const std::optional<FileStamp> stamp = system.Stamp(database);
  return stamp &&
         (stamp->size != header.database_size || stamp->modified_ns > header.database_modified_ns);
}

}  // namespace

JournalCondition Classify(const Inspection& inspection, bool database_written) {
  const std::vector<InspectedFile>& files = inspection.files;
  const auto all = [&files](auto test) { return std::all_of(files.begin(), files.end(), test); };
  const bool all_before = all([](const InspectedFile& file) { return file.is_before; });
  // No file is touched before the journal is whole on the medium; what was whole is damaged now.
  if (!inspection.readable_to_end && (!all_before || database_written)) {
    return JournalCondition::kDamaged;
  }
  if (all_before) return JournalCondition::kUntouched;
  if (all([](const InspectedFile& file) { return file.is_after; })) {
    return inspection.header.given_up ? JournalCondition::kInterrupted
                                      : JournalCondition::kComplete;
  }
  const bool known = all([](const InspectedFile& file) {
    return file.State() != FileState::kEdited && file.State() != FileState::kMissing;
  });
  return known ? JournalCondition::kInterrupted : JournalCondition::kConflict;
}

FileState InspectedFile::State() const {
  if (is_missing) return FileState::kMissing;
  if (is_before) return FileState::kBefore;
  if (is_after) return FileState::kAfter;
  return ranged && edited_sectors == 0 ? FileState::kPartly : FileState::kEdited;
}

bool InspectedFile::CanPutBack() const {
  if (is_before) return true;
  if (ranged) return !is_missing;
  return !has_kept_parts || is_after || temporary_now == whole.after;
}

Inspection Inspect(FileSystem& system, RandomAccessFile& journal, const std::string& database_path,
                   const Reach& reach, Scope scope) {
  Inspection result;
  const HeaderCondition condition = ReadHeader(journal, result.header);
  if (condition == HeaderCondition::kForeign || condition == HeaderCondition::kDamaged) {
    result.condition = JournalCondition::kDamaged;
    return result;
  }
  if (condition == HeaderCondition::kNone || !result.header.active) return result;

  Reader reader(journal, result.header);
  Record record;
  Reader::Result read = reader.Next(record);
  if (read == Reader::Result::kRecord) {
    const auto* database = std::get_if<DatabaseRecord>(&record);
    if (database == nullptr) {
      result.condition = JournalCondition::kDamaged;
      return result;
    }
    result.database = database->path;
    if (!IsSamePath(system, result.database, database_path)) {
      result.condition = JournalCondition::kElsewhere;
      return result;
    }
    Inspector inspector(system, reach, scope, result);
    while ((read = reader.Next(record)) == Reader::Result::kRecord) {
      if (!inspector.Accept(record)) {
        result.condition =
            result.outside.empty() ? JournalCondition::kDamaged : JournalCondition::kOutside;
        result.files.clear();
        return result;
      }
    }
  }
  result.readable_to_end = read == Reader::Result::kEnd;
  result.condition = Classify(result, WasWritten(system, database_path, result.header));
  return result;
}

}  // namespace journal
}  // namespace files
