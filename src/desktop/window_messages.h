// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include <string>

#include "desktop/message_log.h"
#include "desktop/window_parts.h"

namespace desktop {

// How the main window and its parts tell the user something.
class WindowMessages {
 public:
  // All of it outlives this object; the frame has a status bar when it is first used.
  WindowMessages(wxFrame& frame, const WindowParts& parts, MessageLog& log)
      : frame_(frame), parts_(parts), log_(log) {}

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
  MessageLog& log_;
};

}  // namespace desktop
