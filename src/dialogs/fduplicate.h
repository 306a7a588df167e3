// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dialogs/dialog_form.h"
#include "exchange/formula_copy.h"
#include "forms/combo_box.h"

namespace dialogs {

// Copies of a formula under other names, with texts exchanged in all that it consists of. What
// would come of it is shown while it is typed, the code included.
class FDuplicate : public DialogForm {
 public:
  // The source outlives the dialog.
  FDuplicate(const DialogContext& context, const exchange::CopySource& source);

  // Plans the copies by what is in the fields, and shows them.
  void Plan();
  // What was shown last; it can be carried out when the dialog was confirmed.
  exchange::CopyPlan& copies() { return *copies_; }

  forms::Label lblName{this, "lblName"};
  forms::TextBox txtName{this, "txtName"};
  forms::Label lblClass{this, "lblClass"};
  forms::ComboBox cmbClass{this, "cmbClass"};
  forms::Label lblPairs{this, "lblPairs"};
  forms::TextBox txtPairs{this, "txtPairs"};
  forms::Label lblHint{this, "lblHint"};
  forms::Label lblPreview{this, "lblPreview"};
  forms::TextBox txtPreview{this, "txtPreview"};
  forms::Label lblState{this, "lblState"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 protected:
  void Accept() override;

 private:
  exchange::CopyRequest Request() const;
  // Lines of the plan, and the code of the first copy.
  std::string Preview() const;

  const exchange::CopySource& source_;
  std::optional<exchange::CopyPlan> copies_;
};

}  // namespace dialogs
