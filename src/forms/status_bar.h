// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace forms {

struct Panel {
  std::string text;
  double width = 0;  // twips; 0 shares what is left
};

class StatusBar : public Control {
 public:
  using Control::Control;

  // Panels are numbered from 0.
  void AddPanel(double width = 0) {
    panels_.push_back({{}, width});
    Notify(Property::kPanels);
  }
  const std::vector<Panel>& Panels() const { return panels_; }
  // Notifies only when the text differs.
  void SetPanelText(std::size_t panel, std::string_view text) {
    Assign(panels_.at(panel).text, std::string(text), Property::kPanels);
  }

 private:
  std::vector<Panel> panels_;
};

}  // namespace forms
