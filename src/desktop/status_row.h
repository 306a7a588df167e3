// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include <chrono>
#include <functional>
#include <optional>

#include "files/file_system.h"
#include "store/operations.h"
#include "texts/text_table.h"

namespace desktop {

// The window's lower edge: what was said last, until it has stood long enough, and how much the
// project holds.
class StatusRow {
 public:
  // Gives the frame its status bar. Both outlive this object.
  StatusRow(wxFrame& frame, const texts::TextTable& texts);

  // Counts again when the database, whose stamp it is, is another; null: there is none. To be
  // called now and then.
  void Look(store::Operations* operations, const std::optional<files::FileStamp>& stamp);

  std::function<void()> on_open = [] {};  // the user asks for all messages by a click

 private:
  void ShowCounts(const store::Statistics& counts);
  void ShowText(const wxString& text);
  void LetGo();

  wxFrame& frame_;
  const texts::TextTable& texts_;
  std::optional<files::FileStamp> counted_;
  wxString said_;
  std::chrono::steady_clock::time_point since_;
};

}  // namespace desktop
