// SPDX-License-Identifier: MIT
#include "desktop/key_list.h"

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/menu.h>
#include <wx/sizer.h>

#include <algorithm>

#include "desktop/frame_texts.h"
#include "desktop/place_table.h"
#include "messages/text_number.h"
#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kGap = 8;  // pixels at 100 %
constexpr int kWidth = 560, kHeight = 460;

// Keys that no menu shows: the next text says what each does.
constexpr messages::TextNumber kElsewhere[] = {
    kTextKeyHelp,      kTextKeyRound,       kTextKeyTree, kTextKeyFilter,
    kTextKeyFindAgain, kTextKeyLeaveFilter, kTextKeyOrder};

void Add(std::vector<KeyRow>& keys, KeyRow row) {
  const auto known = [&](const KeyRow& other) {
    return other.command == row.command && other.key == row.key && other.menu == row.menu;
  };
  if (!row.key.empty() && std::ranges::none_of(keys, known)) keys.push_back(std::move(row));
}

void AddMenu(std::vector<KeyRow>& keys, const std::string& title, const wxMenu& menu) {
  for (const wxMenuItem* item : menu.GetMenuItems()) {
    if (item->GetSubMenu()) AddMenu(keys, title, *item->GetSubMenu());
    if (item->IsSeparator()) continue;
    Add(keys, {title, wx::FromWx(item->GetItemLabelText()), wx::FromWx(wx::ShownShortcut(*item))});
  }
}

std::string WithoutMnemonic(const std::string& caption) {
  return wx::FromWx(wxMenuItem::GetLabelText(wx::ToWx(caption)));
}

void AddTools(std::vector<KeyRow>& keys, const forms::MenuControl& tools) {
  for (const auto& opener : tools.Tools()) {
    const forms::Band* band =
        opener->SubBand().empty() ? nullptr : tools.FindBand(opener->SubBand());
    if (!band) continue;
    for (const forms::Tool* tool : band->Tools())
      Add(keys, {WithoutMnemonic(opener->Caption()), WithoutMnemonic(tool->Caption()),
                 wx::FromWx(wx::KeyText(wx::ToWx(tool->Shortcut())))});
  }
}

}  // namespace

std::vector<KeyRow> KeysOf(const wxMenuBar& menus, const forms::MenuControl* tools,
                           const texts::TextTable& texts) {
  std::vector<KeyRow> keys;
  for (std::size_t i = 0; i < menus.GetMenuCount(); ++i)
    AddMenu(keys, wx::FromWx(menus.GetMenuLabelText(i)), *menus.GetMenu(i));
  if (tools) AddTools(keys, *tools);
  for (const messages::TextNumber key : kElsewhere)
    keys.push_back({texts.Text(kTextKeyElsewhere), texts.Text(key + 1), texts.Text(key)});
  return keys;
}

void ShowKeyList(wxWindow* parent, const std::vector<KeyRow>& keys, const texts::TextTable& texts) {
  const auto text = [&](messages::TextNumber number) { return wx::ToWx(texts.Text(number)); };
  wxDialog dialog(parent, wxID_ANY, text(kTextKeyboard), wxDefaultPosition, wxDefaultSize,
                  wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  auto* table = new PlaceTable(&dialog, texts.Text(kTextKeyboard),
                               {{texts.Text(kTextKeyMenu), 18},
                                {texts.Text(kTextKey), 18},
                                {texts.Text(kTextKeyCommand), 0}});
  std::vector<PlaceTable::Row> rows;
  rows.reserve(keys.size());
  for (const KeyRow& row : keys) rows.push_back({row.menu, row.key, row.command});
  table->ShowRows(std::move(rows));
  auto* close = new wxButton(&dialog, wxID_CANCEL, text(studio::kTextClose));
  const int gap = dialog.FromDIP(kGap);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(table, wxSizerFlags(1).Expand().Border(wxALL, gap));
  all->Add(close, wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  dialog.SetSizer(all);
  dialog.SetClientSize(dialog.FromDIP(wxSize(kWidth, kHeight)));
  dialog.CentreOnParent();
  table->SetFocus();
  dialog.ShowModal();
}

}  // namespace desktop
