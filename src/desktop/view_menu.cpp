// SPDX-License-Identifier: MIT
#include "desktop/view_menu.h"

#include <wx/menu.h>

#include "desktop/crash_log.h"
#include "desktop/frame_texts.h"
#include "desktop/overview_texts.h"
#include "messages/text_number.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr std::size_t kPlace = 2;  // in the menu bar

}  // namespace

ViewMenu::ViewMenu(wxFrame& frame, const texts::TextTable& texts, WindowPanes& panes)
    : panes_(panes), menu_(new wxMenu) {
  const auto add = [&](messages::TextNumber text, const char* key, Pane pane) {
    wxMenuItem* item = menu_->AppendCheckItem(ToInt(text), wx::ToWx(texts.Text(text)));
    wx::ShowShortcut(*item, key);
    frame.Bind(
        wxEVT_MENU, [this, pane](wxCommandEvent&) { Toggle(pane); }, ToInt(text));
    return item;
  };
  tree_ = add(kTextViewTree, "Ctrl+B", Pane::kTree);
  code_ = add(kTextViewCode, "Ctrl+J", Pane::kCode);
  code_beside_ = add(kTextViewCodeBeside, "Ctrl+Shift+J", Pane::kCodeBeside);
  AddLooks(frame, texts);
  AddMessages(frame, texts);
  frame.GetMenuBar()->Insert(kPlace, menu_, wx::ToWx(texts.Text(kTextMenuView)));
  frame.Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
    event.Skip();
    if (event.GetMenu() == menu_) Show();
  });
  Show();
}

void ViewMenu::AddLooks(wxFrame& frame, const texts::TextTable& texts) {
  const auto add = [&](messages::TextNumber text, std::vector<wxMenuItem*>& items, auto choose) {
    items.push_back(menu_->AppendRadioItem(ToInt(text), wx::ToWx(texts.Text(text))));
    frame.Bind(
        wxEVT_MENU,
        [this, choose](wxCommandEvent&) {
          RememberStep("look of the tree");
          TreeLook look = panes_.tree().Look();
          choose(look);
          panes_.SetTreeLook(look);
        },
        ToInt(text));
  };
  menu_->AppendSeparator();
  for (int i = 0; kTextTreeFlat + i <= kTextTreeByCallType; ++i) {
    add(kTextTreeFlat + i, groupings_,
        [i](TreeLook& look) { look.grouping = static_cast<TreeLook::Grouping>(i); });
  }
  menu_->AppendSeparator();
  for (int i = 0; kTextTreeAsCreated + i <= kTextTreeByName; ++i) {
    add(kTextTreeAsCreated + i, orders_,
        [i](TreeLook& look) { look.order = static_cast<TreeLook::Order>(i); });
  }
}

void ViewMenu::AddMessages(wxFrame& frame, const texts::TextTable& texts) {
  menu_->AppendSeparator();
  wxMenuItem* item =
      menu_->Append(ToInt(kTextMenuMessages), wx::ToWx(texts.Text(kTextMenuMessages)));
  wx::ShowShortcut(*item, "Ctrl+Shift+L");
  frame.Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { panes_.messages().ShowNewest(); },
      ToInt(kTextMenuMessages));
  menu_->AppendSeparator();
  menu_->Append(ToInt(kTextMenuOptions), wx::ToWx(texts.Text(kTextMenuOptions)));
  frame.Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { on_options(); }, ToInt(kTextMenuOptions));
}

bool ViewMenu::RunKey(const wxKeyEvent& event) {
  const int code = event.GetKeyCode(), modifiers = event.GetModifiers();
  if (modifiers == wxMOD_CONTROL && code == 'B') {
    Toggle(Pane::kTree);
  } else if (modifiers == wxMOD_CONTROL && code == 'J') {
    Toggle(Pane::kCode);
  } else if (modifiers == (wxMOD_CONTROL | wxMOD_SHIFT) && code == 'J') {
    Toggle(Pane::kCodeBeside);
  } else if (modifiers == (wxMOD_CONTROL | wxMOD_SHIFT) && code == 'L') {
    panes_.messages().ShowNewest();
  } else {
    return false;
  }
  return true;
}

void ViewMenu::Toggle(Pane pane) {
  RememberStep("view " + std::to_string(static_cast<int>(pane)));
  if (pane == Pane::kTree) panes_.ShowTree(!panes_.TreeShown());
  if (pane == Pane::kCode) panes_.ShowCode(!panes_.CodeShown());
  if (pane == Pane::kCodeBeside) panes_.PutCodeBeside(!panes_.CodeBeside());
  Show();
}

void ViewMenu::Show() {
  for (wxMenuItem* item : {tree_, code_, code_beside_}) item->Enable(panes_.ProjectShown());
  tree_->Check(panes_.TreeShown());
  code_->Check(panes_.CodeShown());
  code_beside_->Check(panes_.CodeBeside());
  const TreeLook& look = panes_.tree().Look();
  groupings_[static_cast<std::size_t>(look.grouping)]->Check();
  orders_[static_cast<std::size_t>(look.order)]->Check();
}

}  // namespace desktop
