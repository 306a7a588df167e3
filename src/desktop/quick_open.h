// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dialog.h>

#include <optional>
#include <string>
#include <vector>

#include "desktop/name_index.h"
#include "desktop/place_table.h"
#include "messages/text_number.h"
#include "texts/text_table.h"

class wxStaticText;
class wxTextCtrl;

namespace desktop {

// Asks for a name by any part of it: the best ones are shown as the user types.
class QuickOpen : public wxDialog {
 public:
  // All of it outlives the dialog.
  QuickOpen(wxWindow* parent, const texts::TextTable& texts, const NameIndex& names);

  // The name that the user chose; nothing when none.
  std::optional<std::size_t> Ask();

 private:
  void Search();
  // The marked one of the names found.
  std::size_t Chosen() const;
  void Take();
  void OnKey(wxKeyEvent& event);
  void Move(int rows);
  std::string Text(messages::TextNumber number) const { return texts_.Text(number); }

  const texts::TextTable& texts_;
  const NameIndex& names_;
  wxTextCtrl* wanted_;
  PlaceTable* table_;
  wxStaticText* hint_;
  std::vector<std::size_t> found_;
};

}  // namespace desktop
