// SPDX-License-Identifier: MIT
#include "project/made_files.h"

#include "files/file_identity.h"
#include "files/replace_file.h"

namespace project {

MadeFiles::~MadeFiles() {
  for (const auto& [path, identity] : made_) {
    try {
      const auto stamp = system_.Stamp(path);
      if (stamp && stamp->identity == identity) system_.Remove(path);
    } catch (const files::Error&) {
      continue;  // the failure that brought us here is the one to report
    }
  }
}

void MadeFiles::Make(const std::string& path, std::string_view contents) {
  const std::string target = files::ResolveTarget(system_, path);
  const std::string temporary = files::TemporaryName(system_, target);
  files::WriteTemporary(system_, temporary, target, contents);
  try {
    Move(temporary, path);
  } catch (...) {
    files::RemoveQuietly(system_, temporary);
    throw;
  }
}

// Under the new name somebody else's file may stand at once.
void MadeFiles::Move(const std::string& from, const std::string& path) {
  const auto stamp = system_.Stamp(from);
  system_.RenameNew(from, path);
  if (stamp) made_.emplace_back(path, stamp->identity);
  system_.SyncDirectory(system_.Folder(files::ResolveTarget(system_, path)));
}

std::vector<std::string> MadeFiles::Keep() {
  std::vector<std::string> paths;
  for (auto& [path, identity] : made_) paths.push_back(std::move(path));
  made_.clear();
  return paths;
}

}  // namespace project
