// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dialogs/dialog_form.h"
#include "forms/combo_box.h"

namespace dialogs {

// In and Out of several arguments at once: yes, no, or as each has it.
class FArguments : public DialogForm {
 public:
  FArguments(const DialogContext& context, const std::vector<std::string>& names);

  // Nothing: each keeps its own.
  std::optional<bool> In() const { return ValueOf(cmbIn); }
  std::optional<bool> Out() const { return ValueOf(cmbOut); }

  forms::Label lblNames{this, "lblNames"};
  forms::Label lblIn{this, "lblIn"};
  forms::ComboBox cmbIn{this, "cmbIn"};
  forms::Label lblOut{this, "lblOut"};
  forms::ComboBox cmbOut{this, "cmbOut"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 private:
  static std::optional<bool> ValueOf(const forms::ComboBox& choice);
};

}  // namespace dialogs
