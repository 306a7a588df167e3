// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "desktop/lower_pane.h"
#include "desktop/place_table.h"

class wxChoice;

namespace desktop {

class FlowCanvas;

// The data flow around a formula or an item: a picture, and beside it the same as a list.
class FlowPane : public LowerPane {
 public:
  FlowPane(wxWindow* parent, const texts::TextTable& texts);

  void ShowFlow(const std::string& title, std::vector<PlaceTable::Row> rows);
  FlowCanvas& canvas() const { return *canvas_; }
  // How many edges away the picture goes.
  std::int32_t Depth() const;
  void TakeKeyboard() { table_->SetFocus(); }

  std::function<void()> on_depth;
  std::function<void()> on_save;
  std::function<void(std::size_t row)> on_activate;

 private:
  wxWindow* MakeFields();

  FlowCanvas* canvas_;
  PlaceTable* table_;
  wxChoice* depth_;
};

}  // namespace desktop
