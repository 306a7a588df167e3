// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "dialogs/dialog_form.h"
#include "dialogs/uses_offer.h"
#include "forms/combo_box.h"
#include "store/formula_records.h"

namespace dialogs {

// The formula definition dialog. It enforces two interlocks: a class must be chosen, and the scan
// time belongs to asynchronous calls.
class FFunction : public DialogForm {
 public:
  explicit FFunction(const DialogContext& context);

  // Fills the class list; texts of the warnings explain classes that cannot be used as they are.
  void SetClasses(const store::ClassList& classes);
  // Shows a formula that is stored. Its class may not be in the list: it is named beside it.
  void Load(const store::FormulaRecord& record);
  // Chooses the class; one that is not in the list is named beside it.
  void ChooseClass(std::string_view prog_id);
  // Whether another class than the one that was shown first is chosen, and the code can follow.
  bool Moves() const;
  // Whether calls of the formula follow its new name.
  bool WithUses() const { return uses_.Taken(); }

  forms::Frame fraFunction{this, "fraFunction"};
  forms::Label lblName{&fraFunction, "lblName"};
  forms::TextBox txtName{&fraFunction, "txtName"};
  forms::Label lblNameHint{&fraFunction, "lblNameHint"};
  forms::CheckBox chkWithUses{&fraFunction, "chkWithUses"};
  forms::Label lblWithUsesHint{&fraFunction, "lblWithUsesHint"};
  forms::Label lblProgID{&fraFunction, "lblProgID"};
  forms::ComboBox cmbProgID{&fraFunction, "cmbProgID"};
  forms::Label lblProgIDHint{&fraFunction, "lblProgIDHint"};
  forms::CheckBox chkWithCode{&fraFunction, "chkWithCode"};
  forms::Label lblWithCodeHint{&fraFunction, "lblWithCodeHint"};
  forms::Label lblType{&fraFunction, "lblType"};
  forms::ComboBox cmbType{&fraFunction, "cmbType"};
  forms::Label lblScanTime{&fraFunction, "lblScanTime"};
  forms::TextBox txtScanTime{&fraFunction, "txtScanTime"};
  forms::Label lblScanTimeHint{&fraFunction, "lblScanTimeHint"};
  forms::Label lblComment{&fraFunction, "lblComment"};
  forms::TextBox txtComment{&fraFunction, "txtComment"};
  forms::CheckBox chkEnabled{&fraFunction, "chkEnabled"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 protected:
  void Accept() override;

 private:
  void OnName();
  void OnClass();
  void OnType();
  void OnScanTime();
  bool Asynchronous() const;
  // What keeps the scan time from being stored; it is judged where it is used and was changed.
  std::string ScanTimeProblem() const;
  void ShowClassHint(std::string_view missing_class);

  std::optional<store::FormulaRecord> stored_;  // as it was shown first
  std::string class_warnings_;
  UsesOffer uses_;
};

}  // namespace dialogs
