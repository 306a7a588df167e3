// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "files/file_system.h"
#include "files/unit_of_work.h"

namespace project {

// Notices that another program wrote a file. Takes part in the unit of work by which this program
// writes it, enlisted behind the others, so that its own changes are known.
class ForeignChanges final : public files::Participant {
 public:
  // The file system must outlive the object.
  ForeignChanges(files::FileSystem& system, std::string path);

  // True from the first look after another program wrote the file until Accept.
  bool Look();
  // What the file holds now is known.
  void Accept();

  void Save() override { Look(); }
  void Collect(files::ChangeSet&) override {}
  void Committed() noexcept override { known_ = system_.Stamp(path_); }
  void Restore() noexcept override {}

 private:
  files::FileSystem& system_;
  std::string path_;
  std::optional<files::FileStamp> known_;
  bool changed_ = false;
};

}  // namespace project
