// SPDX-License-Identifier: MIT
#include "com/host_log.h"

#include <ctime>
#include <exception>

#include "com/ole.h"
#include "com/value.h"
#include "files/file_system.h"
#include "project/event_log.h"
#include "project/user_folders.h"

namespace com {

namespace {

std::string Environment(const std::string& name) {
  const std::wstring wide = Wide(name);
  std::wstring value(GetEnvironmentVariableW(wide.c_str(), nullptr, 0), L'\0');
  value.resize(
      GetEnvironmentVariableW(wide.c_str(), value.data(), static_cast<DWORD>(value.size())));
  return Utf8(value);
}

}  // namespace

std::string LogPath() {
  files::FileSystem& system = files::RealFileSystem();
  const std::string folder = project::FindUserFolders(system, Environment).state;
  return folder.empty() ? folder : system.Join(folder, "OVFormulaEditor.log");
}

void AddToHostLog(const std::string& sentence) noexcept try {
  const std::string path = LogPath();
  if (path.empty()) return;
  project::AddToLog(files::RealFileSystem(), path, std::time(nullptr), sentence);
} catch (const std::exception&) {
}

}  // namespace com
