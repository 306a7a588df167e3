// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/dialog_form.h"
#include "exchange/import_plan.h"
#include "forms/combo_box.h"
#include "forms/list_view.h"

namespace dialogs {

// Shows what an import would do before it is done, line by line, and asks what is to become of what
// exists. Refused lines stop it unless they are left out.
class FImport : public DialogForm {
 public:
  // Plans anew for other choices; nothing when the user stopped it. What it raises is shown.
  using Planner =
      std::function<std::optional<exchange::ImportPlan>(const exchange::ImportOptions& options)>;
  FImport(const DialogContext& context, std::string_view name, Planner planner);

  // Classes to choose from for formulas that name none; none leaves the question out.
  void OfferClasses(const std::vector<store::ClassEntry>& classes);
  // Columns that nobody knows.
  void ShowIgnored(const std::vector<std::string>& names);
  // Whether arguments can name aliases that are missing.
  void OfferAliases(bool offered) { chkCreate.SetVisible(offered); }

  // Shows the plan and asks. Whether it is to be carried out.
  bool Ask();
  // What was shown last.
  exchange::ImportPlan& plan() { return plan_; }

  forms::Label lblCounts{this, "lblCounts"};
  forms::Label lblShow{this, "lblShow"};
  forms::ComboBox cmbShow{this, "cmbShow"};
  forms::ListView lvwPlan{this, "lvwPlan"};
  forms::Label lblReason{this, "lblReason"};
  forms::Label lblExisting{this, "lblExisting"};
  forms::ComboBox cmbExisting{this, "cmbExisting"};
  forms::Label lblClass{this, "lblClass"};
  forms::ComboBox cmbClass{this, "cmbClass"};
  forms::CheckBox chkCreate{this, "chkCreate"};
  forms::CheckBox chkSkip{this, "chkSkip"};
  forms::Label lblState{this, "lblState"};
  forms::Label lblIgnored{this, "lblIgnored"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 protected:
  void Accept() override;

 private:
  exchange::ImportOptions Options() const;
  bool Plan();
  void ShowCounts();
  void ShowLines();
  // Of the current line, which may be longer than its column.
  void ShowReason();
  // What keeps the plan from being carried out, or is to be known of it.
  void ShowState();

  Planner planner_;
  exchange::ImportPlan plan_;
  exchange::ImportPlan::Counts counts_;
  bool asked_ = false;  // choices that change from now on are the user's
};

}  // namespace dialogs
