// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "files/file_system.h"
#include "project/made_files.h"

namespace project {

// The name of the formula server project of a database: the database's name made a Visual Basic
// identifier, with "Formulas" behind it.
std::string FormulaProjectName(const files::FileSystem& system, const std::string& database_path);

// Where that project is made when nobody says otherwise: beside the database.
std::string FormulaProjectPath(const files::FileSystem& system, const std::string& database_path);

struct NewFile {
  std::string path;
  std::string bytes;
};

// The files of an ActiveX DLL project of that name with one public class CFormulas, as the
// development environment writes them.
std::vector<NewFile> VisualBasicProjectFiles(const files::FileSystem& system,
                                             const std::string& vbp_path, const std::string& name);

// Writes these files. Raises files::Error, kExists when one of them is there.
void MakeVisualBasicProject(files::FileSystem& system, MadeFiles& made, const std::string& vbp_path,
                            const std::string& name);

}  // namespace project
