// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "desktop/reading_options.h"
#include "project/file_settings_service.h"
#include "project/recent_projects.h"

namespace desktop {

// What the desktop program remembers from one start to the next: a section of desktop.ini in the
// user's state folder. Places are pixels of the screen.
class DesktopState {
 public:
  // `folder` is "" when the user has no state folder: nothing is remembered then.
  DesktopState(project::FileSettingsService& settings, files::FileSystem& files,
               const std::string& folder);

  struct Place {
    int left = -1, top = -1;  // -1: where the window system puts it
    int width = 1180, height = 760;
    bool maximised = false;
    int tree_width = 260;
    int code_height = 300;
    int code_width = 560;  // where it stands beside the table
    bool tree_shown = true, code_shown = true, code_beside = false;
    int tree_grouping = 0, tree_order = 0;  // as TreeLook counts them
  };

  Place window;
  project::RecentProjects recent;
  std::string project;  // that was open, "" for none
  std::string node;     // that was selected in it
  std::string told_crash_log;
  // Unsaved code is saved without a question when another module takes its place.
  bool save_when_leaving = false;
  int look = 0;  // as wx::Look counts them
  bool with_backups = true;
  // As the toolkit describes fonts; "" for the system's.
  std::string table_font;
  std::string code_font;

  // How the user wants a project, named by its canonical path, to be read.
  ReadingOptions OptionsOf(const std::string& path) const;
  void KeepOptions(const std::string& path, const ReadingOptions& options);

  const std::string& folder() const { return folder_; }
  // What is kept of one project, by kind: "backups", "unsaved".
  std::string FolderOf(const char* kind, const std::string& path) const;
  // False when it cannot be written.
  bool Save();

 private:
  int Number(std::string_view entry, int fallback);

  project::FileSettingsService& settings_;
  files::FileSystem& files_;
  std::string folder_;
  std::string file_;
};

}  // namespace desktop
