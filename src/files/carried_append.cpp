// SPDX-License-Identifier: MIT
#include "files/carried_append.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>
#include <vector>

#include "files/file_identity.h"
#include "files/hash.h"
#include "files/journal_file.h"

namespace files {
namespace {

constexpr const char* kExtension = ".history";
// By which a file that took the place of another is known.
constexpr std::size_t kHead = 32;
// Of some hundred operations.
constexpr std::uint64_t kLeastRoom = std::uint64_t{1} << 16;

std::uint64_t RoundedUp(std::uint64_t size) { return (size + 4095) / 4096 * 4096; }

}  // namespace

std::string AppendedPath(const FileSystem& system, const std::string& database) {
  const std::string name = system.FileName(database);
  const auto point = name.rfind('.');
  const std::string stem = point == std::string::npos || point == 0 ? name : name.substr(0, point);
  return database.substr(0, database.size() - name.size()) + stem + kExtension;
}

CarriedAppend::CarriedAppend(FileSystem& system, std::string database, RandomAccessFile& journal)
    : system_(system),
      database_(std::move(database)),
      path_(AppendedPath(system, database_)),
      journal_(journal) {
  journal::Header header;
  if (journal::ReadHeader(journal_, header) == journal::HeaderCondition::kValid && !header.active) {
    carried_ = header.carried;
  }
}

// Null when there is none.
std::unique_ptr<RandomAccessFile> CarriedAppend::Open(OpenMode mode) {
  return OpenIfExists(system_, path_, mode);
}

std::uint64_t CarriedAppend::HashOfHead(RandomAccessFile& file) const {
  std::array<std::byte, kHead> head = {};
  return Hash64(std::span(head).first(file.ReadAt(0, head)));
}

std::vector<std::byte> CarriedAppend::ReadCarried(std::uint64_t size) const {
  // A damaged or forged header may promise what no memory holds.
  if (size > journal_.Size()) return {};
  std::vector<std::byte> bytes(size);
  bytes.resize(journal_.ReadAt(journal::kHeaderSize, bytes));
  return bytes;
}

void CarriedAppend::Settle() {
  if (carried_.size_after == 0) return;
  const std::vector<std::byte> bytes = ReadCarried(carried_.size_after);
  // Overwritten by a commit that was never finished, which had the file synced before.
  if (bytes.size() != carried_.size_after || Hash64(bytes) != carried_.hash_after) return;
  auto file = Open(OpenMode::kReadWrite);
  if (!file && carried_.offset == 0) {
    file = system_.OpenLike(path_, OpenMode::kCreateNew, database_);
  }
  if (!file) return;
  const std::uint64_t size = file->Size();
  if (size < carried_.offset || size > carried_.offset + bytes.size()) return;
  if (carried_.offset > 0 && HashOfHead(*file) != carried_.head) return;
  std::vector<std::byte> now(bytes.size());
  now.resize(file->ReadAt(carried_.offset, now));
  if (now != bytes) file->WriteAt(carried_.offset, bytes);
}

void CarriedAppend::Sync() {
  if (carried_.size_after == 0) return;
  Settle();
  const auto file = Open(OpenMode::kReadWrite);
  if (!file) return;
  file->Sync();
  if (carried_.offset == 0) system_.SyncDirectory(system_.Folder(path_));
}

journal::Carried CarriedAppend::Next(const FileAppend* appended, bool settled) {
  journal::Carried next = carried_;
  next.size_before = carried_.size_after;
  next.hash_before = carried_.hash_after;
  if (!appended) return next;
  if (!settled) Settle();
  const auto file = Open(OpenMode::kRead);
  const std::uint64_t head = file && appended->offset > 0 ? HashOfHead(*file) : 0;
  const std::uint64_t size = appended->bytes.size();
  const bool follows = next.size_before > 0 && appended->offset == next.offset + next.size_before &&
                       (next.offset == 0 || next.head == head) &&
                       next.size_before + size <= next.room;
  std::vector<std::byte> bytes;
  if (follows) bytes = ReadCarried(next.size_before);
  if (bytes.empty() || bytes.size() != next.size_before) {
    Sync();
    next = {};
    next.offset = appended->offset;
    next.head = head;
    next.room = std::max(kLeastRoom, RoundedUp(size));
    next.hash_before = Hash64({});
  }
  next.size_after = next.size_before + size;
  const auto added = std::as_bytes(std::span(appended->bytes));
  if (next.size_before == 0) {  // a large one is not copied
    next.hash_after = Hash64(added);
    return next;
  }
  bytes.insert(bytes.end(), added.begin(), added.end());
  next.hash_after = Hash64(bytes);
  return next;
}

void CarriedAppend::Write(const FileAppend& appended) {
  auto file = Open(OpenMode::kReadWrite);
  if (!file && appended.offset == 0) {
    file = system_.OpenLike(path_, OpenMode::kCreateNew, database_);
  }
  if (!file || file->Size() != appended.offset) return;  // somebody else put another there
  file->WriteAt(appended.offset, std::as_bytes(std::span(appended.bytes)));
}

}  // namespace files
