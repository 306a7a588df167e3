// SPDX-License-Identifier: MIT
#include "vbfiles/environment.h"

#include <algorithm>
#include <deque>

#include "platform/text.h"
#include "vbfiles/errors.h"
#include "vbfiles/project_file.h"

namespace vbfiles {

namespace {

constexpr std::uint64_t kLargestGroupFile = std::uint64_t{1} << 24;

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
    : session_(std::make_shared<Session>(Session{system, std::move(options), false, {}})),
      page_(CodePage::Get(session_->options.code_page)) {}

void Environment::Open(const std::string& path) {
  const std::string canonical = CanonicalPath(session_->system, path);
  if (HasExtension(canonical, ".vbg")) {
    OpenGroup(canonical);
  } else if (HasExtension(canonical, ".vbp") || SourceTypeOf(canonical)) {
    OpenProject(canonical, session_->system.Folder(canonical));
  } else {
    throw platform::Error(platform::ErrorKind::kRefused, kErrInvalidCall,
                          path +
                              " is no Visual Basic file. Name a .vbp, a .vbg or a source file "
                              "such as a .cls.");
  }
}

void Environment::OpenGroup(const std::string& path) {
  files::FileSystem& system = session_->system;
  std::string text;
  try {
    text = files::ReadFile(system, path, kLargestGroupFile);
  } catch (const files::Error& error) {
    throw FromFileError(error);
  }
  const std::string folder = system.Folder(path);
  PathResolver resolver(system);
  for (const std::string& written : ParseGroupFile(text)) {
    const std::string project = resolver.Resolve(folder, page_.ToUtf8(written));
    if (!system.Exists(project)) {
      problems_.push_back(project + " does not exist, although " + path +
                          " names it. Restore it, or correct the group.");
    } else if (!HasExtension(project, ".vbp")) {
      problems_.push_back(project + " is no project, although " + path +
                          " names it. Correct the group.");
    } else {
      OpenProject(CanonicalPath(system, project), folder);
    }
  }
}

void Environment::OpenProject(const std::string& path, const std::string& root_folder) {
  for (const auto& project : projects_) {
    if (project->FileName() == path) return;
  }
  auto opened = std::make_shared<Project>(session_, page_, path, root_folder);
  for (const auto& project : projects_) {
    if (!platform::EqualsIgnoringCase(project->Name(), opened->Name())) continue;
    throw platform::Error(platform::ErrorKind::kRefused, kErrInvalidCall,
                          project->FileName() + " and " + path + " both are the project " +
                              opened->Name() + ". Name the one that is meant.");
  }
  projects_.push_back(std::move(opened));
}

void Environment::Refresh() {
  if (session_->in_unit) return;
  for (const auto& project : projects_) project->Refresh();
}

std::vector<std::shared_ptr<platform::VBProject>> Environment::VBProjects() {
  Refresh();
  return {projects_.begin(), projects_.end()};
}

std::shared_ptr<platform::VBProject> Environment::FindProject(std::string_view name) {
  Refresh();
  for (const auto& project : projects_) {
    if (platform::EqualsIgnoringCase(project->Name(), name)) return project;
  }
  return nullptr;
}

std::vector<std::string> Environment::Problems() {
  std::vector<std::string> problems = problems_;
  for (const auto& project : projects_) {
    std::ranges::move(project->Problems(), std::back_inserter(problems));
  }
  return problems;
}

std::vector<ReplacedCharacters> Environment::TakeReplacedCharacters() {
  return std::exchange(session_->replaced, {});
}

void Environment::AllowWritesIn(const std::string& folder) {
  session_->options.writable_folders.push_back(folder);
}

template <typename Action>
void Environment::ForEachModule(Action action) {
  for (const auto& project : projects_) {
    for (const auto& component : project->Components()) {
      if (SourceModule* module = component->Source()) action(*module);
    }
  }
}

void Environment::Save() {
  session_->in_unit = false;
  Refresh();
  ForEachModule([](SourceModule& module) { module.Save(); });
  session_->in_unit = true;
}

void Environment::Collect(files::ChangeSet& changes) {
  ForEachModule([&](SourceModule& module) { module.Collect(changes); });
}

void Environment::Committed() noexcept {
  session_->in_unit = false;
  ForEachModule([](SourceModule& module) { module.Committed(); });
}

void Environment::Restore() noexcept {
  session_->in_unit = false;
  ForEachModule([](SourceModule& module) { module.Restore(); });
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
    } catch (const files::Error&) {
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
