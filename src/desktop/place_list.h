// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>

#include <functional>
#include <vector>

#include "platform/studio.h"
#include "texts/text_table.h"

class wxListBox;
class wxStaticText;

namespace desktop {

// Places of the code that the last operation has something to say of, to go to one by one. Hidden
// while there are none.
class PlaceList : public wxPanel {
 public:
  // The texts outlive the list.
  PlaceList(wxWindow* parent, const texts::TextTable& texts);

  // In place of those that are shown; none hides the list.
  void ShowPlaces(std::vector<platform::Notice> places);

  // A place was chosen; `enter`: the user goes on there.
  std::function<void(const platform::Notice& place, bool enter)> on_place;
  // After the list became higher or lower.
  std::function<void()> on_height;

 private:
  void Choose(bool enter);

  const texts::TextTable& texts_;
  wxStaticText* title_;
  wxListBox* list_;
  std::vector<platform::Notice> places_;
};

}  // namespace desktop
