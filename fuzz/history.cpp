// SPDX-License-Identifier: MIT
// A history of any bytes: read to its beginning, shortened, and its lines taken back from any text.
#include <cstddef>
#include <cstdint>
#include <string>

#include "files/memory_file_system.h"
#include "history/entries.h"
#include "history/line_ranges.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  files::MemoryFileSystem system;
  system.CreateDirectories("/p");
  system.Put("/p/Plant.history", bytes);
  history::HistoryFile file(system, "/p/Plant.history");
  history::NewestEntries(file, 100);
  if (const auto ends = file.ReadEnds()) file.Shorten(*ends);
  const auto record = history::FromLine(bytes.substr(0, bytes.find('\n')));
  if (!record) return 0;
  for (const history::ChangedFile& changed : record->files) {
    history::TakeBack(bytes, changed);
    for (const history::ChangedLines& range : changed.ranges) {
      history::TakeBack(range.above + range.after + range.below, changed);
    }
  }
  for (const history::ChangedRow& row : record->rows) {
    for (const auto& [name, cell] : row.after.value_or(history::Row())) {
      std::string room;
      history::FromCell(cell, room);
    }
  }
  return 0;
}
