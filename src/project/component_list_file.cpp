// SPDX-License-Identifier: MIT
#include "project/component_list_file.h"

#include <algorithm>

#include "files/replace_file.h"

namespace project {

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

ComponentListFile::Entries ComponentListFile::Parse(const std::string& text) {
  Entries entries;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string line = text.substr(begin, end - begin);
    begin = end + 1;
    const auto equals = line.find('=');
    if (equals != std::string::npos) {
      entries.emplace(line.substr(0, equals), line.substr(equals + 1));
    }
  }
  return entries;
}

std::string ComponentListFile::TextOf(const Entries& entries) {
  std::string text;
  for (const auto& [key, value] : entries) text.append(key).append("=").append(value).append("\n");
  return text;
}

void ComponentListFile::Open(std::string_view) { changes_.clear(); }

void ComponentListFile::Add(std::string_view key, std::string_view value) {
  changes_.emplace_back(true, Entry(OneLine(key), OneLine(value)));
}

void ComponentListFile::Remove(std::string_view key, std::string_view value) {
  changes_.emplace_back(false, Entry(OneLine(key), OneLine(value)));
}

void ComponentListFile::Commit() {
  system_.CreateDirectories(system_.Folder(path_));
  files::UpdateFile(system_, path_, [this](const std::string& before) {
    Entries entries = Parse(before);
    for (const auto& [added, entry] : changes_) {
      if (added) {
        entries.insert(entry);
      } else {
        entries.erase(entry);
      }
    }
    return TextOf(entries);
  });
}

}  // namespace project
