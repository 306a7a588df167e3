// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <type_traits>  // wx/weakref.h needs it and does not include it

#include <wx/weakref.h>

#include "desktop/desktop_state.h"
#include "desktop/desktop_toolkit.h"
#include "desktop/main_window.h"
#include "helpwindow/help_viewer.h"
#include "project/file_settings_service.h"
#include "project/user_folders.h"
#include "texts/text_table.h"
#include "wx/window_system.h"

namespace desktop {

// The desktop program: its window and what the window works with. The toolkit must run already.
class Program {
 public:
  // Shows the window, with no project yet. The file system must outlive the program.
  Program(files::FileSystem& files, const project::UserFolders& folders, texts::Language language);
  // The window goes too when it is still open.
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  MainWindow& window() { return *window_; }
  const texts::TextTable& texts() const { return texts_; }
  DesktopToolkit& toolkit() { return toolkit_; }
  DesktopState& state() { return state_; }

 private:
  project::FileSettingsService settings_;
  texts::TextTable texts_;
  DesktopToolkit toolkit_;
  wx::WindowSystem window_system_;
  helpwindow::HelpViewer help_;
  DesktopState state_;
  wxWeakRef<MainWindow> window_;
};

}  // namespace desktop
