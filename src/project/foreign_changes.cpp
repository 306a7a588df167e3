// SPDX-License-Identifier: MIT
#include "project/foreign_changes.h"

#include <utility>

namespace project {

ForeignChanges::ForeignChanges(files::FileSystem& system, std::string path)
    : system_(system), path_(std::move(path)), known_(system.Stamp(path_)) {}

bool ForeignChanges::Look() {
  const std::optional<files::FileStamp> now = system_.Stamp(path_);
  changed_ = changed_ || now != known_;
  known_ = now;
  return changed_;
}

void ForeignChanges::Accept() {
  known_ = system_.Stamp(path_);
  changed_ = false;
}

}  // namespace project
