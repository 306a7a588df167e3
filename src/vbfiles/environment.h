// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_system.h"
#include "files/unit_of_work.h"
#include "messages/message.h"
#include "platform/vbide.h"
#include "vbfiles/environment_state.h"
#include "vbfiles/vb_project.h"

namespace vbfiles {

// The development environment over Visual Basic 6 project files. Edits of modules are kept in
// memory; enlisted in a unit of work they are committed with it. Objects that were handed out
// stay valid while the caller holds them.
class Environment final : public platform::VBE, public files::Participant {
 public:
  // The file system must outlive the environment and all objects it hands out. Raises
  // platform::Error for an unknown code page.
  explicit Environment(files::FileSystem& system, Options options = {});

  // Opens a group (.vbg), a project (.vbp) or a single source file (.cls, .bas, .frm, ...).
  // What is open already is not opened again. Raises platform::Error: the file cannot be read;
  // a project of the same name is open from another file (kRefused, names both).
  void Open(const std::string& path) { Open(std::vector<std::string>{path}); }
  // Opens all of them or, when one fails, none.
  void Open(const std::vector<std::string>& paths);

  std::vector<std::shared_ptr<platform::VBProject>> VBProjects() override;
  std::shared_ptr<platform::VBProject> FindProject(std::string_view name) override;
  const std::vector<std::shared_ptr<VbProject>>& Projects() const { return contents_.projects; }

  // What is wrong with the open files, a sentence each.
  std::vector<messages::Message> Problems();
  // Characters of comments that became "?" since the last call.
  std::vector<ReplacedCharacters> TakeReplacedCharacters();
  // The group files (.vbg) that are open.
  std::vector<std::string> GroupFiles() const;

  // Bytes of an open source file as text, by the code page of its project.
  std::string ToUtf8(std::string_view path, std::string_view bytes);

  void Save() override;
  void Collect(files::ChangeSet& changes) override;
  void Committed() noexcept override;
  void Restore() noexcept override;

 private:
  struct Contents {
    std::vector<std::shared_ptr<VbProject>> projects;
    std::vector<messages::Message> problems;         // of groups
    std::map<std::string, files::FileStamp> groups;  // by path, as they were read
  };

  Contents Read(const std::vector<std::string>& paths) const;
  void ReadGroup(const std::string& path, Contents& contents) const;
  void ReadProject(const std::string& path, const std::string& tree, Contents& contents) const;
  std::shared_ptr<VbProject> ProjectAt(const std::string& path, const std::string& tree) const;
  void Refresh();
  template <typename Action>
  void ForEachDocument(Action action) const;

  std::shared_ptr<EnvironmentState> state_;
  const CodePage& page_;            // unless a project has its own
  std::vector<std::string> paths_;  // that were opened, canonical
  Contents contents_;
};

// Every .vbp and .vbg in the folder and below it, links not followed, the folder's own files
// first. Folders that may not be listed are left out; raises platform::Error for another failure.
// Open each to get the projects; a project that a group names counts once.
std::vector<std::string> FindProjectFiles(files::FileSystem& system, const std::string& folder);

}  // namespace vbfiles
