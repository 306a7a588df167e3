// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "dialogs/check_field.h"
#include "dialogs/dialog_form.h"
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
  // Chooses the class; one that is not in the list is named beside it.
  void ChooseClass(std::string_view prog_id);

  forms::Frame fraFunction{this, "fraFunction"};
  forms::Label lblName{&fraFunction, "lblName"};
  forms::TextBox txtName{&fraFunction, "txtName"};
  forms::Label lblNameHint{&fraFunction, "lblNameHint"};
  forms::Label lblProgID{&fraFunction, "lblProgID"};
  forms::ComboBox cmbProgID{&fraFunction, "cmbProgID"};
  forms::Label lblProgIDHint{&fraFunction, "lblProgIDHint"};
  forms::Label lblType{&fraFunction, "lblType"};
  forms::ComboBox cmbType{&fraFunction, "cmbType"};
  forms::Label lblScanTime{&fraFunction, "lblScanTime"};
  forms::TextBox txtScanTime{&fraFunction, "txtScanTime"};
  forms::Label lblComment{&fraFunction, "lblComment"};
  forms::TextBox txtComment{&fraFunction, "txtComment"};
  forms::CheckBox chkEnabled{&fraFunction, "chkEnabled"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 private:
  void OnClass();
  void OnType();
  void ShowClassHint(std::string_view missing_class);

  CCheckField scan_time_check_;
  std::string class_warnings_;
};

}  // namespace dialogs
