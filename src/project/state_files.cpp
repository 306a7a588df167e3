// SPDX-License-Identifier: MIT
#include "project/state_files.h"

#include <cstdint>

#include "files/replace_file.h"
#include "project/project.h"

namespace project {

namespace {

// FNV-1a: short, and the same on every machine.
std::string HashText(std::string_view text) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  std::string digits(16, '0');
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, hash >>= 4) {
    *digit = "0123456789abcdef"[hash & 15];
  }
  return digits;
}

}  // namespace

std::string ComponentListPath(files::FileSystem& system, const std::string& state_folder,
                              const std::string& database_path) {
  const std::string name = StudioProjectName(system, database_path);
  return system.Join(
      state_folder,
      "components-" + name + "-" + HashText(files::ResolveTarget(system, database_path)) + ".txt");
}

// Named as the component list is.
std::string ProjectStateFolder(files::FileSystem& system, const std::string& state_folder,
                               std::string_view kind, const std::string& database_path) {
  const std::string list = ComponentListPath(system, state_folder, database_path);
  return system.Join(system.Join(state_folder, std::string(kind)), system.FileName(list));
}

}  // namespace project
