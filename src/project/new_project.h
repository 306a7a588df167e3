// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "files/file_system.h"
#include "project/new_visual_basic_project.h"

namespace project {

struct NewProjectOptions {
  bool into = false;  // add missing tables and indexes to an existing database
  std::vector<std::string> vb_files;
};

// Creates a project database, and a formula server project: the files of `vb_files` that do not
// exist yet, or without any the database's own beside it. With `into`, completes an existing
// database, and makes only projects that are named. Returns the files made or completed. Raises
// platform::Error or files::Error; what was made until then is removed again.
std::vector<std::string> MakeProject(files::FileSystem& system, const std::string& database_path,
                                     const NewProjectOptions& options);

// What MakeProject would do.
struct NewProjectPlan {
  std::vector<std::string> added;  // the database, or with `into` tables and "Table.Index"
  std::vector<NewFile> files;      // of Visual Basic projects
};

// Finds that out and changes nothing. Raises what MakeProject would raise.
NewProjectPlan PlanProject(files::FileSystem& system, const std::string& database_path,
                           const NewProjectOptions& options);

}  // namespace project
