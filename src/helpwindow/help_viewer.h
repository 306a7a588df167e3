// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>  // wx/weakref.h needs it and does not include it

#include <wx/weakref.h>

#include "handbook/book.h"
#include "helpwindow/help_frame.h"
#include "platform/help.h"
#include "texts/text_table.h"

namespace helpwindow {

// Shows the built-in help in a window of its own, which stays usable while a dialog is open.
class HelpViewer : public platform::Help {
 public:
  // The texts must outlive the viewer.
  explicit HelpViewer(const texts::TextTable& texts);

  // The pages are part of the program; the path does not matter.
  void SetHelpFile(std::string_view path) override;
  // A topic that does not exist shows the first page.
  void ShowTopic(platform::WindowHandle owner, std::int32_t topic) override;

 private:
  const texts::TextTable& texts_;
  handbook::Book book_;
  wxWeakRef<HelpFrame> frame_;  // null while the window is closed
};

}  // namespace helpwindow
