// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "files/file_system.h"
#include "files/unit_of_work.h"
#include "vbfiles/environment.h"

namespace com {

// Visual Basic projects that are open in an object of ours. Edits stay in memory until they are
// saved, all of them at once, or dropped with the session.
class VbSession {
 public:
  explicit VbSession(files::FileSystem& system = files::RealFileSystem());
  ~VbSession();
  VbSession(const VbSession&) = delete;
  VbSession& operator=(const VbSession&) = delete;

  vbfiles::Environment& environment() { return *environment_; }
  // Raises kErrNotAllowedHere while there are edits.
  void Open(const std::string& path);
  // To be called before the first edit, and any other.
  void BeginEdit();
  // Writes what was edited; nothing when nothing was.
  void Save();
  bool HasEdits() const { return unit_ && unit_->IsOpen(); }

 private:
  files::FileSystem& system_;
  std::shared_ptr<vbfiles::Environment> environment_;
  std::vector<std::string> paths_;
  std::optional<files::JournalledUnitOfWork> unit_;
};

}  // namespace com
