// SPDX-License-Identifier: MIT
// Fuzz target: the definition of a table with columns of every type, with bytes changed. The input
// is a list of edits: u16 offset in the definition, u8 new byte.
#include <cstddef>
#include <cstdint>
#include <string>

#include "files/memory_file_system.h"
#include "fuzz/database.h"
#include "jet/database.h"

namespace {

constexpr std::size_t kPageSize = 4096;

std::size_t FindDefinition() {
  files::MemoryFileSystem system;
  system.Put("/d", fuzz::SoundDatabase());
  const auto database = jet::Database::Open(system, "/d");
  return database->OpenTable(fuzz::kTable).definition_page() * kPageSize;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::size_t definition = FindDefinition();
  std::string file = fuzz::SoundDatabase();
  for (std::size_t i = 0; i + 3 <= size; i += 3) {
    const std::size_t offset = (data[i] | std::size_t{data[i + 1]} << 8) % kPageSize;
    file[definition + offset] = static_cast<char>(data[i + 2]);
  }
  fuzz::UseDatabase(file);
  return 0;
}
