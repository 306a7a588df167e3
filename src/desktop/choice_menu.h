// SPDX-License-Identifier: MIT
#pragma once

#include <wx/menu.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace desktop {

// A menu of texts to choose from that changes while the program runs.
class ChoiceMenu : public wxMenu {
 public:
  ChoiceMenu();

  // `none` stands there, disabled, when there is nothing to choose.
  void Fill(const std::vector<std::string>& choices, const std::string& none);

  std::function<void(std::size_t)> on_choice;

 private:
  std::vector<int> ids_;
};

}  // namespace desktop
