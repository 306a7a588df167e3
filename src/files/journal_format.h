// SPDX-License-Identifier: MIT
// The change journal on the medium. All numbers are little-endian.
//
// Header, 512 bytes (one sector: it is on the medium whole or not at all):
//   0    8  "CHGJRNL1"
//   8    8  state: "ACTIVE>>", "UNDOING>" once the change is given up, or zeros when idle. Zeros
//   are
//           written only when all is done, so that a mixture means idle, too.
//   16   8  salt: a random number per commit; seeds all checksums of the body
//   24   8  length of the body in bytes
//   32   8  number of records in the body
//   40   8  size of the database before the change, in bytes
//   48   8  time of the database's last change before this one, in ns since 1970-01-01 UTC
//   56   8  checksum of the bytes 0..55, with zeros for the state
//   64   8  room between header and body, in bytes, for what the journal carries
//   72   8  where in the file beside the database the carried bytes belong
//   80   8  how many bytes were carried before the commit
//   88   8  how many with it; the same once it was put back
//   96   8  hash of the former
//  104   8  hash of the latter
//  112   8  hash of the first bytes of that file
//  120   8  checksum of the bytes 64..119; zeros throughout when nothing is carried
//  128      zeros
//
// Room: the carried bytes. A commit adds to them; what it finds there stays as it is until the file
// that it belongs to is synced.
//
// Body: records, one behind the other.
//   0    4  kind (below)
//   4    4  length of the payload, at most kMaxPayload
//   8    8  checksum of kind, length and payload, seeded with the salt plus the record's number
//   16      payload
//
// Payloads:
//   1 database      path of the database that the journal stands beside; always the first record
//   2 ranged file   u64 size before, u64 size after, path. Its ranges follow.
//   3 range         u64 offset, u32 length before, u32 length after; the bytes before; a u64 hash
//                   of the bytes after for each sector of 512 bytes of the file that they touch
//   4 whole file    u64 flags (1 existed, 2 will exist), u64 size and u64 hash before, u64 size
//                   and u64 hash after, u32 length of the path, path, path of the temporary file.
//                   Its contents before follow, in pieces.
//   5 contents      the next bytes of the whole file's contents before
//   6 kept          u64 offset, u64 length: the next bytes of the contents before are these bytes
//                   of the contents after
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "files/change_set.h"
#include "files/random_access_file.h"

namespace files::journal {

inline constexpr std::uint64_t kHeaderSize = 512;
inline constexpr std::uint64_t kSector = 512;
inline constexpr std::size_t kMaxPayload = std::size_t{1} << 18;
inline constexpr std::size_t kMaxRange = std::size_t{1} << 16;

// What a journal carries for the file beside the database that only grows (carried_append.h).
struct Carried {
  std::uint64_t room = 0;
  std::uint64_t offset = 0;
  std::uint64_t size_before = 0;
  std::uint64_t size_after = 0;
  std::uint64_t hash_before = 0;
  std::uint64_t hash_after = 0;
  std::uint64_t head = 0;
};

struct Header {
  bool active = false;
  bool given_up = false;  // the state before is wanted, however much was done
  std::uint64_t salt = 0;
  std::uint64_t body_size = 0;
  std::uint64_t record_count = 0;
  std::uint64_t database_size = 0;
  std::int64_t database_modified_ns = 0;
  Carried carried;
  std::uint64_t BodyAt() const { return kHeaderSize + carried.room; }
};

std::array<std::byte, kHeaderSize> Encode(const Header& header);

enum class HeaderCondition {
  kNone,     // nothing or only a part of it was written, zeros
  kValid,    //
  kForeign,  // the file is something else
  kDamaged,
};

// Writes the mark that the journal is idle, its change made. Not synced.
void WriteIdle(RandomAccessFile& file);

// Writes the mark that the journal is idle, its change put back. Not synced.
void WritePutBack(RandomAccessFile& file);

// Writes the mark that an active change is given up. Not synced.
void WriteGivenUp(RandomAccessFile& file);

// Whether nothing is under way according to the header.
bool IsIdle(RandomAccessFile& file);

// Reads the header; `header` is set when the condition is kValid.
HeaderCondition ReadHeader(RandomAccessFile& file, Header& header);

struct DatabaseRecord {
  std::string path;
};

struct RangedFileRecord {
  std::string path;
  std::uint64_t size_before = 0;
  std::uint64_t size_after = 0;
};

struct RangeRecord {
  std::uint64_t offset = 0;
  std::uint32_t size_after = 0;
  std::span<const std::byte> before;  // both spans: valid until the next record is read
  std::vector<std::uint64_t> hashes_after;
};

// Size and hash of a whole file's contents, or that it does not exist.
struct Version {
  bool exists = false;
  std::uint64_t size = 0;
  std::uint64_t hash = 0;
  friend bool operator==(const Version&, const Version&) = default;
};

Version VersionOf(std::span<const std::byte> contents);

struct WholeFileRecord {
  std::string path;
  std::string temporary;
  Version before;
  Version after;
};

struct ContentsRecord {
  std::span<const std::byte> bytes;
};

struct KeptRecord {
  std::uint64_t offset = 0;
  std::uint64_t length = 0;
};

using Record = std::variant<DatabaseRecord, RangedFileRecord, RangeRecord, WholeFileRecord,
                            ContentsRecord, KeptRecord>;

// Calls `visit` for the part of [offset, offset + length) in each sector of the file.
template <typename Visit>
void ForEachSector(std::uint64_t offset, std::uint64_t length, Visit visit) {
  const std::uint64_t end = offset + length;
  while (offset < end) {
    const std::uint64_t next = std::min(end, (offset / kSector + 1) * kSector);
    visit(offset, next - offset);
    offset = next;
  }
}

// Gathers writes that follow each other, so that many small ones become few large ones. Bytes
// that were not yet handed on can be overwritten.
class GatheringWriter {
 public:
  explicit GatheringWriter(RandomAccessFile& file) : file_(file) {}
  void Write(std::uint64_t offset, std::span<const std::byte> bytes);
  void Flush();

 private:
  RandomAccessFile& file_;
  std::uint64_t offset_ = 0;
  std::vector<std::byte> buffer_;
};

// Writes the body of a journal and, at last, its header. Nothing is synced.
class Writer {
 public:
  // `database` is its stamp before the change; empty when there is none. `appended`: the bytes that
  // the commit adds to those carried.
  Writer(RandomAccessFile& file, std::uint64_t salt, const FileStamp& database,
         const Carried& carried = {}, std::string_view appended = {});

  void AddDatabase(const std::string& path);
  void AddRangedFile(const RangedFileRecord& file);
  // Adds the sectors of the range in which the bytes differ; none when all are equal.
  void AddRange(std::uint64_t offset, std::span<const std::byte> before,
                std::span<const std::byte> after);
  // With the contents before, but for large parts that the contents after have, too.
  void AddWholeFile(const WholeFileRecord& file, const FileChange& change);
  // Writes the header, active.
  void Finish();

 private:
  void AddContents(std::string_view bytes);
  void AddRun(std::uint64_t offset, std::span<const std::byte> before,
              std::span<const std::byte> after);
  void Begin(std::uint32_t kind);
  template <typename Number>
  void Put(Number number);
  void Put(std::span<const std::byte> bytes);
  void Put(const std::string& text);
  void End();

  GatheringWriter out_;
  Header header_;
  std::vector<std::byte> record_;
};

// Reads the body record by record with bounded memory.
class Reader {
 public:
  Reader(RandomAccessFile& file, const Header& header);

  enum class Result { kRecord, kEnd, kDamaged };
  // Reads the next record. Nothing of a damaged record is used; behind it, nothing can be read.
  Result Next(Record& record);

 private:
  RandomAccessFile& file_;
  Header header_;
  std::uint64_t position_;
  std::uint64_t count_ = 0;
  std::vector<std::byte> payload_;
};

}  // namespace files::journal
