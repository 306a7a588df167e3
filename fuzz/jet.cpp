// SPDX-License-Identifier: MIT
// Fuzz target: a database with damaged bytes, opened, read, verified and changed. The input is a
// list of edits of a sound database, so that small inputs reach deep:
//   u16 pages that are cut off, modulo their number + 1; then for each edit
//   u24 offset, u8 new byte
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/database.h"

namespace {

constexpr std::size_t kPageSize = 4096;

std::string Damaged(const std::uint8_t* data, std::size_t size) {
  std::string file = fuzz::SoundDatabase();
  if (size < 2) return file;
  const std::size_t pages = file.size() / kPageSize;
  file.resize((pages - (data[0] | std::size_t{data[1]} << 8) % (pages + 1)) * kPageSize);
  for (std::size_t i = 2; i + 4 <= size && !file.empty(); i += 4) {
    const std::size_t offset =
        data[i] | std::size_t{data[i + 1]} << 8 | std::size_t{data[i + 2]} << 16;
    file[offset % file.size()] = static_cast<char>(data[i + 3]);
  }
  return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::UseDatabase(Damaged(data, size));
  return 0;
}
