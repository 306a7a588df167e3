// SPDX-License-Identifier: MIT
#include "wx/combo_view.h"
#include "wx/control_view.h"
#include "wx/field_views.h"
#include "wx/grid_view.h"
#include "wx/toolbar_view.h"

namespace wx {

std::unique_ptr<ControlView> MakeView(forms::Control& control, wxWindow* parent,
                                      const ViewContext& context) {
  if (auto* label = dynamic_cast<forms::Label*>(&control)) {
    return MakeLabelView(*label, parent, context);
  }
  if (auto* box = dynamic_cast<forms::TextBox*>(&control)) {
    return MakeTextBoxView(*box, parent, context);
  }
  if (auto* check = dynamic_cast<forms::CheckBox*>(&control)) {
    return MakeCheckBoxView(*check, parent, context);
  }
  if (auto* button = dynamic_cast<forms::Button*>(&control)) {
    return MakeButtonView(*button, parent, context);
  }
  if (auto* combo = dynamic_cast<forms::ComboBox*>(&control)) {
    return MakeComboView(*combo, parent, context);
  }
  if (auto* grid = dynamic_cast<forms::Grid*>(&control)) {
    return std::make_unique<GridView>(*grid, parent, context);
  }
  if (auto* list = dynamic_cast<forms::ListView*>(&control)) {
    return std::make_unique<ListViewView>(*list, parent, context);
  }
  if (auto* toolbar = dynamic_cast<forms::Toolbar*>(&control)) {
    return MakeToolbarView(*toolbar, parent);
  }
  if (auto* bar = dynamic_cast<forms::StatusBar*>(&control)) return MakeStatusBarView(*bar, parent);
  if (auto* splitter = dynamic_cast<forms::Splitter*>(&control)) {
    return MakeSplitterView(*splitter, parent);
  }
  return nullptr;
}

}  // namespace wx
