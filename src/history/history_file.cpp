// SPDX-License-Identifier: MIT
#include "history/history_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <string_view>
#include <utility>

#include "files/file_identity.h"
#include "files/hash.h"
#include "files/journal_file.h"
#include "files/random_number.h"
#include "files/replace_file.h"

namespace history {
namespace {

// "formula history 1 <id> <number> <hash>\n": the number and hash of the record before the first.
constexpr std::string_view kMagic = "formula history 1 ";
constexpr std::size_t kHex = 16;
constexpr std::size_t kHeader = kMagic.size() + 3 * (kHex + 1);
// Behind each record: "\t<number> <length of the record> <hash>\n".
constexpr std::size_t kTrailer = 1 + 3 * (kHex + 1);
constexpr std::uint64_t kLongestRecord = std::uint64_t{1} << 29;

std::string Hex(std::uint64_t number) {
  std::array<char, kHex> digits;
  for (std::size_t i = kHex; i > 0; --i, number >>= 4) {
    digits[i - 1] = "0123456789abcdef"[number & 15];
  }
  return {digits.data(), digits.size()};
}

// Three numbers with blanks between them and a line end behind.
std::optional<std::array<std::uint64_t, 3>> ThreeNumbers(std::string_view text) {
  std::array<std::uint64_t, 3> numbers = {};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const char* const begin = text.data() + i * (kHex + 1);
    const auto [end, error] = std::from_chars(begin, begin + kHex, numbers[i], 16);
    if (error != std::errc() || end != begin + kHex || *end != (i < 2 ? ' ' : '\n')) {
      return std::nullopt;
    }
  }
  return numbers;
}

std::uint64_t HashOf(std::string_view record, std::uint64_t hash_before) {
  return files::Hash64(std::as_bytes(std::span(record)), hash_before);
}

std::string Header(std::uint64_t number, std::uint64_t hash) {
  return std::string(kMagic) + Hex(files::RandomNumber()) + ' ' + Hex(number) + ' ' + Hex(hash) +
         '\n';
}

struct Trailer {
  std::uint64_t number = 0;
  std::uint64_t length = 0;
  std::uint64_t hash = 0;
};

// Reads records from their ends.
class BackwardReader {
 public:
  explicit BackwardReader(files::RandomAccessFile& file) : file_(file), end_(file.Size()) {}

  // False when the file does not begin as ours do.
  bool ReadHeader() {
    const std::string header = Read(0, kHeader);
    if (header.size() < kHeader || !header.starts_with(kMagic)) return false;
    const auto numbers = ThreeNumbers(std::string_view(header).substr(kMagic.size()));
    if (numbers) base_ = {(*numbers)[1], 0, (*numbers)[2]};
    return numbers.has_value();
  }
  const Trailer& base() const { return base_; }

  std::uint64_t end() const { return end_; }
  bool AtBegin() const { return end_ == kHeader; }

  // Of the record that ends where the reader stands.
  std::optional<Trailer> ReadTrailer() { return TrailerBefore(end_); }

  // Whether the record in front is whole; goes in front of it.
  bool ReadRecord(std::string& record) {
    const auto trailer = TrailerBefore(end_);
    if (!trailer) return false;
    const std::uint64_t begin = end_ - kTrailer - trailer->length;
    const auto before = begin == kHeader ? std::optional(base_) : TrailerBefore(begin);
    if (!before || trailer->number != before->number + 1) return false;
    record = Read(begin, trailer->length);
    if (record.size() != trailer->length || HashOf(record, before->hash) != trailer->hash) {
      return false;
    }
    end_ = begin;
    return true;
  }
  // Goes in front of the record without reading it. REQUIRES: it has a trailer.
  void Pass(const Trailer& trailer) { end_ -= kTrailer + trailer.length; }
  // Goes in front of what is behind the last line end.
  void PassPartOfLine() {
    while (end_ > kHeader) {
      const std::uint64_t begin = end_ - std::min<std::uint64_t>(end_ - kHeader, 4096);
      const std::size_t at = Read(begin, end_ - begin).rfind('\n');
      end_ = at == std::string::npos ? begin : begin + at + 1;
      if (at != std::string::npos) return;
    }
  }

 private:
  std::string Read(std::uint64_t offset, std::uint64_t length) {
    std::string bytes(length, '\0');
    bytes.resize(file_.ReadAt(offset, std::as_writable_bytes(std::span(bytes))));
    return bytes;
  }

  std::optional<Trailer> TrailerBefore(std::uint64_t end) {
    if (end < kHeader + kTrailer) return std::nullopt;
    const std::string text = Read(end - kTrailer, kTrailer);
    if (text.size() < kTrailer || text[0] != '\t') return std::nullopt;
    const auto numbers = ThreeNumbers(std::string_view(text).substr(1));
    const bool fits = numbers && (*numbers)[1] <= end - kTrailer - kHeader;
    if (!fits || (*numbers)[1] > kLongestRecord) return std::nullopt;
    return Trailer{(*numbers)[0], (*numbers)[1], (*numbers)[2]};
  }

  files::RandomAccessFile& file_;
  std::uint64_t end_;
  Trailer base_;
};

std::unique_ptr<files::RandomAccessFile> OpenForReading(files::FileSystem& system,
                                                        const std::string& path) {
  return files::OpenIfExists(system, path, files::OpenMode::kRead);
}

}  // namespace

HistoryFile::HistoryFile(files::FileSystem& system, std::string path)
    : system_(system), path_(std::move(path)) {}

std::optional<Ends> HistoryFile::ReadEnds() {
  const auto file = OpenForReading(system_, path_);
  if (!file || file->Size() == 0) return Ends{};
  BackwardReader reader(*file);
  if (!reader.ReadHeader()) return std::nullopt;
  Trailer last = reader.base();
  if (!reader.AtBegin()) {
    const auto trailer = reader.ReadTrailer();
    if (!trailer || trailer->number <= last.number) return std::nullopt;
    last = *trailer;
  }
  return Ends{reader.end(), last.number, last.hash, reader.base().number + 1};
}

void HistoryFile::Write(const Ends& ends, const Record& record, const RowSource& rows,
                        const std::function<void(std::string_view)>& sink) {
  if (ends.size == 0) sink(Header(ends.last_number, ends.last_hash));
  files::Hasher64 hash(ends.last_hash);
  std::uint64_t length = 0;
  WriteLine(record, rows, [&](std::string_view piece) {
    hash.Add(std::as_bytes(std::span(piece)));
    length += piece.size();
    sink(piece);
  });
  sink('\t' + Hex(record.number) + ' ' + Hex(length) + ' ' + Hex(hash.Value()) + '\n');
}

std::string HistoryFile::SetAside() {
  for (int i = 1;; ++i) {
    std::string name = path_ + ".damaged" + (i == 1 ? "" : "-" + std::to_string(i));
    try {
      system_.RenameNew(path_, name);
      return name;
    } catch (const files::Error& error) {
      if (error.kind() != files::ErrorKind::kExists || i == 1000) throw;
    }
  }
}

bool HistoryFile::Shorten(const Ends& ends) {
  const std::uint64_t count = ends.last_number - ends.first_number + 1;
  if (ends.size == 0 || (count < 2 * kMostRecords && ends.size < 2 * kMostBytes)) return false;
  const auto file = OpenForReading(system_, path_);
  if (!file) return false;
  BackwardReader reader(*file);
  if (!reader.ReadHeader()) return false;
  Trailer before = reader.base();
  for (std::uint64_t kept = 0; !reader.AtBegin(); ++kept) {
    const auto trailer = reader.ReadTrailer();
    if (!trailer) return false;
    const bool is_enough =
        kept == kMostRecords ||
        (kept > 0 && ends.size - reader.end() + kTrailer + trailer->length > kMostBytes);
    before = *trailer;
    if (is_enough) break;
    reader.Pass(*trailer);
    if (reader.AtBegin()) before = reader.base();
  }
  std::string contents = Header(before.number, before.hash);
  std::string kept(ends.size - reader.end(), '\0');
  kept.resize(file->ReadAt(reader.end(), std::as_writable_bytes(std::span(kept))));
  files::ReplaceFile(system_, path_, contents + kept);
  return true;
}

bool HistoryFile::ForEach(const std::function<bool(Record&)>& visit, Detail detail) {
  const auto file = OpenForReading(system_, path_);
  if (!file || file->Size() == 0) return true;
  BackwardReader reader(*file);
  if (!reader.ReadHeader()) return false;
  if (!reader.AtBegin() && !reader.ReadTrailer()) reader.PassPartOfLine();
  std::string line;
  while (!reader.AtBegin()) {
    if (!reader.ReadRecord(line)) return false;
    auto record = FromLine(line, detail);
    if (!record) return false;
    if (!visit(*record)) return true;
  }
  return true;
}

}  // namespace history
