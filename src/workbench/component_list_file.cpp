// SPDX-License-Identifier: MIT
#include "workbench/component_list_file.h"

#include <algorithm>
#include <optional>

namespace workbench {

namespace {

// Line breaks would start another entry.
std::string OneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return line;
}

}  // namespace

ComponentListFile::ComponentListFile(files::FileSystem& system, std::string path)
    : system_(system), path_(std::move(path)) {}

void ComponentListFile::Load() {
  if (loaded_) return;
  projects_.clear();
  file_exists_ = system_.Exists(path_);
  file_text_ = file_exists_ ? files::ReadFile(system_, path_) : std::string();
  Entries* entries = nullptr;
  for (std::size_t begin = 0; begin < file_text_.size();) {
    const std::size_t end = std::min(file_text_.find('\n', begin), file_text_.size());
    const std::string line = file_text_.substr(begin, end - begin);
    begin = end + 1;
    if (line.size() >= 2 && line.front() == '[' && line.back() == ']') {
      entries = &projects_[line.substr(1, line.size() - 2)];
    } else if (const auto equals = line.find('='); entries && equals != std::string::npos) {
      entries->emplace(line.substr(0, equals), line.substr(equals + 1));
    }
  }
  loaded_ = true;
}

std::string ComponentListFile::Text() const {
  std::string text;
  for (const auto& [project, entries] : projects_) {
    if (entries.empty()) continue;
    text += "[" + project + "]\n";
    for (const auto& [key, value] : entries) text += key + "=" + value + "\n";
  }
  return text;
}

void ComponentListFile::Open(std::string_view project) {
  Load();
  project_ = OneLine(project);
  const auto found = projects_.find(project_);
  opened_ = found == projects_.end() ? Entries() : found->second;
}

void ComponentListFile::Add(std::string_view key, std::string_view value) {
  opened_.emplace(OneLine(key), OneLine(value));
}

void ComponentListFile::Remove(std::string_view key, std::string_view value) {
  opened_.erase({OneLine(key), OneLine(value)});
}

void ComponentListFile::Commit() { projects_[project_] = opened_; }

std::set<std::string> ComponentListFile::Values(std::string_view project, std::string_view key) {
  Load();
  std::set<std::string> values;
  const auto found = projects_.find(project);
  if (found == projects_.end()) return values;
  for (const auto& [entry_key, value] : found->second) {
    if (entry_key == key) values.insert(value);
  }
  return values;
}

void ComponentListFile::Save() {
  loaded_ = false;
  Load();
  saved_ = projects_;
}

void ComponentListFile::Collect(files::ChangeSet& changes) {
  if (!loaded_ || projects_ == saved_) return;
  const std::string text = Text();
  if (file_exists_ && text == file_text_) return;
  system_.CreateDirectories(system_.Folder(path_));
  changes.files.push_back(
      {path_, file_exists_ ? files::Contents(file_text_) : files::Contents(), text});
}

void ComponentListFile::Committed() noexcept { loaded_ = false; }

void ComponentListFile::Restore() noexcept {
  projects_ = saved_;
  opened_.clear();
  project_.clear();
}

}  // namespace workbench
