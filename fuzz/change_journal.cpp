// SPDX-License-Identifier: MIT
// Any bytes as a journal beside a database: reading, recovering and resolving it neither crash
// nor touch the files unless the journal is sound.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "files/hash.h"
#include "files/journal_format.h"
#include "files/memory_file_system.h"
#include "files/recovery.h"

namespace {

using files::journal::kHeaderSize;

// Makes the checksums right, so that the parsing behind them is reached. The header's salt is
// taken as zero.
std::string WithChecksums(std::string bytes) {
  const auto put = [&bytes](std::size_t at, std::uint64_t number) {
    for (std::size_t i = 0; i < 8; ++i) bytes[at + i] = static_cast<char>(number >> (8 * i));
  };
  const auto part = [&bytes](std::size_t at, std::size_t count) {
    return std::as_bytes(std::span(bytes)).subspan(at, count);
  };
  files::journal::Header header;
  header.active = true;
  std::size_t at = kHeaderSize;
  while (at + 16 <= bytes.size()) {
    std::size_t length = 0;
    for (std::size_t i = 4; i-- > 0;) {
      length = length << 8 | static_cast<unsigned char>(bytes[at + 4 + i]);
    }
    if (length > bytes.size() - at - 16) break;
    const std::uint64_t seed = files::Hash64(part(at, 8), header.record_count);
    put(at + 8, files::Hash64(part(at + 16, length), seed));
    at += 16 + length;
    ++header.record_count;
  }
  header.body_size = at - kHeaderSize;
  const auto encoded = files::journal::Encode(header);
  for (std::size_t i = 0; i < kHeaderSize; ++i) bytes[i] = static_cast<char>(encoded[i]);
  return bytes;
}

// The file that a journal may name besides its database.
const files::Reach kReach = [](const std::string& path) { return path == "/p/a"; };

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string journal(data, data + size);
  if (size > kHeaderSize && data[kHeaderSize - 1] != 0) journal = WithChecksums(std::move(journal));
  files::MemoryFileSystem system;
  system.SetCapacity(std::uint64_t{1} << 24);
  const std::string database = "/p/d";
  system.Put(database, std::string(2048, 'd'));
  system.Put("/p/a", "a");
  system.Put("/p/foreign", "f");
  system.Put(database + ".journal", journal);
  for (const auto choice : {files::RecoveryChoice::kBefore, files::RecoveryChoice::kAfter,
                            files::RecoveryChoice::kDiscard}) {
    const auto before = system.Snapshot();
    try {
      files::ExamineJournal(system, database, kReach);
      if (system.Snapshot() != before) std::abort();
      files::Recover(system, database, kReach);
    } catch (const files::Error& error) {
      const bool refused =
          error.kind() == files::ErrorKind::kDamaged || error.kind() == files::ErrorKind::kConflict;
      if (refused && system.Snapshot() != before && choice == files::RecoveryChoice::kBefore &&
          error.path() == database + ".journal") {
        std::abort();
      }
    }
    try {
      files::Resolve(system, database, choice, kReach);
    } catch (const files::Error&) {
    }
    if (system.Get("/p/foreign") != "f") std::abort();
  }
  return 0;
}
