// SPDX-License-Identifier: MIT
#pragma once

#include <wx/accel.h>
#include <wx/frame.h>

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "messages/text_number.h"
#include "texts/text_table.h"

class wxMenu;

namespace desktop {

class ChoiceMenu;

// The menus of the main window itself; those of the editor stand between them.
class MainMenu {
 public:
  struct Commands {
    std::function<void()> create, open, save_code, quit, contents, keyboard, about;
    std::function<void()> import_list, export_project;
    std::function<void()> go_to_name, find_in_all_code, show_uses, go_to_definition;
    std::function<void(std::size_t)> open_recent, restore_backup;  // by place in their menus
  };

  // Gives the frame its menu bar. Both outlive this object.
  MainMenu(wxFrame& frame, const texts::TextTable& texts, const Commands& commands);

  void ShowRecent(const std::vector<std::string>& paths);
  void ShowBackups(const std::vector<std::string>& names);
  // Runs the command of a key; the native lists have uses of their own for some of them. False
  // when it is none of the menu's.
  bool RunShortcut(const wxKeyEvent& event) const;

 private:
  wxMenu* ProjectMenu(const Commands& commands);
  wxMenu* CodeMenu(const Commands& commands);
  wxMenu* HelpMenu(const Commands& commands);
  void AddItem(wxMenu& menu, messages::TextNumber text, const char* shortcut,
               std::function<void()> action);

  const texts::TextTable& texts_;
  ChoiceMenu* recent_ = nullptr;
  ChoiceMenu* backups_ = nullptr;
  std::map<int, std::function<void()>> actions_;  // by menu ID
  std::vector<std::pair<wxAcceleratorEntry, std::function<void()>>> shortcuts_;
};

}  // namespace desktop
