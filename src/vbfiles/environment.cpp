// SPDX-License-Identifier: MIT
#include "vbfiles/environment.h"

#include <algorithm>
#include <deque>

#include "platform/text.h"
#include "vbfiles/errors.h"
#include "vbfiles/messages.h"
#include "vbfiles/path_resolver.h"
#include "vbfiles/project_file.h"

namespace vbfiles {

namespace {

constexpr std::uint64_t kMaxGroupFile = std::uint64_t{1} << 24;

bool HasExtension(const std::string& path, std::string_view extension) {
  return platform::FoldCase(path).ends_with(extension);
}

std::string CanonicalPath(files::FileSystem& system, const std::string& path) {
  try {
    return system.Canonical(path);
  } catch (const files::Error& error) {
    throw FromFileError(error);
  }
}

}  // namespace

Environment::Environment(files::FileSystem& system, Options options)
    : state_(std::make_shared<EnvironmentState>(
          EnvironmentState{system, std::move(options), false, {}, {}})),
      page_(CodePage::Get(state_->options.code_page)) {}

void Environment::Open(const std::vector<std::string>& paths) {
  std::vector<std::string> all = paths_;
  for (const std::string& path : paths) {
    const std::string canonical = CanonicalPath(state_->system, path);
    if (std::ranges::find(all, canonical) == all.end()) all.push_back(canonical);
  }
  contents_ = Read(all);
  paths_ = std::move(all);
}

Environment::Contents Environment::Read(const std::vector<std::string>& paths) const {
  Contents contents;
  for (const std::string& path : paths) {
    if (HasExtension(path, ".vbg")) {
      ReadGroup(path, contents);
    } else if (HasExtension(path, ".vbp") || SourceTypeOf(path)) {
      ReadProject(path, state_->system.Folder(path), contents);
    } else {
      throw platform::Error(
          platform::ErrorKind::kRefused, kErrInvalidCall,
          Joined({message::kNoVisualBasicFile, {{"<Path>", path}}}, message::kNameVisualBasicFile));
    }
  }
  return contents;
}

void Environment::ReadGroup(const std::string& path, Contents& contents) const {
  files::FileSystem& system = state_->system;
  std::string text;
  try {
    contents.groups[path] = system.Stamp(path).value_or(files::FileStamp{});
    text = files::ReadFile(system, path, kMaxGroupFile);
  } catch (const files::Error& error) {
    throw FromFileError(error);
  }
  const std::string folder = system.Folder(path);
  PathResolver resolver(system);
  for (const std::string& written : ParseGroupFile(text)) {
    const std::string project = resolver.Resolve(folder, page_.ToUtf8(written));
    if (!system.Exists(project)) {
      contents.problems.push_back(
          Joined({message::kGroupNamesMissing, {{"<Path>", project}, {"<Group>", path}}},
                 message::kRestoreOrCorrectGroup));
    } else if (!HasExtension(project, ".vbp")) {
      contents.problems.push_back(
          Joined({message::kGroupNamesNoProject, {{"<Path>", project}, {"<Group>", path}}},
                 message::kCorrectGroup));
    } else {
      ReadProject(CanonicalPath(system, project), folder, contents);
    }
  }
}

void Environment::ReadProject(const std::string& path, const std::string& tree,
                              Contents& contents) const {
  for (const auto& project : contents.projects) {
    if (project->FileName() != path) continue;
    project->AddTree(tree);
    return;
  }
  const std::shared_ptr<VbProject> opened = ProjectAt(path, tree);
  for (const auto& project : contents.projects) {
    if (!platform::EqualsIgnoringCase(project->Name(), opened->Name())) continue;
    throw platform::Error(
        platform::ErrorKind::kRefused, kErrInvalidCall,
        Joined({message::kSameProject,
                {{"<Path>", project->FileName()}, {"<Other>", path}, {"<Name>", opened->Name()}}},
               message::kNameOneProject));
  }
  contents.projects.push_back(opened);
}

// The project that is open, or a new one.
std::shared_ptr<VbProject> Environment::ProjectAt(const std::string& path,
                                                  const std::string& tree) const {
  for (const auto& project : contents_.projects) {
    if (project->FileName() == path) return project;
  }
  const auto& pages = state_->options.project_code_pages;
  const auto page = pages.find(path);
  return std::make_shared<VbProject>(
      state_, page == pages.end() ? page_ : CodePage::Get(page->second), path, tree);
}

void Environment::Refresh() {
  if (state_->in_unit) return;
  const bool groups_changed = std::ranges::any_of(contents_.groups, [&](const auto& group) {
    return state_->system.Stamp(group.first) != group.second;
  });
  if (groups_changed) contents_ = Read(paths_);
  for (const auto& project : contents_.projects) project->Refresh();
}

std::vector<std::shared_ptr<platform::VBProject>> Environment::VBProjects() {
  Refresh();
  return {contents_.projects.begin(), contents_.projects.end()};
}

std::shared_ptr<platform::VBProject> Environment::FindProject(std::string_view name) {
  Refresh();
  for (const auto& project : contents_.projects) {
    if (platform::EqualsIgnoringCase(project->Name(), name)) return project;
  }
  return nullptr;
}

std::vector<messages::Message> Environment::Problems() {
  std::vector<messages::Message> problems = contents_.problems;
  for (const auto& project : contents_.projects) {
    std::ranges::move(project->Problems(), std::back_inserter(problems));
  }
  return problems;
}

std::vector<ReplacedCharacters> Environment::TakeReplacedCharacters() {
  return std::exchange(state_->replaced, {});
}

std::vector<std::string> Environment::GroupFiles() const {
  std::vector<std::string> paths;
  for (const auto& [path, stamp] : contents_.groups) paths.push_back(path);
  return paths;
}

template <typename Action>
void Environment::ForEachDocument(Action action) const {
  for (const auto& [path, document] : state_->documents) {
    if (const auto open = document.lock()) action(*open);
  }
}

void Environment::Save() {
  state_->in_unit = false;
  Refresh();
  ForEachDocument([](ModuleDocument& document) { document.Save(); });
  state_->in_unit = true;
}

std::string Environment::ToUtf8(std::string_view path, std::string_view bytes) {
  const CodePage* page = &page_;
  ForEachDocument([&](const ModuleDocument& document) {
    if (document.file().path() == path) page = &document.file().page();
  });
  return page->ToUtf8(bytes);
}

void Environment::Collect(files::ChangeSet& changes) {
  ForEachDocument([&](ModuleDocument& document) { document.Collect(changes); });
}

void Environment::Committed() noexcept {
  state_->in_unit = false;
  ForEachDocument([](ModuleDocument& document) { document.Committed(); });
}

void Environment::Restore() noexcept {
  state_->in_unit = false;
  ForEachDocument([](ModuleDocument& document) { document.Restore(); });
}

std::vector<std::string> FindProjectFiles(files::FileSystem& system, const std::string& folder) {
  std::vector<std::string> found;
  std::deque<std::string> folders = {folder};
  while (!folders.empty()) {
    const std::string at = folders.front();
    folders.pop_front();
    std::vector<files::DirectoryEntry> entries;
    try {
      entries = system.List(at);
    } catch (const files::Error& error) {
      // A folder that may not be looked into, or went away meanwhile, holds nothing for us.
      if (error.kind() != files::ErrorKind::kReadOnly &&
          error.kind() != files::ErrorKind::kNotFound)
        throw FromFileError(error);
      continue;
    }
    std::ranges::sort(entries, {}, &files::DirectoryEntry::name);
    for (const files::DirectoryEntry& entry : entries) {
      if (entry.is_link) continue;
      const std::string path = at.empty() ? entry.name : system.Join(at, entry.name);
      if (entry.is_directory) {
        folders.push_back(path);
      } else if (HasExtension(entry.name, ".vbg") || HasExtension(entry.name, ".vbp")) {
        found.push_back(path);
      }
    }
  }
  return found;
}

}  // namespace vbfiles
