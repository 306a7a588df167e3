// SPDX-License-Identifier: MIT
#include "files/journal_format.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <string_view>

#include "files/hash.h"

namespace files::journal {
namespace {

constexpr std::string_view kMagic = "CHGJRNL1";
constexpr std::string_view kActive = "ACTIVE>>";
constexpr std::string_view kGivenUp = "UNDOING>";
constexpr std::size_t kStateAt = 8;
constexpr std::size_t kChecksumAt = 56;
constexpr std::size_t kCarriedAt = 64;
constexpr std::size_t kCarriedChecksumAt = 120;
constexpr std::size_t kRecordHeader = 16;
constexpr std::size_t kGathered = std::size_t{1} << 18;
constexpr std::uint64_t kFarthest = std::uint64_t{1} << 62;  // sums of two stay in range
constexpr std::uint64_t kExisted = 1;
constexpr std::uint64_t kWillExist = 2;
// Smaller parts are copied: the journal alone can then put them back, whatever became of the file.
constexpr std::uint64_t kMinKept = std::uint64_t{1} << 16;

enum Kind : std::uint32_t {
  kDatabase = 1,
  kRangedFile = 2,
  kRange = 3,
  kWholeFile = 4,
  kContents = 5,
  kKept = 6,
};

template <typename Number>
void PutAt(std::span<std::byte> bytes, std::size_t at, Number number) {
  for (std::size_t i = 0; i < sizeof number; ++i) {
    bytes[at + i] = static_cast<std::byte>(number >> (8 * i));
  }
}

void Append(std::span<const std::byte> bytes, std::vector<std::byte>& to) {
  const std::size_t at = to.size();
  to.resize(at + bytes.size());
  if (!bytes.empty()) std::memcpy(to.data() + at, bytes.data(), bytes.size());
}

// Takes numbers and bytes from a payload; `ok` is false once more was asked for than there is.
class Cursor {
 public:
  explicit Cursor(std::span<const std::byte> bytes) : bytes_(bytes) {}

  template <typename Number>
  Number Take() {
    Number number = 0;
    const std::span<const std::byte> taken = Take(sizeof(Number));
    for (std::size_t i = 0; i < taken.size(); ++i) {
      number |= static_cast<Number>(std::to_integer<Number>(taken[i]) << (8 * i));
    }
    return number;
  }

  std::span<const std::byte> Take(std::size_t count) {
    if (count > bytes_.size()) {
      ok_ = false;
      count = 0;
    }
    const std::span<const std::byte> taken = bytes_.first(count);
    bytes_ = bytes_.subspan(count);
    return taken;
  }

  std::string TakeText(std::size_t count) {
    std::string text;
    for (const std::byte byte : Take(count)) text += static_cast<char>(byte);
    return text;
  }

  std::size_t left() const { return bytes_.size(); }
  bool ok() const { return ok_; }

 private:
  std::span<const std::byte> bytes_;
  bool ok_ = true;
};

std::uint64_t RecordChecksum(std::span<const std::byte> header, std::span<const std::byte> payload,
                             std::uint64_t seed) {
  return Hash64(payload, Hash64(header.first(8), seed));
}

std::uint64_t SectorsTouched(std::uint64_t offset, std::uint64_t length) {
  return length == 0 ? 0 : (offset + length - 1) / kSector - offset / kSector + 1;
}

bool DecodeRange(Cursor& in, RangeRecord& range) {
  range.offset = in.Take<std::uint64_t>();
  const auto size_before = in.Take<std::uint32_t>();
  range.size_after = in.Take<std::uint32_t>();
  if (range.offset > kFarthest || size_before > kMaxRange || range.size_after > kMaxRange) {
    return false;
  }
  range.before = in.Take(size_before);
  range.hashes_after.clear();
  for (std::uint64_t i = SectorsTouched(range.offset, range.size_after); i > 0 && in.ok(); --i) {
    range.hashes_after.push_back(in.Take<std::uint64_t>());
  }
  return true;
}

void DecodeWholeFile(Cursor& in, WholeFileRecord& file) {
  const auto flags = in.Take<std::uint64_t>();
  file.before.exists = (flags & kExisted) != 0;
  file.before.size = in.Take<std::uint64_t>();
  file.before.hash = in.Take<std::uint64_t>();
  file.after.exists = (flags & kWillExist) != 0;
  file.after.size = in.Take<std::uint64_t>();
  file.after.hash = in.Take<std::uint64_t>();
  const auto path_length = in.Take<std::uint32_t>();
  file.path = in.TakeText(path_length);
  file.temporary = in.TakeText(in.left());
}

bool Decode(std::uint32_t kind, std::span<const std::byte> payload, Record& record) {
  Cursor in(payload);
  switch (kind) {
    case kDatabase:
      record = DatabaseRecord{in.TakeText(in.left())};
      break;
    case kRangedFile: {
      RangedFileRecord& file = record.emplace<RangedFileRecord>();
      file.size_before = in.Take<std::uint64_t>();
      file.size_after = in.Take<std::uint64_t>();
      file.path = in.TakeText(in.left());
      break;
    }
    case kRange:
      if (!DecodeRange(in, record.emplace<RangeRecord>())) return false;
      break;
    case kWholeFile:
      DecodeWholeFile(in, record.emplace<WholeFileRecord>());
      break;
    case kContents:
      record = ContentsRecord{in.Take(in.left())};
      break;
    case kKept:
      record = KeptRecord{in.Take<std::uint64_t>(), in.Take<std::uint64_t>()};
      break;
    default:
      return false;
  }
  return in.ok() && in.left() == 0;
}

// Whether the range is large and stands in both contents.
bool IsKept(const KeptRange& kept, const FileChange& change) {
  const auto part = [&](const Contents& contents, std::uint64_t offset) {
    const bool inside =
        contents && offset <= contents->size() && kept.length <= contents->size() - offset;
    return inside ? std::string_view(*contents).substr(offset, kept.length) : std::string_view();
  };
  const std::string_view before = part(change.before, kept.before);
  return before.size() >= kMinKept && before == part(change.after, kept.after);
}

}  // namespace

namespace {

std::uint64_t CarriedChecksum(std::span<const std::byte> header) {
  return Hash64(header.subspan(kCarriedAt, kCarriedChecksumAt - kCarriedAt));
}

void EncodeCarried(const Carried& carried, std::span<std::byte> header) {
  if (carried.room == 0) return;
  std::size_t at = kCarriedAt;
  for (const std::uint64_t number :
       {carried.room, carried.offset, carried.size_before, carried.size_after, carried.hash_before,
        carried.hash_after, carried.head}) {
    PutAt(header, at, number);
    at += sizeof number;
  }
  PutAt(header, kCarriedChecksumAt, CarriedChecksum(header));
}

// False for damage.
bool DecodeCarried(std::span<const std::byte> header, Carried& carried) {
  Cursor in(header.subspan(kCarriedAt));
  for (std::uint64_t* number :
       {&carried.room, &carried.offset, &carried.size_before, &carried.size_after,
        &carried.hash_before, &carried.hash_after, &carried.head}) {
    *number = in.Take<std::uint64_t>();
  }
  const auto checksum = in.Take<std::uint64_t>();
  if (carried.room == 0) return checksum == 0;
  return checksum == CarriedChecksum(header) && carried.room <= kFarthest &&
         carried.offset <= kFarthest && carried.size_before <= carried.size_after &&
         carried.size_after <= carried.room;
}

}  // namespace

std::array<std::byte, kHeaderSize> Encode(const Header& header) {
  std::array<std::byte, kHeaderSize> bytes = {};
  std::memcpy(bytes.data(), kMagic.data(), kMagic.size());
  PutAt(bytes, 16, header.salt);
  PutAt(bytes, 24, header.body_size);
  PutAt(bytes, 32, header.record_count);
  PutAt(bytes, 40, header.database_size);
  PutAt(bytes, 48, static_cast<std::uint64_t>(header.database_modified_ns));
  PutAt(bytes, kChecksumAt, Hash64(std::span(bytes).first(kChecksumAt)));
  EncodeCarried(header.carried, bytes);
  if (header.active) std::memcpy(bytes.data() + kStateAt, kActive.data(), kActive.size());
  return bytes;
}

void WriteIdle(RandomAccessFile& file) {
  file.WriteAt(kStateAt, std::array<std::byte, kActive.size()>{});
}

void WritePutBack(RandomAccessFile& file) {
  Header header;
  if (ReadHeader(file, header) != HeaderCondition::kValid || !header.active) return WriteIdle(file);
  header.active = false;
  header.carried.size_after = header.carried.size_before;
  header.carried.hash_after = header.carried.hash_before;
  file.WriteAt(0, Encode(header));
}

void WriteGivenUp(RandomAccessFile& file) {
  file.WriteAt(kStateAt, std::as_bytes(std::span(kGivenUp)));
}

bool IsIdle(RandomAccessFile& file) {
  Header header;
  const HeaderCondition condition = ReadHeader(file, header);
  return condition == HeaderCondition::kNone ||
         (condition == HeaderCondition::kValid && !header.active);
}

HeaderCondition ReadHeader(RandomAccessFile& file, Header& header) {
  std::array<std::byte, kHeaderSize> bytes = {};
  const std::size_t size = file.ReadAt(0, bytes);
  const auto is_zero = [](std::byte byte) { return byte == std::byte{0}; };
  if (std::all_of(bytes.begin(), bytes.end(), is_zero)) return HeaderCondition::kNone;
  if (std::memcmp(bytes.data(), kMagic.data(), std::min(size, kMagic.size())) != 0) {
    return HeaderCondition::kForeign;
  }
  if (size < kHeaderSize) return HeaderCondition::kNone;
  const std::span<std::byte> state = std::span(bytes).subspan(kStateAt, kActive.size());
  const std::span<const std::byte> active = std::as_bytes(std::span(kActive));
  const std::span<const std::byte> given_up = std::as_bytes(std::span(kGivenUp));
  header.given_up = std::equal(state.begin(), state.end(), given_up.begin());
  header.active = header.given_up || std::equal(state.begin(), state.end(), active.begin());
  for (std::size_t i = 0; i < state.size(); ++i) {
    if (state[i] != active[i] && state[i] != given_up[i] && state[i] != std::byte{0}) {
      return HeaderCondition::kDamaged;
    }
    state[i] = std::byte{0};
  }
  Cursor in(std::span<const std::byte>(bytes).subspan(kStateAt + kActive.size()));
  header.salt = in.Take<std::uint64_t>();
  header.body_size = in.Take<std::uint64_t>();
  header.record_count = in.Take<std::uint64_t>();
  header.database_size = in.Take<std::uint64_t>();
  header.database_modified_ns = static_cast<std::int64_t>(in.Take<std::uint64_t>());
  const bool sound = in.Take<std::uint64_t>() == Hash64(std::span(bytes).first(kChecksumAt)) &&
                     header.body_size <= kFarthest && DecodeCarried(bytes, header.carried);
  return sound ? HeaderCondition::kValid : HeaderCondition::kDamaged;
}

Version VersionOf(std::span<const std::byte> contents) {
  return {true, contents.size(), Hash64(contents)};
}

void GatheringWriter::Write(std::uint64_t offset, std::span<const std::byte> bytes) {
  const std::uint64_t end = offset_ + buffer_.size();
  if (offset >= offset_ && offset + bytes.size() <= end) {
    std::size_t at = offset - offset_;
    for (const std::byte byte : bytes) buffer_[at++] = byte;
    return;
  }
  if (offset != end || buffer_.size() + bytes.size() > kGathered) {
    Flush();
    offset_ = offset;
  }
  if (bytes.size() > kGathered) {  // nothing is gained by a copy
    file_.WriteAt(offset, bytes);
    offset_ = offset + bytes.size();
    return;
  }
  Append(bytes, buffer_);
}

void GatheringWriter::Flush() {
  if (!buffer_.empty()) file_.WriteAt(offset_, buffer_);
  buffer_.clear();
}

Writer::Writer(RandomAccessFile& file, std::uint64_t salt, const FileStamp& database,
               const Carried& carried, std::string_view appended)
    : out_(file) {
  header_.active = true;
  header_.carried = carried;
  header_.salt = salt;
  header_.database_size = database.size;
  header_.database_modified_ns = database.modified_ns;
  // Room for the header, so that a small journal is one write. Where there is something carried the
  // old header says so until the new one is written.
  if (carried.room == 0) out_.Write(0, std::array<std::byte, kHeaderSize>{});
  if (!appended.empty()) {
    out_.Write(kHeaderSize + carried.size_before, std::as_bytes(std::span(appended)));
  }
}

void Writer::AddDatabase(const std::string& path) {
  Begin(kDatabase);
  Put(path);
  End();
}

void Writer::AddRangedFile(const RangedFileRecord& file) {
  Begin(kRangedFile);
  Put(file.size_before);
  Put(file.size_after);
  Put(file.path);
  End();
}

void Writer::AddRange(std::uint64_t offset, std::span<const std::byte> before,
                      std::span<const std::byte> after) {
  const auto part = [offset](std::span<const std::byte> bytes, std::uint64_t from,
                             std::uint64_t length) {
    const std::uint64_t begin = std::min<std::uint64_t>(from - offset, bytes.size());
    return bytes.subspan(begin, std::min(length, bytes.size() - begin));
  };
  std::uint64_t run_begin = offset;
  std::uint64_t run_end = offset;  // the run is empty while they are equal
  const auto end_run = [&] {
    if (run_begin == run_end) return;
    const std::uint64_t length = run_end - run_begin;
    AddRun(run_begin, part(before, run_begin, length), part(after, run_begin, length));
    run_begin = run_end;
  };
  ForEachSector(
      offset, std::max(before.size(), after.size()),
      [&](std::uint64_t begin, std::uint64_t length) {
        const auto old_bytes = part(before, begin, length);
        const auto new_bytes = part(after, begin, length);
        if (std::equal(old_bytes.begin(), old_bytes.end(), new_bytes.begin(), new_bytes.end())) {
          end_run();
          run_begin = run_end = begin + length;
          return;
        }
        run_end = begin + length;
        if (run_end - run_begin > kMaxRange - kSector) end_run();
      });
  end_run();
}

void Writer::AddRun(std::uint64_t offset, std::span<const std::byte> before,
                    std::span<const std::byte> after) {
  Begin(kRange);
  Put(offset);
  Put(static_cast<std::uint32_t>(before.size()));
  Put(static_cast<std::uint32_t>(after.size()));
  Put(before);
  ForEachSector(offset, after.size(), [&](std::uint64_t begin, std::uint64_t length) {
    Put(Hash64(after.subspan(begin - offset, length)));
  });
  End();
}

void Writer::AddWholeFile(const WholeFileRecord& file, const FileChange& change) {
  Begin(kWholeFile);
  Put((file.before.exists ? kExisted : 0) | (file.after.exists ? kWillExist : 0));
  Put(file.before.size);
  Put(file.before.hash);
  Put(file.after.size);
  Put(file.after.hash);
  Put(static_cast<std::uint32_t>(file.path.size()));
  Put(file.path);
  Put(file.temporary);
  End();
  if (!change.before) return;
  const std::string_view before = *change.before;
  std::size_t position = 0;
  for (const KeptRange& kept : change.kept) {
    if (kept.before < position || !IsKept(kept, change)) continue;
    AddContents(before.substr(position, kept.before - position));
    Begin(kKept);
    Put(kept.after);
    Put(kept.length);
    End();
    position = kept.before + kept.length;
  }
  AddContents(before.substr(position));
}

void Writer::AddContents(std::string_view bytes) {
  while (!bytes.empty()) {
    Begin(kContents);
    Put(std::as_bytes(std::span(bytes.substr(0, kMaxRange))));
    End();
    bytes.remove_prefix(std::min(bytes.size(), kMaxRange));
  }
}

void Writer::Finish() {
  out_.Write(0, Encode(header_));
  out_.Flush();
}

void Writer::Begin(std::uint32_t kind) {
  record_.assign(kRecordHeader, std::byte{0});
  PutAt(record_, 0, kind);
}

template <typename Number>
void Writer::Put(Number number) {
  const std::size_t at = record_.size();
  record_.resize(at + sizeof number);
  PutAt(record_, at, number);
}

void Writer::Put(std::span<const std::byte> bytes) { Append(bytes, record_); }

void Writer::Put(const std::string& text) { Put(std::as_bytes(std::span(text))); }

void Writer::End() {
  const std::span<std::byte> record(record_);
  assert(record.size() - kRecordHeader <= kMaxPayload);
  PutAt(record, 4, static_cast<std::uint32_t>(record.size() - kRecordHeader));
  PutAt(record, 8,
        RecordChecksum(record, record.subspan(kRecordHeader), header_.salt + header_.record_count));
  out_.Write(header_.BodyAt() + header_.body_size, record);
  header_.body_size += record.size();
  ++header_.record_count;
}

Reader::Reader(RandomAccessFile& file, const Header& header)
    : file_(file), header_(header), position_(header.BodyAt()) {}

Reader::Result Reader::Next(Record& record) {
  const std::uint64_t end = header_.BodyAt() + header_.body_size;
  if (count_ == header_.record_count) {
    return position_ == end ? Result::kEnd : Result::kDamaged;
  }
  std::array<std::byte, kRecordHeader> head;
  if (end - position_ < head.size() || file_.ReadAt(position_, head) < head.size()) {
    return Result::kDamaged;
  }
  Cursor in(head);
  const auto kind = in.Take<std::uint32_t>();
  const auto length = in.Take<std::uint32_t>();
  const auto checksum = in.Take<std::uint64_t>();
  if (length > kMaxPayload || length > end - position_ - head.size()) return Result::kDamaged;
  payload_.resize(length);
  if (file_.ReadAt(position_ + head.size(), payload_) < length ||
      checksum != RecordChecksum(head, payload_, header_.salt + count_) ||
      !Decode(kind, payload_, record)) {
    return Result::kDamaged;
  }
  position_ += head.size() + length;
  ++count_;
  return Result::kRecord;
}

}  // namespace files::journal
