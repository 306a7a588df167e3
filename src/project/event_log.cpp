// SPDX-License-Identifier: MIT
#include "project/event_log.h"

#include <exception>
#include <span>

#include "project/change_text.h"

namespace project {

void AddToLog(files::FileSystem& system, const std::string& path, std::int64_t seconds,
              std::string_view sentence, std::uint64_t limit) noexcept try {
  std::string line = TimeText(seconds) + ' ';
  for (const char c : sentence) line += c == '\n' || c == '\r' ? ' ' : c;
  line += '\n';
  system.CreateDirectories(system.Folder(path));
  const auto file = system.Open(path, files::OpenMode::kCreateOrOpen);
  if (file->Size() > limit) file->Truncate(0);
  file->WriteAt(file->Size(), std::as_bytes(std::span(line)));
} catch (const std::exception&) {
}

}  // namespace project
