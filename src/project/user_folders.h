// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "files/file_system.h"

namespace project {

// Folders of the user that the programs keep their own things in.
struct UserFolders {
  std::string config;  // settings that a user may want to carry to another machine
  std::string state;   // component list, window places, backups, logs
};

using Environment = std::function<std::string(const std::string&)>;  // "" for an unset variable

// On Windows below APPDATA and LOCALAPPDATA; elsewhere as the XDG rules say, below the home
// folder when the variables are unset. The folders need not exist yet. Both are "" when the
// environment names no home.
UserFolders FindUserFolders(const files::FileSystem& system, const Environment& environment);

}  // namespace project
