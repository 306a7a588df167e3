// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include <string>

#include "desktop/window_parts.h"

namespace desktop {

// How the main window and its parts tell the user something.
class WindowMessages {
 public:
  // Both outlive this object; the frame has a status bar when it is first used.
  WindowMessages(wxFrame& frame, const WindowParts& parts) : frame_(frame), parts_(parts) {}

  // One line at the window's lower edge.
  void Status(const std::string& text) const;
  void Warn(const std::string& message, const std::string& detail) const;
  void Fail(const std::string& message, const std::string& detail) const;
  // Yes or No, No being the default. Whether Yes was chosen.
  bool Ask(const std::string& question, const std::string& detail,
           platform::MessageIcon icon = platform::MessageIcon::kQuestion) const;

 private:
  wxFrame& frame_;
  const WindowParts& parts_;
};

}  // namespace desktop
