// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include <string>
#include <vector>

#include "forms/menu_control.h"
#include "texts/text_table.h"

namespace desktop {

// A key and what it does, by the menu where it stands.
struct KeyRow {
  std::string menu, command, key;
  friend bool operator==(const KeyRow&, const KeyRow&) = default;
};

// The keys that the menus of a window show, then those of the tools of an editor (null: there is
// none), which may be hidden now, then those that stand in no menu.
std::vector<KeyRow> KeysOf(const wxMenuBar& menus, const forms::MenuControl* tools,
                           const texts::TextTable& texts);

// Shows them until the user closes the list.
void ShowKeyList(wxWindow* parent, const std::vector<KeyRow>& keys, const texts::TextTable& texts);

}  // namespace desktop
