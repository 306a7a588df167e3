// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "files/file_system.h"
#include "files/unit_of_work.h"

namespace project {

// Which files of a project other programs changed since somebody looked at them, also while no
// program of ours ran: size and time of each are kept in a file of the user's state. Takes part in
// the unit of work by which this program writes them, enlisted behind the others, so that its own
// changes are known.
//
// The file: a line for each, size, time (ns since 1970) and path, separated by tabs.
class SeenFiles final : public files::Participant {
 public:
  using Paths = std::function<std::vector<std::string>()>;

  // `state_file` need not exist: what is there at the first look is known then. `paths` tells the
  // project's files. The file system must outlive the object.
  SeenFiles(files::FileSystem& system, std::string state_file, Paths paths);

  // All that changed since it was accepted, as soon as there is something new among it that has
  // come to rest: two looks found the same. Otherwise nothing. Files that came or went have
  // changed, too. Empty when all files are again what was accepted.
  std::optional<std::vector<std::string>> TakeNews();
  // What the last look found is known.
  void Accept() { known_ = told_; }
  // Writes the state file. Raises files::Error.
  void Keep();

  void Save() override {}
  void Collect(files::ChangeSet& changes) override;
  void Committed() noexcept override;
  void Restore() noexcept override { own_.clear(); }

 private:
  struct Version {
    std::uint64_t size = 0;
    std::int64_t modified_ns = 0;
    friend bool operator==(const Version&, const Version&) = default;
  };
  using Versions = std::map<std::string, Version>;  // by path

  Versions Read();
  Versions LookNow();
  void Collect(const std::string& path);

  files::FileSystem& system_;
  std::string state_file_;
  Paths paths_;
  Versions known_, told_, last_;
  bool is_new_ = false;           // nothing is known yet
  std::vector<std::string> own_;  // that the open unit writes, and that were as told
};

}  // namespace project
