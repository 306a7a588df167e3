// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "files/file_system.h"
#include "project/project.h"

namespace project {

// The database of a project, what stands beside it, there or not, its item catalogue and every file
// of its Visual Basic projects. Raises platform::Error.
std::vector<std::string> FilesOfProject(Project& project);

// What a report, a list or a picture would replace.
enum class ReportPlace {
  kFree,     // nothing, or a report
  kOther,    // some other file
  kProject,  // a file of the project, by this or by another name
};
// Raises files::Error.
ReportPlace LookAtReportPlace(files::FileSystem& system, const std::string& path,
                              const std::vector<std::string>& project_files);

}  // namespace project
