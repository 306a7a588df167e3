// SPDX-License-Identifier: MIT
#include "project/project.h"

#include <algorithm>

#include "files/account.h"
#include "files/replace_file.h"
#include "project/state_files.h"
#include "store/ado_fro.h"
#include "store/schema.h"
#include "vbfiles/path_resolver.h"
#include "vbfiles/vb_project.h"

namespace project {

namespace {

// The folder with links resolved, when it is there.
void AddFolder(files::FileSystem& system, const std::string& folder,
               std::vector<std::string>& folders) {
  const std::string path = folder.empty() ? "." : folder;
  if (system.IsDirectory(path)) folders.push_back(system.Canonical(path));
}

}  // namespace

files::Reach ReachOf(files::FileSystem& system, const std::string& database_path,
                     const ProjectOptions& options) {
  std::vector<std::string> folders;
  AddFolder(system, system.Folder(files::FollowLink(system, database_path)), folders);
  for (const std::string& file : options.vb_files) {
    AddFolder(system, system.Folder(files::FollowLink(system, file)), folders);
  }
  for (const std::string& folder : options.vb.writable_folders) AddFolder(system, folder, folders);
  return [&system, folders](const std::string& path) {
    const auto holds = [&](const std::string& folder) {
      return vbfiles::IsInside(system, path, folder);
    };
    return vbfiles::SourceTypeOf(path) && std::ranges::any_of(folders, holds);
  };
}

std::string StudioProjectName(const files::FileSystem& system, const std::string& database_path) {
  const std::string name = system.FileName(database_path);
  const auto point = name.rfind('.');
  return point == std::string::npos || point == 0 ? name : name.substr(0, point);
}

namespace {

constexpr messages::Pattern kAtPath{messages::kNoText, "<Path>: <Problem>"};

void OpenDatabase(recordset::JetConnection& connection, const std::string& path, bool read_only) {
  connection.Open(store::ProjectConnectionString(
      path, read_only ? store::Access::kRead : store::Access::kReadWrite));
  const std::vector<std::string> missing = store::MissingFromSchema(connection);
  if (missing.empty()) return;
  throw platform::Error(
      platform::ErrorKind::kRefused, platform::kErrNoSuchTable,
      messages::Message(kAtPath,
                        {{"<Path>", path}, {"<Problem>", store::DescribeMissing(missing)}}));
}

std::shared_ptr<recordset::JetConnection> MakeConnection(files::FileSystem& system,
                                                         const std::string& path,
                                                         const ProjectOptions& options) {
  jet::OpenOptions engine;
  engine.reach = ReachOf(system, path, options);
  auto connection = std::make_shared<recordset::JetConnection>(system, engine);
  if (options.open_database) OpenDatabase(*connection, path, options.read_only);
  return connection;
}

std::string ItemsPath(files::FileSystem& system, const std::string& database_path,
                      const ProjectOptions& options) {
  if (!options.items_file.empty()) return options.items_file;
  return system.Join(system.Folder(database_path), "items.csv");
}

std::unique_ptr<ComponentListFile> OpenComponents(files::FileSystem& system,
                                                  const std::string& path,
                                                  const ProjectOptions& options) {
  if (options.state_folder.empty() || !options.with_code) return nullptr;
  return std::make_unique<ComponentListFile>(system,
                                             ComponentListPath(system, options.state_folder, path));
}

std::shared_ptr<vbfiles::Environment> OpenVisualBasic(files::FileSystem& system,
                                                      const std::string& database_path,
                                                      const ProjectOptions& options) {
  auto environment = std::make_shared<vbfiles::Environment>(system, options.vb);
  const std::string folder = system.Folder(database_path);
  const auto found = options.vb_files.empty()
                         ? vbfiles::FindProjectFiles(system, folder.empty() ? "." : folder)
                         : options.vb_files;
  for (const std::string& file : found) environment->Open(file);
  return environment;
}

}  // namespace

Project::Project(files::FileSystem& system, const std::string& path, const ProjectOptions& options,
                 const texts::TextTable& texts)
    : system_(system),
      reach_(ReachOf(system, path, options)),
      path_(files::FollowLink(system, path)),
      name_(StudioProjectName(system, path_)),
      connection_(MakeConnection(system, path_, options)),
      database_(connection_),
      items_(system, ItemsPath(system, path_, options), !options.items_file.empty()),
      components_(OpenComponents(system, path_, options)),
      unit_(system, path_, reach_),
      foreign_changes_(system, path_),
      history_(system, path_, unit_, [this] { return database_.database(); },
               {files::AccountAtComputer(), options.program}),
      code_(texts, &items_, components_.get()) {
  unit_.Enlist(database_);
  if (options.with_code) {
    vb_ = OpenVisualBasic(system, path_, options);
    unit_.Enlist(*vb_);
  }
  unit_.Enlist(foreign_changes_);
  unit_.Enlist(history_);
  if (!options.with_history) history_.SwitchOff();
  if (!options.open_database) return;
  code_.Initialize(connection_, vb_, name_);
  operations_ = std::make_unique<store::Operations>(
      store::Operations::Parts{connection_, vb_, &code_, &unit_, &texts});
}

Project::~Project() = default;

std::size_t Project::CountFaults(
    const std::function<void(std::uint64_t, std::uint64_t)>& progress) {
  return connection_->database().Verify(progress).findings.size();
}

history::UndoRedo Project::MakeUndoRedo(store::Operations& operations,
                                        const codegen::CodeContext& code) {
  return history::UndoRedo({system_, history_, operations, &code, reach_});
}

messages::Message Project::ReadOnlyReason() const {
  if (connection_->State() == platform::ObjectState::kClosed) return {};
  return connection_->database().read_only_reason();
}

std::vector<std::string> Project::ChangeableFiles() {
  std::vector<std::string> files = {path_};
  if (system_.Exists(history_.file().path())) files.push_back(history_.file().path());
  if (!vb_) return files;
  for (const auto& project : vb_->VBProjects()) {
    for (const auto& component : project->VBComponents()) {
      const std::string file = component->FileName();
      if (component->Module() && system_.Exists(file) && reach_(system_.Canonical(file))) {
        files.push_back(file);
      }
    }
  }
  return files;
}

}  // namespace project
