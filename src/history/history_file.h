// SPDX-License-Identifier: MIT
// The file of the history: records one behind the other, each a line (docs/history.md).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "files/file_system.h"
#include "history/record.h"
#include "messages/message.h"

namespace history {

inline constexpr std::uint64_t kMostRecords = 1000;
inline constexpr std::uint64_t kMostBytes = std::uint64_t{64} << 20;

// What the ends of the file say.
struct Ends {
  std::uint64_t size = 0;         // of the file; 0: there is none
  std::uint64_t last_number = 0;  // of the last record, or the number before the first
  std::uint64_t last_hash = 0;    // what the next record's hash begins with
  std::uint64_t first_number = 1;
};

class HistoryFile {
 public:
  // `path` as files::AppendedPath gives it.
  HistoryFile(files::FileSystem& system, std::string path);

  const std::string& path() const { return path_; }

  // Reads the first and the last bytes. Nothing when the file is none of ours or its end is
  // damaged. Raises files::Error.
  std::optional<Ends> ReadEnds();
  // Hands the bytes that append the record with these rows to `sink`, in pieces. `ends` as they
  // are; the record has the number behind the last.
  static void Write(const Ends& ends, const Record& record, const RowSource& rows,
                    const std::function<void(std::string_view)>& sink);

  // Gives the file another name. Raises files::Error. Returns that name.
  std::string SetAside();
  // Leaves the last kMostRecords or kMostBytes when there are twice as many; whether there
  // were. Raises files::Error.
  bool Shorten(const Ends& ends);

  // Visits the records, the newest first, until `visit` returns false; it may take what the record
  // has. A record that is being written just now is left out. Returns whether all that was looked
  // at is whole. Raises files::Error.
  bool ForEach(const std::function<bool(Record&)>& visit, Detail detail = Detail::kAll);

 private:
  files::FileSystem& system_;
  std::string path_;
};

}  // namespace history
