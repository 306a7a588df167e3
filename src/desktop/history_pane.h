// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/change_view.h"
#include "desktop/lower_pane.h"
#include "desktop/place_table.h"

namespace desktop {

// The operations of the history and, beside them, what the selected one changed.
class HistoryPane : public LowerPane {
 public:
  HistoryPane(wxWindow* parent, const texts::TextTable& texts);

  // In place of those that are shown; the row is selected.
  void ShowOperations(std::vector<PlaceTable::Row> rows, std::size_t selected);
  void ShowChange(const std::string& text) { change_->ShowText(text); }
  // What the button does to the selected operation: take it back, or do it again.
  enum class Offer { kNothing, kUndo, kRedo };
  void ShowOffer(Offer offer);
  // Nothing when the list is empty.
  std::optional<std::size_t> Selected() const;
  void TakeKeyboard() { table_->SetFocus(); }

  std::function<void()> on_select;
  std::function<void()> on_revert;

 private:
  PlaceTable* table_;
  ChangeView* change_;
  wxButton* revert_;
};

}  // namespace desktop
