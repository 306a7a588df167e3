// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "desktop/lower_pane.h"
#include "desktop/place_table.h"

class wxTextCtrl;

namespace desktop {

// What the check found, and beside it what is wrong at the selected place and what helps.
class CheckPane : public LowerPane {
 public:
  CheckPane(wxWindow* parent, const texts::TextTable& texts);

  // In place of those that are shown, under a title that counts them.
  void ShowFindings(const std::string& title, std::vector<PlaceTable::Row> rows);
  void ShowExplanation(const std::string& text);
  // Whether the selected findings can be repaired.
  void OfferRepair(bool offered);
  // From top to bottom.
  std::vector<std::size_t> Selected() const { return table_->Selected(); }
  void TakeKeyboard() { table_->SetFocus(); }

  std::function<void()> on_select;
  std::function<void(std::size_t row)> on_activate;
  std::function<void()> on_repair;
  std::function<void()> on_check;

 private:
  PlaceTable* table_;
  wxTextCtrl* explanation_;
  wxButton* repair_;
};

}  // namespace desktop
