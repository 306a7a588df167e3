// SPDX-License-Identifier: MIT
#include "desktop/choice_menu.h"

#include <algorithm>

#include "wx/convert.h"

namespace desktop {

ChoiceMenu::ChoiceMenu() {
  Bind(wxEVT_MENU, [this](wxCommandEvent& event) {
    const auto chosen = std::find(ids_.begin(), ids_.end(), event.GetId());
    if (chosen == ids_.end()) return event.Skip();
    const auto place = static_cast<std::size_t>(chosen - ids_.begin());
    GetWindow()->CallAfter([this, place] { on_choice(place); });  // which may fill the menu anew
  });
}

void ChoiceMenu::Fill(const std::vector<std::string>& choices, const std::string& none) {
  for (const int id : ids_) Destroy(id);
  ids_.clear();
  for (const std::string& choice : choices)
    ids_.push_back(Append(wxID_ANY, wx::ToLabel(choice))->GetId());
  if (!choices.empty()) return;
  wxMenuItem* item = Append(wxID_ANY, wx::ToLabel(none));
  item->Enable(false);
  ids_.push_back(item->GetId());
}

}  // namespace desktop
