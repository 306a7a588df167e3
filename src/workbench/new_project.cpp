// SPDX-License-Identifier: MIT
#include "workbench/new_project.h"

#include <algorithm>

#include "files/error.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"
#include "store/schema.h"
#include "workbench/new_visual_basic_project.h"
#include "workbench/project.h"

namespace workbench {

namespace {

// Removes the files it was told of unless they are kept.
class MadeFiles {
 public:
  explicit MadeFiles(files::FileSystem& system) : system_(system) {}
  ~MadeFiles() {
    for (const std::string& path : undo_) {
      try {
        system_.Remove(path);
      } catch (const files::Error&) {
        continue;  // the failure that brought us here is the one to report
      }
    }
  }
  void Add(const std::string& path) {
    undo_.push_back(path);
    all_.push_back(path);
  }
  std::vector<std::string> Keep() {
    undo_.clear();
    return all_;
  }

 private:
  files::FileSystem& system_;
  std::vector<std::string> undo_;
  std::vector<std::string> all_;
};

void MakeDatabase(files::FileSystem& system, const std::string& path, bool into) {
  jet::OpenOptions engine;
  engine.reach = ReachOf(system, path, {});
  recordset::JetConnection connection(system, engine);
  if (into) {
    connection.Open(store::ProjectConnectionString(path));
  } else {
    connection.Create(store::ProjectConnectionString(path));
  }
  store::CompleteSchema(connection);
  connection.Close();
}

// The Visual Basic projects to make.
std::vector<std::string> MissingProjects(files::FileSystem& system,
                                         const std::string& database_path,
                                         const NewProjectOptions& options) {
  std::vector<std::string> wanted = options.vb_files;
  if (wanted.empty() && !options.into) wanted.push_back(FormulaProjectPath(system, database_path));
  std::erase_if(wanted, [&](const std::string& path) { return system.Exists(path); });
  return wanted;
}

}  // namespace

std::vector<std::string> MakeProject(files::FileSystem& system, const std::string& database_path,
                                     const NewProjectOptions& options) {
  MadeFiles made(system);
  if (!options.into) {
    if (system.Exists(database_path)) {
      throw files::Error(
          files::ErrorKind::kExists, database_path,
          database_path + ": The file exists already. Choose another name, or open it.");
    }
    made.Add(database_path);
  }
  MakeDatabase(system, database_path, options.into);
  for (const std::string& path : MissingProjects(system, database_path, options)) {
    const auto files =
        MakeVisualBasicProject(system, path, FormulaProjectName(system, database_path));
    std::for_each(files.begin(), files.end(), [&](const std::string& file) { made.Add(file); });
  }
  return made.Keep();
}

}  // namespace workbench
