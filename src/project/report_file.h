// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "files/file_system.h"
#include "vbfiles/environment.h"

namespace project {

// The database of a project, what stands beside it while it is used, and every file of its Visual
// Basic projects. `vb` may be null. Raises platform::Error.
std::vector<std::string> FilesOfProject(const std::string& database_path, vbfiles::Environment* vb);

// What a report would replace.
enum class ReportPlace {
  kFree,     // nothing, or a report
  kOther,    // some other file
  kProject,  // a file of the project, by this or by another name
};
// Raises files::Error.
ReportPlace LookAtReportPlace(files::FileSystem& system, const std::string& path,
                              const std::vector<std::string>& project_files);

}  // namespace project
