// SPDX-License-Identifier: MIT
#include "project/made_files.h"

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
  files::MakeFile(system_, path, contents);
  Note(path);
}

void MadeFiles::Move(const std::string& from, const std::string& path) {
  system_.RenameNew(from, path);
  Note(path);
  system_.SyncDirectory(system_.Folder(files::ResolveTarget(system_, path)));
}

void MadeFiles::Note(const std::string& path) {
  if (const auto stamp = system_.Stamp(path)) made_.emplace_back(path, stamp->identity);
}

std::vector<std::string> MadeFiles::Keep() {
  std::vector<std::string> paths;
  for (auto& [path, identity] : made_) paths.push_back(std::move(path));
  made_.clear();
  return paths;
}

}  // namespace project
