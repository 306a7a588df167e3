// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "files/file_system.h"
#include "files/unit_of_work.h"
#include "platform/studio.h"

namespace workbench {

// The component list of the workbench: which classes hold formulas, by studio project, kept in a
// text file of the user's state. Entries are a set; adding what stands or removing what does not
// changes nothing. Committed entries are written with the unit of work that they belong to.
//
// The file: a line "[project]", then a line "key=value" for each entry, sorted.
class ComponentListFile final : public platform::ComponentList, public files::Participant {
 public:
  // The file need not exist; its folder is made when something is written.
  ComponentListFile(files::FileSystem& system, std::string path);

  void Open(std::string_view project) override;
  void Add(std::string_view key, std::string_view value) override;
  void Remove(std::string_view key, std::string_view value) override;
  void Commit() override;

  // The values under a key of a project.
  std::set<std::string> Values(std::string_view project, std::string_view key);

  void Save() override;
  void Collect(files::ChangeSet& changes) override;
  void Committed() noexcept override;
  void Restore() noexcept override;

 private:
  using Entries = std::set<std::pair<std::string, std::string>>;
  using Projects = std::map<std::string, Entries, std::less<>>;

  void Load();
  std::string Text() const;

  files::FileSystem& system_;
  std::string path_;
  bool loaded_ = false;
  bool file_exists_ = false;
  std::string file_text_;  // what the file held when it was read
  Projects projects_;
  Projects saved_;
  std::string project_;  // that was opened
  Entries opened_;       // its entries, changed until Commit
};

}  // namespace workbench
