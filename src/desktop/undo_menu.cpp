// SPDX-License-Identifier: MIT
#include "desktop/undo_menu.h"

#include <wx/menu.h>
#include <wx/stc/stc.h>

#include "desktop/crash_log.h"
#include "studio/undo_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr std::size_t kPlace = 1;  // in the menu bar

enum class Key { kNone, kUndo, kRedo };

Key KeyOf(const wxKeyEvent& event) {
  const int code = event.GetKeyCode(), modifiers = event.GetModifiers();
  if (code == 'Z' && modifiers == wxMOD_CONTROL) return Key::kUndo;
  if (code == 'Y' && modifiers == wxMOD_CONTROL) return Key::kRedo;
  if (code == 'Z' && modifiers == (wxMOD_CONTROL | wxMOD_SHIFT)) return Key::kRedo;
  return Key::kNone;
}

}  // namespace

UndoMenu::UndoMenu(wxFrame& frame, const texts::TextTable& texts, const WindowMessages& messages)
    : frame_(frame),
      texts_(texts),
      messages_(messages),
      menu_(new wxMenu),
      undo_item_(
          menu_->Append(ToInt(studio::kTextUndoLast), wx::ToWx(texts.Text(studio::kTextUndoLast)))),
      redo_item_(menu_->Append(ToInt(studio::kTextRedoLast),
                               wx::ToWx(texts.Text(studio::kTextRedoLast)))) {
  frame.GetMenuBar()->Insert(kPlace, menu_, wx::ToWx(texts.Text(studio::kTextMenuEdit)));
  frame.Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { Run(true); }, ToInt(studio::kTextUndoLast));
  frame.Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { Run(false); }, ToInt(studio::kTextRedoLast));
  frame.Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
    event.Skip();
    if (event.GetMenu() == menu_) Update();
  });
  Show();
}

void UndoMenu::Serve(ProjectUndo* undo) {
  undo_ = undo;
  if (undo_) undo_->Look();
  Show();
}

void UndoMenu::Update() {
  if (undo_ && undo_->Look()) Show();
}

bool UndoMenu::RunKey(const wxKeyEvent& event) {
  const Key key = KeyOf(event);
  const bool in_code = dynamic_cast<wxStyledTextCtrl*>(wxWindow::FindFocus()) != nullptr;
  if (key == Key::kNone || in_code || wx::TextHasKeyboard(frame_)) return false;
  Run(key == Key::kUndo);
  return true;
}

void UndoMenu::Run(bool undo) {
  RememberStep(undo ? "undo" : "redo");
  Update();
  const std::string reason = WhyNot(undo);
  if (!reason.empty()) return messages_.Status(reason);
  undo ? undo_->Undo() : undo_->Redo();
}

void UndoMenu::Show() {
  ShowEntry(true);
  ShowEntry(false);
}

void UndoMenu::ShowEntry(bool undo) {
  wxMenuItem& item = undo ? *undo_item_ : *redo_item_;
  const std::string reason = WhyNot(undo);
  const std::string caption =
      undo_ ? undo_->steps().Caption(undo)
            : texts_.Text(undo ? studio::kTextUndoLast : studio::kTextRedoLast);
  item.SetItemLabel(wx::ToWx(caption));
  item.SetHelp(wx::ToWx(reason));
  item.Enable(reason.empty());
  wx::ShowShortcut(item, undo ? "Ctrl+Z" : "Ctrl+Y");
}

std::string UndoMenu::WhyNot(bool undo) const {
  if (!undo_) return texts_.Text(studio::kTextNoProjectOpen);
  return undo_->steps().WhyNot(undo);
}

}  // namespace desktop
