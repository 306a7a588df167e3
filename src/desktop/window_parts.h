// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_state.h"
#include "desktop/desktop_toolkit.h"
#include "files/file_system.h"
#include "messages/text_number.h"
#include "platform/help.h"
#include "platform/window_system.h"
#include "project/file_settings_service.h"
#include "project/project.h"
#include "texts/text_table.h"

namespace desktop {

// What the main window and its parts work with. All of it outlives the window.
struct WindowParts {
  files::FileSystem& files;
  DesktopToolkit& toolkit;
  platform::WindowSystem& window_system;
  platform::Help& help;
  project::FileSettingsService& settings;
  const texts::TextTable& texts;
  DesktopState& state;
  project::ProjectOptions options;

  std::string Text(messages::TextNumber number) const { return texts.Text(number); }
};

}  // namespace desktop
