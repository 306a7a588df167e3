// SPDX-License-Identifier: MIT
#include "project/new_project.h"

#include "files/error.h"
#include "files/replace_file.h"
#include "jet/error.h"
#include "project/made_files.h"
#include "project/new_visual_basic_project.h"
#include "project/project.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"
#include "store/schema.h"

namespace project {

namespace {

// Returns what was added, or with `dry_run` would be.
std::vector<std::string> CompleteDatabase(files::FileSystem& system, const std::string& path,
                                          bool dry_run) {
  jet::OpenOptions engine;
  engine.reach = ReachOf(system, path, {});
  recordset::JetConnection connection(system, engine);
  connection.Open(store::ProjectConnectionString(path));
  if (dry_run) connection.BeginTrans();
  std::vector<std::string> added = store::CompleteSchema(connection);
  if (dry_run) connection.RollbackTrans();
  connection.Close();
  return added;
}

[[noreturn]] void RaiseExists(const std::string& path) {
  throw files::Error(files::ErrorKind::kExists, path,
                     jet::Error(jet::ErrorKind::kExists, path, {}, jet::message::kFileExists,
                                jet::message::kChooseNameOrOpen)
                         .message());
}

// Complete before it bears its name, so that of several who make it at once one succeeds, and the
// others find all of it.
void MakeDatabase(files::FileSystem& system, MadeFiles& made, const std::string& path) {
  const std::string temporary = files::TemporaryName(system, files::ResolveTarget(system, path));
  try {
    {
      recordset::JetConnection connection(system);
      connection.Create(store::ProjectConnectionString(temporary));
      store::CompleteSchema(connection);
      connection.Close();
    }
    made.Move(temporary, path);
  } catch (const files::Error& error) {
    files::RemoveQuietly(system, temporary);
    if (error.kind() == files::ErrorKind::kExists) RaiseExists(path);
    throw;
  } catch (const platform::Error& error) {
    files::RemoveQuietly(system, temporary);
    throw platform::Error(error.kind(), error.number(), error.message().Exchanged(temporary, path));
  }
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
  if (options.into) {
    CompleteDatabase(system, database_path, false);
  } else {
    if (system.Exists(database_path)) RaiseExists(database_path);
    MakeDatabase(system, made, database_path);
  }
  for (const std::string& path : MissingProjects(system, database_path, options)) {
    MakeVisualBasicProject(system, made, path, FormulaProjectName(system, database_path));
  }
  return made.Keep();
}

NewProjectPlan PlanProject(files::FileSystem& system, const std::string& database_path,
                           const NewProjectOptions& options) {
  NewProjectPlan plan;
  if (options.into) {
    plan.added = CompleteDatabase(system, database_path, true);
  } else {
    if (system.Exists(database_path)) RaiseExists(database_path);
    const std::string folder = system.Folder(database_path);
    if (!folder.empty() && !system.IsDirectory(folder)) {
      files::Raise(files::ErrorKind::kNotFound, database_path, files::message::kCannotBeOpened,
                   files::message::kNoSuchFile);
    }
    plan.added = {database_path};
  }
  for (const std::string& path : MissingProjects(system, database_path, options)) {
    for (NewFile& file :
         VisualBasicProjectFiles(system, path, FormulaProjectName(system, database_path))) {
      if (system.Exists(file.path)) RaiseExists(file.path);
      plan.files.push_back(std::move(file));
    }
  }
  return plan;
}

}  // namespace project
