// SPDX-License-Identifier: MIT
#include "project/seen_files.h"

#include <sstream>
#include <utility>

#include "files/change_set.h"
#include "files/replace_file.h"

namespace project {

SeenFiles::SeenFiles(files::FileSystem& system, std::string state_file, Paths paths)
    : system_(system), state_file_(std::move(state_file)), paths_(std::move(paths)) {
  known_ = told_ = Read();
  is_new_ = known_.empty();
}

// A file that cannot be read, or is none of ours, tells nothing.
SeenFiles::Versions SeenFiles::Read() {
  Versions versions;
  try {
    if (!system_.Exists(state_file_)) return versions;
    std::istringstream text(files::ReadFile(system_, state_file_));
    Version version;
    for (std::string path; text >> version.size >> version.modified_ns && text.get() == '\t' &&
                           std::getline(text, path);) {
      versions[path] = version;
    }
  } catch (const files::Error&) {
    versions.clear();
  }
  return versions;
}

void SeenFiles::Keep() {
  std::ostringstream text;
  for (const auto& [path, version] : known_) {
    text << version.size << '\t' << version.modified_ns << '\t' << path << '\n';
  }
  system_.CreateDirectories(system_.Folder(state_file_));
  files::UpdateFile(system_, state_file_, [&](const std::string&) { return text.str(); });
}

SeenFiles::Versions SeenFiles::LookNow() {
  Versions versions;
  for (const std::string& path : paths_()) {
    if (const auto stamp = system_.Stamp(path)) versions[path] = {stamp->size, stamp->modified_ns};
  }
  return versions;
}

std::optional<std::vector<std::string>> SeenFiles::TakeNews() {
  Versions now = LookNow();
  if (std::exchange(is_new_, false)) known_ = told_ = now;
  std::swap(last_, now);
  if (last_ != now || last_ == told_) return std::nullopt;
  told_ = last_;
  std::vector<std::string> changed;
  for (const auto& [path, version] : told_) {
    const auto known = known_.find(path);
    if (known == known_.end() || known->second != version) changed.push_back(path);
  }
  for (const auto& [path, version] : known_) {
    if (!told_.contains(path)) changed.push_back(path);
  }
  return changed;
}

void SeenFiles::Collect(files::ChangeSet& changes) {
  own_.clear();
  for (files::RangeSource* range : changes.ranges) Collect(range->File().path());
  for (const files::FileChange& file : changes.files) Collect(file.path);
}

// What somebody else changed and nobody was told of stays news.
void SeenFiles::Collect(const std::string& path) {
  const auto stamp = system_.Stamp(path);
  const auto told = told_.find(path);
  const bool as_told =
      stamp ? told != told_.end() && told->second == Version{stamp->size, stamp->modified_ns}
            : told == told_.end();
  if (as_told) own_.push_back(path);
}

void SeenFiles::Committed() noexcept {
  for (const std::string& path : std::exchange(own_, {})) {
    const auto stamp = system_.Stamp(path);
    if (!stamp) continue;
    const Version version{stamp->size, stamp->modified_ns};
    const auto told = told_.find(path), known = known_.find(path);
    const bool accepted = told == told_.end()
                              ? known == known_.end()
                              : known != known_.end() && known->second == told->second;
    told_[path] = version;
    if (accepted) known_[path] = version;
  }
}

}  // namespace project
