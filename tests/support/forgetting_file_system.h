// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "files/memory_file_system.h"
#include "tests/support/forwarding_file_system.h"

namespace files {

// Files in memory on a medium that may lose at a power cut what was not synced. Programs see
// everything at once, as in memory. After a power cut, of the writes to a file since its last
// Sync any sectors of 512 bytes may be there, in any order, and any of its changes of size; of
// the names in a folder any changes since its last SyncDirectory, a rename whole or not at all.
class ForgettingFileSystem final : public ForwardingFileSystem {
 public:
  ForgettingFileSystem();
  ~ForgettingFileSystem() override;

  // Puts a file on the medium at once.
  void Put(const std::string& path, std::string_view contents);
  // What running programs see.
  MemoryFileSystem& now() { return now_; }
  // One of the states in which the medium may be found when the power is cut now.
  std::unique_ptr<MemoryFileSystem> AfterPowerCut(std::mt19937& random) const;

  std::unique_ptr<RandomAccessFile> OpenLike(const std::string& path, OpenMode mode,
                                             const std::string& like) override;
  void Rename(const std::string& from, const std::string& to) override;
  void RenameNew(const std::string& from, const std::string& to) override;
  bool Exchange(const std::string& one, const std::string& other) override;
  void Remove(const std::string& path) override;
  void SyncDirectory(const std::string& folder) override;

 private:
  class OpenFile;
  struct Log;
  using Identity = std::uint64_t;

  // What happens to names at one time: the file that a path means from now on, or none.
  using NameChange = std::vector<std::pair<std::string, std::optional<Identity>>>;

  MemoryFileSystem now_;
  std::shared_ptr<Log> log_;               // what was written to files
  std::map<std::string, Identity> names_;  // on the medium
  std::vector<NameChange> pending_names_;
};

}  // namespace files
