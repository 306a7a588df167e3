// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/file_system.h"
#include "platform/studio.h"

namespace project {

// The component list where there is no studio: which classes hold formulas, kept in a text file of
// the user's state. Entries are a set; adding what stands or removing what does not changes
// nothing. Commit writes the file; what others wrote meanwhile stays.
//
// The file: a line "key=value" for each entry, sorted.
class ComponentListFile final : public platform::ComponentList {
 public:
  // `path` belongs to one project. The file need not exist; its folder is made when something is
  // written.
  ComponentListFile(files::FileSystem& system, std::string path);

  // The project is the one whose list this is, by whichever of its names it is called.
  void Open(std::string_view project) override;
  void Add(std::string_view key, std::string_view value) override;
  void Remove(std::string_view key, std::string_view value) override;
  // Raises files::Error; the list is as before then.
  void Commit() override;

 private:
  using Entry = std::pair<std::string, std::string>;
  using Entries = std::set<Entry>;

  static Entries Parse(const std::string& text);
  static std::string TextOf(const Entries& entries);

  files::FileSystem& system_;
  std::string path_;
  std::vector<std::pair<bool, Entry>> changes_;  // since Open; true: added
};

}  // namespace project
