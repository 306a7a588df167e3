// SPDX-License-Identifier: MIT
#include "project/project.h"

#include <algorithm>
#include <cstdint>

#include "files/replace_file.h"
#include "store/ado_fro.h"
#include "store/schema.h"
#include "vbfiles/path_resolver.h"
#include "vbfiles/project.h"

namespace project {

namespace {

std::shared_ptr<recordset::JetConnection> OpenConnection(files::FileSystem& system,
                                                         const std::string& path,
                                                         const ProjectOptions& options,
                                                         const texts::TextTable& texts) {
  jet::OpenOptions engine;
  engine.reach = ReachOf(system, path, options);
  auto connection = std::make_shared<recordset::JetConnection>(system, engine);
  connection->Open(store::ProjectConnectionString(
      path, options.read_only ? store::Access::kRead : store::Access::kReadWrite));
  const std::vector<std::string> missing = store::MissingFromSchema(*connection);
  if (!missing.empty()) {
    throw platform::Error(platform::ErrorKind::kRefused, platform::kErrNoSuchTable,
                          path + ": " + store::DescribeMissing(missing, texts));
  }
  return connection;
}

// FNV-1a: short, and the same on every machine.
std::string HashText(std::string_view text) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  std::string digits(16, '0');
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, hash >>= 4) {
    *digit = "0123456789abcdef"[hash & 15];
  }
  return digits;
}

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

std::string ComponentListPath(files::FileSystem& system, const std::string& state_folder,
                              const std::string& database_path) {
  const std::string name = StudioProjectName(system, database_path);
  return system.Join(
      state_folder,
      "components-" + name + "-" + HashText(files::ResolveTarget(system, database_path)) + ".txt");
}

Project::Project(files::FileSystem& system, const std::string& path, const ProjectOptions& options,
                 const texts::TextTable& texts)
    : path_(files::FollowLink(system, path)),
      connection_(OpenConnection(system, path_, options, texts)),
      database_(connection_),
      items_(system, ItemsPath(system, path_, options), !options.items_file.empty()),
      components_(OpenComponents(system, path_, options)),
      unit_(system, path_, ReachOf(system, path_, options)),
      code_(texts, &items_, components_.get()) {
  unit_.Enlist(database_);
  if (options.with_code) {
    vb_ = OpenVisualBasic(system, path_, options);
    unit_.Enlist(*vb_);
  }
  code_.Initialize(connection_, vb_, StudioProjectName(system, path_));
  operations_ = std::make_unique<store::Operations>(
      store::Operations::Parts{connection_, vb_, &code_, &unit_, &texts});
}

Project::~Project() = default;

}  // namespace project
