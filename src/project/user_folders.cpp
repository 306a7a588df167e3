// SPDX-License-Identifier: MIT
#include "project/user_folders.h"

namespace project {

namespace {

constexpr const char* kFolder = "ovformula";

std::string XdgFolder(const files::FileSystem& system, const Environment& environment,
                      const char* variable, const std::string& below_home) {
  const std::string folder = environment(variable);
  // The rules say that a relative path is to be ignored.
  if (folder.starts_with('/')) return system.Join(folder, kFolder);
  const std::string home = environment("HOME");
  return home.empty() ? std::string() : system.Join(system.Join(home, below_home), kFolder);
}

}  // namespace

UserFolders FindUserFolders(const files::FileSystem& system, const Environment& environment) {
  const std::string roaming = environment("APPDATA"), local = environment("LOCALAPPDATA");
  if (!roaming.empty() && !local.empty()) {
    return {system.Join(roaming, kFolder), system.Join(local, kFolder)};
  }
  return {XdgFolder(system, environment, "XDG_CONFIG_HOME", ".config"),
          XdgFolder(system, environment, "XDG_STATE_HOME", ".local/state")};
}

}  // namespace project
