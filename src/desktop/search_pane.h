// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/lower_pane.h"
#include "desktop/place_table.h"
#include "texts/text_table.h"
#include "vbcode/text_search.h"

class wxCheckBox;
class wxPanel;
class wxSizer;
class wxTextCtrl;

namespace desktop {

// Places in the code below everything else, with the fields to find and replace a text above them
// when that is what was asked for. Hidden until then.
class SearchPane : public LowerPane {
 public:
  // The texts outlive the pane.
  SearchPane(wxWindow* parent, const texts::TextTable& texts);

  // Shows the fields, which take the keyboard; a text is proposed unless it is empty.
  void OpenFields(const std::string& text);
  // Shows places under a title. The list takes the keyboard when there are some.
  void ShowPlaces(const std::string& title, std::vector<PlaceTable::Row> rows);
  // The same without the fields.
  void ShowPlacesAlone(const std::string& title, std::vector<PlaceTable::Row> rows);
  // The same; the keyboard stays where it is.
  void OfferPlaces(const std::string& title, std::vector<PlaceTable::Row> rows);
  void Close() override;

  // Chooses the place after the one that was looked at last, or the one before it, round; the
  // first time the one that is selected. Nothing when none is shown.
  std::optional<std::size_t> MoveOn(bool backward);

  std::string Wanted() const;
  std::string Replacement() const;
  vbcode::SearchOptions Options() const;

  std::function<void()> on_find;
  std::function<void()> on_replace;
  std::function<void(std::size_t row)> on_select;  // by the user
  std::function<void(std::size_t row)> on_activate;
  std::function<void(bool backward)> on_move_on;

 private:
  wxSizer* MakeFields();
  bool HandleKey(const wxKeyEvent& event) override;
  void LookAt(std::size_t row);
  void ShowFields(bool shown);
  void SetPlaces(const std::string& title, std::vector<PlaceTable::Row> rows);

  wxPanel* fields_;
  wxTextCtrl* wanted_;
  wxTextCtrl* replacement_;
  wxCheckBox* whole_word_;
  wxCheckBox* match_case_;
  PlaceTable* table_;
  std::optional<std::size_t> looked_at_;
};

}  // namespace desktop
