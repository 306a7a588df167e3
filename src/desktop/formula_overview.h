// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/overview_rows.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "messages/text_number.h"
#include "texts/text_table.h"
#include "wx/grid_view.h"

class wxChoice;
class wxMenu;
class wxSearchCtrl;
class wxStaticText;

namespace desktop {

// All formulas of the project as one table: ordered by any column, narrowed down by a text, a class
// and a call type. What is done to them is somebody else's.
class FormulaOverview : public wxPanel {
 public:
  // The texts outlive the panel.
  FormulaOverview(wxWindow* parent, const texts::TextTable& texts);
  ~FormulaOverview() override;

  // In place of those that are shown. Order, filters, current row and selection stay.
  void ShowFormulas(std::vector<OverviewFormula> formulas);
  // Makes a formula the current one.
  void GoTo(std::int32_t id);
  void TakeKeyboard();
  // Shows the formulas of one class only.
  void ShowClass(const std::string& prog_id);
  // Shows the formulas of a group of the tree only: a class, or the number of a call type; all of
  // them again for "", if it was a group that left them out.
  void ShowGroup(const std::string& group, bool of_classes);
  // Shows a menu at the mouse or at the current row; the ID that was chosen, wxID_NONE for none.
  int ChooseFromMenu(wxMenu& menu);

  // The formula with the keyboard; null when there is none.
  const OverviewFormula* Current() const;
  // Those that are selected and in sight, in the order shown.
  std::vector<std::int32_t> Selected() const;
  const OverviewFormula* Find(std::int32_t id) const { return rows_->Find(id); }

  std::function<void()> on_open = [] {};  // Enter, double click
  std::function<void()> on_menu = [] {};  // of what is selected
  std::function<void(forms::KeyEvent&)> on_key = [](forms::KeyEvent&) {};

 private:
  struct Model : forms::Form {
    Model() : Form("FormulaOverview", forms::FormLayout::kFixed) {}
    forms::Grid table{this, "table"};
  };

  void MakeColumns();
  wxSizer* MakeHead();
  wxChoice* MakeChoice(messages::TextNumber text);
  void FillClasses();
  void Choose();
  void ShowOnly(int prog_id, int type);
  void OnKey(forms::KeyEvent& event);
  void OnFilterKey(wxKeyEvent& event);
  void LeaveFilter();
  void ShowCount();
  std::string Text(messages::TextNumber number) const { return texts_.Text(number); }

  const texts::TextTable& texts_;
  const wx::ViewContext context_;
  std::shared_ptr<OverviewRows> rows_;
  Model model_;
  wxSearchCtrl* filter_;
  wxChoice* classes_;
  wxChoice* call_types_;
  wxStaticText* count_;
  std::unique_ptr<wx::GridView> view_;
  std::vector<std::string> class_names_;  // of the choice, behind the entry of all
  bool shows_group_ = false;
};

}  // namespace desktop
