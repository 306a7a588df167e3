// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "dialogs/dialog_form.h"
#include "dialogs/uses_offer.h"
#include "forms/combo_box.h"
#include "store/formula_records.h"

namespace dialogs {

// The argument dialog. An alias must be chosen, or a series of them be typed for new arguments,
// which is shown while it is typed; an argument of a formula that is called on a
// variable change is input or return value, not both.
class FParameter : public DialogForm {
 public:
  explicit FParameter(const DialogContext& context);

  // Shows the argument of the ID; false when its alias is not in the list.
  bool Load(const store::ArgumentValues& values, std::int32_t argument_id);
  store::ArgumentValues Values() const;
  // Of the series, or of the alias that is chosen.
  std::vector<store::ArgumentValues> AllValues() const;
  // Whether the uses of the old alias in the formula's procedure follow.
  bool WithUses() const { return uses_.Taken(); }

  // Set after loading: what is stored already is not judged.
  void SetOnVariableChange(bool on_variable_change) { on_variable_change_ = on_variable_change; }

  forms::Frame fraParameter{this, "fraParameter"};
  forms::Label lblVBAlias{&fraParameter, "lblVBAlias"};
  forms::ComboBox cmbVBAlias{&fraParameter, "cmbVBAlias"};
  forms::Label lblVBAliasHint{&fraParameter, "lblVBAliasHint"};
  forms::CheckBox chkWithUses{&fraParameter, "chkWithUses"};
  forms::Label lblWithUsesHint{&fraParameter, "lblWithUsesHint"};
  forms::CheckBox chkIn{&fraParameter, "chkIn"};
  forms::CheckBox chkOut{&fraParameter, "chkOut"};
  forms::Label lblSeries{&fraParameter, "lblSeries"};
  forms::TextBox txtSeries{&fraParameter, "txtSeries"};
  forms::Label lblSeriesHint{&fraParameter, "lblSeriesHint"};
  forms::Button cmdNewAlias{this, "cmdNewAlias"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 private:
  void OnFlag(forms::CheckBox& clicked);
  void OnAlias();
  void MakeAlias();
  void OnSeries();

  UsesOffer uses_;
  std::int32_t argument_id_ = 0;  // that is edited; 0 for a new one
  std::int32_t stored_alias_ = 0;
  bool on_variable_change_ = false;
  std::vector<std::int32_t> series_;  // IDs of its aliases
};

}  // namespace dialogs
