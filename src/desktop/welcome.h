// SPDX-License-Identifier: MIT
#pragma once

#include <wx/scrolwin.h>

#include <functional>
#include <string>
#include <vector>

#include "messages/text_number.h"
#include "texts/text_table.h"

class wxBoxSizer;

namespace desktop {

// What the window shows while no project is open: the ways to one.
class Welcome : public wxScrolledWindow {
 public:
  // The texts must outlive the window.
  Welcome(wxWindow* parent, const texts::TextTable& texts);

  // The projects that were open last, the newest first.
  void ShowRecent(const std::vector<std::string>& paths);

  std::function<void()> on_open;
  std::function<void()> on_new;
  std::function<void(const std::string& path)> on_recent;

 private:
  void AddButton(messages::TextNumber text, std::function<void()>& action);
  void AddLink(const std::string& path);

  const texts::TextTable& texts_;
  wxBoxSizer* buttons_;
  wxBoxSizer* recent_;  // heading and links, made anew each time
};

}  // namespace desktop
