// SPDX-License-Identifier: MIT
// Names of files and folders.
#include <filesystem>

#include "files/real_file_system.h"

namespace files::os {
namespace {

namespace fs = std::filesystem;

void Check(const std::error_code& code, const std::string& path, const Failure& failure) {
  if (code) RaiseSystem(code, path, failure);
}

}  // namespace

bool Exists(const std::string& path) {
  std::error_code code;
  return fs::exists(path, code);
}

bool IsFolder(const std::string& path) {
  std::error_code code;
  return fs::is_directory(path, code);
}

std::vector<DirectoryEntry> ListFolder(const std::string& folder) {
  std::error_code code;
  std::vector<DirectoryEntry> entries;
  fs::directory_iterator it(folder, code);
  for (; !code && it != fs::directory_iterator(); it.increment(code)) {
    std::error_code vanished;  // an entry may go while we look; it is listed all the same
    entries.push_back(
        {it->path().filename(), it->is_directory(vanished), it->is_symlink(vanished)});
  }
  Check(code, folder, message::kCannotBeListed);
  return entries;
}

void RenameFile(const std::string& from, const std::string& to) {
  std::error_code code;
  fs::rename(from, to, code);
  Check(code, from, {message::kCannotBeRenamed, "<Name>", to});
}

void RemoveName(const std::string& path) {
  std::error_code code;
  const bool removed = fs::remove(path, code);
  if (!code && !removed) code = std::make_error_code(std::errc::no_such_file_or_directory);
  Check(code, path, message::kCannotBeRemoved);
}

void CreateFolders(const std::string& folder) {
  std::error_code code;
  fs::create_directories(folder, code);
  Check(code, folder, message::kCannotBeCreated);
}

std::string CanonicalPath(const std::string& path) {
  std::error_code code;
  const fs::path canonical = fs::canonical(path, code);
  Check(code, path, message::kCannotBeFound);
  return canonical;
}

std::string FolderOf(std::string_view path) { return fs::path(path).parent_path(); }

std::string FileNameOf(std::string_view path) { return fs::path(path).filename(); }

}  // namespace files::os
