// SPDX-License-Identifier: MIT
#include "workbench/backups.h"

#include <algorithm>

#include "files/error.h"
#include "files/replace_file.h"
#include "workbench/line_diff.h"

namespace workbench {

namespace {

constexpr const char* kList = "files.txt";

std::string CopyName(std::size_t index) { return std::to_string(index) + ".bak"; }

}  // namespace

Backups::Backups(files::FileSystem& system, std::string folder)
    : system_(system), folder_(std::move(folder)) {}

void Backups::MakeDaily(const std::string& date, const std::vector<std::string>& files) {
  const std::string folder = system_.Join(folder_, date);
  if (system_.Exists(system_.Join(folder, kList))) return;
  system_.CreateDirectories(folder);
  std::string list;
  std::size_t count = 0;
  for (const std::string& path : files) {
    if (!system_.Exists(path)) continue;
    files::ReplaceFile(system_, system_.Join(folder, CopyName(count++)),
                       files::ReadFile(system_, path));
    list += system_.Canonical(path) + "\n";
  }
  files::ReplaceFile(system_, system_.Join(folder, kList), list);
  const auto backups = List();
  for (std::size_t i = kKept; i < backups.size(); ++i) RemoveFolder(backups[i].folder);
}

std::vector<Backups::Backup> Backups::List() {
  std::vector<Backup> backups;
  if (!system_.IsDirectory(folder_)) return backups;
  for (const files::DirectoryEntry& entry : system_.List(folder_)) {
    const std::string folder = system_.Join(folder_, entry.name);
    const std::string list = system_.Join(folder, kList);
    if (!entry.is_directory || !system_.Exists(list)) continue;
    Backup backup{entry.name, folder, {}};
    const std::string text = files::ReadFile(system_, list);
    for (const std::string_view path : SplitLines(text)) backup.files.emplace_back(path);
    backups.push_back(std::move(backup));
  }
  std::sort(backups.begin(), backups.end(),
            [](const Backup& a, const Backup& b) { return a.date > b.date; });
  return backups;
}

void Backups::Restore(const Backup& backup) {
  for (std::size_t i = 0; i < backup.files.size(); ++i) {
    const std::string copy = files::ReadFile(system_, system_.Join(backup.folder, CopyName(i)));
    files::ReplaceFile(system_, backup.files[i], copy);
  }
}

void Backups::RemoveFolder(const std::string& folder) {
  // The list first: what remains of a half removed folder is no backup.
  system_.Remove(system_.Join(folder, kList));
  for (const files::DirectoryEntry& entry : system_.List(folder))
    system_.Remove(system_.Join(folder, entry.name));
  system_.Remove(folder);
}

}  // namespace workbench
