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
#include "platform/text.h"

namespace files {
namespace {

constexpr const char* kExtension = ".history";
// Of a database, in any case.
constexpr std::string_view kUsual = ".ovs";
// By which a file that took the place of another is known.
constexpr std::size_t kHead = 32;
// Of some hundred operations.
constexpr std::uint64_t kLeastRoom = std::uint64_t{1} << 16;
constexpr std::uint64_t kBlock = std::uint64_t{1} << 16;

std::uint64_t RoundedUp(std::uint64_t size) { return (size + 4095) / 4096 * 4096; }

void CutQuietly(RandomAccessFile& file, std::uint64_t size) noexcept {
  try {
    file.Truncate(size);
  } catch (const Error&) {
    // What it lacks is carried yet.
  }
}

// A part of what was to be appended would be taken for damage.
template <typename Action>
void OrCut(RandomAccessFile& file, std::uint64_t size, Action write) {
  try {
    write();
  } catch (const Error&) {
    CutQuietly(file, size);
    throw;
  }
}

}  // namespace

std::string AppendedPath(const FileSystem& system, const std::string& database) {
  const std::string name = system.FileName(database);
  const bool is_usual = name.size() > kUsual.size() &&
                        platform::EqualsIgnoringCase(
                            std::string_view(name).substr(name.size() - kUsual.size()), kUsual);
  return database.substr(0, database.size() - (is_usual ? kUsual.size() : 0)) + kExtension;
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

bool CarriedAppend::ForEachBlock(
    std::uint64_t begin, std::uint64_t end,
    const std::function<void(std::uint64_t, std::span<const std::byte>)>& visit) {
  std::vector<std::byte> block(std::min<std::uint64_t>(kBlock, end - begin));
  while (begin < end) {
    const std::span<std::byte> part = std::span(block).first(
        static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), end - begin)));
    if (journal_.ReadAt(journal::kHeaderSize + begin, part) != part.size()) return false;
    visit(begin, part);
    begin += part.size();
  }
  return true;
}

void CarriedAppend::Settle() {
  const std::uint64_t carried = carried_.size_after;
  if (carried == 0) return;
  Hasher64 hash;
  const bool is_whole = ForEachBlock(0, carried, [&](auto, auto block) { hash.Add(block); });
  // Overwritten by a commit that was never finished, which had the file synced before.
  if (!is_whole || hash.Value() != carried_.hash_after) return;
  auto file = Open(OpenMode::kReadWrite);
  if (!file && carried_.offset == 0) {
    file = system_.OpenLike(path_, OpenMode::kCreateNew, database_);
  }
  if (!file) return;
  const std::uint64_t size = file->Size();
  if (size < carried_.offset || size > carried_.offset + carried) return;
  if (carried_.offset > 0 && HashOfHead(*file) != carried_.head) return;
  std::vector<std::byte> now;
  OrCut(*file, size, [&] {
    ForEachBlock(0, carried, [&](std::uint64_t begin, std::span<const std::byte> block) {
      now.resize(block.size());
      now.resize(file->ReadAt(carried_.offset + begin, now));
      if (!std::ranges::equal(now, block)) file->WriteAt(carried_.offset + begin, block);
    });
  });
}

void CarriedAppend::Sync() {
  if (carried_.size_after == 0) return;
  Settle();
  const auto file = Open(OpenMode::kReadWrite);
  if (!file) return;
  file->Sync();
  if (carried_.offset == 0) system_.SyncDirectory(system_.Folder(path_));
}

void CarriedAppend::ClearRoom() {
  Sync();
  carried_ = {};
}

journal::Carried CarriedAppend::Alone(std::uint64_t size, std::uint64_t hash) {
  const auto file = offset_ > 0 ? Open(OpenMode::kRead) : nullptr;
  journal::Carried alone;
  alone.room = std::max(kLeastRoom, RoundedUp(size));
  alone.offset = offset_;
  alone.size_after = size;
  alone.hash_before = Hash64({});
  alone.hash_after = hash;
  alone.head = file ? HashOfHead(*file) : 0;
  return alone;
}

std::optional<journal::Carried> CarriedAppend::TakeIn(const FileAppend& appended) {
  std::optional<journal::GatheringWriter> writer;
  Hasher64 hash;
  std::uint64_t size = 0;
  const auto write = [&](std::string_view bytes) {
    const auto piece = std::as_bytes(std::span(bytes));
    writer->Write(journal::kHeaderSize + size, piece);
    hash.Add(piece);
    size += piece.size();
  };
  appended.write([&](std::string_view piece) {
    if (writer) return write(piece);
    kept_ += piece;
    if (kept_.size() <= kLeastRoom) return;
    ClearRoom();
    writer.emplace(journal_);
    write(kept_);
    kept_ = {};
  });
  if (!writer) return std::nullopt;
  writer->Flush();
  return Alone(size, hash.Value());
}

journal::Carried CarriedAppend::Next(const FileAppend* appended, bool settled) {
  kept_ = {};
  next_ = carried_;
  next_.size_before = carried_.size_after;
  next_.hash_before = carried_.hash_after;
  if (!appended) return next_;
  if (!settled) Settle();
  offset_ = appended->offset();
  if (const auto many = TakeIn(*appended)) return next_ = *many;
  const auto added = std::as_bytes(std::span(kept_));
  const auto file = Open(OpenMode::kRead);
  const bool follows = next_.size_before > 0 && offset_ == next_.offset + next_.size_before &&
                       (next_.offset == 0 || (file && next_.head == HashOfHead(*file))) &&
                       next_.size_before + added.size() <= next_.room;
  Hasher64 hash;
  const bool is_whole =
      follows && ForEachBlock(0, next_.size_before, [&](auto, auto block) { hash.Add(block); });
  // What is carried was overwritten by a commit that failed.
  if (!is_whole || hash.Value() != next_.hash_before) {
    ClearRoom();
    return next_ = Alone(added.size(), Hash64(added));
  }
  hash.Add(added);
  next_.size_after = next_.size_before + added.size();
  next_.hash_after = hash.Value();
  return next_;
}

void CarriedAppend::Write() {
  auto file = Open(OpenMode::kReadWrite);
  if (!file && offset_ == 0) {
    file = system_.OpenLike(path_, OpenMode::kCreateNew, database_);
  }
  if (!file || file->Size() != offset_) {
    Raise(ErrorKind::kConflict, path_, message::kIsNotChanged, message::kChangedMeanwhile);
  }
  OrCut(*file, offset_, [&] {
    if (!kept_.empty()) return file->WriteAt(offset_, std::as_bytes(std::span(kept_)));
    ForEachBlock(next_.size_before, next_.size_after, [&](std::uint64_t begin, auto block) {
      file->WriteAt(next_.offset + begin, block);
    });
  });
}

}  // namespace files
