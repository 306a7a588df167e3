// SPDX-License-Identifier: MIT
#include "desktop/main_menu.h"

#include <wx/menu.h>

#include <memory>

#include "desktop/choice_menu.h"
#include "desktop/crash_log.h"
#include "desktop/frame_texts.h"
#include "desktop/overview_texts.h"
#include "desktop/search_texts.h"
#include "dialogs/list_texts.h"
#include "messages/text_number.h"
#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

MainMenu::MainMenu(wxFrame& frame, const texts::TextTable& texts, const Commands& commands)
    : texts_(texts) {
  auto* bar = new wxMenuBar;
  bar->Append(ProjectMenu(commands), wx::ToWx(texts_.Text(studio::kTextMenuProject)));
  bar->Append(CodeMenu(commands), wx::ToWx(texts_.Text(kTextMenuCode)));
  bar->Append(HelpMenu(commands), wx::ToWx(texts_.Text(studio::kTextMenuHelp)));
  frame.SetMenuBar(bar);
  ShowRecent({});
  ShowBackups({});
  frame.Bind(wxEVT_MENU, [this](wxCommandEvent& event) {
    const auto found = actions_.find(event.GetId());
    if (found == actions_.end()) return event.Skip();
    RememberStep("menu " + std::to_string(event.GetId()));
    found->second();
  });
}

wxMenu* MainMenu::ProjectMenu(const Commands& commands) {
  auto* menu = new wxMenu;
  AddItem(*menu, studio::kTextMenuNew, "Ctrl+N", commands.create);
  AddItem(*menu, studio::kTextMenuOpen, "Ctrl+Shift+O", commands.open);
  recent_ = new ChoiceMenu;
  recent_->on_choice = commands.open_recent;
  menu->AppendSubMenu(recent_, wx::ToWx(texts_.Text(studio::kTextMenuRecent)));
  menu->AppendSeparator();
  AddItem(*menu, studio::kTextMenuSaveCode, "Ctrl+S", commands.save_code);
  backups_ = new ChoiceMenu;
  backups_->on_choice = commands.restore_backup;
  menu->AppendSubMenu(backups_, wx::ToWx(texts_.Text(studio::kTextMenuBackups)));
  menu->AppendSeparator();
  AddItem(*menu, dialogs::kTextMenuImport, "", commands.import_list);
  AddItem(*menu, dialogs::kTextMenuExport, "", commands.export_project);
  menu->AppendSeparator();
  AddItem(*menu, studio::kTextMenuQuit, "Ctrl+Q", commands.quit);
  return menu;
}

wxMenu* MainMenu::CodeMenu(const Commands& commands) {
  auto* menu = new wxMenu;
  AddItem(*menu, kTextMenuGoToName, "Ctrl+P", commands.go_to_name);
  AddItem(*menu, kTextMenuFindInAllCode, "Ctrl+Shift+F", commands.find_in_all_code);
  AddItem(*menu, kTextMenuUses, "Shift+F12", commands.show_uses);
  AddItem(*menu, kTextMenuDefinition, "F12", commands.go_to_definition);
  return menu;
}

wxMenu* MainMenu::HelpMenu(const Commands& commands) {
  auto* menu = new wxMenu;
  AddItem(*menu, studio::kTextMenuContents, "", commands.contents);
  AddItem(*menu, kTextMenuKeyboard, "", commands.keyboard);
  AddItem(*menu, studio::kTextMenuAbout, "", commands.about);
  return menu;
}

// The number of its text is the entry's ID. IDs that the toolkit knows would bring its English
// help.
void MainMenu::AddItem(wxMenu& menu, messages::TextNumber text, const char* shortcut,
                       std::function<void()> action) {
  wxMenuItem* item = menu.Append(ToInt(text), wx::ToWx(texts_.Text(text)));
  if (*shortcut) {
    wx::ShowShortcut(*item, shortcut);
    const std::unique_ptr<wxAcceleratorEntry> keys(
        wxAcceleratorEntry::Create(wxString("\t") + shortcut));
    shortcuts_.emplace_back(*keys, action);
  }
  actions_[ToInt(text)] = std::move(action);
}

void MainMenu::ShowRecent(const std::vector<std::string>& paths) {
  recent_->Fill(paths, texts_.Text(studio::kTextNoRecent));
}

void MainMenu::ShowBackups(const std::vector<std::string>& names) {
  backups_->Fill(names, texts_.Text(studio::kTextNoBackups));
}

bool MainMenu::RunShortcut(const wxKeyEvent& event) const {
  for (const auto& [keys, action] : shortcuts_) {
    if (event.GetKeyCode() != keys.GetKeyCode() || event.GetModifiers() != keys.GetFlags())
      continue;
    action();
    return true;
  }
  return false;
}

}  // namespace desktop
