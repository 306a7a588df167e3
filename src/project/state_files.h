// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "files/file_system.h"

namespace project {

// Where things of one project are kept in the user's state folder. The project is known by its
// database, which need neither be there nor be readable.

std::string ComponentListPath(files::FileSystem& system, const std::string& state_folder,
                              const std::string& database_path);
// The project's own folder among those of its kind, such as "backups".
std::string ProjectStateFolder(files::FileSystem& system, const std::string& state_folder,
                               std::string_view kind, const std::string& database_path);

}  // namespace project
