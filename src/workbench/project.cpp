// SPDX-License-Identifier: MIT
#include "workbench/project.h"

#include <cstdint>

#include "store/ado_fro.h"
#include "store/schema.h"

namespace workbench {

namespace {

std::shared_ptr<recordset::JetConnection> OpenConnection(files::FileSystem& system,
                                                         const std::string& path, bool read_only,
                                                         const texts::TextTable& texts) {
  auto connection = std::make_shared<recordset::JetConnection>(system);
  connection->Open(store::ProjectConnectionString(
      path, read_only ? store::Access::kRead : store::Access::kReadWrite));
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

}  // namespace

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
  return system.Join(state_folder, "components-" + name + "-" +
                                       HashText(system.Canonical(database_path)) + ".txt");
}

Project::Project(files::FileSystem& system, const std::string& path, const ProjectOptions& options,
                 const texts::TextTable& texts)
    : path_(path),
      connection_(OpenConnection(system, path, options.read_only, texts)),
      database_(connection_),
      items_(system, ItemsPath(system, path, options), !options.items_file.empty()),
      components_(OpenComponents(system, path, options)),
      unit_(system, path),
      code_(texts, &items_, components_.get()) {
  unit_.Enlist(database_);
  if (components_) unit_.Enlist(*components_);
  if (options.with_code) {
    vb_ = OpenVisualBasic(system, path, options);
    unit_.Enlist(*vb_);
  }
  code_.Initialize(connection_, vb_, StudioProjectName(system, path));
  operations_ = std::make_unique<store::Operations>(
      store::Operations::Parts{connection_, vb_, &code_, &unit_, &texts});
}

Project::~Project() = default;

}  // namespace workbench
