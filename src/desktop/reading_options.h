// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/file_settings_service.h"
#include "project/project.h"

namespace desktop {

// How a project is to be read, where the user said so when starting the program. It is kept for
// the project, because it holds for the next start as well.
struct ReadingOptions {
  std::vector<std::string> vb_files;          // empty: those beside and below the database
  std::string items_file;                     // "": items.csv beside the database
  std::vector<std::string> writable_folders;  // outside the project's own
  int code_page = 0;                          // of Visual Basic source; 0: the usual one

  bool Empty() const;
  void ApplyTo(project::ProjectOptions& options) const;

  // The section of an INI file holds them.
  static ReadingOptions Read(project::FileSettingsService& settings, std::string_view file,
                             std::string_view section);
  // False when it cannot be written.
  bool Write(project::FileSettingsService& settings, std::string_view file,
             std::string_view section) const;
};

}  // namespace desktop
